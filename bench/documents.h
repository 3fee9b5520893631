// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "desktop/headless_desktop.h"
#include "psd/kp_psd_writer.h"

#include <cstdint>
#include <iostream>
#include <memory>

namespace wallgrid::bench {

/// The program without a window.
class Program {
public:
    GXAppDelegate& delegate() { return m_delegate; }
    const GXAppDelegate& delegate() const { return m_delegate; }

private:
    StreamLog m_log{std::cerr};
    HeadlessDesktop m_desktop{m_log};
    GXAppDelegate m_delegate{m_desktop.desktop()};
};

/// A document of the program without a window, on an opaque background.
class Document {
public:
    Document(std::int32_t width, std::int32_t height, GXAppDelegate::ItemArrayRef items);
    /// Screens of all sorts, some without fill, some hanging over the edge, and two stills, a gradient and noise. Made
    /// from a fixed seed, so that every run measures the same pixels.
    Document(std::int32_t width, std::int32_t height, int screens);

    GXAppDelegate& delegate() { return m_program.delegate(); }
    /// Composes what changed since the last time. No item is drawn again.
    void compose();
    /// Gives the raster another ground than the last time, so that all of it is composed anew.
    void changeGround();
    /// A writer with one layer for each item, the lowest first, and so with the merged image of them.
    std::shared_ptr<KPPSDWriter> psdWriter() const;

private:
    Program m_program;
};

} // namespace wallgrid::bench
