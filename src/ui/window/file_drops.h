// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <string>

class QDropEvent;
class QWidget;

namespace wallgrid {

class GXAppDelegate;

/// Takes files that are dropped on a window: a picture is added to the layers as the Add sheet adds one, anything else
/// is opened as a project, which says what is wrong with a file that is none.
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
