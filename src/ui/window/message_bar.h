// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QStringList>
#include <functional>

class QLabel;
class QPushButton;

namespace wallgrid {

/// What can be done about a failure: the text of a button, and what it does. No text, no button.
struct Remedy {
    QString text;
    std::function<void()> apply;
};

/// The red line above the preview that says what failed, until it is dismissed. It shows the newest message; the tool
/// tip holds the ones before it, too.
class MessageBar final : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    void showMessage(const QString& message, const Remedy& remedy = {});
    /// Takes a message back that is no longer true.
    void retract(const QString& message);

private:
    void dismiss();

    QLabel* m_text;
    QPushButton* m_button;
    Remedy m_remedy;        ///< of the message that is shown
    QStringList m_messages; ///< the newest first
};

} // namespace wallgrid
