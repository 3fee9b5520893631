// SPDX-License-Identifier: MIT
#include "ui/recovery/recovery_copy.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QUuid>
#include <algorithm>
#include <cstdio>

namespace wallgrid {

namespace {

constexpr auto kAsideSuffix = "mpr";

} // namespace

RecoveryCopy::RecoveryCopy(const QString& place)
    : m_place(place)
    , m_lock(place + ".lock")
{
    // Only the end of its process makes a lock stale, not its age.
    m_lock.setStaleLockTime(0);
}

std::unique_ptr<RecoveryCopy> RecoveryCopy::locked(const QString& place)
{
    std::unique_ptr<RecoveryCopy> copy(new RecoveryCopy(place));
    return copy->m_lock.tryLock(0) ? std::move(copy) : nullptr;
}

std::unique_ptr<RecoveryCopy> RecoveryCopy::create(const QString& folder)
{
    const QString place = QDir(folder).filePath(QUuid::createUuid().toString(QUuid::WithoutBraces));
    // The lock comes first: a folder without one is for anybody to take.
    auto copy = QDir().mkpath(folder) ? locked(place) : nullptr;
    return copy && QDir().mkpath(place) ? std::move(copy) : nullptr;
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryCopy::abandoned(const QString& folder)
{
    QSet<QString> places;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (entry.suffix() == kAsideSuffix) {
            if (entry.metadataChangeTime().daysTo(QDateTime::currentDateTime()) > kDaysAside)
                QFile::remove(entry.filePath());
        } else if (entry.isDir() || entry.suffix() == "lock")
            places.insert(entry.dir().filePath(entry.completeBaseName()));
    }
    std::vector<std::unique_ptr<RecoveryCopy>> copies;
    for (const QString& place : places) {
        auto copy = locked(place);
        if (copy && QFile::exists(copy->file()))
            copies.push_back(std::move(copy));
        else if (copy)
            copy->remove();
    }
    std::sort(copies.begin(), copies.end(), [](const auto& a, const auto& b) {
        return QFileInfo(a->file()).lastModified() > QFileInfo(b->file()).lastModified();
    });
    return copies;
}

bool RecoveryCopy::take(const RecoveryCopy& other)
{
    QDir().mkpath(m_place);
    return std::rename(QFile::encodeName(other.file()), QFile::encodeName(file())) == 0;
}

void RecoveryCopy::remove()
{
    QDir(m_place).removeRecursively();
}

void RecoveryCopy::setAside()
{
    if (QFile::rename(file(), m_place + u'.' + kAsideSuffix))
        remove();
}

} // namespace wallgrid
