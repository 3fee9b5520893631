// SPDX-License-Identifier: MIT
#include "ui/desktop/qt_panels.h"

#include "ui/base/file_location.h"
#include "ui/base/shown_text.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QPushButton>
#include <QTreeView>
#include <utility>

namespace wallgrid {

namespace {

constexpr QSize kPanelSize(820, 520);
constexpr qsizetype kMostNameBytes = 255;

/// Icons and types from the name alone.
class NameIcons final : public QFileIconProvider {
public:
    QIcon icon(const QFileInfo& info) const override { return QFileIconProvider::icon(info.isDir() ? Folder : File); }
    QIcon icon(IconType type) const override { return QFileIconProvider::icon(type); }
    QString type(const QFileInfo& info) const override
    {
        return QMimeDatabase().mimeTypeForFile(info, QMimeDatabase::MatchExtension).comment();
    }
};

/// A panel that says so where Qt's does nothing at all: when no file can have such a name.
class FilePanel final : public QFileDialog {
public:
    explicit FilePanel(const QString& extension)
        : QFileDialog(QApplication::activeWindow())
        , m_mostBytes(extension.isEmpty() ? kMostNameBytes : kMostNameBytes - extension.size() - 1)
    {
    }

protected:
    void accept() override
    {
        const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (name && QFile::encodeName(QFileInfo(name->text()).fileName()).size() > m_mostBytes)
            QMessageBox::warning(this, windowTitle(), QtPanels::tr("This name is too long."));
        else
            QFileDialog::accept();
    }

private:
    qsizetype m_mostBytes;
};

QCheckBox* addOption(QFileDialog& dialog, const PanelPurpose::Option& option)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog); // only ours has room for it
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    auto* reason = new QLabel(option.reason, &dialog);
    reason->setWordWrap(true);
    auto* box = new QCheckBox(option.text, &dialog);
    box->setAccessibleDescription(option.reason);
    const int row = grid->rowCount();
    grid->addWidget(reason, row, 0, 1, grid->columnCount());
    grid->addWidget(box, row + 1, 0, 1, grid->columnCount());
    return box;
}

/// The file that will be written for a chosen one.
QString writtenPath(const QString& chosen, const PanelPurpose& purpose)
{
    const auto letters = purpose.whole ? Qt::CaseInsensitive : Qt::CaseSensitive;
    const bool complete =
        purpose.extension.isEmpty() || QFileInfo(chosen).suffix().compare(purpose.extension, letters) == 0;
    return complete ? chosen : chosen + u'.' + purpose.extension;
}

} // namespace

void QtPanels::setUp(QFileDialog& dialog, const PanelPurpose& purpose) const
{
    const QString allFiles = tr("All files (*)");
    static NameIcons icons;
    dialog.setIconProvider(&icons);
    dialog.setWindowTitle(purpose.title);
    dialog.setNameFilters(purpose.nameFilter.isEmpty() ? QStringList{allFiles}
                                                       : QStringList{purpose.nameFilter, allFiles});
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the images' would be longer than the dialog
    dialog.resize(kPanelSize);
    if (auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) { // not when the desktop's is used
        list->header()->setStretchLastSection(false);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    for (const QString& folder :
         {m_folders.value({}).toString(), m_folders.value(purpose.kind).toString(), purpose.folder}) {
        if (QFileInfo(folder).isDir())
            dialog.setDirectory(folder);
    }
}

QString QtPanels::run(QFileDialog& dialog, const QString& kind)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    for (const QString& key : {QString(), kind})
        m_folders.insert(key, chosen.absolutePath());
    return chosen.absoluteFilePath();
}

bool QtPanels::mayReplace(const QString& path, const PanelPurpose& purpose)
{
    QMessageBox question(
        QMessageBox::Question, purpose.title,
        tr("“%1” exists already. Do you want to replace it?").arg(shownText(QFileInfo(path).fileName())),
        QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    question.setTextFormat(Qt::PlainText);
    question.setDefaultButton(path == purpose.own ? QMessageBox::Yes : QMessageBox::No);
    return question.exec() == QMessageBox::Yes;
}

UrlRef QtPanels::runSavePanel()
{
    const PanelPurpose purpose = std::exchange(m_purpose, {});
    if (!purpose.answer.isEmpty()) {
        purpose.chosen(purpose.answer);
        return fileLocation(purpose.answer);
    }
    FilePanel dialog(purpose.extension);
    setUp(dialog, purpose);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The panel does not know the name that the file will have.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (!purpose.name.isEmpty())
        dialog.selectFile(purpose.name + u'.' + purpose.extension);
    const QCheckBox* option = purpose.option.text.isEmpty() ? nullptr : addOption(dialog, purpose.option);
    for (;;) {
        const QString chosen = run(dialog, purpose.kind);
        if (chosen.isEmpty())
            return nullptr;
        const QString written = writtenPath(chosen, purpose);
        if (QFileInfo::exists(written) && !mayReplace(written, purpose))
            continue;
        if (option)
            purpose.option.apply(option->isChecked());
        if (purpose.chosen)
            purpose.chosen(written);
        return fileLocation(purpose.whole ? written : chosen);
    }
}

UrlRef QtPanels::runOpenPanel()
{
    const PanelPurpose purpose = std::exchange(m_purpose, {});
    FilePanel dialog({});
    setUp(dialog, purpose);
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QString chosen = run(dialog, purpose.kind);
    return chosen.isEmpty() ? nullptr : fileLocation(chosen);
}

void QtPanels::runAlert(std::string_view message, std::string_view informativeText)
{
    const auto text = [](std::string_view utf8) {
        return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    };
    QMessageBox alert(QMessageBox::Warning, QApplication::applicationDisplayName(), text(message), QMessageBox::Ok,
                      QApplication::activeWindow());
    alert.button(QMessageBox::Ok)->setText(tr("OK"));
    alert.setTextFormat(Qt::PlainText);
    alert.setInformativeText(text(informativeText));
    alert.exec();
}

} // namespace wallgrid
