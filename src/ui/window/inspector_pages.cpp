// SPDX-License-Identifier: MIT
#include "ui/window/inspector_pages.h"

#include "ui/base/empty_hint.h"

namespace wallgrid {

InspectorPages::InspectorPages(GXAppDelegate& delegate, QWidget* inspector, QAction* selectAll, QAction* add)
    : m_layers(delegate.arraycontroller())
    , m_refresh([this] { refresh(); })
{
    addWidget(inspector);
    addWidget(
        makeEmptyHint(tr("No layer is selected. Click one in the list or in the preview to change it."), selectAll));
    addWidget(makeEmptyHint(tr("There is no layer to change."), add));
    auto& layers = delegate.arraycontroller();
    m_observations = {layers.observeSelection([this] { m_refresh.schedule(); }),
                      layers.observeArrangedObjects({}, [this] { m_refresh.schedule(); })};
    refresh();
}

void InspectorPages::refresh()
{
    setCurrentIndex(!m_layers.selectionIndexes().empty() ? 0 : !m_layers.arrangedObjects().empty() ? 1 : 2);
}

} // namespace wallgrid
