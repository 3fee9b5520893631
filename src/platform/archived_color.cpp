// SPDX-License-Identifier: MIT
#include "platform/archived_color.h"

#include "platform/archive_reader.h"
#include "platform/component_text.h"

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

/// The entry whose components are painted: the colour itself, or what a chain of named colours stands for; 0 when that
/// is left out.
Expected<std::uint32_t> paintedEntry(ArchiveReader& reader, std::uint32_t uid)
{
    for (int i = 0; i < kLongestNameChain; ++i) {
        const PlistObject entry = reader.archive()->entry(uid);
        const auto colorSpace = reader.integer(entry, "NSColorSpace");
        if (!colorSpace)
            return tl::unexpected(colorSpace.error());
        if (*colorSpace != kNamed)
            return uid;
        const auto next = reader.reference(entry, "NSColor");
        if (!next || *next == 0)
            return next;
        if (reader.classAmong(reader.archive()->entry(*next), {"NSColor"}).empty())
            return failure("a named colour stands for something that is no colour");
        uid = *next;
    }
    return failure("a named colour stands for itself");
}

/// The components in the colour's own space, where those can be painted; nothing where the converted ones are wanted.
Expected<std::optional<Painted>> ownComponents(ArchiveReader& reader, const PlistObject& entry)
{
    const auto uid = reader.reference(entry, "NSCustomColorSpace");
    const auto bytes = reader.data(entry, "NSComponents");
    if (!uid)
        return tl::unexpected(uid.error());
    if (!bytes)
        return tl::unexpected(bytes.error());
    if (*uid == 0 || bytes->empty())
        return std::nullopt;
    const PlistObject colorSpace = reader.archive()->entry(*uid);
    if (reader.classAmong(colorSpace, {"NSColorSpace"}).empty())
        return failure("the colour space of a colour is of another kind");
    const auto id = reader.integer(colorSpace, "NSID");
    const auto spaceId = reader.integer(colorSpace, "NSSpaceID");
    if (!id)
        return tl::unexpected(id.error());
    if (!spaceId)
        return tl::unexpected(spaceId.error());
    const auto space = paintableSpace(*id, *spaceId);
    if (!space)
        return std::nullopt;
    return Painted{*space, ComponentText::parse(*bytes, componentCount(*space))};
}

Expected<Painted> paintedComponents(ArchiveReader& reader, const PlistObject& entry)
{
    const auto colorSpace = reader.integer(entry, "NSColorSpace");
    if (!colorSpace)
        return tl::unexpected(colorSpace.error());
    if (*colorSpace <= 0)
        return failure("a colour names no kind of colour");
    const auto space = spaceOf(*colorSpace);
    if (!space)
        return Painted{};
    const auto own = ownComponents(reader, entry);
    if (!own)
        return tl::unexpected(own.error());
    if (*own)
        return **own;
    const auto bytes = reader.data(entry, plainColorForm(*space).componentKey);
    if (!bytes)
        return tl::unexpected(bytes.error());
    return Painted{*space, ComponentText::parse(*bytes, componentCount(*space))};
}

/// Whether the archiver would write just this record for these components: three keys (with $class), the same text.
bool isPlain(ArchiveReader& reader, const PlistObject& entry, const Painted& painted)
{
    const auto bytes = reader.data(entry, plainColorForm(painted.space).componentKey);
    if (entry.size() != 3 || !bytes || reader.className(entry) != "NSColor")
        return false;
    const std::string text = painted.numbers.format(componentCount(painted.space));
    return std::equal(bytes->begin(), bytes->end(), text.begin(), text.end());
}

} // namespace

ArchivedColorForm::ArchivedColorForm(std::shared_ptr<const KeyedArchive> archive, std::uint32_t uid)
    : m_archive(std::move(archive))
    , m_uid(uid)
{
}

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

Expected<ColorRef> readColor(ArchiveReader& reader, std::uint32_t uid)
{
    const auto entryUid = paintedEntry(reader, uid);
    if (!entryUid)
        return tl::unexpected(entryUid.error());
    Painted painted;
    if (*entryUid != 0) {
        const auto read = paintedComponents(reader, reader.archive()->entry(*entryUid));
        if (!read)
            return tl::unexpected(read.error());
        painted = *read;
    }
    std::shared_ptr<const ArchivedForm> form;
    if (*entryUid != uid || !isPlain(reader, reader.archive()->entry(uid), painted))
        form = std::make_shared<ArchivedColorForm>(reader.archive(), uid);
    return std::make_shared<const Color>(painted.space, painted.numbers.components, painted.numbers.alpha,
                                         std::move(form));
}

} // namespace wallgrid
