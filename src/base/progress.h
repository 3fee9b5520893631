// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"

#include <functional>

namespace wallgrid {

/// Called again and again by long work with how much of it is done, 0 to 1. False means that the work is to stop: it
/// then fails with cancelled() and leaves nothing behind. May be empty.
using Report = std::function<bool(double)>;

/// Whether the work goes on.
inline bool goesOn(const Report& report, double done)
{
    return !report || report(done);
}

/// How a part of the work reports that goes from `begin` to `end` of the whole.
inline Report partOf(const Report& report, double begin, double end)
{
    if (!report)
        return {};
    return [=](double done) { return report(begin + done * (end - begin)); };
}

inline tl::unexpected<Error> cancelled()
{
    return tl::unexpected<Error>(Error{"cancelled", true});
}

enum class LongWork {
    SaveProject,
    OpenProject,
    ExportPNG,
    ExportPSD,
};

/// Shows what takes long, and lets the person at the screen stop it.
class Progress {
public:
    virtual ~Progress() = default;
    /// Does the work, on the calling thread. While it goes on, nothing but this can be used.
    virtual void run(LongWork kind, const std::function<void(const Report&)>& work) = 0;
};

} // namespace wallgrid
