// SPDX-License-Identifier: MIT
#include "ui/recovery.h"

#include "app/project_file.h"
#include "platform/file.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

bool sameProject(const DocumentState& a, const DocumentState& b)
{
    return a.outputWidth == b.outputWidth && a.outputHeight == b.outputHeight &&
           std::equal(
               a.layers.begin(), a.layers.end(), b.layers.begin(), b.layers.end(),
               [](const auto& one, const auto& other) { return one.item == other.item && one.values == other.values; });
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
    , m_self(std::make_shared<Recovery*>(this))
{
    m_writer.setMaxThreadCount(1);
    m_history.commit();
    m_saved = {m_history.state()};
    m_history.addObserver([this] { documentChanged(); });
    if (!m_copy)
        report(encoded(folder) + ": no copy for recovery can be kept here");
}

Recovery::~Recovery()
{
    finish();
    if (m_copy)
        m_copy->remove();
    if (!m_abandoned.empty())
        m_abandoned.front()->setAside(); // no answer is one, too
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
    auto bytes = readFile(path);
    const auto project = bytes ? readProject(std::move(*bytes)) : tl::unexpected(bytes.error());
    if (!project)
        return m_log.log(path + ": " + project.error().message);
    m_history.commit();
    m_restoring = true;
    m_delegate.loadProject(*project);
    m_history.commit();
    m_restoring = false;
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
    m_saved = {m_history.state()};
    documentChanged();
}

bool Recovery::isClean() const
{
    return std::any_of(m_saved.begin(), m_saved.end(), [&](const auto& entry) {
        const DocumentStateRef saved = entry.lock();
        return saved && sameProject(*saved, *m_history.state());
    });
}

void Recovery::documentChanged()
{
    if (!m_copy)
        return;
    const DocumentChange* last = m_history.undoable();
    const bool opened = last && last->what == DocumentChange::What::Replaced && !last->presets;
    if (opened && !m_restoring && m_history.state() != m_restored.lock()) {
        std::erase_if(m_saved, [](const auto& saved) { return saved.expired(); });
        m_saved.push_back(m_history.state());
    }
    if (!isClean())
        scheduleWriting();
    else if (std::exchange(m_written, nullptr))
        m_writer.start([path = m_copy->file()] { QFile::remove(path); });
}

void Recovery::scheduleWriting()
{
    if (m_writingScheduled)
        return;
    m_runLoop.scheduleTimer(kIntervalSeconds, [self = std::weak_ptr(m_self)] {
        if (const auto recovery = self.lock()) {
            (*recovery)->m_writingScheduled = false;
            (*recovery)->write();
        }
    });
    m_writingScheduled = true;
}

void Recovery::write()
{
    if (isClean() || (m_written && sameProject(*m_written, *m_history.state())))
        return;
    // Making the bytes takes little; the disk may take long.
    m_writer.start([this, path = encoded(m_copy->file()), bytes = writeProject(m_delegate.project())] {
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
