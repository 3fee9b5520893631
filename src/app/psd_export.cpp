// SPDX-License-Identifier: MIT
#include "app/psd_export.h"

#include "app/layer_names.h"
#include "graphics/bitmap_memory.h"
#include "graphics/geometry.h"
#include "psd/kp_psd_writer.h"

#include <utility>
#include <vector>

namespace wallgrid {

namespace {

/// A layer's picture and where its top-left pixel stands, counted from the raster's top-left corner.
struct Placed {
    BitmapRef picture;
    Point offset;
};

/// The item as it was last rendered. Where an image's raster has another size than the image, the part on the output is
/// scaled, exactly as the composition does.
Placed place(const GXItem& item, const PixelRect& output)
{
    const Point offset{static_cast<double>(item.xpoint()), static_cast<double>(item.ypoint())};
    const ImageRef picture = item.picture();
    if (!picture || picture->unscaled() || !picture->firstRepresentation())
        return {picture ? picture->unscaled() : nullptr, offset};
    const PixelRect laid = picture->extentIn(item.frame());
    const PixelRect onOutput = intersection(intersection(item.frame(), laid), output);
    if (onOutput.empty())
        return {nullptr, offset};
    return {picture->scaledPart(onOutput.movedBy(-laid.origin())),
            {static_cast<double>(onOutput.x), static_cast<double>(onOutput.y)}};
}

} // namespace

UrlRef PSDExport::chooseLocation() const
{
    UrlRef chosen = m_desktop.panels.runSavePanel();
    if (!chosen || m_locationIsWhole)
        return chosen;
    return std::make_shared<const Url>(chosen->appendingPathExtension("psd"));
}

std::shared_ptr<KPPSDWriter> PSDExport::makeWriter(const Source& source, KPPSDError& error) const
{
    const std::size_t refusedBefore = BitmapMemory::refused();
    const auto& [items, width, height] = source;
    const PixelRect output{0, 0, width, height};
    auto writer = KPPSDWriter::initWithDocumentSize({static_cast<double>(width), static_cast<double>(height)});
    const auto numbered = m_numbersEqualNames ? namesWithNumbers(items) : std::vector<StringRef>();
    // The bottom layer comes first, and the last row of the list is the bottom one.
    for (std::size_t row = items.size(); row-- > 0;) {
        const GXItem& item = *items[row];
        Placed layer = place(item, output);
        writer->addLayerWithCGImage(std::move(layer.picture), numbered.empty() ? item.label() : numbered[row],
                                    item.visible() ? 1.0F : 0.0F, layer.offset);
    }
    if (BitmapMemory::refused() != refusedBefore)
        error = {KPPSDError::NotPrepared, "there is not enough memory for the pictures of all layers"};
    return writer;
}

ByteBuffer PSDExport::createData(const Source& source, KPPSDError* error) const
{
    KPPSDError found;
    const auto writer = makeWriter(source, found);
    ByteBuffer file;
    if (!found)
        file = writer->createPSDDataWithError(&found);
    if (error && found)
        *error = std::move(found);
    return file;
}

KPPSDError PSDExport::writeOn(ByteSink& sink, const Source& source) const
{
    KPPSDError error;
    const auto writer = makeWriter(source, error);
    if (!error)
        writer->writePSDOn(sink, &error);
    return error;
}

void PSDExport::write(const Url& location, const Source& source) const
{
    m_desktop.progress.run(LongWork::ExportPSD, [&](const Report& report) {
        KPPSDError error;
        const auto writer = makeWriter(source, error);
        writer->setReport(report);
        Expected<void> written = error.result();
        if (!error) {
            written = m_desktop.files.produceInPlace(location, [&](ByteSink& sink) {
                writer->writePSDOn(sink, &error);
                return error.result();
            });
        }
        if (error && error.code != KPPSDError::NotWritten && error.code != KPPSDError::Cancelled)
            m_desktop.log.log("There was an error writing the PSD: " + error.message);
        else if (!written)
            m_desktop.files.report(location, written.error());
    });
}

} // namespace wallgrid
