// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/geometry.h"
#include "graphics/image.h"

#include <memory>
#include <string_view>

namespace wallgrid {

/// The few things that the application controller asks of the interface's views. The interface owns them; frames are
/// in points with the origin at the bottom-left corner of what contains the view.

class ImageView {
public:
    virtual ~ImageView() = default;
    /// Shows the image, scaled down in proportion where it does not fit. Empty clears the view.
    virtual void setImage(ImageRef image) = 0;
    /// The size changes, the origin stays.
    virtual void setFrameSize(Size size) = 0;
    /// From now on the view grows and shrinks with what contains it, in width and in height.
    virtual void setFollowsContainer() = 0;
};

class Window {
public:
    virtual ~Window() = default;
    virtual void setFrame(const Rect& frame) = 0;
    /// A new image view in the window, at a frame; the window owns it.
    virtual ImageView* addImageView(const Rect& frame) = 0;
    virtual void show() = 0;
};

/// A small window that hangs on the main window, which takes no input meanwhile.
class Sheet {
public:
    virtual ~Sheet() = default;
    virtual void begin() = 0;
    /// Ending it again changes nothing.
    virtual void end() = 0;
};

/// Makes sheets from the interface files that describe them.
class SheetLoader {
public:
    virtual ~SheetLoader() = default;
    /// A new sheet each time, not yet begun. Whoever holds it ends it by letting it go. "AddWindow" and "About" exist.
    virtual std::shared_ptr<Sheet> loadNibNamed(std::string_view name) = 0;
};

/// Shows a window that was made from an interface file.
class WindowController {
public:
    virtual ~WindowController() = default;
    virtual void showWindow() = 0;
};

/// Makes window controllers from interface files.
class WindowLoader {
public:
    virtual ~WindowLoader() = default;
    /// A new controller each time. "Output Preview" exists.
    virtual std::shared_ptr<WindowController> windowControllerWithNibName(std::string_view name) = 0;
};

} // namespace wallgrid
