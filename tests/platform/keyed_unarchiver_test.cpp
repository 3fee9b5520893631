// SPDX-License-Identifier: MIT
#include "platform/keyed_unarchiver.h"

#include "platform/keyed_archiver.h"
#include "platform/keyed_decoder.h"
#include "platform/raw_archive.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace wallgrid;
using namespace wallgrid::test;

namespace {

struct Item {
    std::string_view kind;
    std::int32_t col = 0;
    std::int32_t row = 0;
    std::int32_t xpoint = 0;
    bool visible = false;
    StringRef label;
    ColorRef rectColor;
    ColorRef circleColor;
    UrlRef imageUrl;
};

struct Project {
    std::int32_t height = 0;
    std::int32_t width = 0;
    std::vector<Item> items;
};

/// Reads a project whole, as every reader of these files does.
Expected<Project> readProject(Bytes bytes)
{
    const auto root = KeyedUnarchiver::rootObject(std::move(bytes));
    if (!root)
        return tl::unexpected(root.error());
    const auto parts = root->elements();
    if (!parts || parts->size() != 3)
        return failure(parts ? "not three parts" : parts.error().message);
    const auto height = (*parts)[0].intValue();
    const auto width = (*parts)[1].intValue();
    const auto items = (*parts)[2].elements();
    if (!height || !width || !items)
        return failure("parts of another kind");

    Project project{*height, *width, {}};
    for (const ArchivedObject& object : *items) {
        Item item;
        item.kind = object.classAmong({"GXScreen", "GXStill"});
        if (item.kind.empty())
            return failure("an item of class \"" + object.className() + "\"");
        KeyedDecoder decoder(object);
        item.col = decoder.decodeInt("col");
        item.row = decoder.decodeInt("row");
        item.xpoint = decoder.decodeInt("xpoint");
        item.visible = decoder.decodeBool("visible");
        item.label = decoder.decodeString("label");
        item.rectColor = decoder.decodeColor("rectcolor");
        item.circleColor = decoder.decodeColor("circlecolor");
        if (item.kind == "GXStill")
            item.imageUrl = decoder.decodeUrl("imageURL");
        if (decoder.error())
            return tl::unexpected(*decoder.error());
        project.items.push_back(item);
    }
    return project;
}

void expectSampleProject(const Expected<Project>& project)
{
    ASSERT_TRUE(project) << project.error().message;
    EXPECT_EQ(project->height, 1080);
    EXPECT_EQ(project->width, 1920);
    ASSERT_EQ(project->items.size(), 2U);
    EXPECT_EQ(project->items[0].kind, "GXScreen");
    EXPECT_EQ(project->items[1].kind, "GXStill");
    for (const Item& item : project->items) {
        EXPECT_EQ(item.col, 4);
        EXPECT_EQ(item.row, 3);
        EXPECT_EQ(item.xpoint, -5);
        EXPECT_TRUE(item.visible);
        EXPECT_EQ(textOf(item.label), u"Wall A");
        ASSERT_TRUE(item.rectColor);
        EXPECT_EQ(item.rectColor->rgba(), (Color::RGBA{1, 0.5, 0, 1}));
        EXPECT_FALSE(item.circleColor);
    }
    ASSERT_TRUE(project->items[1].imageUrl);
    EXPECT_EQ(project->items[1].imageUrl->filePath(), "/w/a b.png");
}

/// The screen's colour after a change of its record.
ColorRef colourWith(const std::function<void(RawProject&)>& change)
{
    RawProject project;
    change(project);
    const auto read = readProject(project.file());
    EXPECT_TRUE(read) << read.error().message;
    return read ? read->items[0].rectColor : nullptr;
}

ColorRef colourWithData(int colorSpace, std::string_view key, std::string_view data)
{
    return colourWith([&](RawProject& p) {
        p.set(RawProject::Colour, "NSColorSpace", p.integer(colorSpace));
        p.remove(RawProject::Colour, "NSRGB");
        p.set(RawProject::Colour, key, p.data(data));
    });
}

} // namespace

TEST(KeyedUnarchiver, ReadsAProject)
{
    expectSampleProject(readProject(RawProject().file()));
}

TEST(KeyedUnarchiver, SurvivesDamageAnywhere)
{
    const Bytes whole = RawProject(2, 2).file();
    std::mt19937 random(2026);
    int readable = 0;
    for (int i = 0; i < 20000; ++i) {
        Bytes damaged = whole;
        for (auto flips = 1 + random() % 3; flips > 0; --flips)
            damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
        if (const auto project = readProject(std::move(damaged))) {
            ++readable;
            for (const Item& item : project->items)
                KeyedArchiver::archivedDataWithRootObject(item.rectColor ? item.rectColor : Color::redColor());
        }
    }
    EXPECT_GT(readable, 100); // damage in a label or a number cannot show
    EXPECT_LT(readable, 19900);
}

TEST(KeyedUnarchiver, SharesWhatTheFileShares)
{
    RawProject raw;
    raw.replace(RawProject::Label, raw.ascii(std::string(1000000, 'x')));
    // Two more entries that are the same string and colour again.
    raw.set(RawProject::Items, "NS.objects",
            raw.array({raw.uid(RawProject::Screen), raw.uid(RawProject::Still), raw.uid(RawProject::Screen)}));
    const auto project = readProject(raw.file());
    ASSERT_TRUE(project);
    EXPECT_EQ(project->items[0].label, project->items[1].label);
    EXPECT_EQ(project->items[0].rectColor, project->items[1].rectColor);
    EXPECT_EQ(project->items[0].label, project->items[2].label);

    const auto elements = KeyedUnarchiver::rootObject(raw.file())->elements();
    const auto items = (*elements)[2].elements();
    EXPECT_EQ((*items)[0].id(), (*items)[2].id());
    EXPECT_NE((*items)[0].id(), (*items)[1].id());
}

TEST(KeyedUnarchiver, CutsNumberObjectsTo32Bits)
{
    const std::pair<std::string, std::int32_t> rows[] = {
        {"10 FF", 255},
        {"11 FFFF", 65535},
        {"12 FFFFFFFF", -1},
        {"13 FFFFFFFF FFFFFFFF", -1},
        {"13 80000000 00000000", 0},
        {"13 00000001 80000000", std::numeric_limits<std::int32_t>::min()},
        {"14 00000000 00000000 FFFFFFFF 00000007", 7},
        {"22 C0200000", -2},
        {"23 C33E0000 00000000", std::numeric_limits<std::int32_t>::min()},
        {"23 7FF00000 00000000", std::numeric_limits<std::int32_t>::max()},
        {"23 7FF80000 00000000", 0},
        {"09", 1},
        {"08", 0},
    };
    for (const auto& [object, value] : rows) {
        RawProject raw;
        raw.replace(RawProject::Height, raw.raw(fromHex(object)));
        const auto project = readProject(raw.file());
        ASSERT_TRUE(project) << object;
        EXPECT_EQ(project->height, value) << object;
    }
}

TEST(KeyedDecoder, GivesNothingForKeysThatAreNotThere)
{
    RawProject raw;
    for (const char* key : {"col", "visible", "label", "rectcolor"})
        raw.remove(RawProject::Screen, key);
    raw.remove(RawProject::Still, "imageURL");
    const auto project = readProject(raw.file());
    ASSERT_TRUE(project);
    const Item& screen = project->items[0];
    EXPECT_EQ(screen.col, 0);
    EXPECT_FALSE(screen.visible);
    EXPECT_FALSE(screen.label);
    EXPECT_FALSE(screen.rectColor);
    EXPECT_FALSE(project->items[1].imageUrl);
}

TEST(KeyedDecoder, KeepsTheFirstErrorAndGivesNothingAfterIt)
{
    RawProject raw;
    raw.set(RawProject::Screen, "col", raw.ascii("4"));
    raw.set(RawProject::Screen, "label", raw.uid(999));
    const auto parts = KeyedUnarchiver::rootObject(raw.file())->elements();
    KeyedDecoder decoder((*(*parts)[2].elements())[0]);
    EXPECT_EQ(decoder.decodeInt("row"), 3);
    EXPECT_FALSE(decoder.error());
    EXPECT_EQ(decoder.decodeInt("col"), 0);
    EXPECT_EQ(decoder.decodeInt("row"), 0);
    EXPECT_FALSE(decoder.decodeString("label"));
    ASSERT_TRUE(decoder.error());
    EXPECT_EQ(decoder.error()->message, "GXScreen: the value of \"col\" is not an integer");

    KeyedDecoder ofNumber((*parts)[0]);
    EXPECT_EQ(ofNumber.decodeInt("col"), 0);
    EXPECT_TRUE(ofNumber.error());
}

TEST(KeyedDecoder, KeepsTextUnitByUnit)
{
    const std::u16string text = {u'a', 0, 0xD800, 0x00E4, 0xDFFF, 0xD83D, 0xDE00};
    RawProject raw;
    raw.replace(RawProject::Label, raw.utf16(text));
    const auto project = readProject(raw.file());
    ASSERT_TRUE(project);
    EXPECT_EQ(textOf(project->items[0].label), text);
}

TEST(KeyedDecoder, ReadsUrlsThatAreNoneAsEmpty)
{
    for (const char* text : {"/with space", "file:///\xC3\xA4", "%zz"}) {
        RawProject raw;
        raw.replace(RawProject::LinkText, raw.utf16(std::u16string(text, text + std::string_view(text).size())));
        const auto project = readProject(raw.file());
        ASSERT_TRUE(project) << text;
        EXPECT_FALSE(project->items[1].imageUrl) << text;
    }
    RawProject raw;
    raw.remove(RawProject::Link, "NS.relative");
    const auto project = readProject(raw.file());
    ASSERT_TRUE(project);
    EXPECT_FALSE(project->items[1].imageUrl);
}

TEST(KeyedDecoder, BoundsWhatRelativeUrlsMayCost)
{
    RawProject raw;
    const unsigned base =
        raw.addRecord({{"NS.relative", raw.uid(raw.add(raw.ascii("file:///" + std::string(16000, 'x') + "/")))},
                       {"$class", raw.uid(RawProject::LinkClass)}});
    const RawPlist::Ref text = raw.uid(raw.add(raw.ascii("a")));
    std::vector<RawPlist::Ref> items;
    for (int i = 0; i < 5000; ++i) {
        const unsigned url = raw.addRecord(
            {{"NS.base", raw.uid(base)}, {"NS.relative", text}, {"$class", raw.uid(RawProject::LinkClass)}});
        items.push_back(
            raw.uid(raw.addRecord({{"imageURL", raw.uid(url)}, {"$class", raw.uid(RawProject::StillClass)}})));
    }
    raw.set(RawProject::Items, "NS.objects", raw.array(items));
    const auto project = readProject(raw.file());
    ASSERT_FALSE(project);
    EXPECT_EQ(project.error().message, "GXStill: the value of \"imageURL\" is one of too many relative URLs");
}

TEST(ArchivedColor, ReadsEverySpace)
{
    struct Row {
        int colorSpace;
        const char* key;
        const char* data;
        Color::Space space;
        Color::RGBA rgba;
    };
    const Row rows[] = {
        {1,
         "NSRGB",
         "0 0.01709265294 0.5114030934 0.8",
         Color::Space::CalibratedRGB,
         {0, 0.01709265294, 0.5114030934, 0.8}},
        {2, "NSRGB", "1 7.043773371e-05 0.37640449", Color::Space::DeviceRGB, {1, 7.043773371e-05, 0.37640449, 1}},
        {3, "NSWhite", "0.25 0.5", Color::Space::CalibratedWhite, {0.25, 0.25, 0.25, 0.5}},
        {4, "NSWhite", "0.25", Color::Space::DeviceWhite, {0.25, 0.25, 0.25, 1}},
        {5, "NSCMYK", "0 0.25 1 0.5 0.75", Color::Space::DeviceCMYK, {0.5, 0.375, 0, 0.75}},
        {10, "NSImage", "", Color::Space::CalibratedWhite, {0, 0, 0, 1}},
        {99, "NSRGB", "1 1 1", Color::Space::CalibratedWhite, {0, 0, 0, 1}},
    };
    for (const Row& row : rows) {
        std::string data = row.data;
        data += '\0';
        const ColorRef colour = colourWithData(row.colorSpace, row.key, data);
        ASSERT_TRUE(colour) << row.colorSpace;
        EXPECT_EQ(colour->space(), row.space) << row.colorSpace;
        EXPECT_EQ(colour->rgba(), row.rgba) << row.colorSpace;
        EXPECT_EQ(colour->archivedForm() != nullptr, row.colorSpace > 5) << row.colorSpace;
    }
}

TEST(ArchivedColor, ReadsDamagedNumbersAsTheirDefault)
{
    const std::string megabyte(1 << 20, '1');
    struct Row {
        std::string data;
        std::array<double, 3> components;
        double alpha;
    };
    const Row rows[] = {
        {"", {0, 0, 0}, 1},
        {"1", {1, 0, 0}, 1},
        {"  1  0.5   0.25  0.125  9", {1, 0.5, 0.25}, 0.125},
        {std::string("1 1\0 1 1", 8), {1, 1, 0}, 1},
        {"nan inf -inf nan", {0, 0, 0}, 1},
        {"0,5 1.5x 0x1 0,5", {0, 0, 0}, 1},
        {"1e400 -1e-400 1e-5 1e400", {0, 0, 1e-5}, 1},
        {"-2 3 1e300 -1", {-2, 3, 1e300}, -1},
        {megabyte + " 1 1", {0, 0, 0}, 1},
        {"1 0." + megabyte, {1, 0, 0}, 1},
        {"1 " + std::string(63, '0') + " 1 0.5", {1, 0, 1}, 0.5},
        {"1 1" + std::string(63, '0') + " 1 0.5", {1, 0, 1}, 0.5},
    };
    for (const Row& row : rows) {
        const ColorRef colour = colourWithData(1, "NSRGB", row.data);
        ASSERT_TRUE(colour);
        const auto& c = colour->components();
        EXPECT_EQ((std::array{c[0], c[1], c[2]}), row.components) << row.data.substr(0, 40);
        EXPECT_EQ(colour->alpha(), row.alpha) << row.data.substr(0, 40);
        EXPECT_TRUE(colour->archivedForm());
    }
}

TEST(ArchivedColor, ShowsItsOwnComponentsWhereTheirSpaceIsPaintedAsItIs)
{
    struct Row {
        const char* key;
        int number;
        Color::RGBA shown;
    };
    const Color::RGBA own{0.1, 0.2, 0.3, 0.4};
    const Color::RGBA converted{1, 0.5, 0, 1};
    const Row rows[] = {
        {"NSID", 1, converted},
        {"NSID", 4, own},
        {"NSID", 5, {0.1, 0.1, 0.1, 0.2}},
        {"NSID", 7, own},
        {"NSID", 8, converted},
        {"NSID", 9, {0.1, 0.1, 0.1, 0.2}},
        {"NSSpaceID", 12, converted},
        {"NSSpaceID", 14, own},
        {"NSSpaceID", 15, {0.1, 0.1, 0.1, 0.2}},
        {"NSSpaceID", 16, converted},
        {"NSModel", 0, converted},
    };
    for (const Row& row : rows) {
        const ColorRef colour = colourWith([&](RawProject& p) {
            const unsigned described = p.addClass({"NSColorSpace", "NSObject"});
            const unsigned space = p.addRecord({{row.key, p.integer(row.number)}, {"$class", p.uid(described)}});
            p.set(RawProject::Colour, "NSComponents", p.data("0.1 0.2 0.3 0.4"));
            p.set(RawProject::Colour, "NSCustomColorSpace", p.uid(space));
        });
        ASSERT_TRUE(colour);
        EXPECT_EQ(colour->rgba(), row.shown) << row.key << row.number;
        EXPECT_TRUE(colour->archivedForm());
    }
}
