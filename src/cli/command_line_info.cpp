// SPDX-License-Identifier: MIT
#include "base/unicode.h"
#include "cli/command_line.h"
#include "cli/project_input.h"
#include "items/gx_still.h"

#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <string>

namespace wallgrid {

namespace {

/// Longer names are cut, because one of ten megabytes may stand in a hundred thousand items.
constexpr std::size_t kLongestName = 1000;

std::string shortened(std::u16string_view name)
{
    if (name.size() <= kLongestName)
        return toUtf8(name);
    return toUtf8(startOfText(name, kLongestName)) + "\u2026";
}

/// A name on one line of a terminal: control characters could move the cursor or forge other lines.
std::string printable(const std::string& text)
{
    std::string result = text;
    for (char& c : result) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            c = '?';
    }
    return result;
}

struct ItemInfo {
    const GXItem& item;
    std::string name = shortened(textOf(item.label()));
    const GXStill* still = dynamic_cast<const GXStill*>(&item);

    const char* kind() const { return still ? "still" : "screen"; }
    /// The file of a still, as a path where it is one; empty for a screen.
    std::string image() const
    {
        const UrlRef location = still ? still->ImageURL() : nullptr;
        return location ? location->filePath().value_or(location->absoluteString()) : std::string();
    }
    bool imageMissing() const { return still && !still->thumbnail(); }
};

/// A path is bytes, not necessarily UTF-8.
void print(const nlohmann::ordered_json& document, std::ostream& out)
{
    out << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

void printJson(const Project& project, std::ostream& out)
{
    auto items = nlohmann::ordered_json::array();
    for (const ItemRef& ref : project.items) {
        const ItemInfo info{*ref};
        nlohmann::ordered_json entry = {
            {"name", info.name},
            {"kind", info.kind()},
            {"width", ref->screenSizeWidth()},
            {"height", ref->screenSizeHeight()},
            {"x", ref->xpoint()},
            {"y", ref->ypoint()},
            {"visible", ref->visible()},
        };
        if (info.still) {
            entry["image"] = info.image();
            entry["imageMissing"] = info.imageMissing();
        }
        items.push_back(std::move(entry));
    }
    const nlohmann::ordered_json document = {
        {"outputWidth", project.outputWidth}, {"outputHeight", project.outputHeight}, {"items", std::move(items)}};
    print(document, out);
}

void printTable(const Project& project, std::ostream& out)
{
    out << "Output: " << project.outputWidth << " x " << project.outputHeight << "\nItems: " << project.items.size()
        << '\n';
    std::ostringstream missing;
    std::size_t row = 0;
    for (const ItemRef& ref : project.items) {
        const ItemInfo info{*ref};
        const std::string size =
            std::to_string(ref->screenSizeWidth()) + " x " + std::to_string(ref->screenSizeHeight());
        const std::string place = "at " + std::to_string(ref->xpoint()) + ", " + std::to_string(ref->ypoint());
        out << std::right << std::setw(5) << ++row << std::left << "  " << std::setw(6) << info.kind() << "  "
            << std::setw(14) << size << ' ' << std::setw(16) << place << ' ' << (ref->visible() ? "visible" : "hidden ")
            << "  " << printable(info.name) << '\n';
        if (info.imageMissing())
            missing << std::right << std::setw(5) << row << "  " << printable(info.image()) << '\n';
    }
    if (!missing.str().empty())
        out << "Missing image files:\n" << missing.str();
}

} // namespace

ExitCode runInfo(const InfoRequest& request, std::ostream& out, std::ostream& err)
{
    const auto project = readProjectInput(request.project);
    if (!project) {
        if (request.json)
            print({{"file", request.project}, {"error", project.error().message}}, out);
        err << "wallgrid: " << request.project << ": " << project.error().message << '\n';
        return kExitFailed;
    }
    if (request.json)
        printJson(*project, out);
    else
        printTable(*project, out);
    return kExitDone;
}

} // namespace wallgrid
