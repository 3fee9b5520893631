// SPDX-License-Identifier: MIT
#include "archive/keyed_archive.h"

#include "archive/dictionary_lookup.h"

#include <utility>

namespace wallgrid {

using Kind = PlistObject::Kind;

KeyedArchive::KeyedArchive(std::shared_ptr<const PropertyList> list, const PlistObject& objects,
                           const PlistObject& names)
    : m_list(std::move(list))
    , m_objects(objects)
    , m_names(names)
{
}

Expected<std::shared_ptr<const KeyedArchive>> KeyedArchive::open(Bytes bytes)
{
    auto list = PropertyList::open(std::move(bytes));
    if (!list)
        return tl::unexpected(list.error());
    const PlistObject top = (*list)->top();
    if (top.kind() != Kind::Dictionary)
        return failure("the property list is not a keyed archive");

    DictionaryLookup lookup;
    const auto version = lookup.value(top, "$version");
    if (!version || version->kind() != Kind::Integer || !version->integer().isExact ||
        version->integer().value != 100000)
        return failure("the keyed archive is not of version 100000");
    const auto archiver = lookup.value(top, "$archiver");
    if (!archiver || !archiver->isText("NSKeyedArchiver"))
        return failure("the archive was written by another archiver");
    const auto objects = lookup.value(top, "$objects");
    if (!objects || objects->kind() != Kind::Array)
        return failure("the archive has no table of objects");
    const auto roots = lookup.value(top, "$top");
    if (!roots || roots->kind() != Kind::Dictionary)
        return failure("the archive names no root objects");
    const auto root = lookup.value(*roots, "root");
    if (!root)
        return failure("the archive has no root object");

    std::shared_ptr<KeyedArchive> archive(new KeyedArchive(std::move(*list), *objects, *roots));
    const auto uid = archive->uidOf(*root);
    if (!uid)
        return failure("the root of the archive is no object of it");
    if (*uid == 0)
        return failure("the archive holds nothing");
    archive->m_root = *uid;
    return archive;
}

std::optional<std::uint32_t> KeyedArchive::uidOf(const PlistObject& reference) const
{
    if (reference.kind() != Kind::Uid || reference.uid() >= count())
        return std::nullopt;
    return static_cast<std::uint32_t>(reference.uid());
}

} // namespace wallgrid
