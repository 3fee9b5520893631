// SPDX-License-Identifier: MIT
//
// What archives_test.py drives:
//   archive_tool sample FILE         writes the project that the test expects
//   archive_tool read FILE...        prints a line of JSON a file: the project in it, or why there is none
//   archive_tool copy FROM TO        reads a project and writes it again
//   archive_tool rows FILE ROW...    writes a set of row numbers
//   archive_tool first FILE          prints the first number of a set
#include "app/project_file.h"
#include "items/gx_screen.h"
#include "items/gx_still.h"
#include "platform/archived_index_set.h"

#include <cmath>
#include <iostream>
#include <nlohmann/json.hpp>

using namespace wallgrid;
using Json = nlohmann::json;

namespace {

template <class T>
T valueOf(Expected<T> value)
{
    if (value)
        return std::move(*value);
    std::cerr << value.error().message << '\n';
    std::exit(1);
}

void write(const std::string& path, const Bytes& bytes)
{
    if (const auto written = writeFileAtomically(path, bytes); !written)
        valueOf(Expected<int>(tl::unexpected(written.error())));
}

Project sample()
{
    const auto color = [](Color::Space space, std::array<double, 4> components, double alpha) {
        return std::make_shared<const Color>(space, components, alpha);
    };
    const ScreenRef screen = GXScreen::initWithrow(2, 300, 40, 100000, Color::calibratedRGB(0.1, 1.0 / 3, 1, 0.5),
                                                   Color::whiteColor(), Color::deviceRGB(7.0437733712e-05, -1, 1.5), -1,
                                                   true, false, makeString(u"Wand \u00E4 \U0001F600"), true, -70000, 0);
    const StillRef still = GXStill::initWithimage(nullptr);
    still->setImageURL(std::make_shared<const Url>(Url::fromFilePath("/logos/a b.png")));
    still->setRectColor(screen->rectColor());
    still->setBoarderColor(color(Color::Space::DeviceWhite, {1.0 / 3}, 0));
    still->setCircleColor(color(Color::Space::DeviceCMYK, {0, 1e20, std::nan(""), 1}, INFINITY));
    still->setLabel(screen->label());
    return {1080, 1920, {screen, still, screen}};
}

struct ToJson {
    Json operator()(std::int32_t number) const { return number; }
    Json operator()(bool flag) const { return flag; }
    /// A list of UTF-16 units.
    Json operator()(const StringRef& text) const
    {
        return text ? Json(std::vector<char16_t>(text->begin(), text->end())) : Json();
    }
    Json operator()(const ColorRef& color) const
    {
        if (!color)
            return {};
        const auto [r, g, b, a] = color->rgba();
        return {{"space", color->space()},
                {"components", color->components()},
                {"alpha", color->alpha()},
                {"rgba", {r, g, b, a}},
                {"kept", color->archivedForm() != nullptr}};
    }
};

Json toJson(const Expected<Project>& project)
{
    if (!project)
        return {{"refused", project.error().message}};
    Json items = Json::array();
    for (const ItemRef& item : project->items) {
        const auto still = std::dynamic_pointer_cast<GXStill>(item);
        Json& fields = items.emplace_back(Json{{"kind", still ? "still" : "screen"}});
        for (const GXItem::Field& field : GXItem::fields())
            fields[std::string(field.archiveKey)] = std::visit(ToJson(), item->value(field));
        if (still && still->ImageURL())
            fields["imageFile"] = still->ImageURL()->filePath().value_or("none");
    }
    return {{"height", project->outputHeight}, {"width", project->outputWidth}, {"items", items}};
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() < 2)
        return 2;
    const std::string& mode = words[0];
    if (mode == "sample") {
        write(words[1], writeProject(sample()));
    } else if (mode == "read") {
        for (std::size_t i = 1; i < words.size(); ++i)
            std::cout << toJson(readProject(valueOf(readFile(words[i])))) << '\n';
    } else if (mode == "copy") {
        write(words.at(2), writeProject(valueOf(readProject(valueOf(readFile(words[1]))))));
    } else if (mode == "rows") {
        std::set<std::size_t> rows;
        for (std::size_t i = 2; i < words.size(); ++i)
            rows.insert(std::stoul(words[i]));
        write(words[1], archivedIndexSet(rows));
    } else if (mode == "first") {
        std::cout << valueOf(firstIndexOfArchivedSet(valueOf(readFile(words[1])))) << '\n';
    }
}
