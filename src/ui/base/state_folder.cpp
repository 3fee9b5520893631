// SPDX-License-Identifier: MIT
#include "ui/base/state_folder.h"

#include <QDir>

namespace wallgrid {

QString stateFolder()
{
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(folder))
        folder = QDir::homePath() + "/.local/state";
    return folder + "/wallgrid";
}

} // namespace wallgrid
