// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

class QLabel;

namespace wallgrid {

class Recovery;

/// The line above the window's content that offers to restore changes that the last run has left unsaved. It goes when
/// every copy has been restored or discarded.
class RecoveryBar final : public QToolBar {
    Q_OBJECT

public:
    explicit RecoveryBar(Recovery& recovery, QWidget* parent = nullptr);

private:
    void refresh();

    Recovery& m_recovery;
    QLabel* m_text = nullptr;
};

} // namespace wallgrid
