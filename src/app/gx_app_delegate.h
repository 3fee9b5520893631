// SPDX-License-Identifier: MIT
#pragma once

#include "app/connected_views.h"
#include "app/document_files.h"
#include "app/output_picture.h"
#include "app/psd_export.h"
#include "app/table_drags.h"
#include "app/update_throttle.h"
#include "base/key_value_observing.h"
#include "desktop/array_controller.h"
#include "graphics/color.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

namespace wallgrid {

/// The project file that a document is called after. From one opening to the next it is the same object, also where the
/// document is saved elsewhere.
struct DocumentFile {
    UrlRef location; ///< where it was opened or last saved; empty when it was neither
};
using DocumentFileRef = std::shared_ptr<DocumentFile>;

/// The application's one controller, and the document itself: the output size, two colours, the item list and the
/// preset list, and the raster composed of them. It drives the interface through the views it is connected to and
/// works without any. Its operations are done by the parts that it owns. One thread.
class GXAppDelegate final : public TableDelegate, public KeyValueObservable {
public:
    using ItemController = ArrayController<GXItem>;
    using ItemArrayRef = ItemController::ContentRef;

    using Outlets = wallgrid::Outlets;

    enum class TerminateReply {
        TerminateNow,
    };

    explicit GXAppDelegate(const Desktop& desktop);
    GXAppDelegate(const GXAppDelegate&) = delete;
    GXAppDelegate& operator=(const GXAppDelegate&) = delete;

    // Start and end ------------------------------------------------------------------------------------------------

    /// The views are used until the registration goes: before they do.
    Registration connect(const Outlets& outlets) { return m_views.connect(outlets); }
    /// Registers both tables for the drag type. Runs again for each sheet that is loaded.
    void awakeFromNib() { m_views.registerTables(); }
    /// Builds the launch document, the preset list and the preview, and composes for the first time.
    void applicationDidFinishLaunching();
    /// Quitting never asks.
    TerminateReply applicationShouldTerminate() const { return TerminateReply::TerminateNow; }

    // The document -------------------------------------------------------------------------------------------------

    // Observers of the controller are told of its four own values by name.
    std::int32_t OutputWidth() const { return m_OutputWidth; }
    void setOutputWidth(std::int32_t width)
    {
        m_OutputWidth = width;
        didChangeValue("OutputWidth");
    }
    std::int32_t OutputHeight() const { return m_OutputHeight; }
    void setOutputHeight(std::int32_t height)
    {
        m_OutputHeight = height;
        didChangeValue("OutputHeight");
    }
    ColorRef bgColor() const { return m_bgColor; }
    void setBgColor(ColorRef color)
    {
        m_bgColor = std::move(color);
        didChangeValue("bgColor");
    }
    ColorRef edgeColor() const { return m_edgeColor; }
    void setEdgeColor(ColorRef color)
    {
        m_edgeColor = std::move(color);
        didChangeValue("edgeColor");
    }

    /// Row 0 is the topmost item of the output. Empty before launch.
    ItemArrayRef allScreensArray() const { return m_arraycontroller.content(); }
    void setAllScreensArray(ItemArrayRef items) { m_arraycontroller.setContent(std::move(items)); }
    ItemArrayRef presetScreensArray() const { return m_presetarraycontroller.content(); }
    void setPresetScreensArray(ItemArrayRef presets) { m_presetarraycontroller.setContent(std::move(presets)); }
    /// All insertions into and removals from the lists go through these; they hold the selections.
    ItemController& arraycontroller() { return m_arraycontroller; }
    const ItemController& arraycontroller() const { return m_arraycontroller; }
    ItemController& presetarraycontroller() { return m_presetarraycontroller; }
    const ItemController& presetarraycontroller() const { return m_presetarraycontroller; }

    /// The next number of default names: "Layer %i", "Untitled %i".
    std::int32_t screenNumber() const { return m_screenNumber; }

    // The lists ----------------------------------------------------------------------------------------------------

    /// Opens the Add sheet, a choice of what to add. Its four actions follow.
    void add();
    void CancelAddWindow();
    /// Adds a screen, named "Layer %i", in row 1 whatever row is selected; in row 0 of an empty list.
    void AddScreen();
    /// Adds the image file chosen in an open panel, at the same place. When none is chosen the sheet stays. A file that
    /// is no image gives a still of size 0.
    void AddImage();
    /// Adds the image file at a location in the same way, as when one is dropped on the window.
    void addImageAt(const UrlRef& location);
    void AddMask() {}
    /// Removes the selected items; an alert refuses it while the list has fewer than two.
    void remove();
    void removeSelectedScreen() {}
    void openAbout();
    void closeAbout();

    /// Writes the preset list to a file chosen in a save panel, exactly as it is named there.
    void savePresets();
    /// Puts the items of a preset file in the place of the preset list. A file that is none changes nothing.
    void openPresets();
    /// Puts these items in the place of the preset list.
    void loadPresets(const ItemArray& presets);
    /// Removes the selected presets; an alert refuses it while there are fewer than two.
    void removePreset();

    /// See TableDrags. Every answer is YES, every operation.
    bool tableViewWriteRowsWithIndexes(TableView& table, const std::set<std::size_t>& rows,
                                       Pasteboard& pasteboard) override;
    DragOperations tableViewValidateDrop(TableView&, const Pasteboard&, std::ptrdiff_t, DropOperation) override
    {
        return kDragOperationEvery;
    }
    bool tableViewAcceptDrop(TableView& table, const Pasteboard& dragged, std::ptrdiff_t row,
                             DropOperation operation) override;
    /// Selects the main table's selected row, if any, in `arraycontroller`; whichever table's selection changed.
    void tableViewSelectionDidChange() override;
    /// The table that the last drag began in: 0 none yet, 1 the main list table, 2 the preset table.
    std::int32_t draggedTV() const { return m_drags.source(); }

    // Composition --------------------------------------------------------------------------------------------------

    /// What every observed change leads to: renders the selected item again, reloads the table, composes.
    void observeValueForKeyPath();
    /// The update pass: composes the raster anew and shows it, at most once in 0.1 seconds; a call in between renders
    /// nothing and is not made up for later (see hasSkippedUpdate()).
    void update();
    /// Lets the next update pass render.
    void timerupdate() { m_throttle.setOpen(true); }
    bool shouldUpdate() const { return m_throttle.isOpen(); }
    void setShouldUpdate(bool shouldUpdate) { m_throttle.setOpen(shouldUpdate); }
    /// An update pass has rendered nothing since the last one that rendered: the raster may be behind the document.
    bool hasSkippedUpdate() const { return m_throttle.hasSkipped(); }

    /// The raster of the last composition; empty before the first, and when the output size gives none.
    BitmapRef offscreenRep() const { return m_picture.raster(); }
    /// The image that the previews show: `offscreenRep` at the output size. Another one after each composition, which
    /// leaves the one before without a raster.
    ImageRef img() const { return m_picture.image(); }
    ImageView* pvwImageWell() const { return m_views.preview(); }

    /// Opens the Output Preview, the window that shows the raster and nothing else.
    void openPvw();

    // Files --------------------------------------------------------------------------------------------------------

    /// Writes the document to a project file chosen in a save panel; "mpr" is appended unless it is there.
    void saveProject();
    /// Replaces the document by a project file chosen in an open panel, and renders in any case.
    void openProject();
    /// Replaces the document by the project file at a location, given as a URL string. An alert says when there is no
    /// readable file; a file that is no project changes nothing. (`application:openFile:`)
    bool applicationOpenFile(std::string_view fileName);
    /// Puts the project in the place of the document. The colours, the presets and `screenNumber` stay. The location is
    /// that of the project's file, if it has one.
    void loadProject(const Project& project, UrlRef location = nullptr);
    Project project() const;
    /// Never empty.
    DocumentFileRef documentFile() const { return m_documentFile; }
    void setDocumentFile(DocumentFileRef file) { m_documentFile = std::move(file); }

    /// The raster of the last composition, or why there is none.
    Expected<BitmapRef> rasterToExport() const;
    /// Writes the raster of the last composition as a PNG chosen in a save panel; "png" is appended unless it is there.
    void saveAction();
    /// Writes the items as they were last rendered as a layered PSD chosen in a save panel, in place, "psd" appended in
    /// any case, unless the location is whole. Items without a name get one, "Untitled %i", also when the panel is
    /// cancelled.
    void savePSD();
    bool hasEqualLayerNames() const;
    /// Whether the next exports tell layers of the same name apart by a number. The document keeps the names.
    void setNumbersEqualLayerNames(bool numbers) { m_PSDExport.setNumbersEqualNames(numbers); }
    /// Whether the panel for the next PSDs answers with the file's own location.
    void setPSDLocationIsWhole(bool whole) { m_PSDExport.setLocationIsWhole(whole); }
    /// The bytes of that file: a layer for each item, invisible ones transparent, the first row on top.
    ByteBuffer createPSDData(KPPSDError* error);
    /// Hands these bytes to a sink while they are made. What the sink was given is no file when there is an error.
    KPPSDError writePSDOn(ByteSink& sink);

private:
    void insertNewItem(ItemRef item);
    void endAddSheet();
    /// An alert refuses it while the list has fewer than two items.
    void removeSelected(ItemController& list);
    /// Every item takes a number, also one that has a name.
    void nameUnnamedItems();
    PSDExport::Source namedSource();

    Desktop m_desktop;
    ItemController m_arraycontroller;
    ItemController m_presetarraycontroller;
    std::int32_t m_OutputWidth = 0;
    std::int32_t m_OutputHeight = 0;
    ColorRef m_bgColor;
    ColorRef m_edgeColor;
    DocumentFileRef m_documentFile;
    std::int32_t m_screenNumber = 0;

    ConnectedViews m_views;
    std::shared_ptr<Sheet> m_AddWindow;
    std::shared_ptr<Sheet> m_aboutWindow;
    std::shared_ptr<WindowController> m_outputPreview;

    OutputPicture m_picture;
    UpdateThrottle m_throttle;
    TableDrags m_drags;
    DocumentFiles m_files;
    PSDExport m_PSDExport;
    std::array<Registration, 2> m_observations;
};

} // namespace wallgrid
