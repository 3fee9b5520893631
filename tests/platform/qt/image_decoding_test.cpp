// SPDX-License-Identifier: MIT
#include "platform/qt/exif_resolution.h"
#include "platform/qt/image_decoding.h"

#include <QBuffer>
#include <QDataStream>
#include <QImage>
#include <QImageWriter>
#include <QtEndian>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace wallgrid;

namespace {

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    EXPECT_TRUE(writer.write(image)) << format;
    return bytes;
}

Expected<ImageRef> decode(const QByteArray& bytes)
{
    return decodeImage({reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())});
}

std::string failureOf(const QByteArray& bytes)
{
    const auto image = decode(bytes);
    return image ? "decoded" : image.error().message;
}

/// Where the four bytes of a PNG chunk's name stand.
qsizetype chunk(const QByteArray& png, const char* name)
{
    return png.indexOf(name);
}

QByteArray withoutChunk(QByteArray png, const char* name)
{
    const qsizetype at = chunk(png, name) - 4;
    const auto length = qFromBigEndian<quint32>(png.constData() + at);
    return png.remove(at, static_cast<qsizetype>(length) + 12);
}

/// The start of a JPEG file with an Exif segment.
QByteArray exifSegment(QDataStream::ByteOrder order, quint32 x, quint32 y, quint32 divisor, quint16 unit, quint16 turn)
{
    QByteArray tiff;
    QDataStream out(&tiff, QIODevice::WriteOnly);
    out.setByteOrder(order);
    out.writeRawData(order == QDataStream::BigEndian ? "MM" : "II", 2);
    out << quint16{42} << quint32{8} << quint16{4};
    out << quint16{274} << quint16{3} << quint32{1} << turn << quint16{0};
    out << quint16{282} << quint16{5} << quint32{1} << quint32{62} << quint16{283} << quint16{5} << quint32{1}
        << quint32{70};
    out << quint16{296} << quint16{3} << quint32{1} << unit << quint16{0} << quint32{0} << x << divisor << y << divisor;
    return QByteArray::fromHex("FFD8FFE100") + char(8 + tiff.size()) + QByteArray("Exif\0\0", 6) + tiff;
}

} // namespace

TEST(ImageDecoding, EveryKindOfPixelBecomesPremultipliedRgba)
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(255, 0, 0, 255));
    image.setPixel(1, 0, qRgba(200, 100, 50, 128));
    image.setPixel(0, 1, qRgba(9, 8, 7, 0));
    image.setPixel(1, 1, qRgba(0, 0, 255, 1));
    const BitmapRef bitmap = decode(encoded(image, "png")).value()->firstRepresentation();
    EXPECT_EQ(bitmap->at(0, 0), (Pixel{255, 255, 0, 0}));
    EXPECT_EQ(bitmap->at(1, 0), (Pixel{128, 100, 50, 25}));
    EXPECT_EQ(bitmap->at(0, 1), Pixel{});
    EXPECT_EQ(bitmap->at(1, 1), (Pixel{1, 0, 0, 1}));

    QImage grey(300, 1, QImage::Format_Grayscale16);
    grey.fill(Qt::white);
    QImage palette(5, 7, QImage::Format_Indexed8);
    palette.setColorTable({qRgb(1, 2, 3), qRgba(0, 0, 0, 0)});
    palette.fill(0);
    palette.setPixel(4, 6, 1);
    EXPECT_EQ(decode(encoded(grey, "png")).value()->firstRepresentation()->at(299, 0), (Pixel{255, 255, 255, 255}));
    const BitmapRef indexed = decode(encoded(palette, "png")).value()->firstRepresentation();
    EXPECT_EQ(indexed->at(0, 0), (Pixel{255, 1, 2, 3}));
    EXPECT_EQ(indexed->at(4, 6), Pixel{});
    for (const char* format : {"jpg", "bmp", "tiff", "webp", "ppm"}) {
        QImage white(31, 17, QImage::Format_RGB32);
        white.fill(Qt::white);
        const auto decoded = decode(encoded(white, format));
        ASSERT_TRUE(decoded) << format;
        EXPECT_EQ((*decoded)->firstRepresentation()->width(), 31) << format;
        EXPECT_EQ((*decoded)->firstRepresentation()->at(30, 16), (Pixel{255, 255, 255, 255})) << format;
    }
}

TEST(ImageDecoding, SizeInPointsFollowsTheRecordedResolution)
{
    struct Case {
        int dotsPerMeter;
        Size size; // of 801 × 603 pixels
    };
    const Case cases[] = {
        {2835, {801, 603}},                                // 72 dots per inch, rounded up
        {2834, {801, 603}},                                // rounded down
        {5669, {400.5, 301.5}},                            // 144
        {3780, {600.75, 452.25}},                          // 96, which Qt also gives to files without a resolution
        {1000, {801 * 72 / 25.4, 603 * 72 / 25.4}},        // no whole number of dots per inch
        {11811, {801 * 72.0 / 300.0, 603 * 72.0 / 300.0}}, // 300
    };
    for (const Case& c : cases) {
        QImage image(801, 603, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.setDotsPerMeterX(c.dotsPerMeter);
        image.setDotsPerMeterY(c.dotsPerMeter);
        const QByteArray png = encoded(image, "png");
        const Size size = decode(png).value()->size();
        EXPECT_NEAR(size.width, c.size.width, 1e-9) << c.dotsPerMeter;
        EXPECT_NEAR(size.height, c.size.height, 1e-9) << c.dotsPerMeter;
        EXPECT_EQ(decode(withoutChunk(png, "pHYs")).value()->size(), (Size{801, 603}));
    }
}

TEST(ImageDecoding, SizeInPointsFollowsTheResolutionInExif)
{
    QImage image(600, 300, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QByteArray jpeg = encoded(image, "jpg");
    const auto sizeWith = [&](const QByteArray& start) { return decode(start + jpeg.mid(20)).value()->size(); };
    for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
        EXPECT_EQ(sizeWith(exifSegment(order, 300, 96, 1, 2, 1)), (Size{144, 225}));
        EXPECT_EQ(sizeWith(exifSegment(order, 5669, 5669, 100, 3, 1)), (Size{300, 150})) << "in dots per centimetre";
        EXPECT_EQ(sizeWith(exifSegment(order, 144, 72, 1, 2, 6)), (Size{300, 300})) << "of a turned picture";
        EXPECT_EQ(sizeWith(exifSegment(order, 300, 300, 1, 1, 1)), (Size{600, 300})) << "without a unit";
        EXPECT_EQ(sizeWith(exifSegment(order, 300, 300, 0, 2, 1)), (Size{600, 300})) << "that is no number";
    }
    const QByteArray whole = exifSegment(QDataStream::BigEndian, 300, 96, 1, 2, 1);
    QByteArray jfif = jpeg.left(20);
    jfif.replace(13, 5, QByteArray::fromHex("01006000C0")); // 96 and 192 dots per inch
    EXPECT_EQ(sizeWith(jfif + whole.mid(2)), (Size{450, 112.5})) << "JFIF comes first";
    EXPECT_EQ(sizeWith(jfif + exifSegment(QDataStream::BigEndian, 9, 9, 1, 2, 6).mid(2)), (Size{112.5, 450}));
    jfif.replace(16, 2, QByteArray::fromHex("0060")); // both are what Qt gives an image without a resolution
    EXPECT_EQ(sizeWith(jfif + exifSegment(QDataStream::BigEndian, 9, 9, 1, 2, 6).mid(2)), (Size{225, 450}));
    for (int i = 0; i < whole.size(); ++i) {
        const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + i); // so that reads behind its end are found
        EXPECT_FALSE(exifResolution(cut)) << i;
        for (const int wrong : {0, 1, 255}) {
            std::vector<std::uint8_t> changed(whole.begin(), whole.end());
            changed[std::size_t(i)] = std::uint8_t(wrong);
            exifResolution(changed);
        }
    }
}

TEST(ImageDecoding, RefusesWhatIsNoImageOrTooLarge)
{
    EXPECT_NE(failureOf("no image"), "decoded");
    EXPECT_NE(failureOf(""), "decoded");
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QByteArray png = encoded(image, "png");
    EXPECT_NE(failureOf(png.left(chunk(png, "IHDR") + 9)), "decoded");
    QByteArray bmp = encoded(image, "bmp");
    qToLittleEndian(quint32{60000}, bmp.data() + 18);
    qToLittleEndian(quint32{60000}, bmp.data() + 22);
    EXPECT_NE(failureOf(bmp), "decoded");
    EXPECT_EQ(failureOf("P6\n16385 16385\n255\n"), "the image is larger than 1 GiB when decoded");
    EXPECT_NE(failureOf("P6\n2147483647 2147483647\n255\n"), "decoded");
}
