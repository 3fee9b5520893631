// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/byte_sink.h"
#include "desktop/desktop.h"
#include "items/gx_item.h"
#include "psd/kp_psd_error.h"

#include <cstdint>
#include <memory>

namespace wallgrid {

class KPPSDWriter;

/// Writes items as a layered PSD: a layer for each item as it was last rendered, invisible ones transparent, the first
/// row on top.
class PSDExport {
public:
    explicit PSDExport(const Desktop& desktop)
        : m_desktop(desktop)
    {
    }

    /// Whether layers of the same name are told apart by a number. The items keep their names.
    void setNumbersEqualNames(bool numbers) { m_numbersEqualNames = numbers; }
    /// Whether the panel answers with the file's own location; otherwise "psd" is appended in any case.
    void setLocationIsWhole(bool whole) { m_locationIsWhole = whole; }

    /// Empty when none was chosen.
    UrlRef chooseLocation() const;
    /// The items have names.
    struct Source {
        const ItemArray& items;
        std::int32_t width;
        std::int32_t height;
    };
    /// In place, with progress. Failures go to the log.
    void write(const Url& location, const Source& source) const;
    /// The bytes of that file.
    ByteBuffer createData(const Source& source, KPPSDError* error) const;
    /// Hands the bytes to a sink while they are made. What the sink was given is no file when there is an error.
    KPPSDError writeOn(ByteSink& sink, const Source& source) const;

private:
    std::shared_ptr<KPPSDWriter> makeWriter(const Source& source, KPPSDError& error) const;

    Desktop m_desktop;
    bool m_numbersEqualNames = false;
    bool m_locationIsWhole = false;
};

} // namespace wallgrid
