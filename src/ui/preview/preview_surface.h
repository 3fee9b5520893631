// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "ui/preview/item_drag.h"
#include "ui/preview/zoom_view.h"

#include <array>
#include <optional>

namespace wallgrid {

/// The preview as a place to work in: it outlines the item under the pointer and the selected ones. A click selects:
/// Shift adds and takes away, Ctrl goes to the item below. The mouse drags, and the arrow keys nudge. Items move
/// through their setters, step by step; the controller hears of them there.
class PreviewSurface final : public ZoomView {
    Q_OBJECT

public:
    explicit PreviewSurface(GXAppDelegate& delegate, QWidget* parent = nullptr);

signals:
    /// What is changed between the two is one change to the user: a drag. They never nest. Nudges are changes of their
    /// own, which a history may join.
    void beginInteraction();
    void endInteraction();
    /// Which keys do what at present; empty when that has ended.
    void hintWanted(const QString& hint);

protected:
    PixelRect everything() const override;
    PixelRect selection() const override;
    void paintOver(QPainter& painter) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Press {
        QPointF position; // in the view
        QPointF point;    // of the raster
        bool picksBelow;  // when it is released where it was
    };

    const ItemArray& items() const { return m_delegate.arraycontroller().arrangedObjects(); }
    void hover(ItemRef item);
    void press(QPointF point, Qt::KeyboardModifiers modifiers);
    void startDrag();
    void continueDrag(QPointF position, Qt::KeyboardModifiers modifiers);
    void endDrag();
    bool nudge(int key, Qt::KeyboardModifiers modifiers);
    void endNudge();

    GXAppDelegate& m_delegate;
    ItemRef m_hovered;
    std::optional<Press> m_press;
    std::optional<ItemDrag> m_drag;
    QPointF m_pointer; // where the drag is
    bool m_nudging = false;
    bool m_showsFocus = false;
    std::array<Registration, 2> m_observations;
};

} // namespace wallgrid
