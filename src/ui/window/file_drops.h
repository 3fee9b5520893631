// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/geometry.h"

#include <QObject>
#include <QStringList>
#include <optional>
#include <string>

class QDropEvent;
class QWidget;

namespace wallgrid {

class NewLayers;
class ZoomView;

/// Takes files that are dropped on a window, when a picture or a project is among them. A picture is called after its
/// file; it lies where it was dropped on the preview, and at a free place otherwise. What is no picture is opened as a
/// project, and opening says what is wrong with it.
class FileDrops final : public QObject {
    Q_OBJECT

public:
    /// The window owns the drops.
    FileDrops(NewLayers& newLayers, const ZoomView& preview, QWidget& window);

signals:
    void openWanted(const std::string& location);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The first picture comes to lie with its middle at a point of the output, if there is one.
    void open(const QStringList& paths, std::optional<PixelPoint> middle);

    NewLayers& m_newLayers;
    const ZoomView& m_preview;
    bool m_wanted = false; ///< what is being dragged over the window
};

} // namespace wallgrid
