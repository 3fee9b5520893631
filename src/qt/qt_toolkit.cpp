// SPDX-License-Identifier: MIT
#include "qt/qt_toolkit.h"

#include "qt/image_decoding.h"
#include "qt/text_line.h"

namespace wallgrid {

QtToolkit::QtToolkit()
{
    Toolkit::install(this);
}

QtToolkit::~QtToolkit()
{
    Toolkit::install(nullptr);
}

std::unique_ptr<TextLine> QtToolkit::layOutText(std::string_view text, double fontSize)
{
    return std::make_unique<QtTextLine>(text, fontSize);
}

Expected<ImageRef> QtToolkit::decodeImage(std::span<const std::uint8_t> bytes)
{
    return wallgrid::decodeImage(bytes);
}

} // namespace wallgrid
