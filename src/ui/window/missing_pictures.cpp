// SPDX-License-Identifier: MIT
#include "ui/window/missing_pictures.h"

#include "app/still_pictures.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

namespace wallgrid {

MissingPictures::MissingPictures(GXAppDelegate& delegate, UndoHistory& history, MessageBar& bar, QWidget& window)
    : QObject(&window)
    , m_delegate(delegate)
    , m_history(history)
    , m_bar(bar)
    , m_window(window)
    , m_lookedAt(delegate.documentFile())
    , m_observation(history.observe([this] { lookAtProject(); }))
{
}

void MissingPictures::lookAtProject()
{
    if (std::exchange(m_lookedAt, m_delegate.documentFile()) != m_lookedAt)
        report();
}

void MissingPictures::report()
{
    const std::size_t count = missingPictures(m_delegate).size();
    if (count > 0)
        m_bar.showMessage(count == 1 ? tr("1 picture is missing") : tr("%1 pictures are missing").arg(count),
                          {tr("Find…"), [this] { find(); }});
}

void MissingPictures::find()
{
    QFileDialog dialog(&m_window, tr("Find Missing Pictures In"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const UrlRef project = m_delegate.documentFile()->location;
    if (const auto path = project ? project->filePath() : std::nullopt)
        dialog.setDirectory(QFileInfo(QFile::decodeName(path->c_str())).path());
    if (dialog.exec() != QDialog::Accepted)
        return report();
    const QString folder = dialog.selectedFiles().value(0);
    m_history.closeStep();
    const std::size_t found = findPictures(m_delegate, QFile::encodeName(folder).toStdString());
    m_history.closeStep();
    emit messageWanted(found == 1 ? tr("1 picture was found.") : tr("%1 pictures were found.").arg(found));
    report();
}

} // namespace wallgrid
