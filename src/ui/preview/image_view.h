// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/views.h"

#include <QImage>
#include <QWidget>
#include <optional>

namespace wallgrid {

/// Shows an image scaled down in proportion to fit, centred on a neutral surround, with a checkerboard behind its
/// transparent parts. It keeps one scaled picture of what it shows and makes it anew only for another image, size or
/// resolution.
///
/// Where the view sits is its layout's matter until it is given a frame in its parent, with the origin at the parent's
/// bottom-left corner.
class ImageViewWidget final : public QWidget, public ImageView {
    Q_OBJECT

public:
    explicit ImageViewWidget(QWidget* parent = nullptr);

    void setImage(ImageRef image) override;
    void setFrameSize(Size size) override;
    void setFollowsContainer() override { m_followsContainer = true; }

    /// From now on the view sits where the frame says, also when the parent's size changes.
    void setFrame(const Rect& frame);
    const std::optional<Rect>& frame() const { return m_frame; }

    const ImageRef& image() const { return m_image; }
    /// Where the picture is painted. What the parent cuts off of the view is of no use to anybody, so the picture is
    /// fitted into the part of it that the parent shows.
    QRect pictureRect() const;
    /// The picture's scale in pixels of the screen, such as "20 %"; empty without a picture.
    QString scaleText() const;

signals:
    /// Another image, or another size of it.
    void pictureChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    const QImage& scaled(QSize size);

    ImageRef m_image;
    std::optional<Rect> m_frame;
    bool m_followsContainer = false;
    QImage m_scaled; // null when it has to be made
};

} // namespace wallgrid
