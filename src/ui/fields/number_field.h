// SPDX-License-Identifier: MIT
#pragma once

#include "base/typed_number.h"

#include <QAbstractSpinBox>
#include <functional>
#include <optional>

namespace wallgrid {

class FaultMark;

/// A field for a whole number, also typed as a sum, for one thing or for several whose numbers differ. What is typed
/// counts at once where it can. Text that is no number, or none in the range, is marked with the reason, and the number
/// is what it was before the typing. A number outside the range comes from a file and is shown as it is. Arrow keys
/// step by 1, with Shift by 10.
class NumberField final : public QAbstractSpinBox {
    Q_OBJECT
    // For screen readers.
    Q_PROPERTY(int minimum MEMBER m_minimum CONSTANT)
    Q_PROPERTY(int maximum MEMBER m_maximum CONSTANT)
    Q_PROPERTY(int value READ value WRITE enter)

public:
    NumberField(int minimum, int maximum, QWidget* parent = nullptr);

    void setSuffix(const QString& suffix);
    /// Numbers for which it holds count only when they are typed to the end.
    void setPutOff(std::function<bool(int)> putOff) { m_putOff = std::move(putOff); }
    /// To be laid out beside the field.
    FaultMark* fault() const { return m_fault; }

    /// The lowest of the numbers.
    int value() const { return m_lowest; }
    /// Shows a number, or the extent of several, and tells nobody. The text that is being typed stays while they do.
    void showValue(int value) { showValues(value, value); }
    void showValues(int lowest, int highest);
    /// As if it were typed, when it is in the range.
    void enter(int value);
    /// Goes back to the number when what is typed does not count, and says whether it was so.
    bool dropTyped();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void stepBy(int steps) override;

signals:
    /// Shown already. Relative only where there are different numbers.
    void edited(const wallgrid::TypedNumber& number);

protected:
    StepEnabled stepEnabled() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool isMixed() const { return m_lowest != m_highest; }
    QString shownText() const;
    void showText();
    tl::expected<TypedNumber, NumberFault> typedNumber() const;
    /// Why the number must not be, or nothing.
    QString reasonAgainst(const TypedNumber& number) const;
    void take(bool settled);
    void apply(const TypedNumber& number);
    void goBack();

    const int m_minimum;
    const int m_maximum;
    QString m_suffix;
    std::function<bool(int)> m_putOff;
    FaultMark* m_fault;
    int m_lowest = 0;
    int m_highest = 0;
    std::optional<int> m_before; ///< the number before the typing, once that has changed it
};

} // namespace wallgrid
