// SPDX-License-Identifier: MIT
#include "base/url.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

/// What a URL may hold beside letters, digits and escapes.
constexpr std::string_view kMarks = "-._~:/?#[]@!$&'()*+,;=";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool isLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isAlphanumeric(char c)
{
    return (c >= '0' && c <= '9') || isLetter(c);
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

bool isEscape(std::string_view text, std::size_t at)
{
    return text[at] == '%' && text.size() - at > 2 && hexValue(text[at + 1]) >= 0 && hexValue(text[at + 2]) >= 0;
}

/// Whether a URL may hold what begins at this place: a character, or an escape of three.
bool isLegal(std::string_view text, std::size_t at)
{
    return isAlphanumeric(text[at]) || kMarks.find(text[at]) != kMarks.npos || isEscape(text, at);
}

void appendEscaped(char c, std::string& text)
{
    const auto byte = static_cast<unsigned char>(c);
    text += {'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
}

/// Everything that may stand in a path segment is kept, but for the semicolon, which older systems read as the start
/// of parameters.
std::string escaped(std::string_view text, std::string_view alsoKept)
{
    constexpr std::string_view kKept = "-._~!$&'()*+,=:@";
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (isAlphanumeric(c) || kKept.find(c) != kKept.npos || alsoKept.find(c) != alsoKept.npos) {
            result += c;
        } else {
            appendEscaped(c, result);
        }
    }
    return result;
}

std::string unescaped(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isEscape(text, i)) {
            result += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase)
{
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
}

/// The five components of RFC 3986, section 3. What is there but empty ("file://") is not the same as not there.
struct Components {
    std::optional<std::string_view> scheme;
    std::optional<std::string_view> authority;
    std::string_view path;
    std::optional<std::string_view> query;
    std::optional<std::string_view> fragment;
};

Components split(std::string_view text)
{
    Components parts;
    const auto takeTail = [&text](char mark) -> std::optional<std::string_view> {
        const auto at = text.find(mark);
        if (at == text.npos)
            return std::nullopt;
        const std::string_view tail = text.substr(at + 1);
        text = text.substr(0, at);
        return tail;
    };
    parts.fragment = takeTail('#');
    parts.query = takeTail('?');

    // A scheme starts with a letter; a colon after the first slash belongs to the path.
    const auto colon = text.find_first_of(":/");
    if (colon != text.npos && text[colon] == ':' && isLetter(text[0])) {
        parts.scheme = text.substr(0, colon);
        text.remove_prefix(colon + 1);
    }
    if (text.starts_with("//")) {
        text.remove_prefix(2);
        const auto end = std::min(text.find('/'), text.size());
        parts.authority = text.substr(0, end);
        text.remove_prefix(end);
    }
    parts.path = text;
    return parts;
}

std::string joined(const Components& parts, std::string_view path)
{
    std::string text;
    if (parts.scheme)
        text.append(*parts.scheme) += ':';
    if (parts.authority)
        text.append("//").append(*parts.authority);
    else if (path.starts_with("//"))
        text += "/."; // or the path would read as an authority
    text.append(path);
    if (parts.query)
        (text += '?').append(*parts.query);
    if (parts.fragment)
        (text += '#').append(*parts.fragment);
    return text;
}

/// RFC 3986, 5.2.4, one segment a turn.
std::string withoutDotSegments(std::string_view path)
{
    std::string result;
    result.reserve(path.size());
    while (!path.empty()) {
        const std::size_t start = path.front() == '/' ? 1 : 0;
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view segment = path.substr(start, end - start);
        const bool isLast = end == path.size();
        if (segment == "." || segment == "..") {
            if (segment == ".." && start == 1) {
                const auto slash = result.rfind('/');
                result.erase(slash == result.npos ? 0 : slash);
            }
            if (start == 1 && isLast)
                result += '/';
            // A leading "../" or "./" goes with its slash.
            path.remove_prefix(start == 0 && !isLast ? end + 1 : end);
        } else {
            result.append(path.substr(0, end));
            path.remove_prefix(end);
        }
    }
    return result;
}

/// Where the last path component stands in the text (trailing slashes not counted), and its extension.
struct LastComponent {
    std::size_t end = 0;
    /// Where the point of the extension stands; `end` when there is no extension.
    std::size_t point = 0;
    bool isEmpty = true;
};

LastComponent lastComponent(std::string_view text)
{
    const std::string_view path = split(text).path;
    const auto start = static_cast<std::size_t>(path.data() - text.data());
    const auto last = path.find_last_not_of('/');
    if (last == path.npos)
        return {start, start, true};
    const std::size_t end = last + 1;
    const auto slash = path.rfind('/', last);
    const std::size_t begin = slash == path.npos ? 0 : slash + 1;
    const auto point = path.rfind('.', last);
    const bool hasExtension = point != path.npos && point > begin && point + 1 < end;
    return {start + end, start + (hasExtension ? point : end), false};
}

} // namespace

Url::Url(std::string text)
    : m_text(std::move(text))
{
}

std::optional<Url> Url::fromString(std::string_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isLegal(text, i))
            return std::nullopt;
    }
    return Url(std::string(text));
}

Url Url::fromLooseString(std::string_view utf8)
{
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if (isLegal(utf8, i))
            text += utf8[i];
        else
            appendEscaped(utf8[i], text);
    }
    return Url(std::move(text));
}

Url Url::fromFilePath(std::string_view absolutePath)
{
    return Url("file://" + escaped(absolutePath, "/"));
}

std::optional<Url> Url::resolve(const Url& base, std::string_view relative)
{
    if (!fromString(relative))
        return std::nullopt;
    const Components from = split(base.m_text);
    Components target = split(relative);
    if (target.scheme || target.authority) {
        if (!target.scheme)
            target.scheme = from.scheme;
        return Url(joined(target, withoutDotSegments(target.path)));
    }
    target.scheme = from.scheme;
    target.authority = from.authority;
    if (target.path.empty()) {
        if (!target.query)
            target.query = from.query;
        return Url(joined(target, from.path));
    }
    if (target.path.starts_with('/'))
        return Url(joined(target, withoutDotSegments(target.path)));
    const auto slash = from.path.rfind('/');
    std::string merged;
    if (slash != from.path.npos)
        merged = from.path.substr(0, slash + 1);
    else if (from.authority)
        merged = "/";
    return Url(joined(target, withoutDotSegments(merged.append(target.path))));
}

Url Url::withArchivedForm(std::shared_ptr<const ArchivedForm> form) const
{
    Url url(m_text);
    url.m_archivedForm = std::move(form);
    return url;
}

std::string Url::path() const
{
    return unescaped(split(m_text).path);
}

std::optional<std::string> Url::filePath() const
{
    const Components parts = split(m_text);
    if (!parts.scheme || !equalsIgnoringCase(*parts.scheme, "file") || !parts.path.starts_with('/'))
        return std::nullopt;
    if (parts.authority && !parts.authority->empty() && !equalsIgnoringCase(*parts.authority, "localhost"))
        return std::nullopt;
    std::string path = unescaped(parts.path);
    if (path.find('\0') != path.npos)
        return std::nullopt;
    return path;
}

std::string Url::pathExtension() const
{
    const LastComponent last = lastComponent(m_text);
    return last.point == last.end
               ? ""
               : unescaped(std::string_view(m_text).substr(last.point + 1, last.end - last.point - 1));
}

Url Url::appendingPathExtension(std::string_view extension) const
{
    const LastComponent last = lastComponent(m_text);
    if (last.isEmpty)
        return *this;
    return Url(std::string(m_text).insert(last.end, "." + escaped(extension, "")));
}

} // namespace wallgrid
