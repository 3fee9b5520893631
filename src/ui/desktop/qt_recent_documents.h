// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop.h"

#include <QObject>
#include <QSettings>
#include <QStringList>

namespace wallgrid {

/// The list of projects that were opened or saved last, kept in a settings file of its own between sessions.
class QtRecentDocuments final : public QObject, public RecentDocuments {
    Q_OBJECT

public:
    static constexpr int kMaximumCount = 10;

    explicit QtRecentDocuments(const QString& settingsFile);

    /// A location without a file is not noted: its saving has failed.
    void noteNewRecentDocument(const UrlRef& location) override;
    /// URL strings, newest first.
    QStringList locations() const;
    void clear();

signals:
    void changed();

private:
    void store(const QStringList& locations);

    QSettings m_settings;
};

} // namespace wallgrid
