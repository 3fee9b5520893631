// SPDX-License-Identifier: MIT
#include "ui/base/image_file_name.h"

#include "items/gx_still.h"
#include "ui/base/shown_text.h"

#include <QFile>

namespace wallgrid {

std::optional<QString> imageFile(const GXItem& item)
{
    constexpr qsizetype kLongestPath = 4096;
    const auto* still = dynamic_cast<const GXStill*>(&item);
    const UrlRef location = still ? still->ImageURL() : nullptr;
    if (!location)
        return std::nullopt;
    if (location->absoluteString().empty())
        return QObject::tr("a location that cannot be read");
    const auto path = location->filePath();
    return shownText(path ? QFile::decodeName(path->c_str()) : QString::fromStdString(location->absoluteString()),
                     kLongestPath);
}

std::optional<QString> missingImageFile(const GXItem& item)
{
    return item.thumbnail() ? std::nullopt : imageFile(item);
}

} // namespace wallgrid
