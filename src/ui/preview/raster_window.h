// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/image.h"

#include <QWidget>

namespace wallgrid {

/// Fills a display with the output raster and nothing else: its top-left pixel in the top-left corner, one pixel of it
/// on one of the display, black around it and behind its transparent parts, no pointer. Esc or F ends it.
class RasterWindow final : public QWidget {
    Q_OBJECT

public:
    RasterWindow();

    /// May be empty.
    void setImage(ImageRef image);
    void showOn(QScreen& screen);

signals:
    void leaveWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    ImageRef m_image;
};

} // namespace wallgrid
