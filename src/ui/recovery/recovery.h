// SPDX-License-Identifier: MIT
#pragma once

#include "app/undo_history.h"
#include "base/log.h"
#include "base/run_loop.h"
#include "ui/recovery/recovery_copy.h"

#include <QDateTime>
#include <QObject>
#include <QThreadPool>
#include <optional>

namespace wallgrid {

/// Keeps a copy of the document while it holds changes since the start, the last opening or the last saving, and offers
/// the copies that earlier runs have left. The copy is written in the background; at a proper end it is brought up to
/// date, or goes when there is nothing to lose. A copy is offered once: one that nobody has answered by then is set
/// aside, and the ones after it are the next run's to offer. The user's own files are only read.
class Recovery final : public QObject {
    Q_OBJECT

public:
    /// Between two writings, and before the first.
    static constexpr double kIntervalSeconds = 3;

    /// The present document counts as saved.
    Recovery(GXAppDelegate& delegate, UndoHistory& history, RunLoop& runLoop, Log& log, const QString& folder);
    ~Recovery() override { finish(); }

    /// The program ends properly: leaves the last changes to the next run. Nothing is kept up to date from then on.
    void end();

    /// When the copy was written that is offered now; nothing when there is none.
    std::optional<QDateTime> offer() const;
    /// Opens it. A copy that cannot be read stays and stays offered, and the log says why.
    void restore();
    void discard();

    /// A project was opened or saved there. When the file holds what the document holds, there is nothing to recover.
    void noteFile(const std::string& path);
    /// A file of the user holds the project as it is. The colours of the output and the presets are in no such file.
    bool isClean() const;
    /// Waits for what is being written.
    void finish() { m_writer.waitForDone(); }

signals:
    void offerChanged();

private:
    void leaveChanges();
    void documentChanged();
    /// The document is one that was opened or saved, with the colours and presets that it had then.
    bool isKept() const;
    void scheduleWriting();
    void write();
    void report(const std::string& message);

    GXAppDelegate& m_delegate;
    UndoHistory& m_history;
    RunLoop& m_runLoop;
    Log& m_log;
    std::vector<std::unique_ptr<RecoveryCopy>> m_abandoned;
    std::unique_ptr<RecoveryCopy> m_copy; ///< null when there can be none
    // The history may have forgotten these states. Their items are not kept for this.
    std::vector<std::weak_ptr<const DocumentState>> m_saved;   ///< what files of the user hold
    std::vector<std::weak_ptr<const DocumentState>> m_presets; ///< whose presets came from a file
    std::weak_ptr<const DocumentState> m_restored;             ///< what came from a copy
    DocumentStateRef m_written;                                ///< what the copy holds; null without a copy
    bool m_restoring = false;
    bool m_reported = false;
    QThreadPool m_writer;   ///< one thread, so that the order stays
    Registration m_writing; ///< while it is scheduled
    Registration m_observation;
};

} // namespace wallgrid
