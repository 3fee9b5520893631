// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "ui/desktop/qt_panels.h"
#include "ui/window/message_bar.h"

#include <QMenu>

namespace wallgrid {

class QtRecentDocuments;

/// The File menu, and what the program says of files: which project is open and which file has been written.
class FileMenu final : public QMenu {
    Q_OBJECT

public:
    /// The actions open and save the presets.
    FileMenu(GXAppDelegate& delegate, QtRecentDocuments& recentDocuments, const QList<QAction*>& presets,
             QWidget* parent);

    /// The path of the file of the project that is open; empty when there is none. Panels propose its name.
    void setProject(const QString& path) { m_project = path; }

signals:
    /// Before an action that opens a file panel.
    void panelAhead(const wallgrid::PanelPurpose& purpose);
    /// The document is to be as at launch.
    void newWanted();
    /// A project is to be chosen in a panel and opened.
    void openPanelWanted();
    void openWanted(const std::string& location);
    void messageWanted(const QString& line);
    /// What can be done about a failure from now on.
    void remedyAhead(const wallgrid::Remedy& remedy);
    void quitWanted();

private:
    void fillRecentMenu();
    // In a panel that opens in a folder, or where panels of its kind do.
    void saveProject(const QString& folder);
    void exportPng(const QString& folder);
    void exportPsd(const QString& folder);
    using Action = void (GXAppDelegate::*)();
    using Command = void (FileMenu::*)(const QString& folder);
    /// The command is how the same is written again elsewhere.
    void write(PanelPurpose purpose, Action action, Command command);
    /// Writes the last export again, to the same file, without a panel.
    void exportAgain();

    GXAppDelegate& m_delegate;
    QtRecentDocuments& m_recentDocuments;
    QMenu* m_recentMenu;
    QString m_project;
    QString m_lastExport; ///< the path of the file
    Action m_lastExportAction = nullptr;
    Command m_lastExportCommand = nullptr;
};

} // namespace wallgrid
