// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace wallgrid {

class KeyedArchiver;

/// An object that a keyed archive can hold as a record of its own.
class Archivable {
public:
    virtual ~Archivable() = default;

    /// ASCII; in the archive it stands directly under NSObject.
    virtual std::string_view archivedClassName() const = 0;
    /// Writes the object's values, each under its own key.
    virtual void encodeWithCoder(KeyedArchiver& archiver) const = 0;
};

struct ArchiveValue;
using ArchiveArray = std::vector<ArchiveValue>;

/// What a root object is made of: a number, an object, a colour, or an array of these. References are never empty. One
/// object in several places of an array stays one object. Arrays are shared, so copying takes no memory: the standard
/// library's variant is undefined after a copy that throws.
struct ArchiveValue
    : std::variant<std::int64_t, std::shared_ptr<const Archivable>, ColorRef, std::shared_ptr<const ArchiveArray>> {
    using variant::variant;
    ArchiveValue(ArchiveArray array) // NOLINT(google-explicit-constructor): an array is a value
        : variant(std::make_shared<const ArchiveArray>(std::move(array)))
    {
    }
};

/// Objects that an archive names beside its root, under other names than "root".
using NamedValues = std::vector<std::pair<std::string_view, ArchiveValue>>;

} // namespace wallgrid
