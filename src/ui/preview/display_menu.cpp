// SPDX-License-Identifier: MIT
#include "ui/preview/display_menu.h"

#include "ui/preview/output_preview.h"

namespace wallgrid {

DisplayMenu::DisplayMenu(OutputPreview& preview, QWidget* parent)
    : QMenu(tr("Output Preview o&n"), parent)
    , m_preview(preview)
    , m_group(this)
{
    connect(this, &QMenu::aboutToShow, this, &DisplayMenu::fill);
    connect(&preview, &OutputPreview::changed, this, &DisplayMenu::fill);
    fill();
}

void DisplayMenu::fill()
{
    clear();
    for (const Display& display : m_preview.displays()) {
        QAction* action = addAction(displayText(display).replace(u'&', "&&"));
        action->setCheckable(true);
        action->setActionGroup(&m_group);
        action->setChecked(display.name == m_preview.display());
        // Later, because it fills this menu anew.
        connect(
            action, &QAction::triggered, this,
            [this, name = display.name] {
                m_preview.chooseDisplay(name);
                emit chosen();
            },
            Qt::QueuedConnection);
    }
}

} // namespace wallgrid
