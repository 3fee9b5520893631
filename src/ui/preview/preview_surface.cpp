// SPDX-License-Identifier: MIT
#include "ui/preview/preview_surface.h"

#include "app/arrangement.h"
#include "ui/preview/device_pixels.h"
#include "ui/preview/overlay.h"
#include "ui/preview/picking.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

// In points.
constexpr int kDragDistance = 4;
constexpr int kSnapDistance = 8;

} // namespace

PreviewSurface::PreviewSurface(GXAppDelegate& delegate, QWidget* parent)
    : ZoomView(parent)
    , m_delegate(delegate)
{
    setAccessibleDescription(tr("Arrow keys move the selected layers by 1 pixel, with Shift by 10, with Ctrl by one "
                                "panel. Ctrl and the wheel zoom."));
    auto& controller = delegate.arraycontroller();
    m_observations = {controller.observeSelection([this] { update(); }),
                      controller.observeArrangedObjects({"xpoint", "ypoint", "visible"}, [this] {
                          if (std::find(items().begin(), items().end(), m_hovered) == items().end())
                              m_hovered = nullptr;
                          update();
                      })};
}

PixelRect PreviewSurface::everything() const
{
    ItemArray visible = items();
    std::erase_if(visible, [](const ItemRef& item) { return !item->visible() || item->frame().empty(); });
    return placeAround(visible);
}

PixelRect PreviewSurface::selection() const
{
    return placeAround(selectedLayers(m_delegate));
}

void PreviewSurface::paintOver(QPainter& painter)
{
    Overlay overlay(painter, viewport(), QRect({}, sizeInDevicePixels(*this)), devicePixelRatioF());
    if (m_hovered && !m_drag)
        overlay.paintOutline(m_hovered->frame(), Overlay::Outline::Hovered);
    const ItemArray selected = selectedLayers(m_delegate);
    for (const ItemRef& item : selected) {
        overlay.paintOutline(item->frame(),
                             item->visible() ? Overlay::Outline::Selected : Overlay::Outline::SelectedInvisible);
    }
    if (m_drag) {
        for (const Guide& guide : m_drag->guides())
            overlay.paintGuide(guide);
    }
    if ((m_drag || m_nudging) && !selected.empty()) {
        const GXItem& item = *selected.front();
        overlay.paintTag(item.frame(), tr("%1, %2").arg(item.xpoint()).arg(item.ypoint()));
    }
    if (m_showsFocus) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(QRect({}, sizeInDevicePixels(*this)).adjusted(0, 0, -1, -1));
    }
}

void PreviewSurface::hover(ItemRef item)
{
    if (item == m_hovered)
        return;
    m_hovered = std::move(item);
    update();
}

bool PreviewSurface::event(QEvent* event)
{
    // While something is dragged, Alt is not the way to the menus.
    if (event->type() == QEvent::ShortcutOverride && m_drag)
        event->accept();
    return ZoomView::event(event);
}

void PreviewSurface::mousePressEvent(QMouseEvent* event)
{
    ZoomView::mousePressEvent(event);
    if (isPanning() || m_drag)
        return;
    const QPointF point = toRaster(event->position());
    if (event->button() == Qt::RightButton)
        press(point, {}); // the context menu is about what is there
    if (event->button() != Qt::LeftButton)
        return;
    press(point, event->modifiers());
    if (!m_delegate.arraycontroller().selectionIndexes().empty() && itemAt(items(), point))
        m_press = {event->position(), point, event->modifiers().testFlag(Qt::ControlModifier)};
}

void PreviewSurface::press(QPointF point, Qt::KeyboardModifiers modifiers)
{
    auto& controller = m_delegate.arraycontroller();
    const auto row = itemAt(items(), point);
    auto selection = controller.selectionIndexes();
    if (modifiers.testFlag(Qt::ControlModifier) && !selection.empty())
        return;
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        if (row && selection.erase(*row) == 0)
            selection.insert(*row);
        controller.setSelectionIndexes(selection);
    } else if (!row) {
        controller.setSelectionIndexes({});
    } else if (!selection.contains(*row)) {
        controller.setSelectionIndex(*row);
    }
}

void PreviewSurface::mouseMoveEvent(QMouseEvent* event)
{
    ZoomView::mouseMoveEvent(event);
    if (!event->buttons().testFlag(Qt::LeftButton))
        endDrag(); // another window got the release
    if (isPanning())
        return;
    const bool far = m_press && (event->position() - m_press->position).manhattanLength() >= kDragDistance;
    if (far && !m_drag)
        startDrag();
    if (m_drag) {
        continueDrag(event->position(), event->modifiers());
    } else {
        const auto row = itemAt(items(), toRaster(event->position()));
        hover(row ? items()[*row] : nullptr);
    }
}

void PreviewSurface::startDrag()
{
    const ItemArray dragged = selectedLayers(m_delegate);
    std::vector<PixelRect> targets{{0, 0, viewport().raster().width(), viewport().raster().height()}};
    for (const ItemRef& item : items()) {
        if (item->visible() && std::find(dragged.begin(), dragged.end(), item) == dragged.end())
            targets.push_back(item->frame());
    }
    endNudge();
    emit beginInteraction();
    m_drag.emplace(dragged, std::move(targets));
    setCursor(Qt::SizeAllCursor);
    emit hintWanted(tr("Alt: no snapping. Esc: put back. Before the drag, Shift adds and Ctrl takes what lies below."));
}

void PreviewSurface::continueDrag(QPointF position, Qt::KeyboardModifiers modifiers)
{
    m_pointer = position;
    const auto reach = static_cast<std::int64_t>(kSnapDistance * devicePixelRatioF() / viewport().scale());
    m_drag->moveTo(toRaster(position) - m_press->point,
                   modifiers.testFlag(Qt::AltModifier) ? std::nullopt : std::optional(reach));
    update();
}

void PreviewSurface::endDrag()
{
    m_press.reset();
    if (!m_drag)
        return;
    m_drag.reset();
    unsetCursor();
    update();
    emit hintWanted({});
    emit endInteraction();
}

void PreviewSurface::mouseReleaseEvent(QMouseEvent* event)
{
    ZoomView::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    auto& controller = m_delegate.arraycontroller();
    if (m_press && m_press->picksBelow && !m_drag && controller.selectionIndex()) {
        if (const auto row = itemBelow(items(), m_press->point, *controller.selectionIndex()))
            controller.setSelectionIndex(*row);
    }
    endDrag();
}

void PreviewSurface::leaveEvent(QEvent* event)
{
    hover(nullptr);
    ZoomView::leaveEvent(event);
}

void PreviewSurface::keyPressEvent(QKeyEvent* event)
{
    if (m_drag) {
        if (event->key() == Qt::Key_Escape) {
            m_drag->cancel();
            endDrag();
        } else if (event->key() == Qt::Key_Alt) {
            continueDrag(m_pointer, Qt::AltModifier);
        }
    } else if (!nudge(event->key(), event->modifiers())) {
        ZoomView::keyPressEvent(event);
    }
}

bool PreviewSurface::nudge(int key, Qt::KeyboardModifiers modifiers)
{
    const int x = (key == Qt::Key_Right) - (key == Qt::Key_Left);
    const int y = (key == Qt::Key_Down) - (key == Qt::Key_Up);
    const ItemArray moved = selectedLayers(m_delegate);
    if ((x == 0 && y == 0) || moved.empty())
        return false;
    QSize step(1, 1);
    if (modifiers.testFlag(Qt::ControlModifier))
        step = {moved.front()->panelWidth(), moved.front()->panelHeight()};
    else if (modifiers.testFlag(Qt::ShiftModifier))
        step = {10, 10};
    m_nudging = true;
    moveItems(moved, {std::int64_t{x} * step.width(), std::int64_t{y} * step.height()});
    update();
    return true;
}

void PreviewSurface::endNudge()
{
    if (std::exchange(m_nudging, false))
        update();
}

void PreviewSurface::keyReleaseEvent(QKeyEvent* event)
{
    ZoomView::keyReleaseEvent(event);
    if (event->isAutoRepeat())
        return;
    if (m_drag && event->key() == Qt::Key_Alt)
        continueDrag(m_pointer, Qt::NoModifier);
    if (event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down)
        endNudge();
}

void PreviewSurface::focusInEvent(QFocusEvent* event)
{
    m_showsFocus = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    ZoomView::focusInEvent(event);
}

void PreviewSurface::focusOutEvent(QFocusEvent* event)
{
    m_showsFocus = false;
    endNudge();
    endDrag();
    ZoomView::focusOutEvent(event);
}

} // namespace wallgrid
