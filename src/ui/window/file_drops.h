// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <string>

class QDropEvent;
class QWidget;

namespace wallgrid {

class GXAppDelegate;

/// Takes files that are dropped on a window: a picture is added to the layers as the Add sheet adds one. Anything else
/// is opened as a project, and opening says what is wrong with it.
class FileDrops final : public QObject {
    Q_OBJECT

public:
    /// The window owns the drops.
    FileDrops(GXAppDelegate& delegate, QWidget& window);

signals:
    void openWanted(const std::string& location);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void open(const QStringList& paths);

    GXAppDelegate& m_delegate;
};

} // namespace wallgrid
