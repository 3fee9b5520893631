// SPDX-License-Identifier: MIT
#include "archive/keyed_unarchiver.h"

#include "archive/archive_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace wallgrid {

using Kind = PlistObject::Kind;

ArchivedObject::ArchivedObject(std::shared_ptr<ArchiveReader> reader, std::uint32_t uid)
    : m_reader(std::move(reader))
    , m_uid(uid)
{
}

std::string ArchivedObject::className() const
{
    return m_reader->className(m_reader->archive()->entry(m_uid));
}

std::string_view ArchivedObject::classAmong(std::initializer_list<std::string_view> known) const
{
    return m_reader->classAmong(m_reader->archive()->entry(m_uid), known);
}

Expected<std::vector<ArchivedObject>> ArchivedObject::elements() const
{
    if (classAmong({"NSMutableArray", "NSArray"}).empty())
        return failure("an array was expected");
    const KeyedArchive& archive = *m_reader->archive();
    const auto objects = m_reader->value(archive.entry(m_uid), "NS.objects");
    if (!objects || objects->kind() != Kind::Array)
        return failure("an array has no elements, not even none");

    std::vector<ArchivedObject> elements;
    elements.reserve(objects->size());
    for (std::uint32_t i = 0; i < objects->size(); ++i) {
        const auto uid = archive.uidOf(objects->element(i));
        if (!uid || *uid == 0)
            return failure("an element of an array refers to no object of the archive");
        elements.push_back(ArchivedObject(m_reader, *uid));
    }
    return elements;
}

std::optional<ArchivedObject> ArchivedObject::named(std::string_view name) const
{
    const auto uid = m_reader->reference(m_reader->archive()->names(), name);
    return uid && *uid != 0 ? std::optional(ArchivedObject(m_reader, *uid)) : std::nullopt;
}

ColorRef ArchivedObject::namedColor(std::string_view name) const
{
    return m_reader->color(m_reader->archive()->names(), name).value_or(nullptr);
}

Expected<std::int32_t> ArchivedObject::intValue() const
{
    const PlistObject entry = m_reader->archive()->entry(m_uid);
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

Expected<ArchivedObject> KeyedUnarchiver::rootObject(std::vector<std::uint8_t> data)
{
    auto archive = KeyedArchive::open(std::move(data));
    if (!archive)
        return tl::unexpected(archive.error());
    const std::uint32_t root = (*archive)->root();
    return ArchivedObject(std::make_shared<ArchiveReader>(std::move(*archive)), root);
}

} // namespace wallgrid
