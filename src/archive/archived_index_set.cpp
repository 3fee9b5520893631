// SPDX-License-Identifier: MIT
#include "archive/archived_index_set.h"

#include "archive/keyed_archiver.h"
#include "archive/keyed_decoder.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace wallgrid {

namespace {

constexpr std::string_view kRangeCount = "NSRangeCount";
// The keys of a set that has just one range:
constexpr std::string_view kLocation = "NSLocation";
constexpr std::string_view kLength = "NSLength";
// The key of two and more ranges. Its data has location and length of each, the lowest range first. A number has seven
// bits in each byte, the low ones first; the high bit says that more follow.
constexpr std::string_view kRangeData = "NSRangeData";

void appendNumber(Bytes& data, std::uint32_t number)
{
    for (; number > 0x7F; number >>= 7)
        data.push_back(static_cast<std::uint8_t>(number | 0x80));
    data.push_back(static_cast<std::uint8_t>(number));
}

/// The first number of the data; -1 when it ends too soon or is 2^31 and more.
std::int32_t firstNumber(const Bytes& data)
{
    std::uint64_t number = 0;
    for (unsigned i = 0; i < data.size() && i < 5; ++i) {
        number |= std::uint64_t{data[i] & 0x7FU} << (7 * i);
        if (data[i] <= 0x7F)
            return number <= INT32_MAX ? static_cast<std::int32_t>(number) : -1;
    }
    return -1;
}

struct Range {
    std::uint32_t location;
    std::uint32_t length;
};

class IndexSet final : public Archivable {
public:
    explicit IndexSet(const std::set<std::size_t>& indexes)
    {
        for (const std::size_t index : indexes) {
            if (m_ranges.empty() || index != m_ranges.back().location + m_ranges.back().length)
                m_ranges.push_back({static_cast<std::uint32_t>(index), 0});
            ++m_ranges.back().length;
        }
    }

    std::string_view archivedClassName() const override { return "NSIndexSet"; }
    void encodeWithCoder(KeyedArchiver& coder) const override
    {
        coder.encodeInt(static_cast<std::int32_t>(m_ranges.size()), kRangeCount);
        if (m_ranges.size() == 1) {
            coder.encodeInt(static_cast<std::int32_t>(m_ranges[0].location), kLocation);
            coder.encodeInt(static_cast<std::int32_t>(m_ranges[0].length), kLength);
        } else if (!m_ranges.empty()) {
            Bytes data;
            for (const Range& range : m_ranges) {
                appendNumber(data, range.location);
                appendNumber(data, range.length);
            }
            coder.encodeObject(data, kRangeData);
        }
    }

private:
    std::vector<Range> m_ranges;
};

} // namespace

Bytes archivedIndexSet(const std::set<std::size_t>& indexes)
{
    return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const IndexSet>(indexes));
}

Expected<std::size_t> firstIndexOfArchivedSet(Bytes archive)
{
    const auto root = KeyedUnarchiver::rootObject(std::move(archive));
    if (!root)
        return tl::unexpected(root.error());
    if (root->classAmong({"NSIndexSet", "NSMutableIndexSet"}).empty())
        return failure("a set of indexes was expected");
    KeyedDecoder coder(*root);
    const std::int32_t count = coder.decodeInt(kRangeCount);
    const std::int32_t first = count == 1 ? coder.decodeInt(kLocation) : firstNumber(coder.decodeData(kRangeData));
    if (coder.error())
        return tl::unexpected(*coder.error());
    if (count <= 0 || first < 0)
        return failure("the set of indexes is empty or damaged");
    return static_cast<std::size_t>(first);
}

} // namespace wallgrid
