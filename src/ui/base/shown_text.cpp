// SPDX-License-Identifier: MIT
#include "ui/base/shown_text.h"

#include "base/unicode.h"

namespace wallgrid {

QString shownText(QStringView text, qsizetype limit)
{
    const auto start =
        startOfText({text.utf16(), static_cast<std::size_t>(text.size())}, static_cast<std::size_t>(limit));
    QString line = text.first(static_cast<qsizetype>(start.size())).toString();
    for (QChar& unit : line) {
        if (unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
            unit == QChar::ParagraphSeparator)
            unit = u' ';
    }
    return line.size() < text.size() ? line + u'…' : line;
}

QString shownText(const StringRef& text, qsizetype limit)
{
    return shownText(viewOf(text), limit);
}

QString plainToolTip(const QString& text)
{
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

QString withoutMnemonics(QString text)
{
    return text.replace(QStringLiteral("&"), QStringLiteral("&&"));
}

} // namespace wallgrid
