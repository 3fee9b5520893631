// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/byte_sink.h"
#include "base/error.h"
#include "base/progress.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace wallgrid {

/// The whole of a regular file. Devices, FIFOs and folders are refused without being opened, files above 1 GiB
/// without being read.
Expected<Bytes> readFile(const std::string& path);

/// Two numbers that are equal for two paths to one file. Nothing when there is no file.
using FileIdentity = std::pair<std::uint64_t, std::uint64_t>;
std::optional<FileIdentity> fileIdentity(const std::string& path);

/// Writes a new file beside the target, flushes it to the disk and renames it over the target: whoever looks finds
/// the old file or the whole new one. A link is followed, the permissions of an existing file are kept, and anything
/// that is not a regular file is refused.
Expected<void> writeFileAtomically(const std::string& path, std::span<const std::uint8_t> bytes,
                                   const Report& report = {});

/// The same for bytes that are made on the way. When `produce` fails or throws, the file is left as it was.
Expected<void> produceFileAtomically(const std::string& path, const std::function<Expected<void>(ByteSink&)>& produce);

/// The same, but an old file is written over in place when the new one is complete: it stays the file that its links
/// and its owner know. When that fails the new one takes its name; only a kill in that moment leaves half of each.
Expected<void> produceFileInPlace(const std::string& path, const std::function<Expected<void>(ByteSink&)>& produce);

/// The end of an open file, which stays the caller's.
class DescriptorSink final : public ByteSink {
public:
    explicit DescriptorSink(int fd)
        : m_fd(fd)
    {
    }

    Expected<void> append(std::span<const std::uint8_t> bytes) override;
    Expected<void> replace(std::uint64_t offset, std::span<const std::uint8_t> bytes) override;

private:
    int m_fd;
};

} // namespace wallgrid
