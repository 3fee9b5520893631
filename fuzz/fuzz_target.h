// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

/// What each fuzz target defines: takes any bytes and returns 0. A finding is a sanitizer's report, a failed
/// FUZZ_CHECK, an exception, or a run that takes too long. The name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size); // NOLINT(*-identifier-naming)

/// Stops the program, release builds included, when a promise of the code under test is broken.
#define FUZZ_CHECK(promise) ((promise) ? void() : (std::fprintf(stderr, "Broken: %s\n", #promise), std::abort()))

inline std::vector<std::uint8_t> bytesOf(const std::uint8_t* data, std::size_t size)
{
    return {data, data + size};
}
