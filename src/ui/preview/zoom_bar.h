// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>

class QLabel;

namespace wallgrid {

class ZoomView;

/// Says at which scale a view shows its picture and which pixel the pointer is at, and changes the scale. Its actions
/// are for a menu too.
class ZoomBar final : public QWidget {
    Q_OBJECT

public:
    explicit ZoomBar(ZoomView& view, QWidget* parent = nullptr);

private:
    /// And its action; the sign is what the button shows.
    void addButton(const QString& text, const QString& sign, const QList<QKeySequence>& shortcuts,
                   void (*change)(ZoomView&));
    void showScale();

    ZoomView& m_view;
    QLabel* m_pixel;
    QLabel* m_scale;
};

} // namespace wallgrid
