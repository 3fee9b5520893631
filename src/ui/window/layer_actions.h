// SPDX-License-Identifier: MIT
#pragma once

#include "app/arrangement.h"
#include "app/layer_copies.h"

#include <QAction>
#include <QObject>

class QMenu;
class QToolBar;
class QWidget;

namespace wallgrid {

class UndoHistory;

/// The commands on all selected layers: copy them, make arrays, align and distribute them. A command that has too few
/// layers says so. Each command is a step of the history. The window owns the commands.
class LayerActions final : public QObject {
    Q_OBJECT

public:
    LayerActions(GXAppDelegate& delegate, UndoHistory& history, QWidget& window);

    /// Cut, Copy, Paste, Select All, Duplicate and Array.
    const QList<QAction*>& editActions() const { return m_edit; }
    QAction* selectAll() const { return m_selectAll; }
    void addTo(QMenu& arrange);
    void addTo(QToolBar& bar);

signals:
    void messageWanted(const QString& line);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    template <class Command>
    QAction* makeAction(const QString& text, const QString& toolTip, const QKeySequence& keys, std::size_t fewest,
                        Command command);
    void makeEditActions();
    void makeAlignActions();
    void copy() const;
    void paste();
    void askForArray();
    void askForRows();
    void drawIcons();

    template <class Command>
    void asOneStep(Command command);

    GXAppDelegate& m_delegate;
    UndoHistory& m_history;
    QWidget& m_window;
    QAction* m_selectAll;
    QList<QAction*> m_edit;
    QList<QAction*> m_align;         ///< left, centre, right, top, middle, bottom
    QList<QAction*> m_alignInOutput; ///< the same
    QList<QAction*> m_distribute;    ///< across, down
    QAction* m_rows = nullptr;
    ArrayLayout m_lastArray{2, 2, 0, 0};
    Rows m_lastRows{8, 0, 0};
};

} // namespace wallgrid
