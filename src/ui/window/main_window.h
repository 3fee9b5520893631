// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "ui/base/deferred.h"
#include "ui/lists/item_table_model.h"
#include "ui/preview/output_preview.h"
#include "ui/window/layer_reports.h"
#include "ui/window/message_bar.h"
#include "ui/window/sheets.h"

#include <QMainWindow>
#include <functional>
#include <vector>

class QLabel;
class QMenu;

namespace wallgrid {

class FileMenu;
class Inspector;
class ItemTable;
class LayerActions;
class OutputWindow;
class PreviewSurface;
class QtRecentDocuments;
class UndoHistory;
class ZoomBar;

/// The main window: the layers and the presets on the left, the preview in the middle, the inspector of the selected
/// layer on the right, below the fields of the output. Closing it closes the output window and so ends the program.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    MainWindow(GXAppDelegate& delegate, UndoHistory& history, QtRecentDocuments& recentDocuments,
               OutputWindow& outputWindow);

    ItemTable* table() const { return m_table; }
    ItemTable* ptable() const { return m_ptable; }
    PreviewSurface* miniPvw() const { return m_miniPvw; }
    Inspector* inspector() const { return m_inspector; }
    QMenu* viewMenu() const { return m_viewMenu; }
    SheetLoader* sheets() { return &m_sheets; }
    WindowLoader* windows() { return &m_outputPreview; }
    OutputPreview& outputPreview() { return m_outputPreview; }

    /// Opens the project at a location.
    void open(const std::string& location);
    /// Says in the title whether the project's file holds all changes.
    void setSaved(bool saved);
    /// Shows a line in the status bar for a while.
    void showMessage(const QString& line);
    /// What can be done when a project cannot be opened.
    void setOpeningRemedy(const Remedy& remedy) { m_openingRemedy = remedy; }
    /// Shows what failed above the preview, until it is dismissed.
    void showFailure(const QString& line);

signals:
    /// Before an action that opens a file panel.
    void panelAhead(const wallgrid::PanelPurpose& purpose);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeEditActions();
    QWidget* makeLists();
    QWidget* makeOutput();
    QWidget* makeFields();
    void makeStatusBar();
    /// What a report says, as a button that selects the layers it speaks of, and as a mark on their rows. Hidden while
    /// there are none.
    QWidget* makeReportButton(LayerReport report, ItemTableModel::Mark mark);
    void makeFileMenu();
    void makeEditMenu();
    void makeToolBar();
    void makeViewMenu();
    void makeHelpMenu();
    void startNew();
    void openFromPanel();
    void savePresets(const QString& folder);
    void nameProject();
    /// Says so when the list has no selected row.
    bool hasSelection(const ItemTable& table);
    void refreshStatus();
    /// The one with the keyboard focus, otherwise the layers.
    ItemTable& editedTable() const;

    GXAppDelegate& m_delegate;
    QtRecentDocuments& m_recentDocuments;
    OutputWindow& m_outputWindow;
    Deferred m_status;
    NewLayers m_newLayers;
    Sheets m_sheets;
    UndoHistory& m_history;
    OutputPreview m_outputPreview;

    ItemTable* m_table = nullptr;
    ItemTable* m_ptable = nullptr;
    PreviewSurface* m_miniPvw = nullptr;
    MessageBar* m_failures = nullptr;
    Remedy m_remedy; ///< of a failure now
    Remedy m_openingRemedy;
    QWidget* m_fields = nullptr; // of the output and of the selected layer
    Inspector* m_inspector = nullptr;
    LayerActions* m_layerActions = nullptr;
    QMenu* m_viewMenu = nullptr;
    FileMenu* m_fileMenu = nullptr;
    QAction* m_add = nullptr;
    QAction* m_openPresets = nullptr;
    QAction* m_savePresets = nullptr;
    QLabel* m_outputReport = nullptr; ///< what the Output Preview's display shows of the output
    std::vector<std::function<void()>> m_refreshReports;
    QLabel* m_outputSize = nullptr;
    ZoomBar* m_zoom = nullptr;
    QLabel* m_itemCount = nullptr;

    Registration m_listObservation;
    Registration m_historyObservation;
};

} // namespace wallgrid
