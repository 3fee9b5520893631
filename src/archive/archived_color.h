// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <cstdint>
#include <string_view>

namespace wallgrid {

class ArchivedObject;

/// How a plain colour is archived.
struct PlainColorForm {
    std::int32_t colorSpace;       ///< NSColorSpace
    std::string_view componentKey; ///< NSRGB, NSWhite or NSCMYK
};
PlainColorForm plainColorForm(Color::Space space);

/// The colour of a record of class NSColor. One that is exactly what the archiver would write for its components comes
/// back plain; every other one keeps its archived form. A named colour shows the colour that it stood for. What cannot
/// be read in a record is taken for left out; a pattern and a kind of colour that is not known show black.
ColorRef readColor(const ArchivedObject& record);

} // namespace wallgrid
