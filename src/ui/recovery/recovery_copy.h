// SPDX-License-Identifier: MIT
#pragma once

#include <QLockFile>
#include <QString>
#include <memory>
#include <vector>

namespace wallgrid {

/// The place of one run of the program in the folder of recovery copies: a project file in a folder of its own, and a
/// lock beside it that lasts as long as the run, or this object.
class RecoveryCopy {
public:
    static constexpr int kDaysAside = 30;

    /// A new place without a file. Null when there can be none, say on a disk that is read-only.
    static std::unique_ptr<RecoveryCopy> create(const QString& folder);
    /// The copies of runs that have ended, the newest first. While they live, nobody else gets them. What
    /// was set aside too long ago is removed.
    static std::vector<std::unique_ptr<RecoveryCopy>> abandoned(const QString& folder);

    QString file() const { return m_place + "/project.mpr"; }
    /// Takes another copy's file in the place of the own one.
    bool take(const RecoveryCopy& other);
    /// Removes the file and its folder; only the lock remains, until the object ends.
    void remove();
    /// Keeps the file for kDaysAside beside the places, where no later run takes it for a copy to offer.
    void setAside();

private:
    explicit RecoveryCopy(const QString& place);
    static std::unique_ptr<RecoveryCopy> locked(const QString& place);

    QString m_place;
    QLockFile m_lock;
};

} // namespace wallgrid
