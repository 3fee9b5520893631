// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "app/undo_history.h"
#include "base/files.h"
#include "ui/desktop/qt_progress.h"
#include "ui/desktop/window_log.h"
#include "ui/window/catch_up_run_loop.h"
#include "ui/window/guarded_application.h"
#include "ui/window/main_window.h"
#include "ui/window/output_window.h"

#include <QObject>
#include <memory>
#include <optional>
#include <string>

namespace wallgrid {

class Recovery;

/// The program with its windows: the controller, what it drives, and the launch that connects them.
class Application final : public QObject {
    Q_OBJECT

public:
    Application(RunLoop& runLoop, Panels& panels, QtRecentDocuments& recentDocuments);
    ~Application() override;

    /// Builds the launch document and shows the main window.
    void launch();
    /// Keeps recovery copies in a folder and offers those that are there.
    void keepRecovery(const QString& folder);
    /// Opens a project as if the desktop had handed it over. The path may be relative.
    void openFile(const std::string& path);
    /// Takes back what an event left half done and says so.
    void goOnWithoutMemory();

    GXAppDelegate& delegate() { return m_delegate; }
    UndoHistory& history() { return m_history; }
    Recovery* recovery() { return m_recovery.get(); }
    MainWindow& mainWindow() { return m_mainWindow; }
    OutputWindow& outputWindow() { return m_outputWindow; }

protected:
    /// Opens the files that the desktop asks the running program to open.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Remedy openingRemedy();

    WindowLog m_log;
    Files m_files;
    CatchUpRunLoop m_runLoop;
    QtProgress m_progress;
    GXAppDelegate m_delegate;
    UndoHistory m_history;
    OutputWindow m_outputWindow;
    QtRecentDocuments& m_recentDocuments;
    std::unique_ptr<Recovery> m_recovery;
    MainWindow m_mainWindow;
    Registration m_interface; ///< the delegate's views, until they go
    Registration m_titleObservation;
};

/// Runs the program until its main window is closed; gives the exit code.
int runApplication(GuardedApplication& application, const std::optional<std::string>& file);

} // namespace wallgrid
