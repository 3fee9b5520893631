// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "base/file.h"
#include "base/log.h"
#include "base/url.h"

#include <functional>
#include <span>

namespace wallgrid {

/// Reads and writes whole files at locations, for callers that do not examine the result: what fails is told to the
/// log, with the file and the reason.
class Files {
public:
    explicit Files(Log& log)
        : m_log(log)
    {
    }

    Expected<Bytes> read(const Url& location) const;
    /// See writeFileAtomically().
    Expected<void> write(const Url& location, std::span<const std::uint8_t> bytes, const Report& report = {}) const;
    /// See produceFileInPlace(). Only the caller knows who failed, and so what to tell the log.
    Expected<void> produceInPlace(const Url& location, const std::function<Expected<void>(ByteSink&)>& produce) const;

    /// Tells the log that something is wrong with a file, unless the work on it was cancelled.
    void report(const Url& location, const Error& error) const;

private:
    Expected<void> reported(const Url& location, Expected<void> written) const;

    Log& m_log;
};

} // namespace wallgrid
