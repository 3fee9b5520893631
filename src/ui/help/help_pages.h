// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QTextBrowser;

namespace wallgrid {

/// A window that shows the pages of the guide, which the program holds. Links lead from page to page; Esc closes it.
class HelpPages final : public QDialog {
    Q_OBJECT

public:
    explicit HelpPages(QWidget* parent);

    void showPage(const QString& page);

private:
    QTextBrowser* m_browser;
};

} // namespace wallgrid
