// SPDX-License-Identifier: MIT
#include "ui/recovery/recovery.h"

#include "app/recovery_file.h"
#include "base/file.h"

#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <algorithm>
#include <new>
#include <utility>

namespace wallgrid {

namespace {

using States = std::vector<std::weak_ptr<const DocumentState>>;

bool same(const DocumentState::Entries& a, const DocumentState::Entries& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& one, const auto& other) {
        return one.item == other.item && one.values == other.values;
    });
}

bool sameProject(const DocumentState& a, const DocumentState& b)
{
    return a.outputWidth == b.outputWidth && a.outputHeight == b.outputHeight && same(a.layers, b.layers);
}

bool samePresets(const DocumentState& a, const DocumentState& b)
{
    return same(a.presets, b.presets);
}

bool sameColors(const DocumentState& a, const DocumentState& b)
{
    return a.bgColor == b.bgColor && a.edgeColor == b.edgeColor;
}

template <class Matches>
bool anyOf(const States& states, const Matches& matches)
{
    return std::any_of(states.begin(), states.end(), [&](const auto& entry) {
        const DocumentStateRef state = entry.lock();
        return state && matches(*state);
    });
}

void add(States& states, const DocumentStateRef& state)
{
    std::erase_if(states, [](const auto& entry) { return entry.expired(); });
    states.push_back(state);
}

bool isAt(const DocumentFile& file, const std::string& path)
{
    return file.location && file.location->filePath() == path;
}

std::string encoded(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

} // namespace

Recovery::Recovery(GXAppDelegate& delegate, UndoHistory& history, RunLoop& runLoop, Log& log, const QString& folder)
    : m_delegate(delegate)
    , m_history(history)
    , m_runLoop(runLoop)
    , m_log(log)
    , m_abandoned(RecoveryCopy::abandoned(folder))
    , m_copy(RecoveryCopy::create(folder))
{
    m_writer.setMaxThreadCount(1);
    m_history.commit();
    m_saved = {m_history.state()};
    m_observation = m_history.observe([this] { documentChanged(); });
    if (!m_copy)
        report(encoded(folder) + ": no copy for recovery can be kept here");
}

void Recovery::end()
{
    try {
        leaveChanges();
    } catch (const std::bad_alloc&) {
        m_log.log("There was not enough memory for the last changes."); // those before are in the copy
    }
    m_copy.reset();
    if (!m_abandoned.empty())
        m_abandoned.front()->setAside(); // no answer is one, too
}

void Recovery::leaveChanges()
{
    m_history.commit();
    finish();
    if (!m_copy)
        return;
    if (isKept())
        return m_copy->remove();
    // Whatever the copy holds: the last writing may have failed.
    const std::string path = encoded(m_copy->file());
    if (const auto written = writeFileAtomically(path, writeRecoveryFile(m_delegate)); !written)
        m_log.log(path + ": " + written.error().message);
}

std::optional<QDateTime> Recovery::offer() const
{
    if (m_abandoned.empty())
        return std::nullopt;
    return QFileInfo(m_abandoned.front()->file()).lastModified();
}

void Recovery::restore()
{
    const RecoveryCopy& offered = *m_abandoned.front();
    const std::string path = encoded(offered.file());
    m_history.commit();
    {
        const QScopedValueRollback<bool> restoring(m_restoring, true);
        auto bytes = readFile(path);
        const auto loaded = bytes ? loadRecoveryFile(m_delegate, std::move(*bytes)) : tl::unexpected(bytes.error());
        if (!loaded)
            return m_log.log(path + ": " + loaded.error().message);
        m_history.commit();
    }
    m_restored = m_history.state();
    // At no moment is there neither the old copy nor a new one.
    finish();
    if (m_copy && m_copy->take(offered))
        m_written = m_restored.lock();
    else
        documentChanged();
    discard();
}

void Recovery::discard()
{
    m_abandoned.front()->remove();
    m_abandoned.erase(m_abandoned.begin());
    emit offerChanged();
}

void Recovery::noteFile(const std::string& path)
{
    m_history.commit();
    const auto bytes = readFile(path);
    if (!bytes || *bytes != writeProject(m_delegate.project()))
        return;
    // What it held before, of this document or another, is in no file now.
    const DocumentStateRef now = m_history.state();
    std::erase_if(m_saved, [&](const auto& entry) {
        const DocumentStateRef saved = entry.lock();
        return !saved || saved->file == now->file || isAt(*saved->file, path);
    });
    m_saved.push_back(now);
    documentChanged();
}

bool Recovery::isClean() const
{
    return anyOf(m_saved, [now = m_history.state()](const auto& saved) { return sameProject(saved, *now); });
}

bool Recovery::isKept() const
{
    const DocumentState& now = *m_history.state();
    const bool hasPresetsOfAFile = anyOf(m_presets, [&](const auto& opened) { return samePresets(opened, now); });
    return anyOf(m_saved, [&](const auto& saved) {
        return sameProject(saved, now) && sameColors(saved, now) && (hasPresetsOfAFile || samePresets(saved, now));
    });
}

void Recovery::documentChanged()
{
    const DocumentChange* last = m_history.undoable();
    // Going back to it later does not make it what the file holds.
    const bool opened = last && last->what == DocumentChange::What::Replaced && !m_history.redoable();
    if (opened && !m_restoring && m_history.state() != m_restored.lock())
        add(last->presets ? m_presets : m_saved, m_history.state());
    if (!m_copy)
        return;
    if (!isKept())
        scheduleWriting();
    else if (std::exchange(m_written, nullptr))
        m_writer.start([path = m_copy->file()] { QFile::remove(path); });
}

void Recovery::scheduleWriting()
{
    if (m_writing)
        return;
    m_writing = m_runLoop.scheduleTimer(kIntervalSeconds, [this] {
        m_writing = {};
        write();
    });
}

void Recovery::write()
{
    const DocumentState& now = *m_history.state();
    if (!m_copy || isKept() ||
        (m_written && sameProject(*m_written, now) && sameColors(*m_written, now) && samePresets(*m_written, now)))
        return;
    // Making the bytes takes little; the disk may take long.
    m_writer.start([this, path = encoded(m_copy->file()), bytes = writeRecoveryFile(m_delegate)] {
        const auto written = writeFileAtomically(path, bytes);
        if (!written)
            QMetaObject::invokeMethod(this, [this, line = path + ": " + written.error().message] { report(line); });
    });
    m_written = m_history.state();
}

void Recovery::report(const std::string& message)
{
    // Every few seconds would be a nuisance.
    if (!std::exchange(m_reported, true))
        m_log.log(message);
}

} // namespace wallgrid
