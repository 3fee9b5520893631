// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/toolkit.h"

namespace wallgrid {

/// Fonts and image files by Qt. Installs itself for as long as it lives; needs a QGuiApplication that lives longer.
class QtToolkit final : public Toolkit {
public:
    QtToolkit();
    ~QtToolkit() override;

    /// Outlines of the desktop's system font, or of the packaged one on a machine that has no fonts.
    std::unique_ptr<TextLine> layOutText(std::string_view text, double fontSize) override;

    /// Any format that Qt has a plugin for. Grey, palette and 16-bit pictures become 8-bit RGBA, an orientation that
    /// the file records is applied, colour profiles are not. Refused above 1 GiB of decoded pixels.
    Expected<ImageRef> decodeImage(std::span<const std::uint8_t> bytes) override;
};

} // namespace wallgrid
