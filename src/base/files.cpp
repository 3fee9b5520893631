// SPDX-License-Identifier: MIT
#include "base/files.h"

namespace wallgrid {

namespace {

constexpr const char* kNotAFile = "not the location of a file";

} // namespace

Expected<Bytes> Files::read(const Url& location) const
{
    const auto path = location.filePath();
    auto bytes = path ? readFile(*path) : Expected<Bytes>(failure(kNotAFile));
    if (!bytes)
        report(location, bytes.error());
    return bytes;
}

Expected<void> Files::write(const Url& location, std::span<const std::uint8_t> bytes, const Report& report) const
{
    const auto path = location.filePath();
    return reported(location, path ? writeFileAtomically(*path, bytes, report) : failure(kNotAFile));
}

Expected<void> Files::produceInPlace(const Url& location, const std::function<Expected<void>(ByteSink&)>& produce) const
{
    const auto path = location.filePath();
    return path ? produceFileInPlace(*path, produce) : failure(kNotAFile);
}

Expected<void> Files::reported(const Url& location, Expected<void> written) const
{
    if (!written)
        report(location, written.error());
    return written;
}

void Files::report(const Url& location, const Error& error) const
{
    if (error.isCancelled)
        return;
    m_log.log(location.filePath().value_or(location.absoluteString()) + ": " + error.message);
}

} // namespace wallgrid
