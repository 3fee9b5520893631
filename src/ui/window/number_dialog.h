// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

class QFormLayout;
class QLabel;
class QPushButton;

namespace wallgrid {

class NumberField;

/// A small dialog that asks for some numbers before a command runs. It deletes itself when it is closed.
class NumberDialog final : public QDialog {
    Q_OBJECT

public:
    /// The action names what the default button does.
    NumberDialog(const QString& title, const QString& action, QWidget* parent);

    NumberField* addNumber(const QString& caption, int minimum, int maximum, int value, const QString& suffix = {});
    /// A line below the numbers, asked for after each change.
    void setSummary(std::function<QString()> summary);

    /// Stays open while one of the numbers cannot be taken.
    void accept() override;

private:
    void refresh();

    QFormLayout* m_numbers;
    std::vector<NumberField*> m_fields;
    QLabel* m_summaryLabel;
    std::function<QString()> m_summary;
};

} // namespace wallgrid
