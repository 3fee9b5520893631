// SPDX-License-Identifier: MIT
#pragma once

#include "app/undo_history.h"

#include <QObject>

class QAction;
class QWidget;

namespace wallgrid {

/// The menu's Undo and Redo of a history, each with the name of its step. Ends a step whenever the next key or button
/// is pressed, so that input that waited in the queue is not taken for one step.
class UndoActions final : public QObject {
    Q_OBJECT

public:
    /// In the live fields the shortcuts mean the document: what is typed there is in it already.
    UndoActions(UndoHistory& history, const QWidget& liveFields, QObject* parent = nullptr);

    QAction* undo() const { return m_undo; }
    QAction* redo() const { return m_redo; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();

    UndoHistory& m_history;
    const QWidget& m_liveFields;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    Registration m_observation;
};

} // namespace wallgrid
