// SPDX-License-Identifier: MIT
#include "ui/recovery/recovery_bar.h"

#include "ui/recovery/recovery.h"

#include <QLabel>
#include <QLayout>
#include <QLocale>
#include <QPushButton>

namespace wallgrid {

RecoveryBar::RecoveryBar(Recovery& recovery, QWidget* parent)
    : QToolBar(tr("Recovery"), parent)
    , m_recovery(recovery)
    , m_text(new QLabel(this))
{
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    toggleViewAction()->setVisible(false);
    m_text->setContentsMargins(8, 0, 8, 0);
    addWidget(m_text);
    auto* restore = new QPushButton(tr("Restore"), this);
    restore->setToolTip(tr("Open the copy; Undo goes back to what is open now"));
    connect(restore, &QPushButton::clicked, this, [this] { m_recovery.restore(); });
    auto* discard = new QPushButton(tr("Discard"), this);
    discard->setToolTip(tr("Delete the copy"));
    connect(discard, &QPushButton::clicked, this, [this] { m_recovery.discard(); });
    addWidget(restore);
    addWidget(discard);
    layout()->setSpacing(6);
    // Later, because it may be one of the bar's own buttons that is at work.
    connect(&m_recovery, &Recovery::offerChanged, this, &RecoveryBar::refresh, Qt::QueuedConnection);
    refresh();
}

void RecoveryBar::refresh()
{
    const auto offer = m_recovery.offer();
    setVisible(offer.has_value());
    if (offer)
        m_text->setText(tr("The last changes were not saved. There is a copy of the document from %1.")
                            .arg(QLocale().toString(*offer, QLocale::ShortFormat)));
}

} // namespace wallgrid
