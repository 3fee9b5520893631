// SPDX-License-Identifier: MIT
#include "app/still_pictures.h"

#include "graphics/image_file.h"

#include <deque>
#include <filesystem>
#include <map>
#include <set>

namespace wallgrid {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostNames = 100'000;

std::string nameOf(const GXStill& still)
{
    return fs::path(still.ImageURL()->path()).filename().string();
}

/// The files of these names, the least deep ones.
std::map<std::string, std::string> pathsByName(const std::set<std::string>& names, const std::string& folder)
{
    std::map<std::string, std::string> paths;
    std::deque<fs::path> folders{folder};
    std::size_t seen = 0;
    for (; !folders.empty() && paths.size() < names.size(); folders.pop_front()) {
        std::error_code error;
        fs::directory_iterator entry(folders.front(), error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            if (++seen > kMostNames)
                return paths;
            std::error_code unknown;
            const std::string name = entry->path().filename().string();
            if (entry->is_directory(unknown) && !entry->is_symlink(unknown))
                folders.push_back(entry->path());
            else if (names.contains(name))
                paths.try_emplace(name, entry->path().string());
        }
    }
    return paths;
}

void putIn(GXStill& still, ImageRef image, UrlRef location)
{
    const bool sized = still.panelWidth() != 0 || still.panelHeight() != 0;
    if (!sized) {
        const StillRef asItIs = GXStill::initWithimage(image);
        still.setPanelWidth(asItIs->panelWidth());
        still.setPanelHeight(asItIs->panelHeight());
    }
    still.setImageURL(std::move(location));
    still.setThumbnail(std::move(image));
    still.drawInRect();
}

} // namespace

std::vector<StillRef> missingPictures(const GXAppDelegate& delegate)
{
    std::vector<StillRef> missing;
    for (const ItemRef& item : delegate.arraycontroller().arrangedObjects()) {
        const auto still = std::dynamic_pointer_cast<GXStill>(item);
        if (still && still->ImageURL() && !still->thumbnail())
            missing.push_back(still);
    }
    return missing;
}

std::size_t findPictures(GXAppDelegate& delegate, const std::string& folder)
{
    const std::vector<StillRef> missing = missingPictures(delegate);
    std::set<std::string> names;
    for (const StillRef& still : missing)
        names.insert(nameOf(*still));
    const auto paths = pathsByName(names, folder);
    ImageFiles images;
    std::size_t found = 0;
    for (const StillRef& still : missing) {
        const auto path = paths.find(nameOf(*still));
        if (path == paths.end())
            continue;
        const auto location = std::make_shared<const Url>(Url::fromFilePath(path->second));
        if (ImageRef image = images.image(*location)) {
            putIn(*still, std::move(image), location);
            ++found;
        }
    }
    if (found > 0)
        delegate.update();
    return found;
}

Expected<void> changePicture(GXAppDelegate& delegate, GXStill& still, const UrlRef& location)
{
    auto image = imageWithContentsOfURL(*location);
    if (!image)
        return tl::unexpected(image.error());
    putIn(still, std::move(*image), location);
    delegate.update();
    return {};
}

} // namespace wallgrid
