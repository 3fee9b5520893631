// SPDX-License-Identifier: MIT
#pragma once

#include "base/string_ref.h"
#include "base/url.h"

#include <cstdint>
#include <unordered_map>

namespace wallgrid {

class ArchivedObject;

/// Makes the locations of one archive from its records of class NSURL. Equal texts give the same shared value.
///
/// A record that is not read as it stands keeps its archived form. Text that is no URL comes as near as it can be; what
/// has no text, too much of it, or a base that is no location or has a base itself shows as the empty location.
class ArchivedUrls {
public:
    UrlRef read(const ArchivedObject& record);

private:
    struct Parts;
    Parts parts(const ArchivedObject& record);
    /// A text as a URL by itself; empty for one that is too long.
    UrlRef urlOfText(const StringRef& text);

    std::unordered_map<StringRef, UrlRef> m_urlsOfTexts;
    /// How many characters may still be made for URLs that are not just their text. Each relative URL becomes a text
    /// of its own, with that of its base in it, and so does each that is not read as it stands. Many of one long text
    /// could ask for any amount; this is room for 300,000 URLs of 200 characters.
    std::uint64_t m_allowance = 64U << 20;
};

} // namespace wallgrid
