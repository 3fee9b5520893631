// SPDX-License-Identifier: MIT
//
// write_psd_samples FOLDER: writes the PSD files that psd_readers_test.py reads, with what the program itself does not
// use of the writer.
#include "base/file.h"
#include "psd/kp_psd_writer.h"

#include <string>

using namespace wallgrid;

namespace {

/// Opaque; red counts the columns and green the rows.
BitmapRef gradient(int width, int height)
{
    const BitmapRef bitmap = Bitmap::create(width, height);
    for (int i = 0; i < width * height; ++i)
        bitmap->pixels()[i] = {255, std::uint8_t(i % width), std::uint8_t(i / width), 7};
    return bitmap;
}

template <class Effect>
std::shared_ptr<Effect> enabled()
{
    const auto effect = std::make_shared<Effect>();
    effect->setEnabled(true);
    return effect;
}

bool save(KPPSDWriter& writer, const std::string& path)
{
    return writeFileAtomically(path, writer.createPSDData()).has_value();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const std::string folder = argv[1];
    const auto groups = KPPSDWriter::initWithDocumentSize({40, 30}, 28.35F, 2);
    groups->addLayerWithCGImage(gradient(50, 40), makeString(u"ground"), 1, {-5, -5});
    const auto bevel = enabled<KPPSDBevelEffectLayerInformation>();
    bevel->setAngle(-30);
    bevel->setSize(11);
    bevel->setHighlightColor(Color::deviceRGB(1, 0.5, 0.2));
    groups->openGroupLayerWithName(makeString(u"outer"), 0.5F, false)->setBevelEffectLayerInformation(bevel);
    groups->addLayerWithCGImage(gradient(9, 8), makeString(u"Wand ä 😀"), 0.3F, {3, 4});
    groups->openGroupLayerWithName(makeString(u"inner 壁"), 1, true);
    const auto flipped = groups->addLayerWithCGImage(gradient(20, 30), makeString(u"flipped"), 1, {30, 20});
    const auto glow = enabled<KPPSDInnerGlowEffectLayerInformation>();
    glow->setOpacity(50);
    glow->setSource(2);
    flipped->setInnerGlowEffectLayerInformation(glow);
    flipped->setShouldFlipLayerData(true);
    groups->closeCurrentGroupLayer();
    groups->closeCurrentGroupLayer();
    groups->openGroupLayerWithName(makeString(std::u16string(300, u'x')));
    groups->addLayerWithCGImage(gradient(2, 2), makeString(u"left open"));

    bool saved = save(*groups, folder + "/groups.psd");
    for (const int profile : {1, 2, 3}) {
        const auto opaque = KPPSDWriter::initWithDocumentSize({40, 30}, false, KPPSDWriter::Layers());
        opaque->setColorProfile(profile);
        for (const char* mode : {"norm", "dark", "hue ", "lddg", "lgCl"})
            opaque->addLayerWithCGImage(gradient(9, 9), makeString(u"layer"), 1, {1, 2})->setBlendMode(mode);
        saved = saved && save(*opaque, folder + "/" + std::to_string(profile) + ".psd");
    }
    return saved ? 0 : 1;
}
