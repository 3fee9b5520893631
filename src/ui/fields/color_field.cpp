// SPDX-License-Identifier: MIT
#include "ui/fields/color_field.h"

#include "ui/fields/color_button.h"
#include "ui/fields/color_text.h"
#include "ui/fields/fault_mark.h"
#include "ui/fields/select_on_click.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>

namespace wallgrid {

ColorField::ColorField(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_button(new ColorButton(title, this))
    , m_text(new QLineEdit(this))
    , m_fault(new FaultMark(*m_text))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(3);
    layout->addWidget(m_button);
    layout->addWidget(m_text);
    m_text->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("#DDDDDDDD")) + 16);
    m_text->setAccessibleName(tr("%1 as #RRGGBB or #RRGGBBAA").arg(title));
    m_text->setToolTip(tr("%1 as #RRGGBB, #RRGGBBAA, #RGB or a name such as navy").arg(title));
    setFocusPolicy(Qt::StrongFocus); // a label's letter goes nowhere without
    setFocusProxy(m_text);
    selectAllOnFirstClick(*m_text, *m_text);
    m_text->installEventFilter(this);

    keep(nullptr);
    connect(m_button, &ColorButton::colorChosen, this, [this](const ColorRef& color) {
        setColor(color);
        emit colorChosen(color);
    });
    connect(m_text, &QLineEdit::textEdited, this, &ColorField::take);
    connect(m_text, &QLineEdit::returnPressed, this, &ColorField::settle);
}

bool ColorField::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        settle();
    return QWidget::eventFilter(watched, event);
}

void ColorField::setColor(const ColorRef& color)
{
    const QString before = m_shown;
    keep(color);
    if (m_shown == before)
        return;
    m_before.reset();
    showText();
}

void ColorField::setMixed()
{
    setColor(nullptr);
    m_button->setMixed();
    m_text->setPlaceholderText(tr("mixed"));
}

void ColorField::keep(const ColorRef& color)
{
    m_text->setPlaceholderText(tr("none"));
    m_button->setColor(color);
    m_shown = color ? hexText(toQColor(*color)) : QString();
}

void ColorField::showText()
{
    m_fault->setReason({});
    if (m_text->text() != m_shown)
        m_text->setText(m_shown);
}

bool ColorField::dropTyped()
{
    m_before.reset();
    const auto typed = colorOfText(m_text->text());
    if (m_text->text() == m_shown || (typed && hexText(*typed) == m_shown))
        return false;
    showText();
    return true;
}

void ColorField::take(const QString& text)
{
    const auto typed = colorOfText(text);
    if (typed || text == m_shown)
        m_fault->setReason({});
    if (typed && !m_putOff && (colorOfHexText(text) || !text.contains(u'#'))) // three digits may be the first of six
        choose(*typed);
}

void ColorField::choose(const QColor& typed)
{
    if (hexText(typed) == m_shown)
        return;
    if (!m_before)
        m_before = m_button->color();
    const ColorRef color = toColor(typed);
    keep(color);
    emit colorChosen(color);
}

void ColorField::settle()
{
    const auto typed = colorOfText(m_text->text());
    if (typed)
        choose(*typed);
    const ColorRef before = m_before.value_or(m_button->color());
    m_before.reset();
    if (typed || m_text->text() == m_shown)
        return showText();
    m_fault->setReason(tr("A colour is #RRGGBB, #RRGGBBAA, #RGB or a name such as navy."));
    if (before == m_button->color())
        return;
    keep(before);
    emit colorChosen(before);
}

} // namespace wallgrid
