// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_archive.h"
#include "graphics/color.h"

namespace wallgrid {

class ArchiveReader;

/// How a plain colour is archived.
struct PlainColorForm {
    std::int32_t colorSpace;       ///< NSColorSpace
    std::string_view componentKey; ///< NSRGB, NSWhite or NSCMYK
};
PlainColorForm plainColorForm(Color::Space space);

/// The colour of an entry of class NSColor. One that is exactly what the archiver would write for its components comes
/// back plain; every other one keeps its archived form. A named colour shows the colour that it stood for. What cannot
/// be read in a record is taken for left out; a pattern and a kind of colour that is not known show black.
ColorRef readColor(ArchiveReader& reader, std::uint32_t uid);

} // namespace wallgrid
