// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "ui/desktop/qt_panels.h"

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
    void openWanted(const std::string& location);
    void messageWanted(const QString& line);
    void quitWanted();

private:
    void fillRecentMenu();
    void exportPsd();
    using Action = void (GXAppDelegate::*)();
    void write(PanelPurpose purpose, Action action);
    /// Writes the last export again, to the same file, without a panel.
    void exportAgain();

    GXAppDelegate& m_delegate;
    QtRecentDocuments& m_recentDocuments;
    QMenu* m_recentMenu;
    QString m_project;
    QString m_lastExport; ///< the path of the file
    Action m_lastExportAction = nullptr;
};

} // namespace wallgrid
