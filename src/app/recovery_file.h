// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"

namespace wallgrid {

/// The file of a recovery copy: a project file that also names what is in no project, the colours of the output and the
/// presets. Opened as a project it is one like any other.
Bytes writeRecoveryFile(const GXAppDelegate& delegate);

/// Puts all that the file holds in the place of the document; what it does not name stays, as in one that is a project
/// and no more. Fails, without having touched anything, when the project cannot be read.
Expected<void> loadRecoveryFile(GXAppDelegate& delegate, Bytes bytes);

} // namespace wallgrid
