// SPDX-License-Identifier: MIT
#include "ui/window/file_drops.h"

#include "app/new_layers.h"
#include "ui/preview/zoom_view.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <cmath>

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

enum class FileKind {
    Other,
    Picture,
    Project,
};

/// Opens no more than regular files that hold something: a pipe or a device may never answer.
FileKind kindOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile() || info.size() == 0)
        return FileKind::Other;
    QFile file(path);
    if (info.suffix().toLower() == QStringLiteral("mpr") ||
        (file.open(QIODevice::ReadOnly) && file.peek(6) == "bplist"))
        return FileKind::Project;
    return QImageReader(path).canRead() ? FileKind::Picture : FileKind::Other;
}

UrlRef locationOf(const QString& path)
{
    return std::make_shared<const Url>(Url::fromFilePath(QFile::encodeName(path).toStdString()));
}

} // namespace

FileDrops::FileDrops(GXAppDelegate& delegate, NewLayers& newLayers, const ZoomView& preview, QWidget& window)
    : QObject(&window)
    , m_delegate(delegate)
    , m_newLayers(newLayers)
    , m_preview(preview)
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
    const auto isWanted = [](const QString& path) { return kindOf(path) != FileKind::Other; };
    // Looked at once for each part of the window. A sheet or a panel waits for its own answer first.
    if (event->type() != QEvent::DragMove)
        m_wanted = std::any_of(paths.begin(), paths.end(), isWanted);
    if (!m_wanted || QApplication::activeModalWidget()) {
        drop->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    // Later, because the program that the files come from waits, and opening one may ask something.
    const QPointF position = m_preview.mapFrom(m_preview.window(), drop->position());
    const bool onPreview = QRectF(m_preview.rect()).contains(position);
    if (event->type() == QEvent::Drop)
        QTimer::singleShot(0, this, [=, this] { onPreview ? openOnPreview(paths, position) : open(paths); });
    return true;
}

void FileDrops::openOnPreview(const QStringList& paths, QPointF position)
{
    const QPointF point = m_preview.viewport().toRaster(position * m_preview.devicePixelRatioF());
    std::optional<PixelPoint> middle(PixelPoint{std::llround(point.x()), std::llround(point.y())});
    for (const QString& path : paths) {
        if (kindOf(path) != FileKind::Picture) {
            open({path});
            continue;
        }
        m_newLayers.addImageAt(locationOf(path), makeString(QFileInfo(path).completeBaseName().toStdU16String()),
                               middle);
        middle.reset(); // or several would cover each other
    }
}

void FileDrops::open(const QStringList& paths)
{
    for (const QString& path : paths) {
        if (kindOf(path) == FileKind::Picture)
            m_delegate.addImageAt(locationOf(path));
        else
            emit openWanted(locationOf(path)->absoluteString());
    }
}

} // namespace wallgrid
