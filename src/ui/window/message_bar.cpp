// SPDX-License-Identifier: MIT
#include "ui/window/message_bar.h"

#include "ui/base/shown_text.h"

#include <QHBoxLayout>
#include <QLabel>
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
    auto* dismiss = new QToolButton(this);
    dismiss->setText(QStringLiteral("✕"));
    dismiss->setAutoRaise(true);
    dismiss->setToolTip(tr("Dismiss"));
    dismiss->setAccessibleName(tr("Dismiss"));
    connect(dismiss, &QToolButton::clicked, this, [this] {
        m_messages.clear();
        hide();
    });
    layout->addWidget(dismiss);
    hide();
}

void MessageBar::showMessage(const QString& message)
{
    const QString shown = shownText(message, kLongestMessage);
    m_messages.removeAll(shown);
    m_messages.prepend(shown);
    m_messages.resize(std::min(m_messages.size(), kMostMessages));
    m_text->setText(shown);
    m_text->setToolTip(plainToolTip(m_messages.join('\n')));
    setAccessibleName(shown);
    show();
}

} // namespace wallgrid
