// SPDX-License-Identifier: MIT
#include "archive/archive_copier.h"

#include <utility>

namespace wallgrid {

namespace {

using Kind = PlistObject::Kind;

/// An entry is a scalar or a dictionary, whose values are scalars or containers of scalars. Nothing that an archiver
/// writes is nested deeper; what was nested by hand is copied empty below that, which also ends containers that hold
/// themselves.
constexpr int kDeepestContainer = 1;

} // namespace

ArchiveCopier::ArchiveCopier(PropertyListWriter& writer, std::vector<Ref>& objects)
    : m_writer(writer)
    , m_objects(objects)
{
}

std::uint32_t ArchiveCopier::copy(const std::shared_ptr<const KeyedArchive>& archive, std::uint32_t uid)
{
    Source& source = m_sources[archive.get()];
    source.archive = archive;
    const std::uint32_t result = copyOf(source, uid);
    while (!source.pending.empty()) {
        const std::uint32_t next = source.pending.back();
        source.pending.pop_back();
        m_objects[source.uids[next]] = copyObject(source, archive->entry(next), 0);
    }
    return result;
}

std::uint32_t ArchiveCopier::copyOf(Source& source, std::uint32_t uid)
{
    if (uid == 0)
        return 0;
    const auto [entry, isNew] = source.uids.try_emplace(uid, static_cast<std::uint32_t>(m_objects.size()));
    if (isNew) {
        m_objects.push_back(0); // replaced when it is copied
        source.pending.push_back(uid);
    }
    return entry->second;
}

PropertyListWriter::Ref ArchiveCopier::copyObject(Source& source, const PlistObject& object, int level)
{
    if (object.isContainer() && level > kDeepestContainer)
        return m_writer.array({});
    if (const auto known = source.objects.find(object.index()); known != source.objects.end())
        return known->second;

    Ref copy = 0;
    if (object.isContainer())
        copy = copyContainer(source, object, level);
    else if (object.kind() == Kind::Uid)
        copy = m_writer.uid(copyOf(source, source.archive->uidOf(object).value_or(0)));
    else
        copy = m_writer.encodedScalar(object.encodedScalar());
    return source.objects[object.index()] = copy;
}

PropertyListWriter::Ref ArchiveCopier::copyContainer(Source& source, const PlistObject& object, int level)
{
    std::vector<Ref> keys;
    std::vector<Ref> values;
    const bool isDictionary = object.kind() == Kind::Dictionary;
    for (std::uint32_t i = 0; i < object.size(); ++i) {
        if (isDictionary && !object.key(i).isString())
            continue;
        if (isDictionary)
            keys.push_back(copyObject(source, object.key(i), level + 1));
        values.push_back(copyObject(source, isDictionary ? object.value(i) : object.element(i), level + 1));
    }
    if (isDictionary)
        return m_writer.dictionary(std::move(keys), values);
    return object.kind() == Kind::Array ? m_writer.array(std::move(values)) : m_writer.set(std::move(values));
}

} // namespace wallgrid
