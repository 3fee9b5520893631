// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointF>
#include <QStringList>
#include <string>

class QDropEvent;
class QWidget;

namespace wallgrid {

class GXAppDelegate;
class NewLayers;
class ZoomView;

/// Takes files that are dropped on a window, when a picture or a project is among them. A picture that is dropped on
/// the preview lies there and is called after its file; elsewhere it is added as the Add sheet adds one. What is no
/// picture is opened as a project, and opening says what is wrong with it.
class FileDrops final : public QObject {
    Q_OBJECT

public:
    /// The window owns the drops.
    FileDrops(GXAppDelegate& delegate, NewLayers& newLayers, const ZoomView& preview, QWidget& window);

signals:
    void openWanted(const std::string& location);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void open(const QStringList& paths);
    void openOnPreview(const QStringList& paths, QPointF position);

    GXAppDelegate& m_delegate;
    NewLayers& m_newLayers;
    const ZoomView& m_preview;
    bool m_wanted = false; ///< what is being dragged over the window
};

} // namespace wallgrid
