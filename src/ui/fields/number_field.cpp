// SPDX-License-Identifier: MIT
#include "ui/fields/number_field.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

namespace wallgrid {

namespace {

constexpr int kRoomForButtons = 32;

} // namespace

NumberField::NumberField(int minimum, int maximum, QWidget* parent)
    : QSpinBox(parent)
    , m_minimum(minimum)
    , m_maximum(maximum)
{
    setRange(minimum, maximum);
    m_shown = value();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void NumberField::showValue(int value)
{
    m_shown = value;
    if (m_withheld)
        return;
    const QSignalBlocker blocker(this);
    const int low = std::min(m_minimum, value);
    const int high = std::max(m_maximum, value);
    if (low != minimum() || high != maximum())
        setRange(low, high);
    if (this->value() != value)
        setValue(value);
}

bool NumberField::dropTyped()
{
    if (!m_withheld && cleanText() == textFromValue(value()))
        return false;
    m_withheld = false;
    showValue(m_shown);
    const QSignalBlocker blocker(this);
    setValue(m_shown); // also puts the text right when it was no number
    return true;
}

QSize NumberField::sizeHint() const
{
    // Also when what it shows came from a file and is longer.
    int width = 0;
    for (const int value : {m_minimum, m_maximum})
        width = std::max(width, fontMetrics().horizontalAdvance(prefix() + textFromValue(value) + suffix()));
    return {width + kRoomForButtons, QSpinBox::sizeHint().height()};
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
