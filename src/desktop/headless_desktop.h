// SPDX-License-Identifier: MIT
#pragma once

#include "base/log.h"
#include "desktop/desktop.h"

namespace wallgrid {

/// A desktop on which nobody is at the keyboard: panels are cancelled, alerts dropped, and no timer ever fires.
class HeadlessDesktop final : RunLoop, Panels, RecentDocuments, Progress {
public:
    explicit HeadlessDesktop(Log& log)
        : m_log(log)
        , m_files(log)
    {
    }

    /// Valid for as long as this object is.
    Desktop desktop() { return {*this, *this, *this, m_files, m_log, *this}; }

private:
    Registration scheduleTimer(double, std::function<void()>) override { return {}; }
    UrlRef runSavePanel() override { return nullptr; }
    UrlRef runOpenPanel() override { return nullptr; }
    void runAlert(std::string_view, std::string_view) override {}
    void noteNewRecentDocument(const UrlRef&) override {}
    void run(LongWork, const std::function<void(const Report&)>& work) override { work({}); }

    Log& m_log;
    Files m_files;
};

} // namespace wallgrid
