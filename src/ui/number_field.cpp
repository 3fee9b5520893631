// SPDX-License-Identifier: MIT
#include "ui/number_field.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

namespace wallgrid {

NumberField::NumberField(int minimum, int maximum, QWidget* parent)
    : QSpinBox(parent)
    , m_minimum(minimum)
    , m_maximum(maximum)
{
    setRange(minimum, maximum);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void NumberField::showValue(int value)
{
    const QSignalBlocker blocker(this);
    const int low = std::min(m_minimum, value);
    const int high = std::max(m_maximum, value);
    if (low != minimum() || high != maximum())
        setRange(low, high);
    if (this->value() != value)
        setValue(value);
}

QSize NumberField::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(QStringLiteral("-00000 px")) + 32, QSpinBox::sizeHint().height()};
}

void NumberField::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::ShiftModifier && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        stepBy(event->key() == Qt::Key_Up ? 10 : -10);
    else
        QSpinBox::keyPressEvent(event);
}

void NumberField::wheelEvent(QWheelEvent* event)
{
    // Scrolling past a field must not change it.
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace wallgrid
