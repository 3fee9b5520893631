// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/image.h"

#include <QTimer>
#include <QWidget>

class QLabel;

namespace wallgrid {

/// Fills a display with the output raster and nothing else: its top-left pixel in the top-left corner, one pixel of it
/// on one of the display, black around it and behind its transparent parts, no pointer. A note can lie over it for some
/// seconds. Esc or F ends it.
class RasterWindow final : public QWidget {
    Q_OBJECT

public:
    RasterWindow();

    /// May be empty.
    void setImage(ImageRef image);
    enum class Keyboard {
        Take,
        Leave, ///< where it is
    };
    void showOn(QScreen& screen, Keyboard keyboard);
    void showNote(const QString& text);

signals:
    void leaveWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void placeNote();

    ImageRef m_image;
    QLabel* m_note;
    QTimer m_noteTime;
};

} // namespace wallgrid
