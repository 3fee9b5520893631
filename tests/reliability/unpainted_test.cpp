// SPDX-License-Identifier: MIT
//
// Fills all memory that is handed out with one byte and then with another: no export of a random document may tell.
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
#include <random>
#include <sstream>

using namespace wallgrid;

namespace {

class Unpainted : public testing::Test {
protected:
    int number(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }
    std::uint32_t bits() { return std::uint32_t(m_random()); }

    /// A count and a length, both positive or both negative, whose product is small because it wraps.
    std::pair<std::int32_t, std::int32_t> wrapping()
    {
        const int shift = number(0, 4);
        const std::uint32_t sign = number(0, 3) == 0 ? ~0U : 1U;
        const std::uint32_t length = (shift == 0 ? 0 : bits() << (32 - shift)) + std::uint32_t(number(1, 25));
        return {std::int32_t(sign << shift), std::int32_t(sign * length)};
    }

    ItemRef screen()
    {
        ItemRef item = GXScreen::init();
        for (const GXItem::Field& field : GXItem::fields()) {
            const GXItem::FieldValue old = item->value(field);
            if (std::holds_alternative<std::int32_t>(old))
                item->setValue(field, number(0, 5) == 0 ? std::int32_t(bits()) : number(-9, 30));
            else if (std::holds_alternative<bool>(old))
                item->setValue(field, number(0, 1) == 0);
            else if (std::holds_alternative<ColorRef>(old))
                item->setValue(field, Color::deviceRGB(0, 0.5, 1, 0.25 * number(0, 4)));
        }
        const auto [columns, width] = wrapping();
        const auto [rows, height] = wrapping();
        item->setCol(columns);
        item->setPanelWidth(width);
        item->setRow(rows);
        item->setPanelHeight(height);
        return item;
    }

    /// Half of the files are cut off.
    ItemRef still()
    {
        QImage image(number(1, 90), number(1, 90), QImage::Format_ARGB32);
        image.fill(qRgba(200, 100, 50, 128));
        QBuffer file;
        image.save(&file, std::array{"png", "jpg", "bmp", "tiff", "webp", "ppm"}[bits() % 6]);
        const auto path = write(file.data().first(file.size() * (number(0, 1) == 0 ? 100 : number(0, 99)) / 100));
        StillRef item = GXStill::initWithimage(nullptr);
        item->setImageURL(std::make_shared<const Url>(Url::fromFilePath(path)));
        item->setPanelWidth(number(-3, 120));
        item->setPanelHeight(number(-3, 120));
        return item;
    }

    template <class Content>
    std::string write(const Content& content)
    {
        const std::string path = m_folder.filePath(QString::number(++m_files)).toStdString();
        std::ofstream(path).write(reinterpret_cast<const char*>(content.data()), std::streamsize(content.size()));
        return path;
    }

    static std::string exported(const std::string& project, int noise)
    {
        ::mallopt(M_PERTURB, noise);
        std::ostringstream out;
        for (const ExportRequest& request : {ExportRequest{project, "-", {}}, ExportRequest{project, {}, "-"}})
            out << runExport(request, out, out);
        ::mallopt(M_PERTURB, 0);
        return out.str();
    }

private:
    QTemporaryDir m_folder;
    int m_files = 0;
    std::mt19937 m_random{20261124};
};

TEST_F(Unpainted, MemoryShowsNowhere)
{
    for (int i = 0; i < 120; ++i) {
        Project project{number(1, 200), number(1, 200), {}};
        for (int count = number(1, 4); count > 0; --count)
            project.items.push_back(number(0, 3) == 0 ? still() : screen());
        const std::string path = write(writeProject(project));
        ASSERT_TRUE(exported(path, 1) == exported(path, 254)) << "document " << i;
    }
}

} // namespace
