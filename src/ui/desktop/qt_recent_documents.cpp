// SPDX-License-Identifier: MIT
#include "ui/desktop/qt_recent_documents.h"

#include <QFile>

namespace wallgrid {

namespace {

constexpr auto kLocationsKey = "locations";

} // namespace

QtRecentDocuments::QtRecentDocuments(const QString& settingsFile)
    : m_settings(settingsFile, QSettings::IniFormat)
{
}

void QtRecentDocuments::noteNewRecentDocument(const UrlRef& location)
{
    // The controller does not look at the result of a write before it names the file.
    const auto path = location->filePath();
    if (!path || !QFile::exists(QFile::decodeName(path->c_str())))
        return;
    QStringList list = locations();
    const QString text = QString::fromStdString(location->absoluteString());
    list.removeAll(text);
    list.prepend(text);
    store(list);
}

QStringList QtRecentDocuments::locations() const
{
    return m_settings.value(kLocationsKey).toStringList().mid(0, kMaximumCount);
}

void QtRecentDocuments::clear()
{
    store({});
}

void QtRecentDocuments::store(const QStringList& locations)
{
    m_settings.setValue(kLocationsKey, QStringList(locations.mid(0, kMaximumCount)));
    emit changed();
}

} // namespace wallgrid
