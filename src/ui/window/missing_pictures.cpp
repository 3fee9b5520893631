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
    , m_observation(history.observe([this] { look(); }))
{
}

void MissingPictures::look()
{
    const bool another = std::exchange(m_lookedAt, m_delegate.documentFile()) != m_lookedAt;
    if (!another && m_reported.isEmpty())
        return;
    const std::size_t count = missingPictures(m_delegate).size();
    if (another)
        report(count);
    else if (count == 0)
        m_bar.retract(std::exchange(m_reported, {})); // they were found one by one
}

void MissingPictures::report(std::size_t count)
{
    m_bar.retract(std::exchange(m_reported, {}));
    if (count == 0)
        return;
    m_reported = count == 1 ? tr("1 picture is missing") : tr("%1 pictures are missing").arg(count);
    m_bar.showMessage(m_reported, {tr("Find…"), [this] { find(); }});
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
        return report(missingPictures(m_delegate).size());
    const QString folder = dialog.selectedFiles().value(0);
    m_history.closeStep();
    const std::size_t found = findPictures(m_delegate, QFile::encodeName(folder).toStdString());
    m_history.closeStep();
    emit messageWanted(found == 1 ? tr("1 picture was found.") : tr("%1 pictures were found.").arg(found));
    report(missingPictures(m_delegate).size());
}

} // namespace wallgrid
