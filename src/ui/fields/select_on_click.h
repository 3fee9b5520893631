// SPDX-License-Identifier: MIT
#pragma once

class QLineEdit;
class QWidget;

namespace wallgrid {

/// Has the click that brings the keyboard to a line of text select all of it, so that typing replaces it. A second
/// click places the cursor, and a drag selects what it passes. The widget is the one that has the keyboard for the
/// line.
void selectAllOnFirstClick(QLineEdit& line, QWidget& focused);

} // namespace wallgrid
