// SPDX-License-Identifier: MIT
#pragma once

#include "base/files.h"
#include "base/log.h"
#include "base/progress.h"
#include "base/run_loop.h"
#include "base/url.h"

#include <string>
#include <string_view>

namespace wallgrid {

/// Modal panels and alerts. Each call returns when the user has answered.
class Panels {
public:
    virtual ~Panels() = default;
    /// The location the user chose for a new file, or empty when the panel was cancelled.
    virtual UrlRef runSavePanel() = 0;
    /// One existing file of any type, or empty when the panel was cancelled.
    virtual UrlRef runOpenPanel() = 0;
    /// A message with the one button "OK".
    virtual void runAlert(std::string_view message, std::string_view informativeText) = 0;
};

class RecentDocuments {
public:
    virtual ~RecentDocuments() = default;
    virtual void noteNewRecentDocument(const UrlRef& location) = 0;
};

/// What the controller needs of the desktop it runs on, all owned by whoever starts the program.
struct Desktop {
    RunLoop& runLoop;
    Panels& panels;
    RecentDocuments& recentDocuments;
    const Files& files;
    Log& log;
    Progress& progress;
};

} // namespace wallgrid
