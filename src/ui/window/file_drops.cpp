// SPDX-License-Identifier: MIT
#include "ui/window/file_drops.h"

#include "app/new_layers.h"
#include "ui/base/file_location.h"
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
#include <utility>

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

} // namespace

FileDrops::FileDrops(NewLayers& newLayers, const ZoomView& preview, QWidget& window)
    : QObject(&window)
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
    if (event->type() != QEvent::Drop)
        return true;
    std::optional<PixelPoint> middle;
    const QPointF position = m_preview.mapFrom(m_preview.window(), drop->position());
    if (QRectF(m_preview.rect()).contains(position)) {
        const QPointF point = m_preview.viewport().toRaster(position * m_preview.devicePixelRatioF());
        middle = PixelPoint{std::llround(point.x()), std::llround(point.y())};
    }
    // Later, because the program that the files come from waits, and opening one may ask something.
    QTimer::singleShot(0, this, [=, this] { open(paths, middle); });
    return true;
}

void FileDrops::open(const QStringList& paths, std::optional<PixelPoint> middle)
{
    for (const QString& path : paths) {
        const UrlRef location = fileLocation(path);
        if (kindOf(path) != FileKind::Picture)
            emit openWanted(location->absoluteString());
        else // only the first one where it was dropped, or they would cover each other
            m_newLayers.addImageAt(location, makeString(QFileInfo(path).completeBaseName().toStdU16String()),
                                   std::exchange(middle, std::nullopt));
    }
}

} // namespace wallgrid
