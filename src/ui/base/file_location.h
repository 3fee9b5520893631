// SPDX-License-Identifier: MIT
#pragma once

#include "base/url.h"

#include <QFile>
#include <memory>

namespace wallgrid {

/// Of an absolute path.
inline UrlRef fileLocation(const QString& path)
{
    return std::make_shared<const Url>(Url::fromFilePath(QFile::encodeName(path).toStdString()));
}

} // namespace wallgrid
