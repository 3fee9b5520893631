// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/progress.h"
#include "base/string_ref.h"
#include "graphics/bitmap.h"
#include "graphics/geometry.h"
#include "psd/kp_psd_error.h"
#include "psd/layers/group_layers.h"
#include "psd/layers/kp_psd_layer.h"
#include "psd/merged_image.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace wallgrid {

class ByteSink;
class GrowingFile;

/// Pixels per inch.
struct KPPSDResolution {
    float hResolution = 72;
    float vResolution = 72;
    bool operator==(const KPPSDResolution&) const = default;
};

/// A document that becomes one PSD file: version 1, RGB, 8 bits a channel (Adobe, "Photoshop File Formats"). Layers are
/// stacked with the bottom one first; while they are added, the writer notes what the merged image shows that goes into
/// the file beside them.
///
///     const auto writer = KPPSDWriter::initWithDocumentSize({1920, 1080});
///     writer->addLayerWithCGImage(picture, makeString(u"Wall"), 1, {100, 50});
///     KPPSDError error;
///     const ByteBuffer file = writer->createPSDDataWithError(&error);
///
/// Works on one thread. Error slots may be null. Effects, groups, profiles and picture settings that this program does
/// not use are part of the library's interface, too.
class KPPSDWriter {
public:
    using LayerRef = std::shared_ptr<KPPSDLayer>;
    using Layers = std::vector<LayerRef>;

    /// How the resolution is shown.
    static constexpr std::int32_t kPixelsPerInch = 1;
    static constexpr std::int32_t kPixelsPerCentimetre = 2;

    static std::shared_ptr<KPPSDWriter> init();
    static std::shared_ptr<KPPSDWriter> initWithDocumentSize(Size size);
    /// The resolution is in the unit given.
    static std::shared_ptr<KPPSDWriter> initWithDocumentSize(Size size, float resolution, std::int32_t unit);
    static std::shared_ptr<KPPSDWriter> initWithDocumentSize(Size size, bool hasTransparentLayers, Layers layers);
    static std::shared_ptr<KPPSDWriter> initWithDocumentSize(Size size, float resolution, std::int32_t unit,
                                                             bool hasTransparentLayers, Layers layers);

    // The document -------------------------------------------------------------------------------------------------

    Size documentSize() const { return m_documentSize; }
    /// Gives the size to all layers and composes them anew.
    void setDocumentSize(Size size);
    KPPSDResolution documentResolution() const { return m_documentResolution; }
    void setDocumentResolution(KPPSDResolution resolution) { m_documentResolution = resolution; }
    std::int32_t documentResolutionUnit() const { return m_documentResolutionUnit; }
    void setDocumentResolutionUnit(std::int32_t unit) { m_documentResolutionUnit = unit; }
    /// 0 none, 1 "GenericRGB", 2 "sRGB", 3 "AdobeRGB1998".
    std::int32_t colorProfile() const { return m_colorProfile; }
    void setColorProfile(std::int32_t profile) { m_colorProfile = profile; }
    /// Whether the document has a transparency channel. Neither the merged image nor the layers that are there already
    /// take notice of a change.
    bool hasTransparentLayers() const { return m_hasTransparentLayers; }
    void setHasTransparentLayers(bool has) { m_hasTransparentLayers = has; }
    std::int32_t numberOfChannels() const { return m_hasTransparentLayers ? 4 : 3; }

    // Layers -------------------------------------------------------------------------------------------------------

    const Layers& layers() const { return m_layers; }
    /// No layer may be missing (std::invalid_argument). They are taken as they are.
    void setLayers(Layers layers);
    /// Those that reach the canvas, and all group markers.
    Layers visibleLayers() const;

    /// Adds a layer on top and draws it into the merged image. The offset is where the image's top-left pixel stands on
    /// the canvas, counted from the top-left corner.
    LayerRef addLayerWithCGImage(BitmapRef image, StringRef name, float opacity, Point offset);
    LayerRef addLayerWithCGImage(BitmapRef image, StringRef name);

    /// Opens a group: the layers added from now on lie in it until it is closed.
    std::shared_ptr<KPPSDGroupOpeningLayer> openGroupLayerWithName(StringRef name, float opacity, bool isOpened);
    std::shared_ptr<KPPSDGroupOpeningLayer> openGroupLayerWithName(StringRef name);
    /// Closes the innermost open group; empty, with an error, when there is none.
    std::shared_ptr<KPPSDGroupClosingLayer> closeCurrentGroupLayerWithError(KPPSDError* error);
    std::shared_ptr<KPPSDGroupClosingLayer> closeCurrentGroupLayer()
    {
        return closeCurrentGroupLayerWithError(nullptr);
    }

    // The merged image ---------------------------------------------------------------------------------------------

    /// The merged image as it grows; empty when the size gives none or there is no memory. Who asks for it makes the
    /// writer hold all its pixels; a file needs a few rows of it at a time.
    BitmapRef flattenedContext() { return m_flattenedContext.bitmap(); }
    void setFlattenedContext(BitmapRef context) { m_flattenedContext = MergedImage(std::move(context)); }
    /// The merged image as preprocess() found it.
    BitmapRef flattenedData() { return m_flattenedData.bitmap(); }
    void setFlattenedData(BitmapRef pixels) { m_flattenedData = MergedImage(std::move(pixels)); }
    /// Starts the merged image again, from the visible layers.
    void resetFlattenedContext();
    /// Draws a layer into the merged image, source-over at its opacity; blend modes and effects are left out.
    bool addLayerToFlattenedContext(const LayerRef& layer, KPPSDError* error);

    // The file -----------------------------------------------------------------------------------------------------

    /// Takes the merged image, makes the layers' pixel corrections and closes open groups. False when a layer's pixels
    /// cannot be had.
    bool preprocess();
    /// The bytes of the file; none when there is an error. Throws std::invalid_argument when an effect has a colour
    /// that is not RGB.
    ByteBuffer createPSDDataWithError(KPPSDError* error);
    ByteBuffer createPSDData() { return createPSDDataWithError(nullptr); }
    /// Hands the same bytes to a sink while they are made, so that only the packed rows of one layer are held at a
    /// time. What the sink was given is no file when there is an error.
    void writePSDOn(ByteSink& sink, KPPSDError* error);
    /// What both report to, also within a layer and the merged image; they fail with `Cancelled` when that stops them.
    void setReport(Report report) { m_report = std::move(report); }

private:
    int openGroups() const;
    bool isTooLarge() const;
    std::uint64_t largestFileSize() const;
    KPPSDError prepare();
    KPPSDError writeFileOn(GrowingFile& file);
    void writeFileHeaderSectionOn(ByteBuffer& buffer) const;
    void writeColorModeDataSectionOn(ByteBuffer& buffer) const;
    void writeImageResourceSectionOn(ByteBuffer& buffer) const;
    KPPSDError writeLayerAndMaskInformationSectionOn(GrowingFile& file, PackedRows& rows) const;
    KPPSDError writeImageDataSectionOn(GrowingFile& file, PackedRows& rows) const;

    Size m_documentSize;
    KPPSDResolution m_documentResolution;
    std::int32_t m_documentResolutionUnit = kPixelsPerInch;
    std::int32_t m_colorProfile = 0;
    bool m_hasTransparentLayers = true;
    Layers m_layers;
    MergedImage m_flattenedContext;
    MergedImage m_flattenedData;
    Report m_report;
};

} // namespace wallgrid
