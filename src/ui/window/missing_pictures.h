// SPDX-License-Identifier: MIT
#pragma once

#include "app/undo_history.h"
#include "ui/window/message_bar.h"

#include <QObject>

class QWidget;

namespace wallgrid {

/// Says in the bar how many pictures of a project that was opened are missing, and finds them in a folder that the user
/// chooses. The window owns it.
class MissingPictures final : public QObject {
    Q_OBJECT

public:
    MissingPictures(GXAppDelegate& delegate, UndoHistory& history, MessageBar& bar, QWidget& window);

signals:
    void messageWanted(const QString& line);

private:
    void look();
    void report(std::size_t count);
    void find();

    GXAppDelegate& m_delegate;
    UndoHistory& m_history;
    MessageBar& m_bar;
    QWidget& m_window;
    DocumentFileRef m_lookedAt;
    QString m_reported; ///< the message about it
    Registration m_observation;
};

} // namespace wallgrid
