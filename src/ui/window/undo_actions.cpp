// SPDX-License-Identifier: MIT
#include "ui/window/undo_actions.h"

#include "ui/fields/color_field.h"
#include "ui/fields/number_field.h"
#include "ui/window/change_name.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace wallgrid {

namespace {

bool dropTyped(QObject& widget)
{
    if (auto* number = qobject_cast<NumberField*>(&widget))
        return number->dropTyped();
    auto* color = qobject_cast<ColorField*>(widget.parent()); // of its line of text
    return color && color->dropTyped();
}

} // namespace

UndoActions::UndoActions(UndoHistory& history, const QWidget& liveFields, QObject* parent)
    : QObject(parent)
    , m_history(history)
    , m_liveFields(liveFields)
    , m_undo(new QAction(this))
    , m_redo(new QAction(this))
{
    m_undo->setIcon(QIcon::fromTheme(QStringLiteral("edit-undo")));
    m_redo->setIcon(QIcon::fromTheme(QStringLiteral("edit-redo")));
    m_undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    m_redo->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    connect(m_undo, &QAction::triggered, this, [this] { m_history.undo(); });
    connect(m_redo, &QAction::triggered, this, [this] { m_history.redo(); });
    m_observation = m_history.observe([this] { refresh(); });
    refresh();
    QCoreApplication::instance()->installEventFilter(this);
}

void UndoActions::refresh()
{
    const auto show = [](QAction& action, const DocumentChange* change, const QString& plain, const QString& named) {
        const QString text = change ? named.arg(changeName(*change)) : plain;
        action.setText(text);
        action.setToolTip(QString(text).remove(u'&'));
        action.setEnabled(change != nullptr);
    };
    show(*m_undo, m_history.undoable(), tr("&Undo"), tr("&Undo %1"));
    show(*m_redo, m_history.redoable(), tr("&Redo"), tr("&Redo %1"));
}

bool UndoActions::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        m_history.commit();
        break;
    case QEvent::ShortcutOverride: {
        m_history.commit();
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool ours = key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (ours && widget && m_liveFields.isAncestorOf(widget)) {
            // What is typed and does not count yet goes first. Otherwise the field must not take its own text back.
            event->setAccepted(key->matches(QKeySequence::Undo) && dropTyped(*watched));
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace wallgrid
