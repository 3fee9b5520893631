// SPDX-License-Identifier: MIT
#include "graphics/bitmap.h"
#include "ui/base/scaled_picture.h"
#include "ui/preview/image_view.h"
#include "ui/window/output_window.h"

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

ImageRef imageOf(const BitmapRef& bitmap)
{
    auto image = std::make_shared<Image>(Size{double(bitmap->width()), double(bitmap->height())});
    image->addRepresentation(bitmap);
    return image;
}

} // namespace

class PicturesTest : public QObject {
    Q_OBJECT

private slots:
    void pixelsOfTheSameSizeAreTheSame()
    {
        const auto bitmap = paint(3, 2, [](int x, int y) {
            return Pixel{std::uint8_t(200 + x), std::uint8_t(10 * x), std::uint8_t(20 * y), std::uint8_t(7)};
        });
        const QImage picture = scaledPicture(*bitmap, {3, 2});
        for (int i = 0; i < 6; ++i) {
            const QRgb stored = reinterpret_cast<const QRgb*>(picture.constScanLine(i / 3))[i % 3];
            QCOMPARE(stored, qRgba(10 * (i % 3), 20 * (i / 3), 7, 200 + i % 3));
        }
        const auto checkers = paint(8, 8, [](int x, int y) { return (x + y) % 2 ? white : Pixel{255, 0, 0, 0}; });
        for (int i = 0; i < 4; ++i)
            QCOMPARE(scaledPicture(*checkers, {2, 2}).pixel(i % 2, i / 2), qRgb(128, 128, 128));
    }

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

    void sizesAreFitted()
    {
        const std::tuple<Size, QSize, QSize> cases[]{{{10, 20}, {640, 360}, {10, 20}},
                                                     {{8704, 192}, {640, 360}, {640, 14}},
                                                     {{2e9, 1}, {640, 360}, {640, 1}},
                                                     {{-4, 5}, {640, 360}, {}},
                                                     {{4, 5}, {640, 0}, {}}};
        for (const auto& [size, room, fitted] : cases)
            QCOMPARE(fittedSize(size, room), fitted);
    }

    void theViewPaintsItsImageInTheMiddle()
    {
        ImageViewWidget view;
        view.resize(100, 100);
        const auto pixels = [&](const ImageRef& image) {
            view.setImage(image);
            const QImage seen = view.grab().toImage();
            QStringList names;
            for (const QPoint place : {QPoint(29, 50), QPoint(30, 40), QPoint(69, 59), QPoint(50, 60)})
                names.append(seen.pixelColor(place).name());
            return names.join(' ').replace(view.palette().color(QPalette::Mid).name(), "-");
        };
        const auto halves = paint(40, 20, [](int x, int) {
            return x < 20 ? Pixel{255, 255, 0, 0} : Pixel{255, 0, 0, 255};
        });
        QCOMPARE(pixels(imageOf(halves)), "- #ff0000 #0000ff -");
        QCOMPARE(pixels(imageOf(paint(40, 20, [](int, int) { return white; }))), "- #ffffff #ffffff -");
        QCOMPARE(pixels(std::make_shared<Image>(Size{40, 20})), "- - - -"); // no raster
        QCOMPARE(pixels(nullptr), "- - - -");
    }

    void theOutputWindowKeepsTheFrameOfItsView()
    {
        OutputWindow window;
        auto* view = static_cast<ImageViewWidget*>(window.addImageView({{0, -25}, {1920, 1080}}));
        window.setFrame({{0, 0}, {640, 360}});
        view->setFrameSize({640, 360});
        view->setFollowsContainer();
        QCOMPARE(window.size(), QSize(640, 360));
        QVERIFY(*view->frame() == (Rect{{0, -25}, {640, 360}}));
        QCOMPARE(view->geometry(), QRect(0, 25, 640, 360));

        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.resize(800, 500);
        QCoreApplication::processEvents();
        QVERIFY(*view->frame() == (Rect{{0, -25}, {800, 500}}));
        QCOMPARE(view->geometry(), QRect(0, 25, 800, 500));

        // All of the picture is in the part of the view that the window shows.
        view->setImage(imageOf(Bitmap::create(1920, 1080)));
        QVERIFY(window.rect().contains(view->pictureRect().translated(view->pos())));
    }
};

QTEST_MAIN(PicturesTest)
#include "pictures_test.moc"
