// SPDX-License-Identifier: MIT
#include "ui/fields/color_field.h"

#include "ui/fields/color_button.h"
#include "ui/fields/color_text.h"

#include <QHBoxLayout>
#include <QLineEdit>

namespace wallgrid {

ColorField::ColorField(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_button(new ColorButton(title, this))
    , m_text(new QLineEdit(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(3);
    layout->addWidget(m_button);
    layout->addWidget(m_text);
    m_text->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("#DDDDDDDD")) + 16);
    m_text->setPlaceholderText(tr("none"));
    m_text->setToolTip(tr("%1 as #RRGGBB or #RRGGBBAA").arg(title));
    m_text->setAccessibleName(m_text->toolTip());
    setFocusProxy(m_button);

    connect(m_button, &ColorButton::colorChosen, this, [this](const ColorRef& color) {
        setColor(color);
        emit colorChosen(color);
    });
    connect(m_text, &QLineEdit::textEdited, this, &ColorField::takeText);
    connect(m_text, &QLineEdit::editingFinished, this, &ColorField::showText);
}

void ColorField::setColor(const ColorRef& color)
{
    m_button->setColor(color);
    const QString text = color ? hexText(toQColor(*color)) : QString();
    if (text == m_shown)
        return;
    m_shown = text;
    showText();
}

void ColorField::showText()
{
    if (m_text->text() != m_shown)
        m_text->setText(m_shown);
}

bool ColorField::dropTyped()
{
    const auto typed = colorOfHexText(m_text->text());
    if (m_text->text() == m_shown || (typed && hexText(*typed) == m_shown))
        return false;
    showText();
    return true;
}

void ColorField::takeText(const QString& text)
{
    const auto typed = colorOfHexText(text);
    if (!typed || hexText(*typed) == m_shown)
        return;
    m_shown = hexText(*typed);
    const ColorRef color = toColor(*typed);
    m_button->setColor(color);
    emit colorChosen(color);
}

} // namespace wallgrid
