// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/views.h"
#include "ui/preview/display_fit.h"
#include "ui/preview/display_wake.h"
#include "ui/preview/raster_window.h"

#include <QList>
#include <QObject>
#include <optional>

namespace wallgrid {

/// The Output Preview: the raster full screen on a display of the user's choice, which is how it gets onto the wall.
/// When the display is unplugged the preview waits for it and comes back with it. The displays stay awake for it.
class OutputPreview final : public QObject, public WindowLoader {
    Q_OBJECT

public:
    /// The owner's display is the last one that is chosen unasked.
    explicit OutputPreview(const QWidget& owner);

    /// "Output Preview": all controllers are of the one window, which stays where it is when it is shown again.
    std::shared_ptr<WindowController> windowControllerWithNibName(std::string_view name) override;

    /// May be empty.
    void setImage(const ImageRef& image);

    QList<Display> displays() const;
    /// The chosen one, by name; without a choice, one on which the owner is not.
    QString display() const;
    /// Takes effect when the preview is shown the next time.
    void chooseDisplay(const QString& name) { m_chosen = name; }

    void show();
    void leave();
    /// Shown, or waiting for its display.
    bool isActive() const { return !m_shownOn.isEmpty(); }
    /// What the display shows of the output, in words; empty while the preview is not active.
    QString report() const;

signals:
    /// Another answer of isActive() or report(), or other displays.
    void changed();

private:
    void screenAdded(QScreen* screen);
    void screenRemoved(QScreen* screen);
    void follow(QScreen* screen);
    void present(QScreen& screen, RasterWindow::Keyboard keyboard);
    /// Says on the picture what is not exact, and how to leave a display that hides the owner.
    void showNote();

    const QWidget& m_owner;
    RasterWindow m_window;
    QSize m_output;
    QString m_chosen;
    std::optional<DisplayWake> m_wake; // while the preview is active
    QString m_shownOn;                 // the display's name, while the preview is active
};

} // namespace wallgrid
