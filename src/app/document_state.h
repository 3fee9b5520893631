// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace wallgrid {

/// What an item holds, without the picture of a screen, which can be drawn again.
struct ItemValues {
    std::vector<GXItem::FieldValue> fields; ///< in the order of GXItem::fields()
    UrlRef imageURL;                        ///< stills only
    ImageRef image;                         ///< stills only

    static ItemValues of(const GXItem& item);
    bool operator==(const ItemValues&) const = default;
};

/// The whole document at one moment, never changed once it is made. Items are referred to and not copied, so that they
/// stay the same objects in every state; values that did not change are shared with the state before.
struct DocumentState {
    struct Entry {
        ItemRef item;
        std::shared_ptr<const ItemValues> values;
    };
    using Entries = std::vector<Entry>;

    std::int32_t outputWidth = 0;
    std::int32_t outputHeight = 0;
    ColorRef bgColor;
    ColorRef edgeColor;
    Entries layers;
    Entries presets;
    DocumentFileRef file;
};
using DocumentStateRef = std::shared_ptr<const DocumentState>;

/// The present state; of the one before, what is the same is shared.
DocumentStateRef captureState(const GXAppDelegate& delegate, const DocumentState& before);

/// Brings the document into a state through its setters and array controllers. In between no item is selected and
/// nothing is composed; in the end nothing is selected and the raster is composed.
void restoreState(GXAppDelegate& delegate, const DocumentState& state);

/// Lets go of the pictures of the screens that are in the one state and no longer in the other.
void releaseAbsentPictures(const DocumentState& before, const DocumentState& after);

/// What the step from one state to the next did, as a menu would name it.
struct DocumentChange {
    enum class What {
        Nothing,
        Added,
        Removed,
        Reordered,
        Replaced, ///< every item of the list by others, or the document by another: a file was opened
        Property,
    };
    What what = What::Nothing;
    bool presets = false; ///< the list is the presets and not the layers
    /// The name of a Property as observers are told it. "position" stands for both coordinates, "panelSize" for both
    /// sides of a panel, "outputSize" for both sides of the output, and "" for several properties.
    std::string_view property = {};
    bool opened = false;                   ///< a document Replaced: by that of a project file
    bool gradual = false;                  ///< a property that is typed or dragged to its value, not switched
    std::vector<const GXItem*> items = {}; ///< of a Property: in list order, none when it is the document's own

    bool operator==(const DocumentChange&) const = default;
};

/// Sizes that rendering computes anew are no change.
DocumentChange changeBetween(const DocumentState& before, const DocumentState& after);

} // namespace wallgrid
