// SPDX-License-Identifier: MIT
#include "ui/window/main_window.h"

#include "app/new_items.h"
#include "ui/base/empty_hint.h"
#include "ui/base/first_size.h"
#include "ui/base/heading.h"
#include "ui/base/shown_text.h"
#include "ui/desktop/qt_recent_documents.h"
#include "ui/help/help_menu.h"
#include "ui/inspector/inspector.h"
#include "ui/lists/item_table.h"
#include "ui/lists/list_bar.h"
#include "ui/preview/preview_surface.h"
#include "ui/preview/zoom_bar.h"
#include "ui/window/file_drops.h"
#include "ui/window/file_menu.h"
#include "ui/window/inspector_pages.h"
#include "ui/window/layer_actions.h"
#include "ui/window/layer_reports.h"
#include "ui/window/message_bar.h"
#include "ui/window/missing_pictures.h"
#include "ui/window/output_controls.h"
#include "ui/window/output_window.h"
#include "ui/window/undo_actions.h"
#include "ui/window/view_menu.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace wallgrid {

namespace {

using Column = ItemTableModel::Column;

constexpr int kMessageMilliseconds = 15'000;
constexpr qsizetype kLongestMessage = 300;
constexpr qsizetype kLongestTitle = 80;

QWidget* titled(const QString& title, QWidget* content, QWidget* bar)
{
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(8, 6, 0, 4);
    layout->setSpacing(4);
    QLabel* heading = makeHeading(title, box);
    heading->setBuddy(content);
    layout->addWidget(heading);
    layout->addWidget(content);
    layout->addWidget(bar);
    return box;
}

} // namespace

MainWindow::MainWindow(GXAppDelegate& delegate, UndoHistory& history, QtRecentDocuments& recentDocuments,
                       OutputWindow& outputWindow)
    : m_delegate(delegate)
    , m_recentDocuments(recentDocuments)
    , m_outputWindow(outputWindow)
    , m_status([this] { refreshStatus(); })
    , m_newLayers(delegate, history)
    , m_sheets(delegate, m_newLayers, *this)
    , m_history(history)
    , m_outputPreview(*this)
{
    connect(&m_sheets, &Sheets::panelAhead, this, &MainWindow::panelAhead);
    makeEditActions();
    m_layerActions = new LayerActions(delegate, history, *this);
    connect(m_layerActions, &LayerActions::messageWanted, this, &MainWindow::showMessage);
    makeToolBar();
    auto* columns = new QSplitter(Qt::Horizontal);
    columns->setObjectName("columns");
    columns->addWidget(makeLists());
    columns->addWidget(makeOutput());
    columns->addWidget(makeFields());
    columns->setStretchFactor(0, 0);
    columns->setStretchFactor(1, 1);
    columns->setStretchFactor(2, 0);
    columns->setSizes({260, 810, 330});
    columns->setChildrenCollapsible(false);
    setCentralWidget(columns);

    makeStatusBar();
    makeFileMenu();
    makeEditMenu();
    m_layerActions->addTo(*menuBar()->addMenu(tr("A&rrange")));
    makeViewMenu();
    makeHelpMenu();
    nameProject();
    resize(firstSize(*this, {1400, 840}));
    m_table->setFocus();

    connect(new MissingPictures(delegate, history, *m_failures, *this), &MissingPictures::messageWanted, this,
            &MainWindow::showMessage);
    connect(new FileDrops(m_newLayers, *m_miniPvw, *this), &FileDrops::openWanted, this, &MainWindow::open);
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->setAcceptDrops(false); // a file that is dropped there is meant for the window
}

void MainWindow::makeEditActions()
{
    m_add = new QAction(tr("&Add…"), this);
    m_add->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_N);
    m_add->setToolTip(tr("Add a screen or an image to the layers"));
    connect(m_add, &QAction::triggered, this, [this] {
        m_table->setFocus(); // where the keyboard goes on when something was added
        m_delegate.add();
    });

    m_openPresets = new QAction(tr("Open &Presets…"), this);
    m_openPresets->setIconText(tr("Open…"));
    m_openPresets->setToolTip(tr("Replace the presets by those of a file"));
    connect(m_openPresets, &QAction::triggered, this, [this] {
        emit panelAhead({tr("Open Presets"), QStringLiteral("presets"), {}, {}});
        m_delegate.openPresets();
    });
    m_savePresets = new QAction(tr("Sa&ve Presets…"), this);
    m_savePresets->setIconText(tr("Save…"));
    m_savePresets->setToolTip(tr("Save the presets to a file"));
    connect(m_savePresets, &QAction::triggered, this, [this] { savePresets({}); });
}

void MainWindow::savePresets(const QString& folder)
{
    PanelPurpose purpose{tr("Save Presets"), QStringLiteral("presets"), {}, {}};
    purpose.folder = folder;
    emit panelAhead(purpose);
    m_remedy = {tr("Save elsewhere…"), [this] { savePresets(QDir::homePath()); }};
    m_delegate.savePresets();
    m_remedy = {};
}

QWidget* MainWindow::makeLists()
{
    m_table =
        new ItemTable(m_delegate.arraycontroller(), {Column::Visible, Column::Thumbnail, Column::Name, Column::Mark});
    m_table->setObjectName("mainTView");
    m_table->setAccessibleName(tr("Layers"));
    m_ptable = new ItemTable(m_delegate.presetarraycontroller(), {Column::Thumbnail, Column::Name});
    m_ptable->setObjectName("presetTView");
    m_ptable->setAccessibleName(tr("Presets"));
    connect(m_table, &ItemTable::removalWanted, this, [this] {
        hasSelection(*m_table);
        m_delegate.remove();
    });
    connect(m_ptable, &ItemTable::removalWanted, this, [this] {
        hasSelection(*m_ptable);
        m_delegate.removePreset();
    });

    auto* remove = new QAction(tr("Remove"), this);
    remove->setToolTip(tr("Remove the selected layers"));
    connect(remove, &QAction::triggered, m_table, &ItemTable::removalWanted);
    auto* removePreset = new QAction(tr("Remove"), this);
    removePreset->setToolTip(tr("Remove the selected presets"));
    connect(removePreset, &QAction::triggered, m_ptable, &ItemTable::removalWanted);

    m_table->setEmptyHint(makeEmptyHint(tr("No layers yet."), m_add));
    m_ptable->setEmptyHint(makeEmptyHint(tr("No presets. Drag a layer here to keep a copy."), m_openPresets));

    auto* lists = new QSplitter(Qt::Vertical);
    lists->setObjectName("lists");
    lists->addWidget(titled(tr("&Layers"), m_table, makeListBar({m_add, remove})));
    lists->addWidget(titled(tr("&Presets"), m_ptable, makeListBar({m_openPresets, m_savePresets, removePreset})));
    lists->setSizes({500, 220});
    lists->setStretchFactor(0, 1);
    lists->setChildrenCollapsible(false);
    lists->setMinimumWidth(180);
    return lists;
}

QWidget* MainWindow::makeOutput()
{
    m_miniPvw = new PreviewSurface(m_delegate);
    m_miniPvw->setAccessibleName(tr("Output preview"));
    m_miniPvw->setMinimumSize(240, 135);
    connect(m_miniPvw, &PreviewSurface::hintWanted, this,
            [this](const QString& hint) { statusBar()->showMessage(hint); });
    m_failures = new MessageBar;
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_failures);
    layout->addWidget(m_miniPvw, 1);
    return box;
}

QWidget* MainWindow::makeFields()
{
    m_fields = new QWidget;
    auto* layout = new QVBoxLayout(m_fields);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(new OutputControls(m_delegate));
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    layout->addWidget(line);
    m_inspector = new Inspector(m_delegate);
    auto* area = new QScrollArea;
    area->setWidget(m_inspector);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setMinimumWidth(m_inspector->minimumSizeHint().width() + 16);
    layout->addWidget(new InspectorPages(m_delegate, area, m_layerActions->selectAll(), m_add), 1);
    return m_fields;
}

void MainWindow::makeStatusBar()
{
    m_outputReport = new QLabel(this);
    m_outputReport->setContentsMargins(8, 0, 8, 0);
    m_outputReport->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // it must not widen the window
    m_outputReport->setAccessibleName(tr("Output Preview"));
    statusBar()->addWidget(m_outputReport, 1);
    statusBar()->addPermanentWidget(makeReportButton(&overlappingLayers, ItemTableModel::Mark::Overlaps));
    statusBar()->addPermanentWidget(makeReportButton(&outsideLayers, ItemTableModel::Mark::Outside));
    for (QLabel** label : {&m_itemCount, &m_outputSize}) {
        *label = new QLabel(this);
        (*label)->setContentsMargins(8, 0, 8, 0);
        statusBar()->addPermanentWidget(*label);
    }
    m_zoom = new ZoomBar(*m_miniPvw);
    statusBar()->addPermanentWidget(m_zoom);
    // An edit may change the list, and a composition the output size; both end up here.
    connect(m_miniPvw, &PreviewSurface::pictureChanged, this, [this] {
        m_status.schedule();
        m_outputPreview.setImage(m_miniPvw->image());
    });
    connect(&m_outputPreview, &OutputPreview::changed, this, [this] { m_status.schedule(); });
    m_listObservation = m_delegate.arraycontroller().observeArrangedObjects({}, [this] { m_status.schedule(); });
    m_status.schedule();
}

QWidget* MainWindow::makeReportButton(LayerReport report, ItemTableModel::Mark mark)
{
    auto* button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(tr("Select these layers"));
    button->hide();
    connect(button, &QToolButton::clicked, this,
            [this, report] { m_delegate.arraycontroller().setSelectionIndexes(report(m_delegate).rows); });
    m_refreshReports.emplace_back([this, button, report, mark] {
        const auto [text, rows] = report(m_delegate);
        button->setText(text);
        button->setVisible(!text.isEmpty());
        m_table->setMarked(mark, rows);
    });
    return button;
}

void MainWindow::refreshStatus()
{
    const auto count = static_cast<int>(m_delegate.arraycontroller().arrangedObjects().size());
    m_itemCount->setText(count == 1 ? tr("1 layer") : tr("%1 layers").arg(count));
    m_outputReport->setText(m_outputPreview.report());
    m_outputReport->setToolTip(m_outputPreview.report());
    for (const auto& refresh : m_refreshReports)
        refresh();
    m_outputSize->setText(tr("Output %1 × %2 px").arg(m_delegate.OutputWidth()).arg(m_delegate.OutputHeight()));
}

void MainWindow::showMessage(const QString& line)
{
    statusBar()->showMessage(shownText(line, kLongestMessage), kMessageMilliseconds);
}

void MainWindow::showFailure(const QString& line)
{
    m_failures->showMessage(line, m_remedy);
}

void MainWindow::makeFileMenu()
{
    m_fileMenu = new FileMenu(m_delegate, m_recentDocuments, {m_openPresets, m_savePresets}, this);
    menuBar()->addMenu(m_fileMenu);
    connect(m_fileMenu, &FileMenu::panelAhead, this, &MainWindow::panelAhead);
    connect(m_fileMenu, &FileMenu::remedyAhead, this, [this](const Remedy& remedy) { m_remedy = remedy; });
    connect(m_fileMenu, &FileMenu::openPanelWanted, this, &MainWindow::openFromPanel);
    connect(m_fileMenu, &FileMenu::newWanted, this, &MainWindow::startNew);
    connect(m_fileMenu, &FileMenu::openWanted, this, &MainWindow::open);
    connect(m_fileMenu, &FileMenu::messageWanted, this, &MainWindow::showMessage);
    connect(m_fileMenu, &FileMenu::quitWanted, this, &QWidget::close);
    connect(&m_recentDocuments, &QtRecentDocuments::changed, this, &MainWindow::nameProject);
    m_historyObservation = m_history.observe([this] { nameProject(); });
}

void MainWindow::open(const std::string& location)
{
    m_history.commit();
    m_remedy = m_openingRemedy;
    m_delegate.applicationOpenFile(location);
    m_remedy = {};
    m_history.commit();
}

void MainWindow::openFromPanel()
{
    emit panelAhead({tr("Open Project"), QStringLiteral("project"), tr("Projects (*.mpr)"), {}});
    m_remedy = m_openingRemedy;
    m_delegate.openProject();
    m_remedy = {};
}

void MainWindow::startNew()
{
    m_history.commit();
    m_delegate.setBgColor(nullptr);
    m_delegate.setEdgeColor(nullptr);
    m_delegate.loadProject(makeLaunchProject(0));
    m_history.commit();
}

void MainWindow::nameProject()
{
    const UrlRef location = m_delegate.documentFile()->location;
    const auto path = location ? location->filePath() : std::nullopt;
    const QFileInfo file(path ? QFile::decodeName(path->c_str()) : QString());
    m_fileMenu->setProject(file.filePath());
    setWindowTitle(path ? shownText(file.fileName(), kLongestTitle) + "[*]" : tr("Wallgrid"));
}

void MainWindow::setSaved(bool saved)
{
    setWindowModified(!saved && windowTitle().endsWith("[*]"));
}

ItemTable& MainWindow::editedTable() const
{
    const QWidget* focus = focusWidget(); // of a table it is also the editor of a name
    return focus && (focus == m_ptable || m_ptable->isAncestorOf(focus)) ? *m_ptable : *m_table;
}

void MainWindow::makeEditMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    const auto* steps = new UndoActions(m_history, *m_fields, this);
    connect(m_miniPvw, &PreviewSurface::beginInteraction, steps, [this] { m_history.beginInteraction(); });
    connect(m_miniPvw, &PreviewSurface::endInteraction, steps, [this] { m_history.endInteraction(); });
    menu->addActions({steps->undo(), steps->redo()});
    menu->addSeparator();
    menu->addActions(m_layerActions->editActions());
    menu->addSeparator();
    menu->addAction(m_add);
    menu->addAction(tr("Add Pr&eset to Layers"), Qt::CTRL | Qt::SHIFT | Qt::Key_P, this, [this] {
        if (hasSelection(*m_ptable))
            m_ptable->dropSelectionOn(*m_table, 0);
    });
    menu->addSeparator();
    // These work on the list that has the keyboard focus.
    menu->addAction(tr("Mo&ve Up"), Qt::CTRL | Qt::SHIFT | Qt::Key_Up, this, [this] {
        if (hasSelection(editedTable()))
            editedTable().moveSelection(ItemTable::Direction::Up);
    });
    menu->addAction(tr("Move Do&wn"), Qt::CTRL | Qt::SHIFT | Qt::Key_Down, this, [this] {
        if (hasSelection(editedTable()))
            editedTable().moveSelection(ItemTable::Direction::Down);
    });
    menu->addAction(tr("Re&name"), Qt::Key_F2, this, [this] {
        if (hasSelection(editedTable()))
            editedTable().renameSelection();
    });
    menu->addAction(tr("Re&move"), QKeySequence::Delete, this, [this] { emit editedTable().removalWanted(); });
    for (QWidget* view : std::initializer_list<QWidget*>{m_table, m_ptable, m_miniPvw}) {
        view->setContextMenuPolicy(Qt::ActionsContextMenu);
        view->addActions(menu->actions().mid(2)); // without Undo and Redo
    }
}

bool MainWindow::hasSelection(const ItemTable& table)
{
    const bool presets = &table == m_ptable;
    if ((presets ? m_delegate.presetarraycontroller() : m_delegate.arraycontroller()).selectionIndex())
        return true;
    showMessage(presets ? tr("No preset is selected.") : tr("No layer is selected."));
    return false;
}

void MainWindow::makeToolBar()
{
    QToolBar* bar = addToolBar(tr("Layers"));
    bar->setMovable(false);
    bar->setIconSize({16, 16});
    bar->addAction(m_add);
    bar->addActions(m_layerActions->editActions().last(2));
    bar->addSeparator();
    m_layerActions->addTo(*bar);
}

void MainWindow::makeViewMenu()
{
    auto* menu = new ViewMenu(*m_zoom, *m_miniPvw, this);
    connect(menu, &ViewMenu::messageWanted, this, &MainWindow::showMessage);
    menu->addOutputWindow(m_outputWindow);
    menu->addOutputPreview(m_delegate, m_outputPreview);
    menuBar()->addMenu(menu);
    m_viewMenu = menu;
}

void MainWindow::makeHelpMenu()
{
    auto* menu = new HelpMenu(*menuBar());
    menu->addAction(tr("&About Wallgrid"), this, [this] { m_delegate.openAbout(); });
    menuBar()->addMenu(menu);
}

void MainWindow::showEvent(QShowEvent* event)
{
    m_status.finish(); // or its texts would first be seen cut off, where there was room for none
    QMainWindow::showEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_delegate.applicationShouldTerminate() != GXAppDelegate::TerminateReply::TerminateNow) {
        event->ignore();
        return;
    }
    m_outputWindow.close();
    m_outputPreview.leave();
    QMainWindow::closeEvent(event);
}

} // namespace wallgrid
