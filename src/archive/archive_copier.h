// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_archive.h"
#include "archive/property_list_writer.h"

#include <unordered_map>

namespace wallgrid {

/// Copies entries of archives that were read into one that is being written, together with all they refer to. What is
/// shared there stays shared, and each entry is copied once, so copying costs no more than the archives' size.
class ArchiveCopier {
public:
    /// New entries are appended to `objects`.
    ArchiveCopier(PropertyListWriter& writer, std::vector<PropertyListWriter::Ref>& objects);

    /// The number of the copy of an entry.
    std::uint32_t copy(const std::shared_ptr<const KeyedArchive>& archive, std::uint32_t uid);

private:
    using Ref = PropertyListWriter::Ref;

    /// What was copied of one archive. It keeps the archive, so that no other can take its address.
    struct Source {
        std::shared_ptr<const KeyedArchive> archive;
        std::unordered_map<std::uint32_t, std::uint32_t> uids; ///< There to here.
        std::unordered_map<std::uint32_t, Ref> objects;        ///< By index in the property list.
        std::vector<std::uint32_t> pending;                    ///< UIDs given out whose entries are not copied yet.
    };

    std::uint32_t copyOf(Source& source, std::uint32_t uid);
    Ref copyObject(Source& source, const PlistObject& object, int level);
    Ref copyContainer(Source& source, const PlistObject& object, int level);

    PropertyListWriter& m_writer;
    std::vector<Ref>& m_objects;
    std::unordered_map<const KeyedArchive*, Source> m_sources;
};

} // namespace wallgrid
