// SPDX-License-Identifier: MIT
#include "archive/archived_color.h"

#include "archive/archive_reader.h"
#include "archive/archived_entry.h"
#include "archive/component_text.h"

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

// What cannot be read is taken for left out, as it is in a copy of the record.

std::int32_t integer(ArchiveReader& reader, const PlistObject& record, std::string_view key)
{
    return reader.integer(record, key).value_or(0);
}

std::span<const std::uint8_t> data(ArchiveReader& reader, const PlistObject& record, std::string_view key)
{
    return reader.data(record, key).value_or(std::span<const std::uint8_t>());
}

/// The entry whose components are painted: the colour itself, or what a chain of named colours stands for; 0 when that
/// is no colour or never ends.
std::uint32_t paintedEntry(ArchiveReader& reader, std::uint32_t uid)
{
    for (int i = 0; i < kLongestNameChain; ++i) {
        const PlistObject entry = reader.archive()->entry(uid);
        if (integer(reader, entry, "NSColorSpace") != kNamed)
            return uid;
        uid = reader.reference(entry, "NSColor").value_or(0);
        if (uid == 0 || reader.classAmong(reader.archive()->entry(uid), {"NSColor"}).empty())
            return 0;
    }
    return 0;
}

/// The components in the colour's own space, where those can be painted; nothing where the converted ones are wanted.
std::optional<Painted> ownComponents(ArchiveReader& reader, const PlistObject& entry)
{
    const std::uint32_t uid = reader.reference(entry, "NSCustomColorSpace").value_or(0);
    const auto bytes = data(reader, entry, "NSComponents");
    if (uid == 0 || bytes.empty())
        return std::nullopt;
    const PlistObject colorSpace = reader.archive()->entry(uid);
    if (reader.classAmong(colorSpace, {"NSColorSpace"}).empty())
        return std::nullopt;
    const auto space = paintableSpace(integer(reader, colorSpace, "NSID"), integer(reader, colorSpace, "NSSpaceID"));
    if (!space)
        return std::nullopt;
    return Painted{*space, ComponentText::parse(bytes, componentCount(*space))};
}

Painted paintedComponents(ArchiveReader& reader, const PlistObject& entry)
{
    const auto space = spaceOf(integer(reader, entry, "NSColorSpace"));
    if (!space)
        return {};
    if (const auto own = ownComponents(reader, entry))
        return *own;
    const auto bytes = data(reader, entry, plainColorForm(*space).componentKey);
    return {*space, ComponentText::parse(bytes, componentCount(*space))};
}

/// Whether the archiver would write just this record for these components: three keys (with $class), the same text.
bool isPlain(ArchiveReader& reader, const PlistObject& entry, const Painted& painted)
{
    const PlainColorForm plain = plainColorForm(painted.space);
    const auto bytes = reader.data(entry, plain.componentKey);
    if (entry.size() != 3 || !bytes || reader.className(entry) != "NSColor" ||
        integer(reader, entry, "NSColorSpace") != plain.colorSpace)
        return false;
    const std::string text = painted.numbers.format(componentCount(painted.space));
    return std::equal(bytes->begin(), bytes->end(), text.begin(), text.end());
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

ColorRef readColor(ArchiveReader& reader, std::uint32_t uid)
{
    const std::uint32_t entryUid = paintedEntry(reader, uid);
    const Painted painted = entryUid == 0 ? Painted() : paintedComponents(reader, reader.archive()->entry(entryUid));
    std::shared_ptr<const ArchivedForm> form;
    if (entryUid != uid || !isPlain(reader, reader.archive()->entry(uid), painted))
        form = std::make_shared<ArchivedEntry>(reader.archive(), uid);
    return std::make_shared<const Color>(painted.space, painted.numbers.components, painted.numbers.alpha,
                                         std::move(form));
}

} // namespace wallgrid
