// SPDX-License-Identifier: MIT
#include "archive/keyed_unarchiver.h"

#include "archive/archive_reader.h"
#include "archive/archived_entry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace wallgrid {

namespace {

using Kind = PlistObject::Kind;

/// Names of classes are short; only damage has more.
constexpr std::uint32_t kLongestClassName = 255;

} // namespace

ArchivedObject::ArchivedObject(std::shared_ptr<ArchiveReader> reader, std::uint32_t uid)
    : m_reader(std::move(reader))
    , m_uid(uid)
{
}

PlistObject ArchivedObject::entry() const
{
    return m_reader->archive()->entry(m_uid);
}

std::shared_ptr<const ArchivedForm> ArchivedObject::archivedForm() const
{
    return std::make_shared<ArchivedEntry>(m_reader->archive(), m_uid);
}

std::string ArchivedObject::className() const
{
    const auto name = m_reader->className(entry());
    std::string text;
    for (std::uint32_t i = 0; name && i < name->size(); ++i) {
        const char16_t unit = name->unit(i);
        if (unit < 0x20 || unit > 0x7E || i == kLongestClassName)
            return "";
        text += static_cast<char>(unit);
    }
    return text;
}

std::string_view ArchivedObject::classAmong(std::initializer_list<std::string_view> known) const
{
    return m_reader->classAmong(entry(), known);
}

Expected<std::vector<ArchivedObject>> ArchivedObject::elements() const
{
    if (classAmong({"NSMutableArray", "NSArray"}).empty())
        return failure("an array was expected");
    const auto objects = m_reader->value(entry(), "NS.objects");
    if (!objects || objects->kind() != Kind::Array)
        return failure("an array has no elements, not even none");

    std::vector<ArchivedObject> elements;
    elements.reserve(objects->size());
    for (std::uint32_t i = 0; i < objects->size(); ++i) {
        const auto uid = m_reader->archive()->uidOf(objects->element(i));
        if (!uid || *uid == 0)
            return failure("an element of an array refers to no object of the archive");
        elements.push_back(ArchivedObject(m_reader, *uid));
    }
    return elements;
}

std::optional<ArchivedObject> ArchivedObject::named(std::string_view name) const
{
    const auto reference = m_reader->value(m_reader->archive()->names(), name);
    const auto uid = reference ? m_reader->archive()->uidOf(*reference) : std::nullopt;
    return uid && *uid != 0 ? std::optional(ArchivedObject(m_reader, *uid)) : std::nullopt;
}

ColorRef ArchivedObject::namedColor(std::string_view name) const
{
    const auto object = named(name);
    return object ? m_reader->color(*object) : nullptr;
}

Expected<std::int32_t> ArchivedObject::intValue() const
{
    const PlistObject entry = this->entry();
    switch (entry.kind()) {
    case Kind::Boolean:
        return entry.boolean() ? 1 : 0;
    case Kind::Integer:
        return static_cast<std::int32_t>(entry.integer().value);
    case Kind::Real: {
        using Limits = std::numeric_limits<std::int32_t>;
        const double number = entry.real();
        return std::isnan(number) ? 0
                                  : static_cast<std::int32_t>(std::clamp<double>(number, Limits::min(), Limits::max()));
    }
    default:
        return failure("a number was expected");
    }
}

Expected<ArchivedObject> KeyedUnarchiver::rootObject(Bytes data)
{
    auto archive = KeyedArchive::open(std::move(data));
    if (!archive)
        return tl::unexpected(archive.error());
    const std::uint32_t root = (*archive)->root();
    return ArchivedObject(std::make_shared<ArchiveReader>(std::move(*archive)), root);
}

} // namespace wallgrid
