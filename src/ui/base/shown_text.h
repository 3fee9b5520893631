// SPDX-License-Identifier: MIT
#pragma once

#include "base/string_ref.h"

#include <QString>

namespace wallgrid {

/// Texts of a document are whatever a file holds: megabytes long, several lines, markup, half characters. These make
/// of them what may be laid out as one line of a window.

/// Longer names are shown in part, and replaced as a whole.
constexpr qsizetype kLongestEditableName = 1000;

/// The first units of a text on one line, with "…" where it goes on.
QString shownText(QStringView text, qsizetype limit = 200);
QString shownText(const StringRef& text, qsizetype limit = 200);

/// A tool tip that shows the text as it is instead of reading it as markup.
QString plainToolTip(const QString& text);

/// A text for labels and menus, where "&" marks a mnemonic.
QString withoutMnemonics(QString text);

/// Without a copy. The view lives as long as the string.
inline QStringView viewOf(const StringRef& text)
{
    return QStringView(textOf(text));
}

} // namespace wallgrid
