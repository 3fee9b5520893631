// SPDX-License-Identifier: MIT
#pragma once

#include "archive/property_list.h"

#include <optional>

namespace wallgrid {

/// A keyed archive as it stands in its file: a property list whose table `$objects` holds one entry for each archived
/// object. Entries refer to each other by their number, the UID; 0 is nil. Never changes, so that everything that was
/// read from it can keep it.
class KeyedArchive {
public:
    /// Fails when the bytes are no sound property list, or not one of a keyed archive with one root object. Entries are
    /// not looked at yet.
    static Expected<std::shared_ptr<const KeyedArchive>> open(Bytes bytes);

    std::uint32_t root() const { return m_root; }
    /// The names of the root and of what else the archive names, with references to them.
    const PlistObject& names() const { return m_names; }
    std::uint32_t count() const { return m_objects.size(); }
    PlistObject entry(std::uint32_t uid) const { return m_objects.element(uid); }
    /// The number of the entry that a UID object names; nothing for other kinds and for numbers out of range.
    std::optional<std::uint32_t> uidOf(const PlistObject& reference) const;

private:
    KeyedArchive(std::shared_ptr<const PropertyList> list, const PlistObject& objects, const PlistObject& names);

    std::shared_ptr<const PropertyList> m_list;
    PlistObject m_objects;
    PlistObject m_names;
    std::uint32_t m_root = 0;
};

} // namespace wallgrid
