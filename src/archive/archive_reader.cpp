// SPDX-License-Identifier: MIT
#include "archive/archive_reader.h"

#include "archive/archived_color.h"
#include "archive/keyed_unarchiver.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

using Kind = PlistObject::Kind;

constexpr std::uint32_t kMostClassHints = 32;

} // namespace

ArchiveReader::ArchiveReader(std::shared_ptr<const KeyedArchive> archive)
    : m_archive(std::move(archive))
{
}

std::optional<PlistObject> ArchiveReader::value(const PlistObject& record, std::string_view key)
{
    return m_lookup.value(record, key);
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

std::optional<PlistObject> ArchiveReader::className(const PlistObject& entry)
{
    const auto description = classDescription(entry);
    const auto name = description ? value(*description, "$classname") : std::nullopt;
    return name && name->isString() ? name : std::nullopt;
}

std::string_view ArchiveReader::classAmong(const PlistObject& entry, std::initializer_list<std::string_view> known)
{
    const auto match = [known](const PlistObject& name) {
        const auto found = std::find_if(known.begin(), known.end(), [&](auto text) { return name.isText(text); });
        return found == known.end() ? std::string_view() : *found;
    };
    // Hints stand in for a class that is not known, but a record without a class name is damaged.
    const auto name = className(entry);
    if (!name)
        return "";
    std::string_view result = match(*name);
    const auto hints = result.empty() ? value(*classDescription(entry), "$classhints") : std::nullopt;
    if (hints && hints->kind() == Kind::Array) {
        for (std::uint32_t i = 0; i < std::min(hints->size(), kMostClassHints) && result.empty(); ++i)
            result = match(hints->element(i));
    }
    return result;
}

StringRef ArchiveReader::string(const PlistObject& string)
{
    StringRef& text = m_strings[string.index()];
    if (!text)
        text = makeString(string.text());
    return text;
}

ColorRef ArchiveReader::color(const ArchivedObject& object)
{
    ColorRef& color = m_colors[object.entry().index()];
    if (!color && !object.classAmong({"NSColor"}).empty())
        color = readColor(object);
    return color;
}

UrlRef ArchiveReader::url(const ArchivedObject& object)
{
    UrlRef& url = m_urls[object.entry().index()];
    if (!url && !object.classAmong({"NSURL"}).empty())
        url = m_archivedUrls.read(object);
    return url;
}

} // namespace wallgrid
