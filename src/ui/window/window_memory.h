// SPDX-License-Identifier: MIT
#pragma once

class QMainWindow;
class QSettings;

namespace wallgrid {

/// The place and size of a window and of what its named splitters divide, kept in settings between sessions.
void rememberWindow(const QMainWindow& window, QSettings& memory);
/// A place that is on no display any more is moved onto one. What is not a size is left as it is.
void restoreWindow(QMainWindow& window, const QSettings& memory);

} // namespace wallgrid
