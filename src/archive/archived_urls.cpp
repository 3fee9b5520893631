// SPDX-License-Identifier: MIT
#include "archive/archived_urls.h"

#include "archive/keyed_decoder.h"
#include "base/unicode.h"

#include <memory>
#include <optional>
#include <utility>

namespace wallgrid {

namespace {

/// The longest path that the system takes has 4096 bytes, each of at most three characters.
constexpr std::size_t kLongestUrl = 16 << 10;

} // namespace

/// What a record says by itself.
struct ArchivedUrls::Parts {
    UrlRef url;
    bool isExact = false; ///< the whole record is understood, and `url` is its very text
    std::optional<ArchivedObject> base;
};

UrlRef ArchivedUrls::urlOfText(const StringRef& text)
{
    if (!text || text->size() > kLongestUrl)
        return nullptr;
    UrlRef& url = m_urlsOfTexts[text];
    if (!url)
        url = std::make_shared<const Url>(Url::fromLooseString(toUtf8(*text)));
    return url->absoluteString().size() > kLongestUrl ? nullptr : url;
}

ArchivedUrls::Parts ArchivedUrls::parts(const ArchivedObject& record)
{
    KeyedDecoder coder(record);
    const StringRef text = coder.decodeString("NS.relative");
    Parts parts{urlOfText(text), false, coder.decodeObject("NS.base")};
    // Escapes make a text longer.
    parts.isExact = !coder.error() && parts.url && parts.url->absoluteString().size() == text->size();
    return parts;
}

UrlRef ArchivedUrls::read(const ArchivedObject& record)
{
    const Parts own = parts(record);
    if (own.isExact && !own.base)
        return own.url;
    const bool hasBase = own.base && !own.base->classAmong({"NSURL"}).empty();
    const Parts base = hasBase ? parts(*own.base) : Parts();

    std::optional<Url> url;
    if (own.url && (!own.base || (base.url && !base.base))) {
        const std::uint64_t cost = own.url->absoluteString().size() + (hasBase ? base.url->absoluteString().size() : 0);
        if (cost <= m_allowance) {
            m_allowance -= cost;
            url = hasBase ? Url::resolve(*base.url, own.url->absoluteString()) : *own.url;
        }
    }
    const bool fits = url && url->absoluteString().size() <= kLongestUrl;
    if (fits && own.isExact && base.isExact)
        return std::make_shared<const Url>(std::move(*url));
    return std::make_shared<const Url>(
        (fits ? *url : Url::fromLooseString("")).withArchivedForm(record.archivedForm()));
}

} // namespace wallgrid
