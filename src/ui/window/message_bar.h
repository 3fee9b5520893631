// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;

namespace wallgrid {

/// The red line above the preview that says what failed, until it is dismissed. It shows the newest message; the tool
/// tip holds the ones before it, too.
class MessageBar final : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    void showMessage(const QString& message);

private:
    QLabel* m_text;
    QStringList m_messages; ///< the newest first
};

} // namespace wallgrid
