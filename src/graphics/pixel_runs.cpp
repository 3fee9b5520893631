// SPDX-License-Identifier: MIT
#include "graphics/pixel_runs.h"

#include "base/portable.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <cwchar>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace wallgrid {

#ifdef __SSE2__
namespace {

/// As many pixels as the widest store past the cache that every x86-64 has.
constexpr std::size_t kStreamed = 4;

/// Pixels up to the next address that such a store accepts.
std::size_t unaligned(const Pixel* pixels, std::size_t count)
{
    return std::min(count, -reinterpret_cast<std::uintptr_t>(pixels) / sizeof(Pixel) % kStreamed);
}

} // namespace
#endif

void fillPixels(Pixel* destination, Pixel color, std::size_t count)
{
#ifdef __SSE2__
    if (count >= kBeyondCache / sizeof(Pixel)) {
        const __m128i four = _mm_set1_epi32(bitCast<int>(color));
        const std::size_t head = unaligned(destination, count);
        std::fill_n(destination, head, color);
        destination += head;
        count -= head;
        for (; count >= kStreamed; count -= kStreamed, destination += kStreamed)
            _mm_stream_si128(reinterpret_cast<__m128i*>(destination), four);
        std::fill_n(destination, count, color);
        return finishStreaming();
    }
#endif
    // The C library's fill of 32-bit words is as fast as its memset, whatever optimisation we are built with.
    static_assert(sizeof(wchar_t) == sizeof(Pixel));
    std::wmemset(reinterpret_cast<wchar_t*>(destination), bitCast<wchar_t>(color), count);
}

void copyPixels(Pixel* destination, const Pixel* source, std::size_t count)
{
    std::memcpy(destination, source, count * sizeof(Pixel));
}

void streamPixels(Pixel* destination, const Pixel* source, std::size_t count)
{
#ifdef __SSE2__
    const std::size_t head = unaligned(destination, count);
    copyPixels(destination, source, head);
    destination += head;
    source += head;
    count -= head;
    for (; count >= kStreamed; count -= kStreamed, destination += kStreamed, source += kStreamed)
        _mm_stream_si128(reinterpret_cast<__m128i*>(destination),
                         _mm_loadu_si128(reinterpret_cast<const __m128i*>(source)));
#endif
    copyPixels(destination, source, count);
}

void finishStreaming()
{
#ifdef __SSE2__
    _mm_sfence();
#endif
}

} // namespace wallgrid
