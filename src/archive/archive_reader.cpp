// SPDX-License-Identifier: MIT
#include "archive/archive_reader.h"

#include "archive/archived_color.h"
#include "archive/archived_entry.h"
#include "base/unicode.h"

#include <algorithm>
#include <limits>

namespace wallgrid {

namespace {

using Kind = PlistObject::Kind;

/// Names of classes are short; only damage has more.
constexpr std::uint32_t kLongestClassName = 255;
constexpr std::uint32_t kMostClassHints = 32;
/// A chosen file has no base, and nobody writes more than one.
constexpr std::size_t kLongestBaseChain = 32;
/// The longest path that the system takes has 4096 bytes, each of at most three characters.
constexpr std::size_t kLongestUrl = 16 << 10;
/// Each relative URL becomes a text of its own, with that of its base in it, and so does each that is not read as it
/// stands. Many of one long text could ask for any amount; this is room for 300,000 URLs of 200 characters.
constexpr std::uint64_t kUrlAllowance = 64U << 20;

tl::unexpected<Error> wrongValue(std::string_view key, std::string_view reason)
{
    return failure("the value of \"" + std::string(key) + "\" " + std::string(reason));
}

} // namespace

ArchiveReader::ArchiveReader(std::shared_ptr<const KeyedArchive> archive)
    : m_archive(std::move(archive))
    , m_urlAllowance(kUrlAllowance)
{
}

std::optional<PlistObject> ArchiveReader::value(const PlistObject& record, std::string_view key)
{
    return m_lookup.value(record, key);
}

Expected<std::int32_t> ArchiveReader::integer(const PlistObject& record, std::string_view key)
{
    const auto number = value(record, key);
    if (!number)
        return 0;
    if (number->kind() != Kind::Integer)
        return wrongValue(key, "is not an integer");
    const auto [integer, isExact] = number->integer();
    using Limits = std::numeric_limits<std::int32_t>;
    if (!isExact || integer < Limits::min() || integer > Limits::max())
        return wrongValue(key, "does not fit in 32 bits");
    return static_cast<std::int32_t>(integer);
}

Expected<bool> ArchiveReader::boolean(const PlistObject& record, std::string_view key)
{
    const auto flag = value(record, key);
    if (!flag)
        return false;
    if (flag->kind() == Kind::Integer)
        return flag->integer().value != 0 || !flag->integer().isExact;
    if (flag->kind() != Kind::Boolean)
        return wrongValue(key, "is not a boolean");
    return flag->boolean();
}

Expected<std::span<const std::uint8_t>> ArchiveReader::data(const PlistObject& record, std::string_view key)
{
    const auto bytes = value(record, key);
    if (!bytes)
        return std::span<const std::uint8_t>();
    if (bytes->kind() != Kind::Data)
        return wrongValue(key, "is not data");
    return bytes->data();
}

Expected<std::uint32_t> ArchiveReader::reference(const PlistObject& record, std::string_view key)
{
    const auto object = value(record, key);
    if (!object)
        return 0;
    const auto uid = m_archive->uidOf(*object);
    if (!uid)
        return wrongValue(key, "refers to no object of the archive");
    return *uid;
}

Expected<std::vector<std::uint8_t>> ArchiveReader::dataObject(const PlistObject& record, std::string_view key)
{
    using Result = std::vector<std::uint8_t>;
    const auto uid = reference(record, key);
    if (!uid)
        return tl::unexpected(uid.error());
    if (*uid == 0)
        return Result();
    const PlistObject entry = m_archive->entry(*uid);
    if (entry.kind() == Kind::Data)
        return Result(entry.data().begin(), entry.data().end());
    if (const auto checked = expectClass(entry, {"NSMutableData", "NSData"}, key); !checked)
        return tl::unexpected(checked.error());
    return data(entry, "NS.data").map([](auto bytes) { return Result(bytes.begin(), bytes.end()); });
}

Expected<StringRef> ArchiveReader::string(const PlistObject& record, std::string_view key)
{
    const auto inlined = value(record, key);
    if (inlined && inlined->isString())
        return shared(*inlined);
    const auto uid = reference(record, key);
    if (!uid)
        return tl::unexpected(uid.error());
    if (*uid == 0)
        return StringRef();

    const PlistObject entry = m_archive->entry(*uid);
    if (entry.isString())
        return shared(entry);
    if (const auto checked = expectClass(entry, {"NSMutableString", "NSString"}, key); !checked)
        return tl::unexpected(checked.error());
    const auto text = value(entry, "NS.string");
    if (!text)
        return StringRef();
    if (!text->isString())
        return wrongValue("NS.string", "is not a string");
    return shared(*text);
}

StringRef ArchiveReader::shared(const PlistObject& string)
{
    StringRef& text = m_strings[string.index()];
    if (!text)
        text = makeString(string.text());
    return text;
}

Expected<UrlRef> ArchiveReader::url(const PlistObject& record, std::string_view key)
{
    const auto reference = this->reference(record, key);
    if (!reference)
        return tl::unexpected(reference.error());
    std::uint32_t uid = *reference;
    if (uid == 0)
        return nullptr;
    if (const auto checked = expectClass(m_archive->entry(uid), {"NSURL"}, key); !checked)
        return tl::unexpected(checked.error());

    UrlRef url;
    std::vector<std::uint32_t> chain; // from the URL asked for towards its last base
    while (uid != 0) {
        const PlistObject entry = m_archive->entry(uid);
        if (const auto known = m_urls.find(entry.index()); known != m_urls.end()) {
            url = known->second;
            uid = 0;
        } else if (chain.size() == kLongestBaseChain || classAmong(entry, {"NSURL"}).empty() ||
                   std::find(chain.begin(), chain.end(), uid) != chain.end()) {
            break;
        } else {
            chain.push_back(uid);
            uid = this->reference(entry, "NS.base").value_or(0);
        }
    }
    for (bool isSound = uid == 0; !chain.empty(); chain.pop_back()) {
        isSound = isSound && !(url && url->archivedForm());
        url = resolved(chain.back(), url, isSound);
        m_urls[m_archive->entry(chain.back()).index()] = url;
    }
    return url;
}

UrlRef ArchiveReader::urlOfText(const StringRef& text)
{
    if (text->size() > kLongestUrl)
        return nullptr;
    UrlRef& url = m_urlsOfTexts[text];
    if (!url)
        url = std::make_shared<const Url>(Url::fromLooseString(toUtf8(*text)));
    return url->absoluteString().size() > kLongestUrl ? nullptr : url;
}

UrlRef ArchiveReader::resolved(std::uint32_t uid, const UrlRef& base, bool hasSoundBase)
{
    const auto text = string(m_archive->entry(uid), "NS.relative").value_or(nullptr);
    const UrlRef own = text ? urlOfText(text) : nullptr;
    // Escapes make a text longer.
    const bool isSound = hasSoundBase && own && own->absoluteString().size() == text->size();
    if (isSound && !base)
        return own;
    std::optional<Url> url;
    const std::uint64_t cost = own ? own->absoluteString().size() + (base ? base->absoluteString().size() : 0) : 0;
    if (own && cost <= m_urlAllowance) {
        m_urlAllowance -= cost;
        url = base ? Url::resolve(*base, own->absoluteString()) : *own;
    }
    const bool fits = url && url->absoluteString().size() <= kLongestUrl;
    if (fits && isSound)
        return std::make_shared<const Url>(std::move(*url));
    return std::make_shared<const Url>(
        (fits ? *url : Url::fromLooseString("")).withArchivedForm(std::make_shared<ArchivedEntry>(m_archive, uid)));
}

Expected<ColorRef> ArchiveReader::color(const PlistObject& record, std::string_view key)
{
    const auto uid = reference(record, key);
    if (!uid)
        return tl::unexpected(uid.error());
    if (*uid == 0)
        return ColorRef();
    const PlistObject entry = m_archive->entry(*uid);
    if (const auto known = m_colors.find(entry.index()); known != m_colors.end())
        return known->second;
    if (const auto checked = expectClass(entry, {"NSColor"}, key); !checked)
        return tl::unexpected(checked.error());
    return m_colors[entry.index()] = readColor(*this, *uid);
}

std::optional<PlistObject> ArchiveReader::classDescription(const PlistObject& entry)
{
    if (entry.kind() != Kind::Dictionary)
        return std::nullopt;
    const auto reference = value(entry, "$class");
    const auto uid = reference ? m_archive->uidOf(*reference) : std::nullopt;
    if (!uid)
        return std::nullopt;
    const PlistObject description = m_archive->entry(*uid);
    if (description.kind() != Kind::Dictionary)
        return std::nullopt;
    return description;
}

bool ArchiveReader::isRecord(const PlistObject& entry)
{
    const auto description = classDescription(entry);
    const auto name = description ? value(*description, "$classname") : std::nullopt;
    return name && name->isString();
}

std::string ArchiveReader::className(const PlistObject& entry)
{
    const auto description = classDescription(entry);
    const auto name = description ? value(*description, "$classname") : std::nullopt;
    if (!name || !name->isString() || name->size() > kLongestClassName)
        return "";
    std::string text;
    for (std::uint32_t i = 0; i < name->size(); ++i) {
        const char16_t unit = name->unit(i);
        if (unit < 0x20 || unit > 0x7E)
            return "";
        text += static_cast<char>(unit);
    }
    return text;
}

std::string_view ArchiveReader::classAmong(const PlistObject& entry, std::initializer_list<std::string_view> known)
{
    const auto description = classDescription(entry);
    if (!description)
        return "";
    const auto match = [known](const PlistObject& name) {
        const auto found = std::find_if(known.begin(), known.end(), [&](auto text) { return name.isText(text); });
        return found == known.end() ? std::string_view() : *found;
    };
    // Hints stand in for a class that is not known, but a record without a class name is damaged.
    const auto name = value(*description, "$classname");
    if (!name || !name->isString())
        return "";
    std::string_view result = match(*name);
    const auto hints = value(*description, "$classhints");
    if (result.empty() && hints && hints->kind() == Kind::Array) {
        for (std::uint32_t i = 0; i < std::min(hints->size(), kMostClassHints) && result.empty(); ++i)
            result = match(hints->element(i));
    }
    return result;
}

Expected<void> ArchiveReader::expectClass(const PlistObject& entry, std::initializer_list<std::string_view> known,
                                          std::string_view key)
{
    if (!classAmong(entry, known).empty())
        return {};
    const std::string name = className(entry);
    return wrongValue(key, name.empty() ? "is of another kind" : "is of class \"" + name + "\"");
}

} // namespace wallgrid
