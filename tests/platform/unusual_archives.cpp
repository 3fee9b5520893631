// SPDX-License-Identifier: MIT
#include "platform/archive_samples.h"

#include <functional>

namespace wallgrid::test {

namespace {

using P = RawProject;

struct Form {
    const char* name;
    std::function<void(P&)> make;
};

unsigned mutableString(P& p, std::string_view text)
{
    const unsigned described = p.addClass({"NSMutableString", "NSString", "NSObject"});
    return p.addRecord({{"NS.string", p.ascii(text)}, {"$class", p.uid(described)}});
}

/// A colour-space record with one number.
unsigned colourSpace(P& p, std::string_view key, int number)
{
    const unsigned described = p.addClass({"NSColorSpace", "NSObject"});
    return p.addRecord({{std::string(key), p.integer(number)}, {"$class", p.uid(described)}});
}

const std::vector<Form> kForms = {
    {"offsets of 3 bytes, references of 5", [](P& p) { p = P(3, 5); }},
    {"offsets and references of 8 bytes", [](P& p) { p = P(8, 8); }},
    {"top keys in the order of newer systems", [](P& p) { p.hasNewerOrder = true; }},
    {"keys as UTF-16", [](P& p) { p.hasWideKeys = true; }},
    {"no name for nil", [](P& p) { p.replace(P::Null, p.integer(0)); }},
    {"immutable arrays",
     [](P& p) {
         p.set(P::ArrayClass, "$classname", p.ascii("NSArray"));
         p.set(P::ArrayClass, "$classes", p.array({p.ascii("NSArray"), p.ascii("NSObject")}));
     }},
    {"classes by name only", [](P& p) { p.remove(P::ScreenClass, "$classes"); }},
    {"unknown class with a hint",
     [](P& p) {
         p.set(P::ScreenClass, "$classname", p.ascii("GXRoundScreen"));
         p.set(P::ScreenClass, "$classhints", p.array({p.ascii("GXOvalScreen"), p.ascii("GXScreen")}));
     }},
    {"class of a name without end, with a hint",
     [](P& p) {
         p.set(P::ScreenClass, "$classname", p.ascii(std::string(100000, 'x')));
         p.set(P::ScreenClass, "$classhints", p.array({p.ascii("GXScreen")}));
     }},
    {"integers of 1 and 16 bytes",
     [](P& p) {
         p.set(P::Screen, "col", p.raw(fromHex("10 04")));
         p.set(P::Screen, "row", p.raw(fromHex("14 0000000000000000 0000000000000003")));
         p.set(P::Still, "col", p.raw(fromHex("11 0004")));
         p.set(P::Still, "row", p.raw(fromHex("12 00000003")));
         p.set(P::Still, "xpoint", p.raw(fromHex("14 FFFFFFFFFFFFFFFF FFFFFFFFFFFFFFFB")));
     }},
    {"sizes beyond 32 bits, cut", [](P& p) { p.replace(P::Height, p.integer(0x7'0000'0438)); }},
    {"sizes as reals", [](P& p) { p.replace(P::Width, p.real(1920.9)); }},
    {"booleans as integers", [](P& p) { p.set(P::Screen, "visible", p.integer(256)); }},
    {"UIDs of 16 bytes", [](P& p) { p.set(P::Screen, "label", p.uid(P::Label, 16)); }},
    {"a key twice", [](P& p) { p.append(P::Screen, "col", p.ascii("second")); }},
    {"label as UTF-16", [](P& p) { p.replace(P::Label, p.utf16(u"Wall A")); }},
    {"label as a mutable string", [](P& p) { p.set(P::Screen, "label", p.uid(mutableString(p, "Wall A"))); }},
    {"label inline", [](P& p) { p.set(P::Screen, "label", p.ascii("Wall A")); }},
    {"colour of sRGB",
     [](P& p) {
         p.set(P::Colour, "NSRGB", p.data(std::string("0.9 0.4 0.1\0", 12)));
         p.set(P::Colour, "NSComponents", p.data("1 0.5 0 1"));
         p.set(P::Colour, "NSLinearExposure", p.data("1"));
         p.set(P::Colour, "NSCustomColorSpace", p.uid(colourSpace(p, "NSID", 7)));
     }},
    {"colour of Display P3, shown by its converted components",
     [](P& p) {
         p.set(P::Colour, "NSComponents", p.data("0.9 0.5 0.2 1"));
         p.set(P::Colour, "NSCustomColorSpace", p.uid(colourSpace(p, "NSSpaceID", 12)));
     }},
    {"colour with alpha said to be 1", [](P& p) { p.set(P::Colour, "NSRGB", p.data("1 0.5 0 1")); }},
    {"named colour",
     [](P& p) {
         const unsigned named = p.addRecord({{"NSColorSpace", p.integer(6)},
                                             {"NSCatalogName", p.uid(p.add(p.ascii("System")))},
                                             {"NSColorName", p.uid(p.add(p.ascii("controlColor")))},
                                             {"NSColor", p.uid(P::Colour)},
                                             {"$class", p.uid(P::ColourClass)}});
         p.set(P::Screen, "rectcolor", p.uid(named));
     }},
    {"file on localhost", [](P& p) { p.replace(P::LinkText, p.ascii("file://localhost/w/a%20b.png")); }},
    {"URL with bases",
     [](P& p) {
         unsigned url =
             p.addRecord({{"NS.relative", p.uid(p.add(p.ascii("file:///x/y")))}, {"$class", p.uid(P::LinkClass)}});
         for (int i = 0; i < 30; ++i)
             url = p.addRecord({{"NS.base", p.uid(url)},
                                {"NS.relative", p.uid(p.add(p.ascii("../w/./z")))},
                                {"$class", p.uid(P::LinkClass)}});
         p.set(P::Link, "NS.base", p.uid(url));
         p.replace(P::LinkText, p.ascii("../w/a%20b.png"));
     }},
    {"URL with a bookmark", [](P& p) { p.set(P::Link, "NS.minimalBookmarkData", p.uid(p.add(p.data("book")))); }},
    {"unknown keys of every kind",
     [](P& p) {
         int i = 0;
         for (const char* object :
              {"00", "08", "22 00000000", "33 00000000 00000000", "40", "50", "60", "80 FF", "A0", "C0", "D0"})
             p.set(P::Screen, "unknown" + std::to_string(i++), p.raw(fromHex(object)));
     }},
    {"entries that hold each other",
     [](P& p) {
         p.add(p.array({p.uid(P::EntryCount), p.uid(P::EntryCount + 7)}));
     }},
    {"arrays that hold themselves",
     [](P& p) {
         p.set(P::Screen, "loop", p.array({p.next(), p.next()}));
         const RawPlist::Ref dictionary = p.next();
         p.set(P::Screen, "knot", p.dictionary({{dictionary, dictionary}}));
     }},
    {"arrays nested 100000 deep",
     [](P& p) {
         RawPlist::Ref nested = p.array({});
         for (int i = 0; i < 100000; ++i)
             nested = p.array({nested});
         p.set(P::Screen, "deep", nested);
         p.add(nested);
     }},
    {"40 arrays that stand for 2^40 leaves",
     [](P& p) {
         RawPlist::Ref doubled = p.array({});
         for (int i = 0; i < 40; ++i)
             doubled = p.array({doubled, doubled});
         p.set(P::Screen, "bomb", doubled);
         p.set(P::Colour, "bomb", doubled);
         p.add(doubled);
     }},
    {"100000 entries that are one record of 100 keys",
     [](P& p) {
         for (int i = 0; i < 90; ++i)
             p.set(P::Screen, "key" + std::to_string(i * 7919 % 90), p.boolean(false));
         const RawPlist::Ref flag = p.boolean(true);
         const RawPlist::Ref record = p.dictionary({{flag, flag}});
         for (int i = 0; i < 100000; ++i)
             p.add(record);
     }},
};

} // namespace

std::vector<ArchiveSample> unusualArchives()
{
    std::vector<ArchiveSample> samples;
    for (const Form& form : kForms) {
        RawProject project;
        form.make(project);
        samples.push_back({form.name, project.file()});
    }
    return samples;
}

} // namespace wallgrid::test
