// SPDX-License-Identifier: MIT
#include "platform/files.h"

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

Expected<void> Files::write(const Url& location, std::span<const std::uint8_t> bytes) const
{
    return write(location, bytes, writeFileAtomically);
}

Expected<void> Files::writeDirectly(const Url& location, std::span<const std::uint8_t> bytes) const
{
    return write(location, bytes, writeFile);
}

Expected<void> Files::write(const Url& location, std::span<const std::uint8_t> bytes, Write how) const
{
    const auto path = location.filePath();
    auto written = path ? how(*path, bytes) : Expected<void>(failure(kNotAFile));
    if (!written)
        report(location, written.error());
    return written;
}

void Files::report(const Url& location, const Error& error) const
{
    m_log.log(location.filePath().value_or(location.absoluteString()) + ": " + error.message);
}

} // namespace wallgrid
