// SPDX-License-Identifier: MIT
//
// write_psd_samples DESCRIPTION: writes the PSD files that psd_readers_test.py describes in a JSON file, through every
// part of the writer's interface that the program itself does not use.
#include "base/file.h"
#include "psd/kp_psd_writer.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <vector>

using namespace wallgrid;
using Json = nlohmann::json;

namespace {

StringRef string(const Json& units)
{
    const auto text = units.get<std::vector<char16_t>>();
    return makeString({text.begin(), text.end()});
}

/// Takes the next image's RGBA bytes.
BitmapRef takeImage(std::span<const std::uint8_t>& bytes, int width, int height)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    for (int y = 0; y < height; ++y) {
        for (Pixel& pixel : bitmap->row(y)) {
            pixel = {bytes[3], bytes[0], bytes[1], bytes[2]};
            bytes = bytes.subspan(4);
        }
    }
    return bitmap;
}

template <class Effect>
std::shared_ptr<Effect> enabled()
{
    const auto effect = std::make_shared<Effect>();
    effect->setEnabled(true);
    return effect;
}

void enableAllEffects(KPPSDLayer& layer)
{
    layer.setDropShadowEffectLayerInformation(enabled<KPPSDDropShadowEffectLayerInformation>());
    layer.setInnerShadowEffectLayerInformation(enabled<KPPSDInnerShadowEffectLayerInformation>());
    layer.setOuterGlowEffectLayerInformation(enabled<KPPSDOuterGlowEffectLayerInformation>());
    layer.setInnerGlowEffectLayerInformation(enabled<KPPSDInnerGlowEffectLayerInformation>());
    layer.setBevelEffectLayerInformation(enabled<KPPSDBevelEffectLayerInformation>());
    layer.setSolidFillEffectLayerInformation(enabled<KPPSDSolidFillEffectLayerInformation>());
}

void add(KPPSDWriter& writer, const Json& entry, std::span<const std::uint8_t>& images)
{
    std::shared_ptr<KPPSDLayer> layer;
    if (entry["kind"] == "close") {
        if (!writer.closeCurrentGroupLayer())
            throw std::runtime_error("no group is open");
        return;
    }
    if (entry["kind"] == "open") {
        layer = writer.openGroupLayerWithName(string(entry["name"]), entry["opacity"], entry["opened"]);
    } else {
        const BitmapRef image = takeImage(images, entry["width"], entry["height"]);
        layer = writer.addLayerWithCGImage(image, string(entry["name"]), entry["opacity"], {entry["x"], entry["y"]});
        layer->setBlendMode(entry["mode"]);
        layer->setShouldFlipLayerData(entry["flip"]);
        layer->setShouldUnpremultiplyLayerData(entry["divide"]);
    }
    if (entry["effects"])
        enableAllEffects(*layer);
}

void write(const Json& document)
{
    const auto images = readFile(document["images"]).value();
    std::span<const std::uint8_t> rest = images;
    const auto writer = KPPSDWriter::initWithDocumentSize(
        {document["width"], document["height"]}, document["resolution"], document["unit"], document["transparent"], {});
    writer->setColorProfile(document["profile"]);
    for (const Json& entry : document["layers"])
        add(*writer, entry, rest);
    KPPSDError error;
    const ByteBuffer file = writer->createPSDDataWithError(&error);
    if (error)
        throw std::runtime_error(error.message);
    if (const auto written = writeFileAtomically(document["file"], file); !written)
        throw std::runtime_error(written.error().message);
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 2)
        return 2;
    for (const Json& document : Json::parse(readFile(argv[1]).value()))
        write(document);
} catch (const std::exception& exception) {
    std::cerr << exception.what() << '\n';
    return 1;
}
