// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/views.h"

#include <QWidget>

class QLabel;

namespace wallgrid {

class ImageViewWidget;

/// The window of the large preview. The strip that the view leaves free above itself says what is shown and at which
/// scale.
class OutputWindow final : public QWidget, public Window {
    Q_OBJECT

public:
    OutputWindow();

    /// The content's size; the origin counts from the bottom-left corner of the screen.
    void setFrame(const Rect& frame) override;
    ImageView* addImageView(const Rect& frame) override;
    void show() override;

signals:
    void shownChanged(bool shown);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void describe();

    QLabel* m_caption;
    ImageViewWidget* m_view = nullptr;
};

} // namespace wallgrid
