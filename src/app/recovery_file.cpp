// SPDX-License-Identifier: MIT
#include "app/recovery_file.h"

#include "archive/keyed_unarchiver.h"
#include "items/item_decoding.h"

#include <utility>

namespace wallgrid {

namespace {

constexpr std::string_view kBackground = "bgcolor";
constexpr std::string_view kEdge = "edgecolor";
constexpr std::string_view kPresets = "presets";

} // namespace

Bytes writeRecoveryFile(const GXAppDelegate& delegate)
{
    const ItemArray& presets = delegate.presetarraycontroller().arrangedObjects();
    NamedValues beside{{kPresets, ArchiveArray(presets.begin(), presets.end())}};
    if (delegate.bgColor())
        beside.emplace_back(kBackground, delegate.bgColor());
    if (delegate.edgeColor())
        beside.emplace_back(kEdge, delegate.edgeColor());
    return writeProject(delegate.project(), beside);
}

Expected<void> loadRecoveryFile(GXAppDelegate& delegate, Bytes bytes)
{
    const auto project = readProject(bytes);
    if (!project)
        return tl::unexpected(project.error());
    const auto root = KeyedUnarchiver::rootObject(std::move(bytes));
    const auto named = root ? root->named(kPresets) : std::nullopt;
    const auto presets = named ? decodeItems(*named) : failure("the file names no presets");
    delegate.loadProject(*project);
    if (presets) {
        delegate.setBgColor(root->namedColor(kBackground));
        delegate.setEdgeColor(root->namedColor(kEdge));
        delegate.loadPresets(*presets);
    }
    return {};
}

} // namespace wallgrid
