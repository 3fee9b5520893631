// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/error.h"
#include "graphics/color.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wallgrid {

class ArchiveReader;
class ArchivedForm;
class PlistObject;

/// One archived object: a cheap handle that shares the archive it stands in. Handles are never nil, for neither a root
/// nor an element of an array may be.
class ArchivedObject {
public:
    /// The same for two references to one object. Whoever makes objects of handles keeps them by id, because a short
    /// file may refer to one object a hundred thousand times.
    std::uint32_t id() const { return m_uid; }

    /// For messages; "" for what is no record (a string, a number) and for names that are not printable ASCII.
    std::string className() const;
    /// The class to make this an object of: the first of its class name and the substitutes that the archive names
    /// beside it that is among the known ones. "" when none is.
    std::string_view classAmong(std::initializer_list<std::string_view> known) const;

    /// The elements of an array, one level. Fails on anything else, and on an array with nil in it.
    Expected<std::vector<ArchivedObject>> elements() const;
    /// What else the archive of this object names beside its root; nothing when it names no such object.
    std::optional<ArchivedObject> named(std::string_view name) const;
    /// The same of a colour; empty also when it cannot be read.
    ColorRef namedColor(std::string_view name) const;
    /// A number of any width, cut to its low 32 bits; a real is cut to its whole part and held within 32 bits. Fails
    /// on what is not a number.
    Expected<std::int32_t> intValue() const;

    /// The object as it stands in the archive's property list; valid as long as the archive is.
    PlistObject entry() const;
    /// This object for an archive that is written: it keeps the archive.
    std::shared_ptr<const ArchivedForm> archivedForm() const;

private:
    friend class KeyedUnarchiver;
    friend class KeyedDecoder;
    ArchivedObject(std::shared_ptr<ArchiveReader> reader, std::uint32_t uid);

    std::shared_ptr<ArchiveReader> m_reader;
    std::uint32_t m_uid;
};

/// Opens keyed archives (NSKeyedArchiver, binary property list) that have a root object.
class KeyedUnarchiver {
public:
    /// Checks the container as a whole; the objects in it are checked when they are read.
    static Expected<ArchivedObject> rootObject(Bytes data);
};

} // namespace wallgrid
