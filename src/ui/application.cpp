// SPDX-License-Identifier: MIT
#include "ui/application.h"

#include "platform/qt/qt_run_loop.h"
#include "ui/item_table.h"
#include "ui/preview/preview_surface.h"
#include "ui/qt_panels.h"
#include "ui/qt_recent_documents.h"
#include "ui/theme.h"

#include <QApplication>
#include <QFile>
#include <QFileOpenEvent>
#include <filesystem>

namespace wallgrid {

Application::Application(RunLoop& runLoop, Panels& panels, QtRecentDocuments& recentDocuments)
    : m_files(m_log)
    , m_runLoop(runLoop)
    , m_delegate(Desktop{m_runLoop, panels, recentDocuments, m_files, m_log, m_progress})
    , m_history(m_delegate, runLoop)
    , m_mainWindow(m_delegate, m_history, recentDocuments, m_outputWindow)
{
    connect(&m_log, &WindowLog::logged, &m_mainWindow, &MainWindow::showMessage);
    qApp->installEventFilter(this);
}

Application::~Application()
{
    m_runLoop.watch(nullptr);
}

void Application::launch()
{
    m_delegate.connect(
        {&m_outputWindow, m_mainWindow.table(), m_mainWindow.ptable(), m_mainWindow.miniPvw(), m_mainWindow.sheets()});
    m_runLoop.watch(&m_delegate);
    m_delegate.awakeFromNib();
    m_delegate.applicationDidFinishLaunching();
    m_history.start();
    m_mainWindow.show();
}

void Application::openFile(const std::string& path)
{
    m_delegate.applicationOpenFile(Url::fromFilePath(std::filesystem::absolute(path).string()).absoluteString());
}

bool Application::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::FileOpen)
        return QObject::eventFilter(watched, event);
    openFile(QFile::encodeName(static_cast<QFileOpenEvent*>(event)->file()).toStdString());
    return true;
}

int runApplication(QApplication& application, const std::optional<std::string>& file)
{
    applyTheme(application);
    QtRunLoop runLoop;
    QtPanels panels;
    QtRecentDocuments recentDocuments(QtRecentDocuments::standardSettingsFile());
    Application program(runLoop, panels, recentDocuments);
    QObject::connect(&program.mainWindow(), &MainWindow::panelAhead, &panels, &QtPanels::prepare);
    program.launch();
    if (file)
        program.openFile(*file);
    return QApplication::exec();
}

} // namespace wallgrid
