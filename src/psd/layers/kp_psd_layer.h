// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/string_ref.h"
#include "graphics/bitmap.h"
#include "graphics/geometry.h"
#include "psd/layers/layer_effects.h"
#include "psd/packbits/packed_rows.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace wallgrid {

/// A picture at a place on the canvas of a PSD, and the bytes it gives to the file: a layer record, and channel images
/// that cover the whole canvas (Adobe, "Photoshop File Formats", layer records). Positions count pixels
/// from the canvas's top-left corner, y downwards.
///
/// Offsets and sizes are whole in use. With others the formulas hold as they stand: the visible part of the picture is
/// scaled to whole pixels and stands at a whole pixel. An offset that is no number leaves nothing visible.
class KPPSDLayer : public KPPSDLayerEffects {
public:
    /// The longest side of a canvas in the format, in pixels.
    static constexpr double kLongestSide = 30000;

    /// 4 channels, opacity 1, normal, no corrections.
    static std::shared_ptr<KPPSDLayer> init();
    static std::shared_ptr<KPPSDLayer> initWithNumberOfChannels(std::int64_t numberOfChannels, float opacity,
                                                                bool shouldFlipLayerData,
                                                                bool shouldUnpremultiplyLayerData,
                                                                std::string blendMode);
    KPPSDLayer() = default;
    KPPSDLayer(const KPPSDLayer&) = delete;
    KPPSDLayer& operator=(const KPPSDLayer&) = delete;
    virtual ~KPPSDLayer() = default;

    // What the layer is --------------------------------------------------------------------------------------------

    const StringRef& name() const { return m_name; }
    void setName(StringRef name) { m_name = std::move(name); }
    /// Shared with the caller, who does not draw on it any more. Another image than the one held drops
    /// `visibleImageData`.
    const BitmapRef& image() const { return m_image; }
    void setImage(BitmapRef image);
    /// 0 to 1.
    float opacity() const { return m_opacity; }
    void setOpacity(float opacity) { m_opacity = opacity; }
    /// The opacity in the record: rounded up to 8 bits, the low 8 of them when it is out of bounds.
    std::uint8_t opacity255() const;
    /// Where the image's top-left pixel stands. Set it before `visibleImageData` is asked for.
    Point offset() const { return m_offset; }
    void setOffset(Point offset) { m_offset = offset; }
    /// The size of the canvas, kept at its own by the writer. Drops `visibleImageData`.
    Size documentSize() const { return m_documentSize; }
    void setDocumentSize(Size size);
    /// 3 (red, green, blue) or 4 (and transparency); throws std::invalid_argument for any other number.
    std::int64_t numberOfChannels() const { return m_numberOfChannels; }
    void setNumberOfChannels(std::int64_t numberOfChannels);
    /// One of blend_mode's keys.
    const std::string& blendMode() const { return m_blendMode; }
    void setBlendMode(std::string key) { m_blendMode = std::move(key); }
    /// Corrections for programs that read a layer's pixels otherwise: rows upside down, colours divided by alpha.
    bool shouldFlipLayerData() const { return m_shouldFlipLayerData; }
    void setShouldFlipLayerData(bool should) { m_shouldFlipLayerData = should; }
    bool shouldUnpremultiplyLayerData() const { return m_shouldUnpremultiplyLayerData; }
    void setShouldUnpremultiplyLayerData(bool should) { m_shouldUnpremultiplyLayerData = should; }

    // Its pixels ---------------------------------------------------------------------------------------------------

    /// The part of the image that lies on the canvas, in the image's pixels from its top-left corner.
    Rect imageCropRegion() const;
    /// Where that part lies on the canvas.
    Rect imageInDocumentRegion() const;
    /// Whether anything of the layer lies on the canvas. Only such layers go into a file.
    virtual bool hasValidSize() const;

    /// Some of the pixels of a bitmap.
    struct BitmapPart {
        BitmapRef bitmap;
        PixelRect rect;
        std::span<const Pixel> row(std::int64_t r) const;
    };
    /// The crop region in whole pixels, without corrections. No bitmap when it has no whole pixel or no memory.
    BitmapPart croppedPart() const;
    /// The crop region, rounded outward, as an image of its own.
    BitmapRef croppedImage() const;
    /// The pixels that the channel images have: the crop region in whole pixels, corrected when the corrections were
    /// made. Computed when first asked for, then kept. Writing a layer that needs no corrections reads the image itself
    /// and takes no memory for this.
    BitmapRef visibleImageData();
    void setVisibleImageData(BitmapRef pixels);
    /// Makes the corrections that the layer asks for, each once to a `visibleImageData`. False when the pixels cannot
    /// be had, or are not as many as the crop region has; the layer cannot be written then.
    virtual bool preparePixels();

    // Its bytes ----------------------------------------------------------------------------------------------------

    /// The sizes in bytes of the channel images.
    using ChannelLengths = std::vector<std::uint64_t>;
    struct SizeBounds {
        std::uint64_t least = 0;
        std::uint64_t most = 0;
    };

    /// Appends the layer record. It holds the lengths of channel images that come much later in a file: they may be
    /// given here, or filled in later (`record` is where the record begins).
    void writeLayerInformationOn(ByteBuffer& buffer);
    virtual void writeLayerInformationOn(ByteBuffer& buffer, const ChannelLengths& lengths);
    static void fillInChannelLengths(ByteBuffer& buffer, std::size_t record, const ChannelLengths& lengths);
    /// Appends the channel images, one after the other. The layer's pixels must be prepared.
    ChannelLengths writeLayerChannelsOn(ByteBuffer& buffer) const;
    /// The same at the end of a file, with memory that other layers have used before.
    virtual ChannelLengths writeLayerChannelsOn(GrowingFile& file, PackedRows& packed) const;
    /// The same, each in a buffer of its own.
    std::vector<ByteBuffer> layerChannels() const;
    /// What all channel images together can come to, without looking at the pixels.
    virtual SizeBounds layerChannelsSize() const;

    /// The record's tail: name, effects, Unicode name.
    virtual ByteBuffer extraLayerInformation() const;
    /// The name in one length byte and UTF-8, cut to 255 UTF-16 units, never within a surrogate pair.
    void writeNameOn(ByteBuffer& buffer, std::int32_t padding) const;
    /// The whole name in UTF-16.
    void writeUnicodeNameOn(ByteBuffer& buffer) const;

    /// For logs.
    std::string description() const;

protected:
    /// What all record tails begin with: no mask, no blending ranges, the name.
    ByteBuffer startOfExtraLayerInformation() const;
    /// The name that goes into the record.
    virtual const std::u16string& writtenName() const { return textOf(m_name); }

private:
    BitmapPart visiblePart() const;
    BitmapRef correctedPixels(bool flips, bool unpremultiplies) const;

    StringRef m_name;
    BitmapRef m_image;
    float m_opacity = 1;
    Point m_offset;
    Size m_documentSize;
    std::int64_t m_numberOfChannels = 4;
    std::string m_blendMode{blend_mode::kNormal};
    bool m_shouldFlipLayerData = false;
    bool m_shouldUnpremultiplyLayerData = false;
    BitmapRef m_visibleImageData;
    bool m_isFlipped = false; ///< the visible pixels are
    bool m_isUnpremultiplied = false;
};

} // namespace wallgrid
