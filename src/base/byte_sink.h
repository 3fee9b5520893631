// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"

#include <cstdint>
#include <span>

namespace wallgrid {

/// Takes the bytes of a file as they are made, so that nobody needs to hold all of them.
class ByteSink {
public:
    ByteSink() = default;
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;
    virtual ~ByteSink() = default;

    /// Adds bytes at the end.
    virtual Expected<void> append(std::span<const std::uint8_t> bytes) = 0;
    /// Writes over bytes that were added before, such as lengths that were not known then.
    virtual Expected<void> replace(std::uint64_t offset, std::span<const std::uint8_t> bytes) = 0;
};

} // namespace wallgrid
