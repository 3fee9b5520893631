// SPDX-License-Identifier: MIT
#include "ui/base/shown_text.h"

namespace wallgrid {

QString shownText(QStringView text, qsizetype limit)
{
    const bool whole = text.size() <= limit;
    QStringView start = whole ? text : text.first(limit);
    if (!whole && start.back().isHighSurrogate())
        start.chop(1);
    QString line = start.toString();
    for (QChar& unit : line) {
        if (unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
            unit == QChar::ParagraphSeparator)
            unit = u' ';
    }
    return whole ? line : line + u'…';
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
