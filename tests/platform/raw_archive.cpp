// SPDX-License-Identifier: MIT
#include "platform/raw_archive.h"

#include <algorithm>
#include <bit>

namespace wallgrid::test {

namespace {

std::string bigEndian(std::uint64_t number, unsigned width)
{
    std::string bytes(width, '\0');
    for (unsigned i = 0; i < std::min(width, 8U); ++i)
        bytes[width - 1 - i] = static_cast<char>(number >> (8 * i));
    return bytes;
}

std::string head(unsigned marker, std::size_t size)
{
    if (size < 15)
        return std::string(1, static_cast<char>(marker | size));
    return std::string({static_cast<char>(marker | 15), '\x12'}).append(bigEndian(size, 4));
}

/// The value under a key, replaced or added.
void setField(RawProject::Fields& fields, std::string_view key, RawPlist::Ref value)
{
    const auto field =
        std::find_if(fields.begin(), fields.end(), [key](const auto& each) { return each.first == key; });
    if (field == fields.end())
        fields.emplace_back(key, value);
    else
        field->second = value;
}

} // namespace

std::string fromHex(std::string_view digits)
{
    std::string text;
    std::copy_if(digits.begin(), digits.end(), std::back_inserter(text), [](char c) { return c != ' '; });
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2)
        bytes += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
    return bytes;
}

Bytes fromBase64(std::string_view text)
{
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    Bytes bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text.substr(0, text.find('='))) {
        bits = bits << 6 | static_cast<std::uint32_t>(kDigits.find(c));
        if ((count += 6) >= 8)
            bytes.push_back(static_cast<std::uint8_t>(bits >> (count -= 8)));
    }
    return bytes;
}

RawPlist::RawPlist(unsigned offsets, unsigned references)
    : m_offsetWidth(offsets)
    , m_referenceWidth(references)
{
}

RawPlist::Ref RawPlist::raw(std::string bytes)
{
    m_objects.push_back(std::move(bytes));
    return next() - 1;
}

RawPlist::Ref RawPlist::ascii(std::string_view text)
{
    return raw(head(0x50, text.size()).append(text));
}

RawPlist::Ref RawPlist::utf16(std::u16string_view text)
{
    std::string bytes = head(0x60, text.size());
    for (const char16_t unit : text)
        bytes += bigEndian(unit, 2);
    return raw(bytes);
}

RawPlist::Ref RawPlist::data(std::string_view bytes)
{
    return raw(head(0x40, bytes.size()).append(bytes));
}

RawPlist::Ref RawPlist::integer(std::int64_t value)
{
    return raw(std::string("\x13").append(bigEndian(static_cast<std::uint64_t>(value), 8)));
}

RawPlist::Ref RawPlist::boolean(bool value)
{
    return raw(value ? "\x09" : "\x08");
}

RawPlist::Ref RawPlist::real(double value)
{
    return raw(std::string("\x23").append(bigEndian(std::bit_cast<std::uint64_t>(value), 8)));
}

RawPlist::Ref RawPlist::uid(std::uint64_t value, unsigned width)
{
    return raw(std::string(1, static_cast<char>(0x80 | (width - 1))).append(bigEndian(value, width)));
}

RawPlist::Ref RawPlist::array(const std::vector<Ref>& elements)
{
    return raw(head(0xA0, elements.size()) + references(elements));
}

RawPlist::Ref RawPlist::dictionary(const std::vector<std::pair<Ref, Ref>>& pairs)
{
    std::vector<Ref> refs;
    for (const auto& pair : pairs)
        refs.push_back(pair.first);
    for (const auto& pair : pairs)
        refs.push_back(pair.second);
    return raw(head(0xD0, pairs.size()) + references(refs));
}

RawPlist::Ref RawPlist::container(char marker, const std::vector<Ref>& refs)
{
    const bool isDictionary = marker == static_cast<char>(0xD0);
    return raw(head(static_cast<unsigned char>(marker), isDictionary ? refs.size() / 2 : refs.size()) +
               references(refs));
}

std::string RawPlist::references(const std::vector<Ref>& refs) const
{
    std::string bytes;
    for (const Ref ref : refs)
        bytes += bigEndian(ref, m_referenceWidth);
    return bytes;
}

Bytes RawPlist::file(Ref top) const
{
    std::string file = "bplist00";
    std::string table;
    for (Ref i = 0; i < next(); ++i) {
        table += bigEndian(file.size(), m_offsetWidth);
        file += m_objects[i];
    }
    const std::uint64_t tablePosition = file.size();
    file += table + std::string(6, '\0');
    file += static_cast<char>(m_offsetWidth);
    file += static_cast<char>(m_referenceWidth);
    file += bigEndian(next(), 8) + bigEndian(top, 8) + bigEndian(tablePosition, 8);
    return Bytes(file.begin(), file.end());
}

RawProject::RawProject(unsigned offsets, unsigned references)
    : RawPlist(offsets, references)
    , m_entries(EntryCount)
{
    replace(Null, ascii("$null"));
    replace(Height, integer(1080));
    replace(Width, integer(1920));
    replace(Label, ascii("Wall A"));
    replace(LinkText, ascii("file:///w/a%20b.png"));

    set(Root, "NS.objects", array({uid(Height), uid(Width), uid(Items)}));
    set(Items, "NS.objects", array({uid(Screen), uid(Still)}));
    for (const unsigned item : {Screen, Still}) {
        set(item, "col", integer(4));
        set(item, "row", integer(3));
        set(item, "xpoint", integer(-5));
        set(item, "visible", boolean(true));
        set(item, "label", uid(Label));
        set(item, "rectcolor", uid(Colour));
        set(item, "circlecolor", uid(0));
    }
    set(Still, "imageURL", uid(Link));
    set(Colour, "NSColorSpace", integer(1));
    set(Colour, "NSRGB", data(std::string("1 0.5 0\0", 8)));
    set(Link, "NS.base", uid(0));
    set(Link, "NS.relative", uid(LinkText));

    const auto describe = [this](unsigned entry, unsigned classEntry, const std::vector<std::string>& classes) {
        const unsigned described = addClass(classes);
        std::swap(m_entries[described], m_entries[classEntry]);
        m_entries.pop_back();
        set(entry, "$class", uid(classEntry));
    };
    describe(Root, ArrayClass, {"NSMutableArray", "NSArray", "NSObject"});
    set(Items, "$class", uid(ArrayClass));
    describe(Screen, ScreenClass, {"GXScreen", "NSObject"});
    describe(Still, StillClass, {"GXStill", "NSObject"});
    describe(Colour, ColourClass, {"NSColor", "NSObject"});
    describe(Link, LinkClass, {"NSURL", "NSObject"});

    roots = {{"root", uid(Root)}};
}

void RawProject::set(unsigned entry, std::string_view key, Ref value)
{
    setField(m_entries[entry].fields, key, value);
}

void RawProject::remove(unsigned entry, std::string_view key)
{
    std::erase_if(m_entries[entry].fields, [key](const auto& each) { return each.first == key; });
}

void RawProject::replace(unsigned entry, Ref object)
{
    m_entries[entry].object = object;
}

unsigned RawProject::add(Ref object)
{
    m_entries.push_back({{}, object});
    return static_cast<unsigned>(m_entries.size() - 1);
}

unsigned RawProject::addRecord(const Fields& fields)
{
    m_entries.push_back({fields, std::nullopt});
    return static_cast<unsigned>(m_entries.size() - 1);
}

unsigned RawProject::addClass(const std::vector<std::string>& classes)
{
    std::vector<Ref> names;
    for (const std::string& name : classes)
        names.push_back(ascii(name));
    return addRecord({{"$classname", names[0]}, {"$classes", array(names)}});
}

Bytes RawProject::file()
{
    const auto made = [this](const Fields& fields) {
        std::vector<std::pair<Ref, Ref>> pairs;
        for (const auto& [key, value] : fields)
            pairs.emplace_back(ascii(key), value);
        return dictionary(pairs);
    };
    std::vector<Ref> objects;
    for (const Slot& slot : m_entries)
        objects.push_back(slot.object ? *slot.object : made(slot.fields));
    return RawPlist::file(made({{"$version", integer(100000)},
                                {"$objects", array(objects)},
                                {"$archiver", ascii("NSKeyedArchiver")},
                                {"$top", made(roots)}}));
}

} // namespace wallgrid::test
