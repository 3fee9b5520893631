// SPDX-License-Identifier: MIT
#include "ui/window/view_menu.h"

#include "ui/preview/display_menu.h"
#include "ui/preview/output_preview.h"
#include "ui/preview/preview_surface.h"
#include "ui/preview/zoom_bar.h"
#include "ui/window/command_icons.h"
#include "ui/window/output_window.h"

namespace wallgrid {

ViewMenu::ViewMenu(const ZoomBar& zoom, PreviewSurface& preview, QWidget* parent)
    : QMenu(tr("&View"), parent)
{
    addActions(zoom.actions());
    addAction(tr("Zoom to &Selection"), Qt::CTRL | Qt::Key_3, this, [this, &preview] {
        if (!preview.zoomToSelection())
            emit messageWanted(tr("No layer is selected."));
    });
    auto* line = new QAction(this);
    line->setSeparator(true);
    preview.addAction(line);
    preview.addActions(actions());
    addSeparator();
    connect(this, &QMenu::aboutToShow, this, &ViewMenu::drawIcons);
}

void ViewMenu::addOutputWindow(OutputWindow& window)
{
    m_outputWindow = addAction(tr("Output in a &Window"));
    m_outputWindow->setCheckable(true);
    m_outputWindow->setShortcut(Qt::CTRL | Qt::Key_2);
    connect(m_outputWindow, &QAction::triggered, this, [&window](bool shown) {
        if (shown)
            window.show();
        else
            window.hide();
    });
    connect(&window, &OutputWindow::shownChanged, m_outputWindow, &QAction::setChecked);
}

void ViewMenu::addOutputPreview(GXAppDelegate& delegate, OutputPreview& preview)
{
    m_outputPreview = addAction(tr("Output &Preview, Full Screen"));
    m_outputPreview->setCheckable(true);
    m_outputPreview->setShortcut(Qt::Key_F11);
    m_outputPreview->setToolTip(tr("Show the output full screen, pixel for pixel"));
    connect(m_outputPreview, &QAction::triggered, this, [&delegate, &preview](bool shown) {
        if (shown)
            delegate.openPvw();
        else
            preview.leave();
    });
    connect(&preview, &OutputPreview::changed, m_outputPreview,
            [this, &preview] { m_outputPreview->setChecked(preview.isActive()); });
    auto* displays = new DisplayMenu(preview, this);
    connect(displays, &DisplayMenu::chosen, this, [&delegate] { delegate.openPvw(); });
    addMenu(displays);
}

void ViewMenu::drawIcons()
{
    if (m_outputWindow)
        m_outputWindow->setIcon(wallgrid::windowIcon(palette(), devicePixelRatioF()));
    if (m_outputPreview)
        m_outputPreview->setIcon(displayIcon(palette(), devicePixelRatioF()));
}

} // namespace wallgrid
