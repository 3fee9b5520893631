// SPDX-License-Identifier: MIT
#include "archive/keyed_decoder.h"

#include "archive/archive_reader.h"

#include <utility>

namespace wallgrid {

KeyedDecoder::KeyedDecoder(ArchivedObject record)
    : m_record(std::move(record))
{
    if (!m_record.m_reader->isRecord(m_record.m_reader->archive()->entry(m_record.m_uid)))
        m_error = Error{"an object of a class was expected"};
}

template <class T>
T KeyedDecoder::read(Expected<T> (ArchiveReader::*method)(const PlistObject&, std::string_view), std::string_view key)
{
    if (m_error)
        return T();
    ArchiveReader& reader = *m_record.m_reader;
    Expected<T> value = (reader.*method)(reader.archive()->entry(m_record.m_uid), key);
    if (value)
        return std::move(*value);
    m_error = Error{m_record.className() + ": " + value.error().message};
    return T();
}

std::int32_t KeyedDecoder::decodeInt(std::string_view key)
{
    return read(&ArchiveReader::integer, key);
}

bool KeyedDecoder::decodeBool(std::string_view key)
{
    return read(&ArchiveReader::boolean, key);
}

StringRef KeyedDecoder::decodeString(std::string_view key)
{
    return read(&ArchiveReader::string, key);
}

ColorRef KeyedDecoder::decodeColor(std::string_view key)
{
    return read(&ArchiveReader::color, key);
}

UrlRef KeyedDecoder::decodeUrl(std::string_view key)
{
    return read(&ArchiveReader::url, key);
}

std::vector<std::uint8_t> KeyedDecoder::decodeData(std::string_view key)
{
    return read(&ArchiveReader::dataObject, key);
}

} // namespace wallgrid
