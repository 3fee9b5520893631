// SPDX-License-Identifier: MIT
#include "ui/fields/number_field.h"

#include "ui/fields/fault_mark.h"
#include "ui/fields/select_on_click.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

constexpr int kRoomForButtons = 32;

QString reasonOf(NumberFault fault, bool empty)
{
    switch (fault) {
    case NumberFault::Unfinished:
        return empty ? NumberField::tr("A number is missing.") : NumberField::tr("The end of the sum is missing.");
    case NumberFault::Unreadable:
        return NumberField::tr("This is neither a whole number nor a sum.");
    case NumberFault::DividesByZero:
        return NumberField::tr("Nothing can be divided by 0.");
    case NumberFault::TooLarge:
        return NumberField::tr("Such large numbers cannot be computed.");
    case NumberFault::TooLong:
        return NumberField::tr("This is longer than %1 characters.").arg(kLongestTypedNumber);
    }
    return {};
}

} // namespace

NumberField::NumberField(int minimum, int maximum, QWidget* parent)
    : QAbstractSpinBox(parent)
    , m_minimum(minimum)
    , m_maximum(maximum)
    , m_fault(new FaultMark(*this))
{
    setKeyboardTracking(false); // the base class knows no number
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    selectAllOnFirstClick(*lineEdit(), *this);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { take(false); });
    connect(this, &QAbstractSpinBox::editingFinished, this, [this] { take(true); });
    m_lowest = m_highest = std::max(0, minimum);
    showText();
}

void NumberField::setSuffix(const QString& suffix)
{
    m_suffix = suffix;
    showText();
}

void NumberField::showValues(int lowest, int highest)
{
    if (lowest == m_lowest && highest == m_highest)
        return;
    m_lowest = lowest;
    m_highest = highest;
    m_before.reset();
    showText();
}

void NumberField::enter(int value)
{
    const TypedNumber number{value};
    if (!reasonAgainst(number).isEmpty())
        return;
    apply(number);
    m_before.reset();
    showText();
}

QString NumberField::shownText() const
{
    return isMixed() ? QString() : QString::number(m_lowest) + m_suffix;
}

void NumberField::showText()
{
    m_fault->setReason({});
    lineEdit()->setPlaceholderText(isMixed() ? tr("mixed") : QString());
    if (text() != shownText())
        lineEdit()->setText(shownText());
}

tl::expected<TypedNumber, NumberFault> NumberField::typedNumber() const
{
    return readTypedNumber(text().toStdU16String());
}

QString NumberField::reasonAgainst(const TypedNumber& number) const
{
    const std::int64_t lowest = std::int64_t{number.value} + (number.relative ? m_lowest : 0);
    const std::int64_t highest = std::int64_t{number.value} + (number.relative ? m_highest : 0);
    if (lowest < std::min(m_minimum, m_lowest))
        return tr("%1 is too small: %2 is the least.").arg(lowest).arg(m_minimum);
    if (highest > std::max(m_maximum, m_highest))
        return tr("%1 is too large: %2 is the most.").arg(highest).arg(m_maximum);
    return {};
}

void NumberField::take(bool settled)
{
    const QString shown = shownText();
    if (!settled && text().size() > shown.size() && !isMixed() && text().startsWith(shown))
        lineEdit()->setText(text().remove(shown.size() - m_suffix.size(), m_suffix.size())); // typed behind the suffix
    if (text() != shown) {
        const auto number = typedNumber();
        if (!settled && !number && number.error() == NumberFault::Unfinished)
            return m_fault->setReason({}); // it is being typed
        const QString reason = number ? reasonAgainst(*number) : reasonOf(number.error(), text().trimmed().isEmpty());
        m_fault->setReason(reason);
        if (!reason.isEmpty())
            return goBack();
        if (settled || !(number->relative || isMixed() || (m_putOff && m_putOff(number->value))))
            apply(*number);
    }
    if (settled) {
        m_before.reset();
        showText();
    } else {
        m_fault->setReason({});
    }
}

void NumberField::apply(const TypedNumber& number)
{
    const bool shift = number.relative && isMixed();
    const int value = number.relative ? m_lowest + number.value : number.value;
    if (shift ? number.value == 0 : !isMixed() && value == m_lowest)
        return;
    if (!m_before && !isMixed())
        m_before = m_lowest;
    m_highest = shift ? m_highest + number.value : value;
    m_lowest = value;
    emit edited(shift ? number : TypedNumber{value});
}

void NumberField::goBack()
{
    if (const auto before = std::exchange(m_before, std::nullopt); before && *before != m_lowest) {
        m_lowest = m_highest = *before;
        emit edited({*before});
    }
}

bool NumberField::dropTyped()
{
    m_before.reset();
    if (text() == shownText())
        return false;
    const auto number = typedNumber();
    const bool counts = number && !number->relative && !isMixed() && number->value == m_lowest;
    showText();
    return !counts;
}

QSize NumberField::sizeHint() const
{
    // Also when what it shows came from a file and is longer.
    int width = 0;
    for (const int value : {m_minimum, m_maximum})
        width = std::max(width, fontMetrics().horizontalAdvance(QString::number(value) + m_suffix));
    return {width + kRoomForButtons, QAbstractSpinBox::sizeHint().height()};
}

NumberField::StepEnabled NumberField::stepEnabled() const
{
    return (m_highest < m_maximum ? StepUpEnabled : StepNone) | (m_lowest > m_minimum ? StepDownEnabled : StepNone);
}

void NumberField::stepBy(int steps)
{
    take(true);
    const auto room = steps > 0 ? std::max(std::int64_t{0}, std::int64_t{m_maximum} - m_highest)
                                : std::min(std::int64_t{0}, std::int64_t{m_minimum} - m_lowest);
    const auto step = steps > 0 ? std::min<std::int64_t>(steps, room) : std::max<std::int64_t>(steps, room);
    apply({static_cast<std::int32_t>(step), true});
    m_before.reset();
    showText();
    selectAll();
}

void NumberField::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::ShiftModifier && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        return stepBy(event->key() == Qt::Key_Up ? 10 : -10);
    QAbstractSpinBox::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        selectAll();
}

void NumberField::wheelEvent(QWheelEvent* event)
{
    // Scrolling past a field must not change it.
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace wallgrid
