// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.h"
#include "platform/keyed_archive.h"

namespace wallgrid {

class ArchiveReader;

/// Where a colour stands that has more to it than its components: the archive, which it keeps alive, and its entry.
class ArchivedColorForm : public ArchivedForm {
public:
    ArchivedColorForm(std::shared_ptr<const KeyedArchive> archive, std::uint32_t uid);

    const std::shared_ptr<const KeyedArchive>& archive() const { return m_archive; }
    std::uint32_t uid() const { return m_uid; }

private:
    std::shared_ptr<const KeyedArchive> m_archive;
    std::uint32_t m_uid;
};

/// How a plain colour is archived.
struct PlainColorForm {
    std::int32_t colorSpace;       ///< NSColorSpace
    std::string_view componentKey; ///< NSRGB, NSWhite or NSCMYK
};
PlainColorForm plainColorForm(Color::Space space);

/// Reads the colour of an entry of class NSColor. One that is exactly what the archiver would write for its components
/// comes back plain; every other one keeps its archived form. A named colour shows the colour that it stood for, a
/// pattern or a kind of colour that is not known shows black.
Expected<ColorRef> readColor(ArchiveReader& reader, std::uint32_t uid);

} // namespace wallgrid
