// SPDX-License-Identifier: MIT
#include "platform/bitmap.h"
#include "ui/output_window.h"
#include "ui/preview/image_view.h"
#include "ui/preview/scaled_picture.h"

#include <QtTest>

using namespace wallgrid;

namespace {

constexpr Pixel white{255, 255, 255, 255};
constexpr Pixel black{255, 0, 0, 0};

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
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 3; ++x) {
                const QRgb stored = reinterpret_cast<const QRgb*>(picture.constScanLine(y))[x];
                QCOMPARE(stored, qRgba(10 * x, 20 * y, 7, 200 + x));
            }
        }
    }

    void areasAreAveraged()
    {
        const auto checkers = paint(8, 8, [](int x, int y) { return (x + y) % 2 ? white : black; });
        const QImage picture = scaledPicture(*checkers, {2, 2});
        for (int i = 0; i < 4; ++i)
            QCOMPARE(picture.pixel(i % 2, i / 2), qRgb(128, 128, 128));
    }

    /// Wherever it is, a line keeps its share of the pixel that stands for it.
    void thinLinesDoNotVanish_data()
    {
        QTest::addColumn<int>("reduction");
        QTest::addColumn<bool>("upright");
        for (const int reduction : {2, 3, 7, 16, 17, 40, 64}) {
            for (const bool upright : {false, true})
                QTest::addRow("1:%d %s", reduction, upright ? "upright" : "level") << reduction << upright;
        }
    }

    void thinLinesDoNotVanish()
    {
        QFETCH(int, reduction);
        QFETCH(bool, upright);
        for (int line = 0; line < reduction; ++line) {
            const auto bitmap = paint(2 * reduction, 2 * reduction,
                                      [&](int x, int y) { return (upright ? x : y) == line ? white : Pixel{}; });
            const QImage seen = scaledPicture(*bitmap, {2, 2});
            const int share = 255 / reduction;
            QVERIFY2(std::abs(qAlpha(seen.pixel(0, 0)) - share) <= share / 2 + 1,
                     qPrintable(QString("line %1: %2").arg(line).arg(qAlpha(seen.pixel(0, 0)))));
            QCOMPARE(seen.pixel(1, 1), 0U);
            QCOMPARE(scaledPicture(*bitmap, {2, 2}, Coverage::Strongest).pixel(0, 0), qRgb(255, 255, 255));
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

    void hugeRastersCostNoMoreThanTheirPicture()
    {
        // Would take minutes in this build if every pixel of it were looked at, and fail without the memory of one
        // copy.
        const auto bitmap = Bitmap::create(16'384, 8'192);
        QVERIFY(bitmap);
        bitmap->row(8'191)[16'383] = white;
        QCOMPARE(scaledPicture(*bitmap, {48, 24}).size(), QSize(48, 24));
    }

    void sizesAreFitted_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<QSize>("room");
        QTest::addColumn<QSize>("fitted");
        QTest::newRow("smaller stays") << QSizeF(10, 20) << QSize(640, 360) << QSize(10, 20);
        QTest::newRow("exact") << QSizeF(1920, 1080) << QSize(640, 360) << QSize(640, 360);
        QTest::newRow("wide") << QSizeF(8704, 192) << QSize(640, 360) << QSize(640, 14);
        QTest::newRow("a hair") << QSizeF(2e9, 1) << QSize(640, 360) << QSize(640, 1);
        QTest::newRow("nothing") << QSizeF(0, 5) << QSize(640, 360) << QSize();
        QTest::newRow("negative") << QSizeF(-4, 5) << QSize(640, 360) << QSize();
        QTest::newRow("no room") << QSizeF(4, 5) << QSize(640, 0) << QSize();
    }

    void sizesAreFitted()
    {
        QFETCH(QSizeF, size);
        QFETCH(QSize, room);
        QFETCH(QSize, fitted);
        QCOMPARE(fittedSize({size.width(), size.height()}, room), fitted);
    }

    void theViewPaintsItsImageInTheMiddle()
    {
        ImageViewWidget view;
        view.resize(100, 100);
        view.setImage(imageOf(paint(40, 20, [](int x, int) {
            return x < 20 ? Pixel{255, 255, 0, 0} : Pixel{255, 0, 0, 255};
        })));
        QCOMPARE(view.pictureRect(), QRect(30, 40, 40, 20));
        QImage seen = view.grab().toImage();
        const QRgb surround = view.palette().color(QPalette::Mid).rgb();
        QCOMPARE(seen.pixel(29, 50), surround);
        QCOMPARE(seen.pixelColor(30, 40), QColor(Qt::red));
        QCOMPARE(seen.pixelColor(69, 59), QColor(Qt::blue));
        QCOMPARE(seen.pixel(50, 60), surround);

        view.setImage(nullptr);
        QCOMPARE(view.grab().toImage().pixel(50, 50), surround);
        view.setImage(std::make_shared<Image>(Size{40, 20})); // no raster
        QCOMPARE(view.grab().toImage().pixel(50, 50), surround);
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
