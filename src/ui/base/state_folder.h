// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace wallgrid {

/// Where the program keeps what it remembers between sessions: $XDG_STATE_HOME/wallgrid, or under ~/.local/state
/// without that variable.
QString stateFolder();

} // namespace wallgrid
