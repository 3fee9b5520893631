// SPDX-License-Identifier: MIT
//
// open_files FOLDER: reads each file of a folder, in the order of their names, as a project and as dragged rows, and
// prints a line of JSON: what is in it, or why nothing is. A project is saved again beside it as NAME.copy, and a small
// one opened in the one window and exported. The last line is told before, so that it names the file of a crash.
#include "archive/archived_index_set.h"
#include "base/file.h"
#include "graphics/bitmap_memory.h"
#include "items/gx_still.h"
#include "png/png_encoder.h"
#include "ui/program_under_test.h"

#include <QApplication>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>

using namespace wallgrid;
using Json = nlohmann::json;

namespace {

/// What is larger is for the program, without sanitizers.
constexpr std::size_t kBitmapMemory = std::size_t{256} << 20;
constexpr std::size_t kSmall = 4096;

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

Json toJson(const Project& project)
{
    Json items = Json::array();
    for (const ItemRef& item : project.items) {
        const auto still = std::dynamic_pointer_cast<GXStill>(item);
        Json& fields = items.emplace_back(Json{{"kind", still ? "still" : "screen"}});
        for (const GXItem::Field& field : GXItem::fields())
            fields[std::string(field.archiveKey)] = std::visit(ToJson(), item->value(field));
        if (still && still->ImageURL())
            fields["imageFile"] = still->ImageURL()->filePath().value_or("none");
    }
    return {{"height", project.outputHeight}, {"width", project.outputWidth}, {"items", items}};
}

void openInWindow(ProgramUnderTest& program, const std::string& path)
{
    program.delegate().loadProject({480, 640, {GXScreen::init()}});
    program.settle();
    program.application.openFile(path);
    program.settle();
    if (const BitmapRef raster = program.delegate().offscreenRep())
        encodePng(*raster);
    program.delegate().createPSDData(nullptr);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    ProgramUnderTest program;
    BitmapMemory::setMaximumTotal(kBitmapMemory);
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1]))
        paths.push_back(entry.path().string());
    std::ranges::sort(paths);
    for (const std::string& path : paths) {
        std::cerr << path << std::endl;
        const Bytes bytes = readFile(path).value();
        const auto project = readProject(bytes);
        Json found = project ? toJson(*project) : Json{{"refused", project.error().message}};
        if (const auto row = firstIndexOfArchivedSet(bytes))
            found["row"] = *row;
        std::cout << found << '\n';
        if (project && !writeFileAtomically(path + ".copy", writeProject(*project)))
            return 1;
        if (project && bytes.size() <= kSmall)
            openInWindow(program, path);
    }
}
