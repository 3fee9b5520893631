// SPDX-License-Identifier: MIT
#pragma once

class QApplication;

namespace wallgrid {

/// Neutral dark greys, so that the colours of the pictures are judged in front of something without a colour of its
/// own.
void applyTheme(QApplication& application);

} // namespace wallgrid
