// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"
#include "app/preset_file.h"

#include <utility>

namespace wallgrid {

void GXAppDelegate::savePresets()
{
    if (const UrlRef location = m_desktop.panels.runSavePanel())
        m_desktop.files.write(*location, writePresets(m_presetarraycontroller.arrangedObjects()));
}

void GXAppDelegate::openPresets()
{
    const UrlRef location = m_desktop.panels.runOpenPanel();
    if (!location)
        return;
    auto bytes = m_desktop.files.read(*location);
    if (!bytes)
        return;
    const auto presets = readPresets(std::move(*bytes));
    if (!presets) {
        m_desktop.files.report(*location, presets.error());
        return;
    }
    loadPresets(*presets);
}

void GXAppDelegate::loadPresets(const ItemArray& presets)
{
    const ItemArray old = m_presetarraycontroller.arrangedObjects();
    m_presetarraycontroller.removeObjects(old);
    m_presetarraycontroller.addObjects(presets);
    m_presetarraycontroller.setSelectionIndex(0);
}

void GXAppDelegate::removePreset()
{
    if (mayRemoveFrom(m_presetarraycontroller))
        m_presetarraycontroller.removeObjectsAtArrangedObjectIndexes(m_presetarraycontroller.selectionIndexes());
}

} // namespace wallgrid
