// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>

namespace wallgrid {

/// Text that is kept exactly as it came: UTF-16 units, lone surrogates and NUL included. Shared and never changed,
/// because one name of ten megabytes may belong to a hundred thousand items of a file. An empty reference is
/// "no text".
using StringRef = std::shared_ptr<const std::u16string>;

inline StringRef makeString(std::u16string text)
{
    return std::make_shared<const std::u16string>(std::move(text));
}

/// The text, or "" for an empty reference.
inline const std::u16string& textOf(const StringRef& string)
{
    static const std::u16string empty;
    return string ? *string : empty;
}

} // namespace wallgrid
