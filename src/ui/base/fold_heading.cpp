// SPDX-License-Identifier: MIT
#include "ui/base/fold_heading.h"

namespace wallgrid {

FoldHeading::FoldHeading(const QString& name, const QString& title, QWidget& group, QWidget* parent)
    : QToolButton(parent)
    , m_group(group)
{
    setObjectName(name);
    setText(title);
    setToolTip(tr("Fold or unfold"));
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setFocusPolicy(Qt::NoFocus);
    setArrowType(Qt::DownArrow);
    connect(this, &QToolButton::clicked, this, [this] { setFolded(!m_folded); });
}

void FoldHeading::setFolded(bool folded)
{
    m_folded = folded;
    m_group.setVisible(!folded);
    setArrowType(folded ? Qt::RightArrow : Qt::DownArrow);
}

} // namespace wallgrid
