// SPDX-License-Identifier: MIT
#include "ui/window/message_bar.h"

#include "ui/base/shown_text.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace wallgrid {

namespace {

constexpr qsizetype kLongestMessage = 300;
constexpr qsizetype kMostMessages = 10;

/// White on it has a contrast of 7 to 1, in front of either appearance.
constexpr QRgb kRed = 0xFFB0'0020;

} // namespace

MessageBar::MessageBar(QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_button(new QPushButton(this))
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor::fromRgb(kRed));
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::white);
    setPalette(palette);
    setAutoFillBackground(true);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 4, 4, 4);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setWordWrap(true);
    layout->addWidget(m_text, 1);
    m_button->setPalette(QApplication::palette()); // a plain button, not a red one
    connect(m_button, &QPushButton::clicked, this, [this] {
        const Remedy remedy = m_remedy; // the bar may show the next message already
        dismiss();
        remedy.apply();
    });
    layout->addWidget(m_button);
    auto* cross = new QToolButton(this);
    cross->setText(QStringLiteral("✕"));
    cross->setAutoRaise(true);
    cross->setToolTip(tr("Dismiss"));
    cross->setAccessibleName(tr("Dismiss"));
    connect(cross, &QToolButton::clicked, this, &MessageBar::dismiss);
    layout->addWidget(cross);
    hide();
}

void MessageBar::dismiss()
{
    m_messages.clear();
    hide();
}

void MessageBar::retract(const QString& message)
{
    if (isVisible() && m_messages.constFirst() == message)
        dismiss();
}

void MessageBar::showMessage(const QString& message, const Remedy& remedy)
{
    const QString shown = shownText(message, kLongestMessage);
    m_messages.removeAll(shown);
    m_messages.prepend(shown);
    m_messages.resize(std::min(m_messages.size(), kMostMessages));
    m_text->setText(shown);
    m_text->setToolTip(plainToolTip(m_messages.join('\n')));
    setAccessibleName(shown);
    m_remedy = remedy;
    m_button->setText(remedy.text);
    m_button->setHidden(remedy.text.isEmpty());
    show();
}

} // namespace wallgrid
