// SPDX-License-Identifier: MIT
//
// What check_archives.py drives:
//   archive_tool write FILE          writes a small project
//   archive_tool read FILE           prints the items of a project, a line a value
//   archive_tool recolour IN OUT     writes the colour of the first item of a project as the root of an archive
//   archive_tool rows FILE ROW...    writes a set of row numbers
//   archive_tool first FILE          prints the first number of a set
#include "platform/archived_index_set.h"
#include "platform/keyed_archiver.h"
#include "platform/keyed_decoder.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

using namespace wallgrid;

namespace {

struct Item : Archivable {
    std::string_view archivedClassName() const override { return url ? "GXStill" : "GXScreen"; }
    void encodeWithCoder(KeyedArchiver& archiver) const override
    {
        archiver.encodeInt(col, "col");
        archiver.encodeInt(xpoint, "xpoint");
        archiver.encodeBool(visible, "visible");
        archiver.encodeObject(color, "rectcolor");
        archiver.encodeObject(label, "label");
        if (url)
            archiver.encodeObject(url, "imageURL");
    }

    std::int32_t col = 0;
    std::int32_t xpoint = 0;
    bool visible = false;
    ColorRef color;
    StringRef label;
    UrlRef url;
};

template <class T>
T valueOf(Expected<T> value)
{
    if (!value) {
        std::fprintf(stderr, "%s\n", value.error().message.c_str());
        std::exit(1);
    }
    return std::move(*value);
}

Bytes contentsOf(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<ArchivedObject> partsOf(const char* path)
{
    return valueOf(valueOf(KeyedUnarchiver::rootObject(contentsOf(path))).elements());
}

void writeTo(const char* path, const ArchiveValue& root)
{
    const auto bytes = KeyedArchiver::archivedDataWithRootObject(root);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void write(const char* path)
{
    const auto screen = std::make_shared<Item>();
    screen->col = 300;
    screen->xpoint = -1;
    screen->visible = true;
    screen->color = Color::deviceRGB(0, 0.5, 1.0 / 3, 0.25);
    screen->label = makeString(u"W\u00e4nde \U0001F5A5");
    const auto still = std::make_shared<Item>();
    still->col = 100000;
    still->color = screen->color;
    still->label = makeString(u"Wall A");
    still->url = std::make_shared<const Url>(Url::fromFilePath("/w/a b.png"));
    writeTo(path, std::vector<ArchiveValue>{1080, 1920, std::vector<ArchiveValue>{screen, still, screen}});
}

void read(const char* path)
{
    const auto parts = partsOf(path);
    std::printf("%d %d\n", valueOf(parts.at(0).intValue()), valueOf(parts.at(1).intValue()));
    for (const ArchivedObject& object : valueOf(parts.at(2).elements())) {
        KeyedDecoder decoder(object);
        std::printf("%s %d %d %d", object.className().c_str(), decoder.decodeInt("col"), decoder.decodeInt("xpoint"),
                    decoder.decodeBool("visible"));
        for (const char16_t unit : textOf(decoder.decodeString("label")))
            std::printf(" %04x", unit);
        if (const ColorRef color = decoder.decodeColor("rectcolor")) {
            const auto [r, g, b, a] = color->rgba();
            std::printf(" (%.10g %.10g %.10g %.10g)", r, g, b, a);
        }
        if (const UrlRef url = decoder.decodeUrl("imageURL"))
            std::printf(" %s", url->absoluteString().c_str());
        std::printf("\n");
        valueOf(decoder.error() ? Expected<int>(failure(decoder.error()->message)) : 0);
    }
}

void recolour(const char* from, const char* to)
{
    const auto items = valueOf(partsOf(from).at(2).elements());
    writeTo(to, KeyedDecoder(items.at(0)).decodeColor("rectcolor"));
}

void writeRows(const char* path, const std::vector<std::string>& numbers)
{
    std::set<std::size_t> rows;
    for (const std::string& number : numbers)
        rows.insert(std::stoul(number));
    const Bytes bytes = archivedIndexSet(rows);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view mode = argc > 2 ? argv[1] : "";
    if (mode == "write")
        write(argv[2]);
    else if (mode == "read")
        read(argv[2]);
    else if (mode == "recolour" && argc > 3)
        recolour(argv[2], argv[3]);
    else if (mode == "rows")
        writeRows(argv[2], {argv + 3, argv + argc});
    else if (mode == "first")
        std::printf("%zu\n", valueOf(firstIndexOfArchivedSet(contentsOf(argv[2]))));
    else
        return 2;
}
