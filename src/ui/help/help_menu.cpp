// SPDX-License-Identifier: MIT
#include "ui/help/help_menu.h"

#include "ui/help/help_pages.h"
#include "ui/help/key_list.h"

#include <QMenuBar>

namespace wallgrid {

HelpMenu::HelpMenu(QMenuBar& menus)
    : QMenu(tr("&Help"), &menus)
{
    addAction(QIcon::fromTheme(QStringLiteral("help-contents")), tr("&Guide"), QKeySequence::HelpContents, this,
              [this] { showPage("guide.md"); });
    addAction(tr("Your &First Stage"), this, [this] { showPage("first-stage.md"); });
    addAction(tr("List of &Keys"), Qt::CTRL | Qt::Key_F1, this, [&menus] { (new KeyList(menus))->show(); });
    addSeparator();
}

void HelpMenu::showPage(const QString& page)
{
    if (!m_pages)
        m_pages = new HelpPages(parentWidget()->window());
    m_pages->showPage(page);
}

} // namespace wallgrid
