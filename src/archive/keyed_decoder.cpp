// SPDX-License-Identifier: MIT
#include "archive/keyed_decoder.h"

#include "archive/archive_reader.h"

#include <limits>
#include <string>
#include <utility>

namespace wallgrid {

using Kind = PlistObject::Kind;

KeyedDecoder::KeyedDecoder(ArchivedObject record)
    : m_record(std::move(record))
{
    if (!m_record.m_reader->className(m_record.entry()))
        m_error = Error{"an object of a class was expected"};
}

std::optional<PlistObject> KeyedDecoder::value(std::string_view key)
{
    return m_error ? std::nullopt : m_record.m_reader->value(m_record.entry(), key);
}

void KeyedDecoder::fail(std::string_view key, std::string_view reason)
{
    m_error = Error{m_record.className() + ": the value of \"" + std::string(key) + "\" " + std::string(reason)};
}

void KeyedDecoder::failOfClass(std::string_view key, const ArchivedObject& object)
{
    const std::string name = object.className();
    fail(key, name.empty() ? "is of another kind" : "is of class \"" + name + "\"");
}

bool KeyedDecoder::expectClass(const ArchivedObject& object, std::initializer_list<std::string_view> known,
                               std::string_view key)
{
    const bool isKnown = !object.classAmong(known).empty();
    if (!isKnown)
        failOfClass(key, object);
    return isKnown;
}

std::int32_t KeyedDecoder::decodeInt(std::string_view key)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const auto number = value(key);
    if (!number)
        return 0;
    if (number->kind() != Kind::Integer) {
        fail(key, "is not an integer");
        return 0;
    }
    const auto [integer, isExact] = number->integer();
    if (!isExact || integer < Limits::min() || integer > Limits::max()) {
        fail(key, "does not fit in 32 bits");
        return 0;
    }
    return static_cast<std::int32_t>(integer);
}

bool KeyedDecoder::decodeBool(std::string_view key)
{
    const auto flag = value(key);
    if (flag && flag->kind() == Kind::Integer)
        return flag->integer().value != 0 || !flag->integer().isExact;
    if (flag && flag->kind() != Kind::Boolean)
        fail(key, "is not a boolean");
    return flag && !m_error && flag->boolean();
}

std::span<const std::uint8_t> KeyedDecoder::decodeBytes(std::string_view key)
{
    const auto bytes = value(key);
    if (bytes && bytes->kind() == Kind::Data)
        return bytes->data();
    if (bytes)
        fail(key, "is not data");
    return {};
}

std::optional<ArchivedObject> KeyedDecoder::decodeObject(std::string_view key)
{
    const auto reference = value(key);
    const auto uid = reference ? m_record.m_reader->archive()->uidOf(*reference) : std::nullopt;
    if (reference && !uid)
        fail(key, "refers to no object of the archive");
    return uid && *uid != 0 ? std::optional(ArchivedObject(m_record.m_reader, *uid)) : std::nullopt;
}

Bytes KeyedDecoder::decodeData(std::string_view key)
{
    const auto object = decodeObject(key);
    if (!object)
        return {};
    std::span<const std::uint8_t> bytes;
    if (object->entry().kind() == Kind::Data) {
        bytes = object->entry().data();
    } else if (expectClass(*object, {"NSMutableData", "NSData"}, key)) {
        KeyedDecoder coder(*object);
        bytes = coder.decodeBytes("NS.data");
        m_error = coder.error();
    }
    return {bytes.begin(), bytes.end()};
}

StringRef KeyedDecoder::decodeString(std::string_view key)
{
    ArchiveReader& reader = *m_record.m_reader;
    if (const auto inlined = value(key); inlined && inlined->isString())
        return reader.string(*inlined);
    const auto object = decodeObject(key);
    if (!object)
        return nullptr;
    if (object->entry().isString())
        return reader.string(object->entry());
    if (!expectClass(*object, {"NSMutableString", "NSString"}, key))
        return nullptr;
    const auto text = reader.value(object->entry(), "NS.string");
    if (text && text->isString())
        return reader.string(*text);
    if (text)
        fail("NS.string", "is not a string");
    return nullptr;
}

ColorRef KeyedDecoder::decodeColor(std::string_view key)
{
    const auto object = decodeObject(key);
    ColorRef color = object ? m_record.m_reader->color(*object) : nullptr;
    if (object && !color)
        failOfClass(key, *object);
    return color;
}

UrlRef KeyedDecoder::decodeUrl(std::string_view key)
{
    const auto object = decodeObject(key);
    UrlRef url = object ? m_record.m_reader->url(*object) : nullptr;
    if (object && !url)
        failOfClass(key, *object);
    return url;
}

} // namespace wallgrid
