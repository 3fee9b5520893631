// SPDX-License-Identifier: MIT
#include "psd/packbits/pixel_row.h"

#include "psd/packbits/packed_bits.h"
#include "psd/packbits/packets.h"
#include "psd/packbits/repeats.h"

#include <bit>
#include <hwy/cache_control.h>

namespace wallgrid {

namespace {

constexpr std::size_t kPixel = sizeof(Pixel);
constexpr std::array kOffsets = {offsetof(Pixel, r), offsetof(Pixel, g), offsetof(Pixel, b), offsetof(Pixel, a)};

/// With fewer pixels than this a run it is faster to search each channel.
constexpr std::size_t kPixelsARun = 4;

/// The runs of a channel by the ends of all its stretches of equal samples, those too short for a run included.
class ChannelRuns {
public:
    explicit ChannelRuns(std::span<const std::uint32_t> ends)
        : m_next(ends.data())
        , m_last(ends.data() + ends.size())
    {
    }

    Run next()
    {
        while (m_next != m_last) {
            const std::size_t begin = m_end;
            m_end = *m_next++;
            if (m_end - begin >= kShortestRun)
                return {begin, m_end};
        }
        return {m_end, m_end};
    }

private:
    const std::uint32_t* m_next;
    const std::uint32_t* m_last;
    std::size_t m_end = 0; ///< of the stretch before
};

} // namespace

void PixelRow::set(std::span<const Pixel> pixels)
{
    m_pixels = pixels;
    m_repeats.resize(repeatWords(pixels.size()));
    const std::size_t runs = pixels.size() - markRepeats(pixels, m_repeats.data());
    m_hasFewRuns = runs <= pixels.size() / kPixelsARun + 1;
    if (m_hasFewRuns)
        findRuns(runs);
    else
        splitChannels();
}

void PixelRow::findRuns(std::size_t pixelRuns)
{
    std::array<std::uint32_t*, kChannels> ends;
    for (std::size_t c = 0; c < kChannels; ++c) {
        m_runEnds[c].resize(pixelRuns);
        ends[c] = m_runEnds[c].data();
    }
    if (pixelRuns == 0)
        return;
    for (std::size_t begin = 0; pixelRuns > 1; begin += kRepeatBits) {
        std::uint64_t word = ~m_repeats[begin / kRepeatBits];
        for (; word != 0 && pixelRuns > 1; word &= word - 1, --pixelRuns) {
            const std::size_t end = begin + static_cast<std::size_t>(std::countr_zero(word)) + 1;
            // A channel's stretch goes on where only others change. The processor cannot foretell that, so each end is
            // written, and written over where it is none.
            const Pixel last = m_pixels[end - 1];
            const Pixel next = m_pixels[end];
            const std::array ending{last.r != next.r, last.g != next.g, last.b != next.b, last.a != next.a};
            for (std::size_t c = 0; c < kChannels; ++c) {
                *ends[c] = static_cast<std::uint32_t>(end);
                ends[c] += ending[c];
            }
        }
    }
    for (std::size_t c = 0; c < kChannels; ++c) {
        *ends[c]++ = static_cast<std::uint32_t>(m_pixels.size());
        m_runEnds[c].resize(static_cast<std::size_t>(ends[c] - m_runEnds[c].data()));
    }
}

void PixelRow::splitChannels()
{
    const std::span<const Pixel> pixels = m_pixels;
    const std::size_t count = pixels.size();
    m_samples.resize(kChannels * count);
    std::uint8_t* const samples = m_samples.data();
    for (std::size_t i = 0; i < count; ++i) {
        samples[i] = pixels[i].r;
        samples[count + i] = pixels[i].g;
        samples[2 * count + i] = pixels[i].b;
        samples[3 * count + i] = pixels[i].a;
    }
}

/// Asks for a few pixels of the next row, which stands behind this one in most bitmaps. The processor then fetches them
/// and those that follow while this row is packed.
void PixelRow::fetchAhead(std::size_t quarter) const
{
    constexpr std::size_t kCacheLine = 64;
    constexpr std::size_t kLines = 8;
    // A number, because nobody says that there is a next row; where there is none nothing is fetched.
    const auto next = reinterpret_cast<std::uintptr_t>(m_pixels.data()) + m_pixels.size_bytes();
    for (std::size_t line = 0; line < kLines; ++line)
        hwy::Prefetch(reinterpret_cast<const char*>(next + quarter * m_pixels.size() + line * kCacheLine));
}

std::size_t PixelRow::pack(std::size_t channel, std::uint8_t* packed)
{
    if (m_pixels.empty())
        return 0;
    fetchAhead(channel);
    const std::size_t count = m_pixels.size();
    if (!m_hasFewRuns)
        return packSamples(std::span(m_samples).subspan(channel * count, count), m_repeats.data(), packed);
    const auto* const first = reinterpret_cast<const std::uint8_t*>(m_pixels.data()) + kOffsets[channel];
    const Samples<kPixel> samples{first, count};
    return static_cast<std::size_t>(writePackets(samples, ChannelRuns(m_runEnds[channel]), packed) - packed);
}

} // namespace wallgrid
