// SPDX-License-Identifier: MIT
#include "qt/image_decoding.h"

#include "qt/exif_resolution.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QTransform>
#include <QtEndian>
#include <cmath>
#include <cstring>
#include <utility>

namespace wallgrid {

namespace {

constexpr qint64 kMaximumDecodedBytes = qint64{1} << 30;

constexpr double kMetersPerInch = 0.0254;

/// Files record whole dots per metre; a whole number of dots per inch behind such a number is taken exactly, so that
/// 2835 is 72 and not 72.009.
double dotsPerInch(double dotsPerMeter)
{
    const double recorded = dotsPerMeter * kMetersPerInch;
    const double whole = std::round(recorded);
    return std::abs(whole / kMetersPerInch - dotsPerMeter) < 1 ? whole : recorded;
}

double points(int pixels, double dotsPerMeter)
{
    return pixels * 72.0 / dotsPerInch(dotsPerMeter);
}

/// Ours is A, R, G, B in memory; Qt's is B, G, R, A on the machines this runs on.
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);

BitmapRef toBitmap(const QImage& image)
{
    auto bitmap = Bitmap::create(image.width(), image.height(), Bitmap::Contents::Undefined);
    if (!bitmap)
        return nullptr;
    for (int y = 0; y < image.height(); ++y)
        qbswap<4>(image.constScanLine(y), image.width(), bitmap->row(y).data());
    return bitmap;
}

} // namespace

Expected<ImageRef> decodeImage(std::span<const std::uint8_t> bytes)
{
    QByteArray view =
        QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&view);
    buffer.open(QIODevice::ReadOnly);
    QImageReader::setAllocationLimit(static_cast<int>(kMaximumDecodedBytes >> 20));
    QImageReader reader(&buffer);
    const QSize declared = reader.size();
    const auto decodedBytes = [](QSize size) { return qint64{4} * size.width() * size.height(); };
    if (declared.isValid() && decodedBytes(declared) > kMaximumDecodedBytes)
        return failure("the image is larger than 1 GiB when decoded");

    // Qt gives every new image the screen's resolution, which then looks as if the file had recorded it. Readers fill
    // an image of the right size and format in place, so one that is marked tells whether they recorded anything.
    constexpr int kNotRecorded = 1;
    QImage image(declared, reader.imageFormat());
    const int screenResolution = QImage(1, 1, QImage::Format_RGB32).dotsPerMeterX();
    image.setDotsPerMeterX(kNotRecorded);
    image.setDotsPerMeterY(kNotRecorded);
    // What a file that is cut off leaves out is transparent, or black.
    image.fill(0);
    const uchar* const marked = image.constBits();
    if (!reader.read(&image))
        return failure(reader.errorString().toLower().toStdString());
    if (decodedBytes(image.size()) > kMaximumDecodedBytes)
        return failure("the image is larger than 1 GiB when decoded");
    const bool filledInPlace = marked && image.constBits() == marked;
    const auto recorded = [&](Size dots) { return dots.width > kNotRecorded && dots.height > kNotRecorded; };
    Size dots{static_cast<double>(image.dotsPerMeterX()), static_cast<double>(image.dotsPerMeterY())};
    if (!recorded(dots) || (!filledInPlace && image.dotsPerMeterX() == screenResolution))
        dots = exifResolution(bytes).value_or(Size{}); // which Qt does not read

    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    // Turned here: the reader would lose the mark and leave the resolution as it was.
    const QImageIOHandler::Transformations turn = reader.transformation();
    if (turn)
        image =
            image.mirrored(turn & QImageIOHandler::TransformationMirror, turn & QImageIOHandler::TransformationFlip);
    if (turn & QImageIOHandler::TransformationRotate90) {
        image = image.transformed(QTransform().rotate(90));
        std::swap(dots.width, dots.height);
    }
    const BitmapRef bitmap = toBitmap(image);
    if (!bitmap)
        return failure("there is not enough memory for the image");
    Size size{static_cast<double>(image.width()), static_cast<double>(image.height())};
    if (recorded(dots))
        size = {points(image.width(), dots.width), points(image.height(), dots.height)};
    auto result = std::make_shared<Image>(size);
    result->addRepresentation(bitmap);
    return result;
}

} // namespace wallgrid
