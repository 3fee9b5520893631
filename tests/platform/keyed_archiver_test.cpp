// SPDX-License-Identifier: MIT
#include "platform/keyed_archiver.h"

#include "platform/keyed_decoder.h"
#include "platform/raw_archive.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

using namespace wallgrid;
using namespace wallgrid::test;

namespace {

/// An object that writes what a test asks for.
class Sample : public Archivable {
public:
    explicit Sample(std::function<void(KeyedArchiver&)> encode)
        : m_encode(std::move(encode))
    {
    }
    std::string_view archivedClassName() const override { return "GXScreen"; }
    void encodeWithCoder(KeyedArchiver& archiver) const override { m_encode(archiver); }

private:
    std::function<void(KeyedArchiver&)> m_encode;
};

Bytes archived(std::function<void(KeyedArchiver&)> encode)
{
    return KeyedArchiver::archivedDataWithRootObject(std::make_shared<Sample>(std::move(encode)));
}

KeyedDecoder decoderOf(Bytes archive)
{
    return KeyedDecoder(KeyedUnarchiver::rootObject(std::move(archive)).value());
}

ColorRef screenColour(const Bytes& project)
{
    const auto items = KeyedUnarchiver::rootObject(project)->elements().value()[2].elements();
    return KeyedDecoder((*items)[0]).decodeColor("rectcolor");
}

std::size_t timesIn(const Bytes& bytes, std::string_view text)
{
    const std::string_view all(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    std::size_t count = 0;
    for (auto at = all.find(text); at != all.npos; at = all.find(text, at + 1))
        ++count;
    return count;
}

} // namespace

TEST(KeyedArchiver, WritesAColourAsTheRealArchiveHasIt)
{
    // A calibrated white 1, as macOS archived it.
    const std::string real = fromHex("62706c6973743030 d40102030405061516 582476657273696f6e 58246f626a65637473"
                                     "592461726368697665725424746f70 12000186a0 a307080f 55246e756c6c"
                                     "d3090a0b0c0d0e 574e535768697465 5c4e53436f6c6f725370616365 5624636c617373"
                                     "423100 1003 8002 d210111213 5a24636c6173736e616d65 5824636c6173736573"
                                     "574e53436f6c6f72 a21214 584e534f626a656374 5f100f4e534b65796564417263686976"
                                     "6572 d11718 54726f6f74 8001 08111a232d32373b4148505d6467696b707b848c8f98aaad"
                                     "b2 000000000000 01 01 0000000000000019 0000000000000000 00000000000000b4");
    ASSERT_EQ(real.size(), 237U);
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(Color::whiteColor()), Bytes(real.begin(), real.end()));
}

TEST(KeyedArchiver, WritesValuesThatReadBackTheSame)
{
    const std::int32_t numbers[] = {0, 1, 255, 256, 65535, 65536, 0x7FFFFFFF, -1, -0x7FFFFFFF - 1};
    const std::u16string texts[] = {
        u"", u"Wall A", std::u16string(20, u'x'), std::u16string(300, u'\u00e4'), {u'a', 0, 0xD800, 0xDE00, 0xDC00}};
    const UrlRef url = std::make_shared<const Url>(Url::fromFilePath("/w/a b \xC3\xA4.png"));
    KeyedDecoder decoder = decoderOf(archived([&](KeyedArchiver& archiver) {
        for (const auto number : numbers)
            archiver.encodeInt(number, "number" + std::to_string(number));
        for (const auto& text : texts)
            archiver.encodeObject(makeString(text), "text" + std::to_string(text.size()));
        archiver.encodeBool(true, "yes");
        archiver.encodeBool(false, "no");
        archiver.encodeObject(url, "url");
        archiver.encodeObject(StringRef(), "noText");
        archiver.encodeObject(ColorRef(), "noColour");
        archiver.encodeObject(UrlRef(), "noUrl");
    }));
    for (const auto number : numbers)
        EXPECT_EQ(decoder.decodeInt("number" + std::to_string(number)), number);
    for (const auto& text : texts)
        EXPECT_EQ(textOf(decoder.decodeString("text" + std::to_string(text.size()))), text);
    EXPECT_TRUE(decoder.decodeBool("yes"));
    EXPECT_FALSE(decoder.decodeBool("no"));
    EXPECT_EQ(*decoder.decodeUrl("url"), *url);
    EXPECT_FALSE(decoder.decodeString("noText"));
    EXPECT_FALSE(decoder.decodeColor("noColour"));
    EXPECT_FALSE(decoder.decodeUrl("noUrl"));
    EXPECT_FALSE(decoder.error()) << decoder.error()->message;
}

TEST(KeyedArchiver, WritesComponentsInTenDigitsWithoutAnAlphaOf1)
{
    struct Row {
        Color colour;
        std::string_view data;
    };
    const double third = 1.0 / 3;
    const Row rows[] = {
        {{Color::Space::CalibratedRGB, {1, third, 7.0437733712e-05}, 1}, "1 0.3333333333 7.043773371e-05"},
        {{Color::Space::DeviceRGB, {0, 0.5, 1}, 0.8}, "0 0.5 1 0.8"},
        {{Color::Space::CalibratedWhite, {third}, 0}, "0.3333333333 0"},
        {{Color::Space::DeviceWhite, {-1}, 1}, "-1"},
        {{Color::Space::DeviceCMYK, {0.1, 0.2, 0.3, 0.4}, 0.99999999999}, "0.1 0.2 0.3 0.4"},
        {{Color::Space::DeviceCMYK, {0, 1e20, std::nan(""), 0}, INFINITY}, "0 1e+20 0 0"},
    };
    for (const Row& row : rows) {
        const auto archive = KeyedArchiver::archivedDataWithRootObject(std::make_shared<const Color>(row.colour));
        const std::size_t size = row.data.size() + 1;
        std::string data(size < 15 ? 1 : 2, '\x4F'); // marker and count
        data.back() = static_cast<char>(size < 15 ? 0x40 + size : 0x10);
        if (size >= 15)
            data += static_cast<char>(size);
        data.append(row.data) += '\0';
        EXPECT_EQ(timesIn(archive, data), 1U) << row.data;
        const ColorRef read = decoderOf(archived([&](KeyedArchiver& archiver) {
                                  archiver.encodeObject(std::make_shared<const Color>(row.colour), "c");
                              })).decodeColor("c");
        EXPECT_EQ(read->space(), row.colour.space());
        EXPECT_NEAR(read->components()[0], row.colour.components()[0], 1e-10);
        EXPECT_NEAR(read->alpha(), std::isfinite(row.colour.alpha()) ? row.colour.alpha() : 1, 1e-10);
        EXPECT_FALSE(read->archivedForm());
    }
}

TEST(KeyedArchiver, KeepsOneObjectOne)
{
    const ColorRef colour = Color::deviceRGB(0.125, 0, 0);
    const StringRef text = makeString(std::u16string(1000, u'x'));
    const auto item = std::make_shared<Sample>([&](KeyedArchiver& archiver) {
        archiver.encodeObject(colour, "a");
        archiver.encodeObject(colour, "b");
        archiver.encodeObject(text, "c");
        archiver.encodeObject(Color::deviceRGB(0.125, 0, 0), "d"); // equal, but another
    });
    std::vector<ArchiveValue> items(1000, item);
    items.push_back(std::make_shared<Sample>([&](KeyedArchiver& archiver) { archiver.encodeObject(text, "c"); }));
    const ArchiveValue root = std::vector<ArchiveValue>{1080, 1080, items};
    const auto archive = KeyedArchiver::archivedDataWithRootObject(root);
    EXPECT_EQ(archive, KeyedArchiver::archivedDataWithRootObject(root));
    EXPECT_LT(archive.size(), 5000U);

    const auto parts = KeyedUnarchiver::rootObject(archive)->elements().value();
    EXPECT_EQ(parts[0].id(), parts[1].id());
    EXPECT_EQ(parts[0].intValue(), 1080);
    const auto read = parts[2].elements().value();
    ASSERT_EQ(read.size(), 1001U);
    EXPECT_EQ(read[0].id(), read[999].id());
    EXPECT_NE(read[0].id(), read[1000].id());
    KeyedDecoder decoder(read[0]);
    EXPECT_EQ(decoder.decodeColor("a"), decoder.decodeColor("b"));
    EXPECT_NE(decoder.decodeColor("a"), decoder.decodeColor("d"));
    EXPECT_EQ(decoder.decodeString("c"), KeyedDecoder(read[1000]).decodeString("c"));
}

TEST(KeyedArchiver, WritesAnArchivedColourWithAllItCameWith)
{
    const auto withProfile = [](RawProject& p, unsigned profile) {
        const unsigned described = p.addClass({"NSColorSpace", "NSObject"});
        const unsigned space =
            p.addRecord({{"NSID", p.integer(7)}, {"NSICC", p.uid(profile)}, {"$class", p.uid(described)}});
        return p.addRecord({{"NSColorSpace", p.integer(1)},
                            {"NSRGB", p.data(std::string("0.25 0.5 0.75\0", 14))},
                            {"NSComponents", p.data("0.3 0.55 0.8 1")},
                            {"NSCustomColorSpace", p.uid(space)},
                            {"x-flags", p.array({p.uid(0), p.uid(RawProject::EntryCount + 1000), p.real(0.5)})},
                            {"$class", p.uid(RawProject::ColourClass)}});
    };
    RawProject project;
    const unsigned profile = project.add(project.data("profile" + std::string(3000, 'p')));
    project.set(RawProject::Screen, "rectcolor", project.uid(withProfile(project, profile)));
    project.set(RawProject::Still, "rectcolor", project.uid(withProfile(project, profile)));

    Bytes archive;
    {
        const auto items = KeyedUnarchiver::rootObject(project.file())->elements().value()[2].elements().value();
        const ColorRef first = KeyedDecoder(items[0]).decodeColor("rectcolor");
        const ColorRef second = KeyedDecoder(items[1]).decodeColor("rectcolor");
        ASSERT_NE(first, second);
        archive = archived([&](KeyedArchiver& archiver) {
            archiver.encodeObject(first, "first");
            archiver.encodeObject(first, "again");
            archiver.encodeObject(second, "second");
        });
    }
    EXPECT_EQ(timesIn(archive, "ppprofile") + timesIn(archive, "profile"), 1U);
    for (const char* kept : {"NSComponents", "0.3 0.55 0.8 1", "NSCustomColorSpace", "x-flags", "NSICC", "NSID"})
        EXPECT_EQ(timesIn(archive, kept), 1U) << kept;
    EXPECT_EQ(timesIn(archive, "GXStill"), 0U);

    KeyedDecoder decoder = decoderOf(archive);
    EXPECT_EQ(decoder.decodeColor("first"), decoder.decodeColor("again"));
    EXPECT_NE(decoder.decodeColor("first"), decoder.decodeColor("second"));
    EXPECT_EQ(decoder.decodeColor("second")->rgba(), (Color::RGBA{0.3, 0.55, 0.8, 1}));
    // A second round changes nothing any more.
    EXPECT_EQ(archive, archived([&](KeyedArchiver& archiver) {
                  for (const char* key : {"first", "again", "second"})
                      archiver.encodeObject(decoder.decodeColor(key), key);
              }));
}

TEST(KeyedArchiver, CopiesHostileColoursInProportion)
{
    RawProject project; // the colour leads to everything, through keys and arrays that are shared and hold themselves
    std::vector<RawPlist::Ref> all;
    for (unsigned i = 0; i < RawProject::EntryCount; ++i)
        all.push_back(project.uid(i));
    all.push_back(project.next());
    const RawPlist::Ref everything = project.array(all);
    const std::string longKey(100000, 'k');
    for (int i = 0; i < 1000; ++i)
        project.set(RawProject::Colour, "all" + std::to_string(i), everything);
    const RawPlist::Ref name = project.ascii(longKey);
    project.set(RawProject::Colour, "names", project.dictionary(std::vector(1000, std::pair(name, everything))));
    const Bytes file = project.file();
    const auto copy = KeyedArchiver::archivedDataWithRootObject(screenColour(file));
    EXPECT_LT(copy.size(), file.size());
    EXPECT_EQ(timesIn(copy, longKey), 1U);
}
