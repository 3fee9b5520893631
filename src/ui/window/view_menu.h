// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"

#include <QMenu>

namespace wallgrid {

class OutputPreview;
class OutputWindow;
class PreviewSurface;
class ZoomBar;

/// The View menu: what the preview shows, and where else the output is shown. The preview's context menu gets its first
/// part.
class ViewMenu final : public QMenu {
    Q_OBJECT

public:
    ViewMenu(const ZoomBar& zoom, PreviewSurface& preview, QWidget* parent);

    void addOutputWindow(OutputWindow& window);
    void addOutputPreview(GXAppDelegate& delegate, OutputPreview& preview);

signals:
    void messageWanted(const QString& line);

private:
    void drawIcons();

    QAction* m_outputWindow = nullptr;
    QAction* m_outputPreview = nullptr;
};

} // namespace wallgrid
