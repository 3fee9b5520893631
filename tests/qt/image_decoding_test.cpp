// SPDX-License-Identifier: MIT
#include "qt/exif_resolution.h"
#include "qt/image_decoding.h"

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

BitmapRef pixelsOf(const QByteArray& bytes)
{
    return decode(bytes).value()->firstRepresentation();
}

QImage filled(int width, int height, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(width, height, format);
    image.fill(Qt::white);
    return image;
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

TEST(ImageDecoding, EveryKindOfFileBecomesRgba)
{
    QImage palette(5, 7, QImage::Format_Indexed8);
    palette.setColorTable({qRgb(1, 2, 3), qRgba(0, 0, 0, 0)});
    palette.fill(0);
    palette.setPixel(4, 6, 1);
    const BitmapRef indexed = pixelsOf(encoded(palette, "png"));
    EXPECT_EQ(indexed->at(0, 0), (Pixel{255, 1, 2, 3}));
    EXPECT_EQ(indexed->at(4, 6), Pixel{});
    const Pixel white{255, 255, 255, 255};
    EXPECT_EQ(pixelsOf(encoded(filled(300, 1, QImage::Format_Grayscale16), "png"))->at(299, 0), white);
    for (const char* format : {"jpg", "bmp", "tiff", "webp", "ppm"})
        EXPECT_EQ(pixelsOf(encoded(filled(31, 17), format))->at(30, 16), white) << format;
}

TEST(ImageDecoding, SizeInPointsFollowsTheRecordedResolution)
{
    const auto sizeOf = [](int dotsPerMeter, const char* leftOut = nullptr) {
        QImage image = filled(801, 603);
        image.setDotsPerMeterX(dotsPerMeter);
        image.setDotsPerMeterY(2 * dotsPerMeter);
        QByteArray png = encoded(image, "png");
        if (leftOut) {
            const qsizetype at = png.indexOf(leftOut) - 4;
            png.remove(at, static_cast<qsizetype>(qFromBigEndian<quint32>(png.constData() + at)) + 12);
        }
        return decode(png).value()->size();
    };
    EXPECT_EQ(sizeOf(2835), (Size{801, 301.5})) << "72 dots an inch, rounded up";
    EXPECT_EQ(sizeOf(3780), (Size{600.75, 226.125})) << "96, which Qt also gives to files without a resolution";
    EXPECT_NEAR(sizeOf(1000).width, 801 * 72 / 25.4, 1e-9) << "no whole number of dots an inch";
    EXPECT_EQ(sizeOf(5669, "pHYs"), (Size{801, 603}));
}

TEST(ImageDecoding, SizeInPointsFollowsTheResolutionInExif)
{
    const QByteArray jpeg = encoded(filled(600, 300), "jpg");
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
    const QByteArray png = encoded(filled(64, 64), "png");
    QByteArray bmp = encoded(filled(64, 64), "bmp");
    qToLittleEndian(quint32{60000}, bmp.data() + 18);
    qToLittleEndian(quint32{60000}, bmp.data() + 22);
    for (const QByteArray& bytes : {QByteArray("no image"), QByteArray(), png.left(png.indexOf("IHDR") + 9), bmp,
                                    QByteArray("P6\n2147483647 2147483647\n255\n")})
        EXPECT_FALSE(decode(bytes)) << bytes.left(40).toStdString();
    EXPECT_EQ(decode("P6\n16385 16385\n255\n").error().message, "the image is larger than 1 GiB when decoded");
}
