// SPDX-License-Identifier: MIT
#include "ui/window/number_dialog.h"

#include "ui/fields/fault_mark.h"
#include "ui/fields/number_field.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace wallgrid {

NumberDialog::NumberDialog(const QString& title, const QString& action, QWidget* parent)
    : QDialog(parent, Qt::Sheet)
    , m_numbers(new QFormLayout)
    , m_summaryLabel(new QLabel(this))
{
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(m_numbers);
    layout->addWidget(m_summaryLabel);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    QPushButton* accept = buttons->addButton(action, QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    accept->setDefault(true); // in the dialog now, where Cancel would be it otherwise
}

NumberField* NumberDialog::addNumber(const QString& caption, int minimum, int maximum, int value, const QString& suffix)
{
    auto* field = new NumberField(minimum, maximum, this);
    field->setSuffix(suffix);
    field->showValue(value);
    connect(field, &NumberField::edited, this, [this] { refresh(); });
    m_numbers->addRow(caption, field);
    m_numbers->addRow(field->fault());
    m_fields.push_back(field);
    if (m_fields.size() == 1) { // typing replaces what it holds
        field->setFocus();
        field->selectAll();
    }
    return field;
}

void NumberDialog::accept()
{
    const auto faulty = [](const NumberField* field) { return field->fault()->isVisible(); };
    if (std::none_of(m_fields.begin(), m_fields.end(), faulty)) // not with another number than the one that was typed
        QDialog::accept();
}

void NumberDialog::setSummary(std::function<QString()> summary)
{
    m_summary = std::move(summary);
    refresh();
}

void NumberDialog::refresh()
{
    if (m_summary)
        m_summaryLabel->setText(m_summary());
}

} // namespace wallgrid
