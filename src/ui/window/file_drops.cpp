// SPDX-License-Identifier: MIT
#include "ui/window/file_drops.h"

#include "app/gx_app_delegate.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace wallgrid {

namespace {

QStringList filesOf(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

bool isPicture(const QString& path)
{
    return QFileInfo(path).suffix().toLower() != QStringLiteral("mpr") && QImageReader(path).canRead();
}

} // namespace

FileDrops::FileDrops(GXAppDelegate& delegate, QWidget& window)
    : QObject(&window)
    , m_delegate(delegate)
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove && event->type() != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const QStringList paths = filesOf(*drop->mimeData());
    // A sheet or a panel waits for its own answer first.
    if (paths.isEmpty() || QApplication::activeModalWidget()) {
        drop->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    // Later, because the program that the files come from waits, and opening one may ask something.
    if (event->type() == QEvent::Drop)
        QTimer::singleShot(0, this, [this, paths] { open(paths); });
    return true;
}

void FileDrops::open(const QStringList& paths)
{
    for (const QString& path : paths) {
        const auto location = std::make_shared<const Url>(Url::fromFilePath(QFile::encodeName(path).toStdString()));
        if (isPicture(path))
            m_delegate.addImageAt(location);
        else
            emit openWanted(location->absoluteString());
    }
}

} // namespace wallgrid
