// SPDX-License-Identifier: MIT
//
// Fills all memory that is handed out with one byte and then with another: no export of a random document may tell. And
// the bytes are those that the first release wrote: what existing documents become never changes.
#include "app/project_file.h"
#include "cli/command_line.h"
#include "items/gx_screen.h"
#include "items/gx_still.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <numeric>
#include <random>
#include <sstream>

using namespace wallgrid;

namespace {

constexpr std::size_t kFieldsOfOld = 22;

class SameBytes : public testing::Test {
protected:
    std::uint32_t bits() { return std::uint32_t(m_random()); }
    int number(int from, int to) { return from + int(bits() % unsigned(to - from + 1)); }

    /// A count and a length, both positive or both negative, whose product is small because it wraps.
    std::pair<std::int32_t, std::int32_t> wrapping()
    {
        const int shift = number(0, 4);
        const std::uint32_t sign = number(0, 3) == 0 ? ~0U : 1U;
        const std::uint32_t length = (shift == 0 ? 0 : bits() << (32 - shift)) + std::uint32_t(number(1, 25));
        return {std::int32_t(sign << shift), std::int32_t(sign * length)};
    }

    /// Without texts, whose letters are the machine's, when it is to be the same everywhere.
    ItemRef screen(bool everywhere)
    {
        ItemRef item = GXScreen::init();
        for (const GXItem::Field& field : GXItem::fields().first(kFieldsOfOld)) {
            const GXItem::FieldValue old = item->value(field);
            if (std::holds_alternative<std::int32_t>(old))
                item->setValue(field, number(0, 5) == 0 ? std::int32_t(bits()) : number(-9, 30));
            else if (std::holds_alternative<bool>(old))
                item->setValue(field,
                               number(0, 2) > 0 && !(everywhere && field.property.find("Font") != field.property.npos));
            else if (std::holds_alternative<ColorRef>(old))
                item->setValue(field, Color::deviceRGB(0.3 * number(0, 4), 0.5, 1, 0.25 * number(0, 4)));
        }
        const auto [columns, width] = wrapping();
        const auto [rows, height] = wrapping();
        item->setCol(columns);
        item->setPanelWidth(width);
        item->setRow(rows);
        item->setPanelHeight(height);
        return item;
    }

    /// Half of the files are cut off, unless it is to be the same everywhere.
    ItemRef still(bool everywhere)
    {
        QImage image(number(1, 90), number(1, 90), QImage::Format_ARGB32);
        image.fill(qRgba(200, 100, 50, 128));
        image.setPixel(0, 0, bits());
        QBuffer file;
        image.save(&file, everywhere ? "png" : std::array{"png", "jpg", "bmp", "tiff", "webp", "ppm"}[bits() % 6]);
        const int percent = everywhere || number(0, 1) == 0 ? 100 : number(0, 99);
        StillRef item = GXStill::initWithimage(nullptr);
        item->setImageURL(
            std::make_shared<const Url>(Url::fromFilePath(write(file.data().first(file.size() * percent / 100)))));
        item->setPanelWidth(number(-3, 120));
        item->setPanelHeight(number(-3, 120));
        item->setXpoint(number(-60, 150));
        item->drawInRect();
        return item;
    }

    template <class Content>
    std::string write(const Content& content)
    {
        const std::string path = m_folder.filePath(QString::number(++m_files)).toStdString();
        std::ofstream(path).write(reinterpret_cast<const char*>(content.data()), std::streamsize(content.size()));
        return path;
    }

    static std::string exported(const ExportRequest& request, int noise)
    {
        ::mallopt(M_PERTURB, noise);
        std::ostringstream out, err;
        out << runExport(request, out, err);
        ::mallopt(M_PERTURB, 0);
        return out.str();
    }

private:
    QTemporaryDir m_folder;
    int m_files = 0;
    std::mt19937 m_random{20261124};
};

TEST_F(SameBytes, WhateverMemoryHeldAndAsEverBefore)
{
    std::array<std::uint64_t, 2> digests{};
    for (int i = 0; i < 100; ++i) {
        const bool everywhere = i % 2 == 0;
        Project project{number(1, 200), number(1, 200), {}};
        for (int count = number(1, 4); count > 0; --count)
            project.items.push_back(number(0, 3) == 0 ? still(everywhere) : screen(everywhere));
        const std::string path = write(writeProject(project));
        for (const bool psd : {false, true}) {
            const ExportRequest request = psd ? ExportRequest{path, {}, "-"} : ExportRequest{path, "-", {}};
            const std::string bytes = exported(request, 1);
            ASSERT_TRUE(bytes == exported(request, 254)) << "document " << i;
            if (everywhere)
                digests[psd] = std::accumulate(bytes.begin(), bytes.end(), digests[psd], [](auto sum, char byte) {
                    return (sum ^ std::uint8_t(byte)) * 1'099'511'628'211U;
                });
        }
    }
    EXPECT_EQ(digests, (std::array<std::uint64_t, 2>{14694845561174186193U, 13296408943360856922U}));
}

} // namespace
