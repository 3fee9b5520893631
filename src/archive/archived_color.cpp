// SPDX-License-Identifier: MIT
#include "archive/archived_color.h"

#include "archive/component_text.h"
#include "archive/keyed_decoder.h"
#include "archive/property_list.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

using Space = Color::Space;

constexpr std::int32_t kNamed = 6; // NSColorSpace of a catalogue colour
constexpr int kLongestNameChain = 16;

struct Painted {
    Space space = Space::CalibratedWhite;
    ComponentText numbers;
};

int componentCount(Space space)
{
    return Color(space, {}, 1).componentCount();
}

std::optional<Space> spaceOf(std::int32_t colorSpace)
{
    for (const Space space :
         {Space::CalibratedRGB, Space::DeviceRGB, Space::CalibratedWhite, Space::DeviceWhite, Space::DeviceCMYK}) {
        if (plainColorForm(space).colorSpace == colorSpace)
            return space;
    }
    return std::nullopt;
}

/// The spaces whose own components are painted as they are: device RGB, grey and CMYK, sRGB and grey of gamma 2.2, and
/// the extended forms of the last two. NSSpaceID, which newer systems write, says more than NSID.
std::optional<Space> paintableSpace(std::int32_t id, std::int32_t spaceId)
{
    if (spaceId != 0)
        return spaceId == 14   ? std::optional(Space::CalibratedRGB)
               : spaceId == 15 ? std::optional(Space::CalibratedWhite)
                               : std::nullopt;
    switch (id) {
    case 4:
        return Space::DeviceRGB;
    case 5:
        return Space::DeviceWhite;
    case 6:
        return Space::DeviceCMYK;
    case 7:
        return Space::CalibratedRGB;
    case 9:
        return Space::CalibratedWhite;
    default:
        return std::nullopt;
    }
}

/// Reads a record in which what cannot be read is taken for left out, as it is in a copy of the record.
class LenientDecoder {
public:
    explicit LenientDecoder(const ArchivedObject& record)
        : m_record(record)
        , m_coder(record)
    {
    }

    const ArchivedObject& record() const { return m_record; }

    std::int32_t integer(std::string_view key) { return withoutError(m_coder.decodeInt(key)); }
    std::span<const std::uint8_t> bytes(std::string_view key) { return withoutError(m_coder.decodeBytes(key)); }
    std::optional<LenientDecoder> object(std::string_view key, std::string_view className)
    {
        const auto object = withoutError(m_coder.decodeObject(key));
        return object && !object->classAmong({className}).empty() ? std::optional<LenientDecoder>(*object)
                                                                  : std::nullopt;
    }

private:
    template <class Value>
    Value withoutError(Value value)
    {
        m_coder.clearError();
        return value;
    }

    ArchivedObject m_record;
    KeyedDecoder m_coder;
};

/// The record whose components are painted: the colour itself, or what a chain of named colours stands for; nothing
/// when that is no colour or never ends.
std::optional<LenientDecoder> paintedRecord(const ArchivedObject& color)
{
    std::optional<LenientDecoder> record(color);
    for (int i = 0; i < kLongestNameChain && record; ++i) {
        if (record->integer("NSColorSpace") != kNamed)
            return record;
        record = record->object("NSColor", "NSColor");
    }
    return std::nullopt;
}

/// The components in the colour's own space, where those can be painted; nothing where the converted ones are wanted.
std::optional<Painted> ownComponents(LenientDecoder& record)
{
    const auto text = record.bytes("NSComponents");
    auto colorSpace = text.empty() ? std::nullopt : record.object("NSCustomColorSpace", "NSColorSpace");
    if (!colorSpace)
        return std::nullopt;
    const auto space = paintableSpace(colorSpace->integer("NSID"), colorSpace->integer("NSSpaceID"));
    if (!space)
        return std::nullopt;
    return Painted{*space, ComponentText::parse(text, componentCount(*space))};
}

Painted paintedComponents(LenientDecoder& record)
{
    const auto space = spaceOf(record.integer("NSColorSpace"));
    if (!space)
        return {};
    if (const auto own = ownComponents(record))
        return *own;
    const auto text = record.bytes(plainColorForm(*space).componentKey);
    return {*space, ComponentText::parse(text, componentCount(*space))};
}

/// Whether the archiver would write just this record for these components: three keys (with $class), the same text.
bool isPlain(LenientDecoder& coder, const Painted& painted)
{
    const PlainColorForm plain = plainColorForm(painted.space);
    const ArchivedObject& record = coder.record();
    if (record.entry().size() != 3 || record.className() != "NSColor" ||
        coder.integer("NSColorSpace") != plain.colorSpace)
        return false;
    const auto archived = coder.bytes(plain.componentKey);
    const std::string text = painted.numbers.format(componentCount(painted.space));
    return std::equal(archived.begin(), archived.end(), text.begin(), text.end());
}

} // namespace

PlainColorForm plainColorForm(Color::Space space)
{
    switch (space) {
    case Space::CalibratedRGB:
        return {1, "NSRGB"};
    case Space::DeviceRGB:
        return {2, "NSRGB"};
    case Space::CalibratedWhite:
        return {3, "NSWhite"};
    case Space::DeviceWhite:
        return {4, "NSWhite"};
    case Space::DeviceCMYK:
        break;
    }
    return {5, "NSCMYK"};
}

ColorRef readColor(const ArchivedObject& record)
{
    auto source = paintedRecord(record);
    const Painted painted = source ? paintedComponents(*source) : Painted();
    const bool isItself = source && source->record().id() == record.id();
    return std::make_shared<const Color>(painted.space, painted.numbers.components, painted.numbers.alpha,
                                         isItself && isPlain(*source, painted) ? nullptr : record.archivedForm());
}

} // namespace wallgrid
