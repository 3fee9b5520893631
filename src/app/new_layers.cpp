// SPDX-License-Identifier: MIT
#include "app/new_layers.h"

#include "app/arrangement.h"
#include "app/free_place.h"
#include "items/gx_screen.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

/// The left or top edge of what has its middle at a place, moved so that it lies in the output or covers it.
std::int64_t nearEdge(std::int64_t middle, std::int64_t length, std::int64_t output)
{
    const std::int64_t room = output - length;
    return std::clamp(middle - length / 2, std::min<std::int64_t>(room, 0), std::max<std::int64_t>(room, 0));
}

} // namespace

NewLayers::NewLayers(GXAppDelegate& delegate, UndoHistory& history)
    : m_delegate(delegate)
    , m_history(history)
    , m_observation(history.observe([this] { noteLastStep(); }))
{
}

void NewLayers::addScreen()
{
    add([this] { m_delegate.AddScreen(); },
        [this](GXItem& screen) {
            if (m_lastPanel) {
                screen.setPanelWidth(m_lastPanel->width);
                screen.setPanelHeight(m_lastPanel->height);
            }
            placeFreely(screen);
        });
}

void NewLayers::addImage()
{
    add([this] { m_delegate.AddImage(); }, [this](GXItem& still) { placeFreely(still); });
}

void NewLayers::addImageAt(const UrlRef& location, StringRef name, std::optional<PixelPoint> middle)
{
    add([&] { m_delegate.addImageAt(location); },
        [&](GXItem& still) {
            still.setLabel(std::move(name));
            if (!middle)
                return placeFreely(still);
            const PixelRect place = still.frame();
            moveTo(still, {nearEdge(middle->x, place.width, m_delegate.OutputWidth()),
                           nearEdge(middle->y, place.height, m_delegate.OutputHeight())});
        });
}

void NewLayers::add(const std::function<void()>& command, const std::function<void(GXItem&)>& finish)
{
    auto& layers = m_delegate.arraycontroller();
    const std::size_t count = layers.arrangedObjects().size();
    m_history.closeStep();
    const bool mayUpdate = m_delegate.shouldUpdate();
    m_delegate.setShouldUpdate(false); // a pass in between would show the layer where it does not stay
    command();
    const bool added = layers.arrangedObjects().size() > count;
    if (added)
        finish(*layers.selectedObject());
    m_delegate.setShouldUpdate(mayUpdate);
    if (added)
        m_delegate.update();
    m_history.closeStep();
}

void NewLayers::placeFreely(GXItem& layer)
{
    std::vector<PixelRect> taken;
    for (const ItemRef& item : m_delegate.arraycontroller().arrangedObjects()) {
        if (item.get() != &layer)
            taken.push_back(item->frame());
    }
    const PixelRect output{0, 0, m_delegate.OutputWidth(), m_delegate.OutputHeight()};
    if (const auto place = freePlace(layer.frame(), std::move(taken), output))
        moveTo(layer, *place);
}

void NewLayers::noteLastStep()
{
    using What = DocumentChange::What;
    const DocumentChange* step = m_history.undoable();
    if (!step || step->presets)
        return;
    const GXItem* used = nullptr;
    if (step->what == What::Added)
        used = m_delegate.arraycontroller().selectedObject().get();
    else if (step->what == What::Property && step->property == "panelSize")
        used = step->items.front();
    if (dynamic_cast<const GXScreen*>(used))
        m_lastPanel = {used->panelWidth(), used->panelHeight()};
}

} // namespace wallgrid
