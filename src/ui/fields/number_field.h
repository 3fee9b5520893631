// SPDX-License-Identifier: MIT
#pragma once

#include <QSpinBox>

namespace wallgrid {

/// A field for a whole number. Arrow keys step by 1, with Shift by 10. Its range says what may be typed; a number
/// outside that comes from a file and is shown as it is.
class NumberField final : public QSpinBox {
    Q_OBJECT

public:
    NumberField(int minimum, int maximum, QWidget* parent = nullptr);

    /// Shows a number and tells nobody. The text stays as it is being typed while it means that number, or is withheld.
    void showValue(int value);
    /// What is typed means a number that does not count yet.
    void setWithheld(bool withheld) { m_withheld = withheld; }
    /// Goes back to the number shown last when what is typed does not count yet, and says whether it was so.
    bool dropTyped();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    const int m_minimum;
    const int m_maximum;
    int m_shown;
    bool m_withheld = false;
};

} // namespace wallgrid
