// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class QMenuBar;

namespace wallgrid {

class HelpPages;

/// The Help menu: the pages of the guide and the list of all keys that the menus have.
class HelpMenu final : public QMenu {
    Q_OBJECT

public:
    explicit HelpMenu(QMenuBar& menus);

private:
    void showPage(const QString& page);

    HelpPages* m_pages = nullptr; // once they were opened
};

} // namespace wallgrid
