// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"
#include "app/layer_names.h"
#include "app/new_items.h"
#include "graphics/bitmap_memory.h"
#include "psd/kp_psd_writer.h"

namespace wallgrid {

namespace {

/// A layer's picture and where its top-left pixel stands, counted from the raster's top-left corner.
struct Placed {
    BitmapRef picture;
    Point offset;
};

/// The item as it was last rendered. Of an image whose raster has another size than the image, the part that lies on
/// the output is scaled, exactly as the composition does.
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

bool GXAppDelegate::hasEqualLayerNames() const
{
    return haveEqualNames(m_arraycontroller.arrangedObjects());
}

void GXAppDelegate::nameUnnamedItems()
{
    // A copy of the list, because setting a label tells observers.
    const ItemArray items = m_arraycontroller.arrangedObjects();
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        ++m_screenNumber;
        if (textOf((*item)->label()).empty())
            (*item)->setLabel(numberedName(u"Untitled ", m_screenNumber));
    }
}

std::shared_ptr<KPPSDWriter> GXAppDelegate::makePSDWriter(KPPSDError& error)
{
    const std::size_t refusedBefore = BitmapMemory::refused();
    nameUnnamedItems();
    const PixelRect output{0, 0, m_OutputWidth, m_OutputHeight};
    auto writer =
        KPPSDWriter::initWithDocumentSize({static_cast<double>(m_OutputWidth), static_cast<double>(m_OutputHeight)});
    const ItemArray& items = m_arraycontroller.arrangedObjects();
    const auto numbered = m_numbersEqualLayerNames ? namesWithNumbers(items) : std::vector<StringRef>();
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

ByteBuffer GXAppDelegate::createPSDData(KPPSDError* error)
{
    KPPSDError found;
    const auto writer = makePSDWriter(found);
    ByteBuffer file;
    if (!found)
        file = writer->createPSDDataWithError(&found);
    if (error && found)
        *error = std::move(found);
    return file;
}

KPPSDError GXAppDelegate::writePSDOn(ByteSink& sink)
{
    KPPSDError error;
    const auto writer = makePSDWriter(error);
    if (!error)
        writer->writePSDOn(sink, &error);
    return error;
}

void GXAppDelegate::savePSD()
{
    const UrlRef chosen = m_desktop.panels.runSavePanel();
    if (!chosen)
        return nameUnnamedItems();
    const Url location = m_PSDLocationIsWhole ? *chosen : chosen->appendingPathExtension("psd");
    m_desktop.progress.run(LongWork::ExportPSD, [&](const Report& report) {
        KPPSDError error;
        const auto writer = makePSDWriter(error);
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
