// SPDX-License-Identifier: MIT
#include "graphics/blend.h"

#include "base/portable.h"
#include "graphics/pixel_runs.h"

#include <bit>
#include <cstddef>

namespace wallgrid {

// A pixel is read as one little-endian word: alpha in its lowest byte, then red, green, blue. The arithmetic holds two
// samples at a time, spread over the 16-bit halves of a word (0x00RR00AA and 0x00BB00GG). Written once, it serves
// single words and vectors of four.
static_assert(std::endian::native == std::endian::little);

namespace {

using Word = std::uint32_t;
// With the attributes behind the type, Clang would take the alignment for that of a vector, which pixels have not got.
using Words __attribute__((vector_size(16), may_alias, aligned(4))) = Word;
using Halves = std::uint16_t __attribute__((vector_size(16)));

constexpr Word kHalves = 0x00FF00FF;
constexpr Word kAlpha = 0x000000FF;
constexpr std::size_t kLanes = sizeof(Words) / sizeof(Word);
/// Runs are handled 16 pixels at a time: one cache line.
constexpr std::size_t kBlock = 16;
/// How far ahead memory is asked for, in bytes. Four times faster on translucent pixels than waiting for them.
constexpr std::size_t kAhead = 512;

inline Word spread(Word sample)
{
    return sample | sample << 16;
}

inline Words spread(Words sample)
{
    return sample | sample << 16;
}

/// Both samples times one sample that stands in both halves.
inline Word multiply(Word halves, Word factor)
{
    return halves * (factor & kAlpha);
}

/// 16-bit products, because SSE2 has no 32-bit ones.
inline Words multiply(Words halves, Words factor)
{
    return Words(Halves(halves) * Halves(factor));
}

/// halves × factor / 255, rounded to nearest: with t = x × y + 128, (t + t / 256) / 256 is exact for all products of
/// bytes (J. Blinn, "Three Wrongs Make a Right", 1995).
template <class W>
inline W scaled(W halves, W factor)
{
    const W t = multiply(halves, factor) + Word(0x00800080);
    return ((t + ((t >> 8) & kHalves)) >> 8) & kHalves;
}

/// All four samples of a pixel times one.
inline Word scaledPixel(Word pixel, Word factor)
{
    return scaled(pixel & kHalves, factor) | scaled((pixel >> 8) & kHalves, factor) << 8;
}

template <class W>
inline W saturated(W sums)
{
    const W carries = (sums >> 8) & Word(0x00010001);
    return (sums | ((carries << 8) - carries)) & kHalves;
}

template <class W>
inline W over(W source, W destination)
{
    const W rest = spread(Word(255) - (source & kAlpha));
    const W even = saturated((source & kHalves) + scaled(destination & kHalves, rest));
    const W odd = saturated(((source >> 8) & kHalves) + scaled((destination >> 8) & kHalves, rest));
    return even | odd << 8;
}

template <class W>
inline W atop(W source, W destination)
{
    const W rest = spread(Word(255) - (source & kAlpha));
    const W ground = spread(destination & kAlpha);
    const W even = saturated(scaled(source & kHalves, ground) + scaled(destination & kHalves, rest));
    const W odd = saturated(scaled((source >> 8) & kHalves, ground) + scaled((destination >> 8) & kHalves, rest));
    return ((even | odd << 8) & ~kAlpha) | (destination & kAlpha);
}

/// The same for a source that hides all of the destination but its alpha.
inline Words opaqueAtop(Words source, Words destination)
{
    const Words ground = spread(destination & kAlpha);
    const Words even = scaled(source & kHalves, ground);
    const Words odd = scaled((source >> 8) & kHalves, ground);
    return ((even | odd << 8) & ~kAlpha) | (destination & kAlpha);
}

enum class Operation { Over, Atop };

template <Operation operation, class W>
inline W blended(W source, W destination)
{
    return operation == Operation::Over ? over(source, destination) : atop(source, destination);
}

inline bool allZero(Words words)
{
    using Longs = std::uint64_t __attribute__((vector_size(16)));
    const Longs longs = Longs(words);
    return (longs[0] | longs[1]) == 0;
}

inline bool allOpaque(Words words)
{
    return allZero(~words & kAlpha);
}

inline void put(Words* destination, Words w0, Words w1, Words w2, Words w3)
{
    destination[0] = w0;
    destination[1] = w1;
    destination[2] = w2;
    destination[3] = w3;
}

template <Operation operation>
inline void blendBlock(Words* destination, const Words* source)
{
    __builtin_prefetch(reinterpret_cast<const std::byte*>(source) + kAhead);
    // Everything is read before anything is written: a read from 4096 bytes past a fresh write would wait for it.
    const Words s0 = source[0], s1 = source[1], s2 = source[2], s3 = source[3];
    if (allZero(s0 | s1 | s2 | s3))
        return;
    __builtin_prefetch(reinterpret_cast<const std::byte*>(destination) + kAhead, 1);
    const bool opaque = allOpaque(s0 & s1 & s2 & s3);
    if (operation == Operation::Over && opaque)
        return put(destination, s0, s1, s2, s3);
    const Words d0 = destination[0], d1 = destination[1], d2 = destination[2], d3 = destination[3];
    // Over an opaque ground "atop" is "over".
    const bool opaqueGround = operation == Operation::Atop && allOpaque(d0 & d1 & d2 & d3);
    if (opaque && opaqueGround)
        return put(destination, s0, s1, s2, s3);
    if (opaque)
        return put(destination, opaqueAtop(s0, d0), opaqueAtop(s1, d1), opaqueAtop(s2, d2), opaqueAtop(s3, d3));
    if (opaqueGround)
        return put(destination, over<Words>(s0, d0), over<Words>(s1, d1), over<Words>(s2, d2), over<Words>(s3, d3));
    put(destination, blended<operation, Words>(s0, d0), blended<operation, Words>(s1, d1),
        blended<operation, Words>(s2, d2), blended<operation, Words>(s3, d3));
}

template <Operation operation>
void blendRun(Pixel* destination, const Pixel* source, std::size_t count)
{
    for (; count >= kBlock; count -= kBlock, destination += kBlock, source += kBlock)
        blendBlock<operation>(reinterpret_cast<Words*>(destination), reinterpret_cast<const Words*>(source));
    for (; count > 0; --count, ++destination, ++source)
        *destination = bitCast<Pixel>(blended<operation>(bitCast<Word>(*source), bitCast<Word>(*destination)));
}

} // namespace

void blendOver(Pixel* destination, const Pixel* source, std::size_t count)
{
    blendRun<Operation::Over>(destination, source, count);
}

void blendAtop(Pixel* destination, const Pixel* source, std::size_t count)
{
    blendRun<Operation::Atop>(destination, source, count);
}

void blendColor(Pixel* destination, Pixel color, std::size_t count)
{
    if (color.a == 255)
        return fillPixels(destination, color, count);
    const Word source = bitCast<Word>(color);
    const Words sources = source - Words{};
    for (; count >= kLanes; count -= kLanes, destination += kLanes) {
        Words& words = *reinterpret_cast<Words*>(destination);
        words = over(sources, words);
    }
    for (; count > 0; --count, ++destination)
        *destination = bitCast<Pixel>(over(source, bitCast<Word>(*destination)));
}

void scalePixels(Pixel* destination, const Pixel* source, std::uint8_t factor, std::size_t count)
{
    const Word factors = spread(Word(factor));
    for (std::size_t i = 0; i < count; ++i)
        destination[i] = bitCast<Pixel>(scaledPixel(bitCast<Word>(source[i]), factors));
}

void blendCoverage(Pixel* destination, Pixel color, const std::uint8_t* coverage, std::size_t count)
{
    const Word whole = bitCast<Word>(color);
    for (std::size_t i = 0; i < count; ++i) {
        if (coverage[i] == 0)
            continue;
        const Word source = scaledPixel(whole, spread(Word(coverage[i])));
        destination[i] = bitCast<Pixel>(over(source, bitCast<Word>(destination[i])));
    }
}

} // namespace wallgrid
