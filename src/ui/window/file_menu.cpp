// SPDX-License-Identifier: MIT
#include "ui/window/file_menu.h"

#include "base/file.h"
#include "ui/base/shown_text.h"
#include "ui/desktop/qt_recent_documents.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <memory>

namespace wallgrid {

namespace {

/// What the menu calls a location: its path, or the whole text of one that is no file.
QString menuText(const QString& location)
{
    const auto url = Url::fromString(location.toStdString());
    const auto path = url ? url->filePath() : std::nullopt;
    return withoutMnemonics(shownText(path ? QFile::decodeName(path->c_str()) : location, 80));
}

/// Another one after the file was written. The time of a file alone lags some milliseconds behind the clock.
using FileState = std::pair<std::optional<FileIdentity>, QDateTime>;

FileState stateOf(const QString& path)
{
    return {fileIdentity(QFile::encodeName(path).toStdString()), QFileInfo(path).lastModified()};
}

} // namespace

FileMenu::FileMenu(GXAppDelegate& delegate, QtRecentDocuments& recentDocuments, const QList<QAction*>& presets,
                   QWidget* parent)
    : QMenu(tr("&File"), parent)
    , m_delegate(delegate)
    , m_recentDocuments(recentDocuments)
{
    // Icons of the desktop's theme; without one there are none, and the words say it all.
    const auto icon = [](const char* name) { return QIcon::fromTheme(QString::fromLatin1(name)); };
    addAction(icon("document-new"), tr("&New Project"), QKeySequence::New, this, &FileMenu::newWanted);
    addAction(icon("document-open"), tr("&Open Project…"), QKeySequence::Open, this, &FileMenu::openPanelWanted);
    m_recentMenu = addMenu(icon("document-open-recent"), tr("Open &Recent"));
    connect(&m_recentDocuments, &QtRecentDocuments::changed, this, &FileMenu::fillRecentMenu);
    fillRecentMenu();
    addAction(icon("document-save"), tr("&Save Project…"), QKeySequence::Save, this, [this] { saveProject({}); });
    addSeparator();
    addActions(presets);
    addSeparator();
    addAction(icon("document-export"), tr("&Export PNG…"), QKeySequence(Qt::CTRL | Qt::Key_E), this,
              [this] { exportPng({}); });
    addAction(icon("document-export"), tr("Export &Layered PSD…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E), this,
              [this] { exportPsd({}); });
    addAction(tr("Export A&gain"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_E), this, &FileMenu::exportAgain);
    addSeparator();
    addAction(icon("application-exit"), tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, &FileMenu::quitWanted)
        ->setMenuRole(QAction::QuitRole);
}

void FileMenu::fillRecentMenu()
{
    m_recentMenu->clear();
    const QStringList locations = m_recentDocuments.locations();
    m_recentMenu->setEnabled(!locations.isEmpty());
    for (const QString& location : locations)
        m_recentMenu->addAction(menuText(location), this,
                                [this, location] { emit openWanted(location.toStdString()); });
    m_recentMenu->addSeparator();
    // Later, because the menu that is cleared is the one that is being left.
    m_recentMenu->addAction(
        tr("&Clear Menu"), this, [this] { m_recentDocuments.clear(); }, Qt::QueuedConnection);
}

void FileMenu::saveProject(const QString& folder)
{
    PanelPurpose purpose{tr("Save Project"), QStringLiteral("project"), tr("Projects (*.mpr)"), QStringLiteral("mpr")};
    purpose.own = m_project;
    purpose.folder = m_project.isEmpty() || !folder.isEmpty() ? folder : QFileInfo(m_project).path();
    write(std::move(purpose), &GXAppDelegate::saveProject, &FileMenu::saveProject);
}

void FileMenu::exportPng(const QString& folder)
{
    PanelPurpose purpose{tr("Export PNG"), QStringLiteral("png"), tr("PNG images (*.png)"), QStringLiteral("png")};
    purpose.folder = folder;
    write(std::move(purpose), &GXAppDelegate::saveAction, &FileMenu::exportPng);
}

void FileMenu::exportPsd(const QString& folder)
{
    m_delegate.setNumbersEqualLayerNames(false);
    PanelPurpose purpose{tr("Export Layered PSD"), QStringLiteral("psd"), tr("Photoshop documents (*.psd)"),
                         QStringLiteral("psd"), true};
    purpose.folder = folder;
    if (m_delegate.hasEqualLayerNames()) {
        purpose.option = {tr("N&umber equal layer names"),
                          tr("Some layers have the same name. In the file a number can tell them apart."),
                          [this](bool numbers) { m_delegate.setNumbersEqualLayerNames(numbers); }};
    }
    m_delegate.setPSDLocationIsWhole(true);
    write(std::move(purpose), &GXAppDelegate::savePSD, &FileMenu::exportPsd);
    m_delegate.setPSDLocationIsWhole(false);
}

void FileMenu::exportAgain()
{
    if (!m_lastExportAction) {
        emit messageWanted(tr("Nothing was exported yet."));
        return;
    }
    PanelPurpose purpose;
    purpose.answer = m_lastExport;
    m_delegate.setPSDLocationIsWhole(true);
    write(std::move(purpose), m_lastExportAction, m_lastExportCommand);
    m_delegate.setPSDLocationIsWhole(false);
}

void FileMenu::write(PanelPurpose purpose, Action action, Command command)
{
    // Shared, because nobody knows how long the panels keep the purpose.
    const auto chosen = std::make_shared<QString>();
    const auto before = std::make_shared<FileState>();
    purpose.chosen = [chosen, before](const QString& path) {
        *chosen = path;
        *before = stateOf(path);
    };
    purpose.name = QFileInfo(m_project).completeBaseName();
    emit panelAhead(purpose);
    emit remedyAhead({tr("Save elsewhere…"), [this, command] { (this->*command)(QDir::homePath()); }});
    (m_delegate.*action)();
    emit remedyAhead({});
    // What failed has said so itself, and has left an older file or none.
    if (chosen->isEmpty() || stateOf(*chosen) == *before)
        return;
    emit messageWanted(tr("Written: %1").arg(shownText(*chosen)));
    if (action != &GXAppDelegate::saveProject) {
        m_lastExport = *chosen;
        m_lastExportAction = action;
        m_lastExportCommand = command;
    }
}

} // namespace wallgrid
