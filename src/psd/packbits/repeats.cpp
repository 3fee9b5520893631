// SPDX-License-Identifier: MIT
//
// Highway (github.com/google/highway) compiles what stands in HWY_NAMESPACE once for each kind of processor, by
// including this file again and again. Its library would choose when the program runs; it would also measure the
// processor's clock when it is loaded, which took 5 ms of every start.
#include "psd/packbits/repeats.h"

#include <type_traits>
#include <utility>
#include <vector>

#define HWY_DISABLED_TARGETS HWY_SSE4 // as fast as SSSE3 here
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "psd/packbits/repeats.cpp"
#include <hwy/foreach_target.h> // before highway.h
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace wallgrid::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Compares 64 values with those behind them.
template <class Value>
std::uint64_t wholeWord(const Value* first)
{
    using Lane = std::conditional_t<sizeof(Value) == 1, std::uint8_t, std::uint32_t>;
    const hn::CappedTag<Lane, kRepeatBits> vector;
    const auto* const values = reinterpret_cast<const Lane*>(first);
    std::uint64_t word = 0;
    for (std::size_t k = 0; k < kRepeatBits; k += hn::Lanes(vector)) {
        const auto same = hn::Eq(hn::LoadU(vector, values + k), hn::LoadU(vector, values + k + 1));
        std::uint64_t bits = 0;
        hn::StoreMaskBits(vector, same, reinterpret_cast<std::uint8_t*>(&bits));
        word |= bits << k;
    }
    return word;
}

template <class Value>
std::size_t mark(std::span<const Value> values, std::uint64_t* words)
{
    const std::size_t count = values.size();
    std::size_t repeats = 0;
    const auto put = [&](std::uint64_t word) {
        *words++ = word;
        repeats += hwy::PopCount(word);
    };
    std::size_t begin = 0;
    for (; begin + kRepeatBits < count; begin += kRepeatBits)
        put(wholeWord(values.data() + begin));
    if (count > kRepeatBits) {
        // The last word is cut from the last 64 comparisons there are, so that nothing behind the values is read.
        const std::size_t from = count - kRepeatBits - 1;
        put(wholeWord(values.data() + from) >> (begin - from - 1) >> 1);
    } else {
        put(repeatWord(values, 0));
    }
    put(0);
    return repeats;
}

std::size_t markBytes(std::span<const std::uint8_t> values, std::uint64_t* words)
{
    return mark(values, words);
}

std::size_t markPixels(std::span<const Pixel> values, std::uint64_t* words)
{
    return mark(values, words);
}

constexpr std::pair kMark(&markBytes, &markPixels);

} // namespace wallgrid::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace wallgrid {

namespace {

using Marks = std::remove_const_t<decltype(HWY_STATIC_DISPATCH(kMark))>;

/// The functions for each kind of vectors that this processor has, the widest first.
const std::vector<Marks>& kinds()
{
    static const std::vector<Marks> kKinds = [] {
        std::vector<Marks> found;
#if HWY_TARGETS & HWY_AVX3
        if (__builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512dq") &&
            __builtin_cpu_supports("avx512vl"))
            found.push_back(N_AVX3::kMark);
#endif
#if HWY_TARGETS & HWY_AVX2
        if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("fma"))
            found.push_back(N_AVX2::kMark);
#endif
#if HWY_TARGETS & HWY_SSSE3
        if (__builtin_cpu_supports("ssse3"))
            found.push_back(N_SSSE3::kMark);
#endif
        found.push_back(HWY_STATIC_DISPATCH(kMark));
        return found;
    }();
    return kKinds;
}

Marks& chosen()
{
    static Marks marks = kinds().front();
    return marks;
}

} // namespace

std::size_t vectorKinds()
{
    return kinds().size();
}

void useVectors(std::size_t kind)
{
    chosen() = kinds()[kind];
}

std::size_t markRepeats(std::span<const std::uint8_t> values, std::uint64_t* words)
{
    return chosen().first(values, words);
}

std::size_t markRepeats(std::span<const Pixel> values, std::uint64_t* words)
{
    return chosen().second(values, words);
}

} // namespace wallgrid
#endif
