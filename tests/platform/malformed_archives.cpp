// SPDX-License-Identifier: MIT
#include "platform/archive_samples.h"

#include <functional>
#include <limits>

namespace wallgrid::test {

namespace {

constexpr std::uint64_t kHuge = std::numeric_limits<std::uint64_t>::max();

struct Fault {
    const char* name;
    std::function<void(RawProject&)> make;
};

using P = RawProject;

/// Faults of the property list around the archive.
const std::vector<Fault> kTrailerFaults = {
    {"offset width 0", [](P& p) { p.claimedOffsetWidth = 0; }},
    {"offset width 9", [](P& p) { p.claimedOffsetWidth = 9; }},
    {"offset width 255", [](P& p) { p.claimedOffsetWidth = 255; }},
    {"reference width 0", [](P& p) { p.claimedReferenceWidth = 0; }},
    {"reference width 9", [](P& p) { p.claimedReferenceWidth = 9; }},
    {"reference width too small", [](P& p) { p.claimedReferenceWidth = 1; }},
    {"no objects", [](P& p) { p.claimedCount = 0; }},
    {"one object too many", [](P& p) { p.claimedCount = p.next() + 1000; }},
    {"count that overflows when multiplied by 4", [](P& p) { p.claimedCount = std::uint64_t{1} << 62; }},
    {"largest count", [](P& p) { p.claimedCount = kHuge; }},
    {"top object out of range", [](P& p) { p.claimedTop = 1000000; }},
    {"largest top object", [](P& p) { p.claimedTop = kHuge; }},
    {"offset table at 0", [](P& p) { p.claimedTable = 0; }},
    {"offset table beyond the file", [](P& p) { p.claimedTable = 1000000; }},
    {"largest offset table", [](P& p) { p.claimedTable = kHuge; }},
    {"offset in the header", [](P& p) { p.claimedOffsets[p.boolean(true)] = 3; }},
    {"offset in the offset table", [](P& p) { p.claimedOffsets[p.boolean(true)] = 100000; }},
    {"largest offset",
     [](P& p) {
         p = P(8, 4);
         p.claimedOffsets[p.boolean(true)] = kHuge;
     }},
};

/// Objects that nothing refers to, so that only the check of the whole file sees them. They are the last of the file.
const std::vector<std::pair<const char*, const char*>> kObjectFaults = {
    {"unknown object 01", "01"},
    {"fill byte", "0F"},
    {"integer of 32 bytes", "15 00000000 00000000 00000000 00000000 00000000 00000000 00000000 00000000"},
    {"real of 1 byte", "20 00"},
    {"real of 16 bytes", "24 00000000 00000000 00000000 00000000"},
    {"date of 4 bytes", "32 00000000"},
    {"unknown object 70", "70"},
    {"unknown object 90", "90"},
    {"unknown object B0", "B0"},
    {"unknown object F0", "F0"},
    {"integer without bytes", "13 00"},
    {"real without bytes", "23 00"},
    {"UID without bytes", "8F 00"},
    {"data without bytes", "42 00"},
    {"ASCII string without bytes", "5E 41"},
    {"UTF-16 string without bytes", "62 0041 00"},
    {"count missing", "4F"},
    {"count that is a string", "4F 51 41"},
    {"count of 16 bytes", "4F 14 00000000 00000000 00000000 00000001 41"},
    {"count without bytes", "4F 13 00"},
    {"negative count", "5F 13 FFFFFFFF FFFFFFFF 41"},
    {"UTF-16 count that overflows when multiplied by 2", "6F 13 80000000 00000001 0041"},
    {"array count that overflows when multiplied by 4", "AF 13 40000000 00000000"},
    {"set count that overflows when multiplied by 4", "CF 13 40000000 00000000"},
    {"dictionary count that overflows when multiplied by 8", "DF 13 20000000 00000000"},
    {"array without references", "A2 00000000"},
    {"dictionary without values", "D1 00000000"},
    {"array element out of range", "A1 00100000"},
    {"set element out of range", "C1 00100000"},
    {"dictionary key out of range", "D1 00100000 00000000"},
    {"dictionary value out of range", "D1 00000000 00100000"},
    {"ASCII string with other characters", "52 41 E4"},
};

const std::vector<Fault> kSharedBytes = {
    {"two objects at one offset", [](P& p) { p.claimedOffsets[p.boolean(true)] = 8; }},
    {"object inside another",
     [](P& p) {
         p.claimedOffsets[p.raw("")] = 10; // within "$null", the first object; its n reads as the mark of a string
     }},
};

/// Faults of the archive's own frame.
const std::vector<Fault> kFrameFaults = {
    {"top is an array", [](P& p) { p.topObject = p.array({}); }},
    {"top is a string", [](P& p) { p.topObject = p.ascii("$version"); }},
    {"top is a UID", [](P& p) { p.topObject = p.uid(1); }},
    {"no version", [](P& p) { p.top["$version"] = P::kAbsent; }},
    {"version 100001", [](P& p) { p.top["$version"] = p.integer(100001); }},
    {"version as text", [](P& p) { p.top["$version"] = p.ascii("100000"); }},
    {"version 2^64 + 100000", [](P& p) { p.top["$version"] = p.raw(fromHex("14 0000000000000001 00000000000186A0")); }},
    {"no archiver", [](P& p) { p.top["$archiver"] = P::kAbsent; }},
    {"other archiver", [](P& p) { p.top["$archiver"] = p.ascii("NSKeyedArchiver2"); }},
    {"archiver as a number", [](P& p) { p.top["$archiver"] = p.integer(0); }},
    {"no objects table", [](P& p) { p.top["$objects"] = P::kAbsent; }},
    {"objects table is a dictionary", [](P& p) { p.top["$objects"] = p.dictionary({}); }},
    {"objects table is a set", [](P& p) { p.top["$objects"] = p.raw(fromHex("C0")); }},
    {"objects table is empty", [](P& p) { p.top["$objects"] = p.array({}); }},
    {"no roots", [](P& p) { p.top["$top"] = P::kAbsent; }},
    {"roots in an array", [](P& p) { p.top["$top"] = p.array({p.uid(P::Root)}); }},
    {"no root", [](P& p) { p.roots = {}; }},
    {"root under another key",
     [](P& p) {
         p.roots = {{"Root", p.uid(P::Root)}};
     }},
    {"root is a string",
     [](P& p) {
         p.roots = {{"root", p.ascii("root")}};
     }},
    {"root is a number",
     [](P& p) {
         p.roots = {{"root", p.integer(P::Root)}};
     }},
    {"root is nil",
     [](P& p) {
         p.roots = {{"root", p.uid(0)}};
     }},
    {"root out of range",
     [](P& p) {
         p.roots = {{"root", p.uid(P::EntryCount)}};
     }},
    {"root 2^32 too high",
     [](P& p) {
         p.roots = {{"root", p.uid((std::uint64_t{1} << 32) + P::Root, 8)}};
     }},
    {"root 2^64 too high",
     [](P& p) {
         p.roots = {{"root", p.raw(fromHex("88 01 0000000000000001"))}};
     }},
    {"root as in the XML form",
     [](P& p) {
         p.roots = {{"root", p.dictionary({{p.ascii("CF$UID"), p.integer(1)}})}};
     }},
};

/// Faults of classes and arrays.
const std::vector<Fault> kShapeFaults = {
    {"root without class", [](P& p) { p.remove(P::Root, "$class"); }},
    {"class is nil", [](P& p) { p.set(P::Screen, "$class", p.uid(0)); }},
    {"class out of range", [](P& p) { p.set(P::Screen, "$class", p.uid(4000000000)); }},
    {"class inline", [](P& p) { p.set(P::Screen, "$class", p.ascii("GXScreen")); }},
    {"class is a string entry", [](P& p) { p.set(P::Screen, "$class", p.uid(P::Label)); }},
    {"class is the record itself", [](P& p) { p.set(P::Screen, "$class", p.uid(P::Screen)); }},
    {"class without name", [](P& p) { p.remove(P::ScreenClass, "$classname"); }},
    {"class name is a number", [](P& p) { p.set(P::ScreenClass, "$classname", p.integer(1)); }},
    {"unknown class", [](P& p) { p.set(P::ScreenClass, "$classname", p.ascii("GXCircle")); }},
    {"unknown class with unknown hints",
     [](P& p) {
         p.set(P::ScreenClass, "$classname", p.ascii("GXCircle"));
         p.set(P::ScreenClass, "$classhints", p.array({p.integer(1), p.ascii("GXShape"), p.array({})}));
     }},
    {"root is a screen",
     [](P& p) {
         p.roots = {{"root", p.uid(P::Screen)}};
     }},
    {"root is a number entry",
     [](P& p) {
         p.roots = {{"root", p.uid(P::Width)}};
     }},
    {"root is a class",
     [](P& p) {
         p.roots = {{"root", p.uid(P::ArrayClass)}};
     }},
    {"root is a bare array", [](P& p) { p.replace(P::Root, p.array({p.uid(P::Height)})); }},
    {"root holds itself",
     [](P& p) {
         p.set(P::Root, "NS.objects", p.array({p.uid(P::Root), p.uid(P::Root), p.uid(P::Root)}));
     }},
    {"items hold themselves", [](P& p) { p.set(P::Items, "NS.objects", p.array({p.uid(P::Items)})); }},
    {"array without elements", [](P& p) { p.remove(P::Items, "NS.objects"); }},
    {"elements by reference", [](P& p) { p.set(P::Items, "NS.objects", p.uid(p.add(p.array({p.uid(P::Screen)})))); }},
    {"elements in a dictionary", [](P& p) { p.set(P::Items, "NS.objects", p.dictionary({})); }},
    {"nil element",
     [](P& p) {
         p.set(P::Items, "NS.objects", p.array({p.uid(P::Screen), p.uid(0)}));
     }},
    {"element out of range", [](P& p) { p.set(P::Items, "NS.objects", p.array({p.uid(P::EntryCount)})); }},
    {"inline element",
     [](P& p) {
         p.set(P::Root, "NS.objects", p.array({p.integer(1), p.integer(1), p.uid(P::Items)}));
     }},
    {"height is text", [](P& p) { p.replace(P::Height, p.ascii("1080")); }},
    {"height is a record",
     [](P& p) {
         p.set(P::Root, "NS.objects", p.array({p.uid(P::Screen), p.uid(P::Width), p.uid(P::Items)}));
     }},
    {"items are a number", [](P& p) { p.replace(P::Items, p.integer(2)); }},
    {"item is a number", [](P& p) { p.replace(P::Screen, p.integer(2)); }},
    {"item is a colour", [](P& p) { p.set(P::Items, "NS.objects", p.array({p.uid(P::Colour)})); }},
};

/// Faults of the values of an item.
const std::vector<Fault> kValueFaults = {
    {"integer of 33 bits", [](P& p) { p.set(P::Screen, "col", p.integer(0x1'0000'0000)); }},
    {"unsigned integer of 32 bits", [](P& p) { p.set(P::Screen, "col", p.raw(fromHex("12 80000000"))); }},
    {"negative integer of 33 bits", [](P& p) { p.set(P::Screen, "xpoint", p.integer(-0x8000'0001LL)); }},
    {"integer 2^64", [](P& p) { p.set(P::Screen, "col", p.raw(fromHex("14 0000000000000001 0000000000000000"))); }},
    {"integer as a real", [](P& p) { p.set(P::Screen, "col", p.real(4)); }},
    {"integer as text", [](P& p) { p.set(P::Screen, "col", p.ascii("4")); }},
    {"integer as a boolean", [](P& p) { p.set(P::Screen, "col", p.boolean(true)); }},
    {"integer by reference", [](P& p) { p.set(P::Screen, "col", p.uid(P::Width)); }},
    {"boolean as text", [](P& p) { p.set(P::Screen, "visible", p.ascii("YES")); }},
    {"boolean by reference", [](P& p) { p.set(P::Screen, "visible", p.uid(P::Width)); }},
    {"label out of range", [](P& p) { p.set(P::Screen, "label", p.uid(P::EntryCount)); }},
    {"label is a number", [](P& p) { p.set(P::Screen, "label", p.uid(P::Width)); }},
    {"label is an inline number", [](P& p) { p.set(P::Screen, "label", p.integer(P::Label)); }},
    {"label is a colour", [](P& p) { p.set(P::Screen, "label", p.uid(P::Colour)); }},
    {"mutable string of itself",
     [](P& p) {
         const unsigned string = p.addRecord({{"$class", p.uid(p.addClass({"NSMutableString", "NSObject"}))}});
         p.set(string, "NS.string", p.uid(string));
         p.set(P::Screen, "label", p.uid(string));
     }},
    {"mutable string of data",
     [](P& p) {
         p.set(P::Screen, "label",
               p.uid(p.addRecord(
                   {{"$class", p.uid(p.addClass({"NSMutableString", "NSObject"}))}, {"NS.string", p.data("a")}})));
     }},
    {"colour out of range", [](P& p) { p.set(P::Screen, "rectcolor", p.uid(kHuge, 16)); }},
    {"colour is a string", [](P& p) { p.set(P::Screen, "rectcolor", p.uid(P::Label)); }},
    {"colour is an inline record", [](P& p) { p.set(P::Screen, "rectcolor", p.dictionary({})); }},
    {"colour of no space", [](P& p) { p.remove(P::Colour, "NSColorSpace"); }},
    {"colour of a negative space", [](P& p) { p.set(P::Colour, "NSColorSpace", p.integer(-1)); }},
    {"colour space as text", [](P& p) { p.set(P::Colour, "NSColorSpace", p.ascii("1")); }},
    {"colour space of 33 bits", [](P& p) { p.set(P::Colour, "NSColorSpace", p.integer(0x1'0000'0001)); }},
    {"components as text", [](P& p) { p.set(P::Colour, "NSRGB", p.ascii("1 0 0")); }},
    {"components by reference", [](P& p) { p.set(P::Colour, "NSRGB", p.uid(p.add(p.data("1 0 0")))); }},
    {"own components as text", [](P& p) { p.set(P::Colour, "NSComponents", p.ascii("1 0 0 1")); }},
    {"custom colour space out of range", [](P& p) { p.set(P::Colour, "NSCustomColorSpace", p.uid(P::EntryCount)); }},
    {"custom colour space is the colour",
     [](P& p) {
         p.set(P::Colour, "NSComponents", p.data("1 0 0 1"));
         p.set(P::Colour, "NSCustomColorSpace", p.uid(P::Colour));
     }},
    {"custom colour space with a name for a number",
     [](P& p) {
         p.set(P::Colour, "NSComponents", p.data("1 0 0 1"));
         p.set(
             P::Colour, "NSCustomColorSpace",
             p.uid(p.addRecord({{"$class", p.uid(p.addClass({"NSColorSpace", "NSObject"}))}, {"NSID", p.ascii("7")}})));
     }},
    {"named colour of itself",
     [](P& p) {
         p.set(P::Colour, "NSColorSpace", p.integer(6));
         p.set(P::Colour, "NSColor", p.uid(P::Colour));
     }},
    {"two named colours of each other",
     [](P& p) {
         const unsigned other = p.addRecord(
             {{"$class", p.uid(P::ColourClass)}, {"NSColorSpace", p.integer(6)}, {"NSColor", p.uid(P::Colour)}});
         p.set(P::Colour, "NSColorSpace", p.integer(6));
         p.set(P::Colour, "NSColor", p.uid(other));
     }},
    {"named colour of a string",
     [](P& p) {
         p.set(P::Colour, "NSColorSpace", p.integer(6));
         p.set(P::Colour, "NSColor", p.uid(P::Label));
     }},
    {"named colours without end",
     [](P& p) {
         unsigned colour = P::Colour;
         for (int i = 0; i < 20000; ++i)
             colour = p.addRecord(
                 {{"$class", p.uid(P::ColourClass)}, {"NSColorSpace", p.integer(6)}, {"NSColor", p.uid(colour)}});
         p.set(P::Screen, "rectcolor", p.uid(colour));
     }},
    {"URL is a string", [](P& p) { p.set(P::Still, "imageURL", p.uid(P::LinkText)); }},
    {"URL based on itself", [](P& p) { p.set(P::Link, "NS.base", p.uid(P::Link)); }},
    {"two URLs based on each other",
     [](P& p) {
         p.set(
             P::Link, "NS.base",
             p.uid(p.addRecord(
                 {{"$class", p.uid(P::LinkClass)}, {"NS.base", p.uid(P::Link)}, {"NS.relative", p.uid(P::LinkText)}})));
     }},
    {"URL based on a string", [](P& p) { p.set(P::Link, "NS.base", p.uid(P::LinkText)); }},
    {"URL base out of range", [](P& p) { p.set(P::Link, "NS.base", p.uid(P::EntryCount)); }},
    {"URL with bases without end",
     [](P& p) {
         unsigned url = P::Link;
         for (int i = 0; i < 20000; ++i)
             url = p.addRecord(
                 {{"$class", p.uid(P::LinkClass)}, {"NS.base", p.uid(url)}, {"NS.relative", p.uid(P::LinkText)}});
         p.set(P::Still, "imageURL", p.uid(url));
     }},
    {"URL text is a number", [](P& p) { p.set(P::Link, "NS.relative", p.uid(P::Width)); }},
    {"URL text is a URL", [](P& p) { p.set(P::Link, "NS.relative", p.uid(P::Link)); }},
};

} // namespace

std::vector<ArchiveSample> malformedArchives()
{
    const Bytes sound = RawProject().file();
    const auto text = [](std::string_view bytes) { return Bytes(bytes.begin(), bytes.end()); };
    std::vector<ArchiveSample> samples = {
        {"empty file", {}},
        {"header alone", text("bplist00")},
        {"header and trailer alone", text("bplist00" + std::string(32, '\0'))},
        {"XML property list",
         text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict/></plist>\n")},
        {"picture", text("\x89PNG\r\n\x1A\n" + std::string(64, '\0'))},
    };
    samples.push_back({"header of another version", sound});
    samples.back().bytes[7] = '1';
    samples.push_back({"last byte lost", Bytes(sound.begin(), sound.end() - 1)});
    samples.push_back({"first byte lost", Bytes(sound.begin() + 1, sound.end())});
    samples.push_back({"one byte inserted", sound});
    samples.back().bytes.insert(samples.back().bytes.begin() + 8, 0);
    samples.push_back({"line ends changed", sound});
    samples.back().bytes.push_back('\n');

    for (const auto* faults : {&kTrailerFaults, &kSharedBytes, &kFrameFaults, &kShapeFaults, &kValueFaults}) {
        for (const Fault& fault : *faults) {
            RawProject project;
            fault.make(project);
            samples.push_back({fault.name, project.file()});
        }
    }
    for (const auto& [name, object] : kObjectFaults) {
        RawProject project;
        project.lastObject = fromHex(object);
        samples.push_back({name, project.file()});
    }
    return samples;
}

} // namespace wallgrid::test
