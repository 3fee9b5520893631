// SPDX-License-Identifier: MIT
#pragma once

#include <QActionGroup>
#include <QMenu>

namespace wallgrid {

class OutputPreview;

/// The displays that the Output Preview can be shown on, as they are when the menu is opened.
class DisplayMenu final : public QMenu {
    Q_OBJECT

public:
    explicit DisplayMenu(OutputPreview& preview, QWidget* parent = nullptr);

signals:
    /// A display has been chosen; the preview is to be shown on it.
    void chosen();

private:
    void fill();

    OutputPreview& m_preview;
    QActionGroup m_group;
};

} // namespace wallgrid
