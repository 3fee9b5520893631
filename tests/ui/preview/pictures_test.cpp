// SPDX-License-Identifier: MIT
#include "graphics/bitmap.h"
#include "ui/base/scaled_picture.h"

#include <QtTest>
#include <QtWidgets>

using namespace wallgrid;

namespace {

constexpr Pixel white{255, 255, 255, 255};

template <class Paint>
BitmapRef paint(int width, int height, Paint pixelAt)
{
    auto bitmap = Bitmap::create(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            bitmap->row(y)[static_cast<std::size_t>(x)] = pixelAt(x, y);
    }
    return bitmap;
}

} // namespace

class PicturesTest : public QObject {
    Q_OBJECT

private slots:
    /// Wherever it is, a line keeps its share of the pixel that stands for it.
    void thinLinesDoNotVanish()
    {
        for (const int reduction : {2, 3, 7, 16, 17, 40, 64}) {
            for (int line = 0; line < 2 * reduction; ++line) {
                const bool upright = line < reduction;
                const auto bitmap = paint(2 * reduction, 2 * reduction, [&](int x, int y) {
                    return (upright ? x : y) == line % reduction ? white : Pixel{};
                });
                const QImage seen = scaledPicture(*bitmap, {2, 2});
                const int share = 255 / reduction;
                QVERIFY2(std::abs(qAlpha(seen.pixel(0, 0)) - share) <= share / 2 + 1,
                         qPrintable(QString("1:%1, line %2").arg(reduction).arg(line)));
                QVERIFY(reduction > 2 || qAlpha(seen.pixel(0, 0)) == 128); // rounded
                QCOMPARE(seen.pixel(1, 1), 0U);
                QCOMPARE(scaledPicture(*bitmap, {2, 2}, Coverage::Strongest).pixel(0, 0), qRgb(255, 255, 255));
            }
        }
    }

    /// Lines of the picture that are taken from the one above are as they would be alone, whatever band they end in.
    void rowsThatAreAlikeAreEachAsTheyAre()
    {
        const auto bands = paint(97, 193, [](int x, int y) {
            const int band = y < 60 ? y / 12 : y < 90 ? y : 40;
            return Pixel{std::uint8_t(band * 70), std::uint8_t(x * 5), std::uint8_t(band),
                         std::uint8_t(y == 150 ? x : 0)};
        });
        for (const QSize size : {QSize(291, 400), QSize(96, 190), QSize(60, 120), QSize(20, 30), QSize(7, 13)}) {
            for (const Coverage coverage : {Coverage::Mean, Coverage::Strongest}) {
                const QRect part(size.width() / 3, size.height() / 4, size.width() / 2, size.height() / 2);
                const QImage picture = scaledPart(*bands, size, part, coverage);
                for (int y = 0; y < part.height(); ++y) {
                    const QRect line(part.left(), part.top() + y, part.width(), 1);
                    QCOMPARE(picture.copy(0, y, part.width(), 1), scaledPart(*bands, size, line, coverage));
                }
            }
        }
    }
};

QTEST_MAIN(PicturesTest)
#include "pictures_test.moc"
