// SPDX-License-Identifier: MIT
#include "ui/window/application.h"

#include "qt/qt_run_loop.h"
#include "ui/base/state_folder.h"
#include "ui/desktop/qt_panels.h"
#include "ui/desktop/qt_recent_documents.h"
#include "ui/lists/item_table.h"
#include "ui/preview/preview_surface.h"
#include "ui/recovery/recovery.h"
#include "ui/recovery/recovery_bar.h"
#include "ui/theme/appearance_action.h"
#include "ui/window/window_memory.h"

#include <QFile>
#include <QFileOpenEvent>
#include <QIcon>
#include <QMenu>
#include <QSettings>
#include <filesystem>

namespace wallgrid {

namespace {

constexpr auto kFoldersKey = "folders";

} // namespace

Application::Application(RunLoop& runLoop, Panels& panels, QtRecentDocuments& recentDocuments)
    : m_files(m_log)
    , m_runLoop(runLoop)
    , m_delegate(Desktop{m_runLoop, panels, recentDocuments, m_files, m_log, m_progress})
    , m_history(m_delegate, runLoop)
    , m_recentDocuments(recentDocuments)
    , m_mainWindow(m_delegate, m_history, recentDocuments, m_outputWindow)
{
    connect(&m_log, &WindowLog::logged, &m_mainWindow, &MainWindow::showFailure);
    qApp->installEventFilter(this);
}

Application::~Application()
{
    if (m_recovery)
        m_recovery->end();
}

void Application::launch()
{
    m_interface = m_delegate.connect({&m_outputWindow, m_mainWindow.table(), m_mainWindow.ptable(),
                                      m_mainWindow.miniPvw(), m_mainWindow.sheets(), m_mainWindow.windows()});
    m_runLoop.watch(m_delegate);
    m_delegate.awakeFromNib();
    m_delegate.applicationDidFinishLaunching();
    m_history.start();
    m_mainWindow.show();
}

void Application::keepRecovery(const QString& folder)
{
    m_recovery = std::make_unique<Recovery>(m_delegate, m_history, m_runLoop, m_log, folder);
    m_mainWindow.addToolBar(new RecoveryBar(*m_recovery));
    m_mainWindow.setOpeningRemedy(openingRemedy());
    connect(m_recovery.get(), &Recovery::offerChanged, this,
            [this] { m_mainWindow.setOpeningRemedy(openingRemedy()); });
    connect(&m_recentDocuments, &QtRecentDocuments::changed, m_recovery.get(), [this] {
        const QString newest = m_recentDocuments.locations().value(0);
        const auto location = Url::fromString(newest.toStdString());
        if (const auto path = location ? location->filePath() : std::nullopt)
            m_recovery->noteFile(*path);
        m_mainWindow.setSaved(m_recovery->isClean());
    });
    m_titleObservation = m_history.observe([this] { m_mainWindow.setSaved(m_recovery->isClean()); });
}

Remedy Application::openingRemedy()
{
    if (!m_recovery->offer())
        return {};
    return {tr("Open the recovery copy"), [this] {
                if (m_recovery->offer()) // it may have been opened or discarded meanwhile
                    m_recovery->restore();
            }};
}

void Application::openFile(const std::string& path)
{
    m_mainWindow.open(Url::fromFilePath(std::filesystem::absolute(path).string()).absoluteString());
}

void Application::goOnWithoutMemory()
{
    m_history.takeBackUnfinished();
    m_log.log("There was not enough memory. What was begun last has been taken back.");
}

bool Application::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::FileOpen)
        return QObject::eventFilter(watched, event);
    openFile(QFile::encodeName(static_cast<QFileOpenEvent*>(event)->file()).toStdString());
    return true;
}

int runApplication(GuardedApplication& application, const std::optional<std::string>& file)
{
    QApplication::setApplicationDisplayName(QStringLiteral("Wallgrid"));
    QApplication::setDesktopFileName(QStringLiteral("wallgrid"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/wallgrid.png")));
    const QString folder = stateFolder();
    // File and colour panels keep what they remember where the window does, not in a file of all Qt programs.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    QSettings memory(folder + "/window.ini", QSettings::IniFormat);
    AppearanceAction appearance(application, memory);
    QtRunLoop runLoop;
    QtPanels panels;
    QtRecentDocuments recentDocuments(folder + "/recent.ini");
    panels.setFolders(memory.value(kFoldersKey).toMap());
    Application program(runLoop, panels, recentDocuments);
    QObject::connect(&application, &GuardedApplication::ranOutOfMemory, &program, &Application::goOnWithoutMemory);
    MainWindow& window = program.mainWindow();
    restoreWindow(window, memory);
    QObject::connect(&window, &MainWindow::panelAhead, &panels, &QtPanels::prepare);
    window.viewMenu()->addSeparator();
    window.viewMenu()->addAction(&appearance);
    program.launch();
    if (file) {
        program.openFile(*file);
        program.history().start(); // the file is the start, there is nothing before it to go back to
    }
    program.keepRecovery(folder + "/recovery");
    const int exitCode = QApplication::exec();
    rememberWindow(window, memory);
    memory.setValue(kFoldersKey, panels.folders());
    return exitCode;
}

} // namespace wallgrid
