// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"

#include "items/gx_screen.h"

#include <string>
#include <vector>

namespace wallgrid {

namespace {

std::vector<std::string> observedProperties()
{
    std::vector<std::string> keys;
    for (const GXItem::Field& field : GXItem::fields()) {
        if (field.observed)
            keys.emplace_back(field.property);
    }
    return keys;
}

StringRef numberedName(std::u16string prefix, std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return makeString(prefix.append(digits.begin(), digits.end()));
}

/// The screen that a new document holds and that the Add command makes.
ScreenRef makeDefaultScreen(StringRef label)
{
    return GXScreen::initWithrow(4, 4, 78, 78, Color::redColor(), Color::whiteColor(), Color::whiteColor(), 50, true,
                                 true, std::move(label), false, 0, 0);
}

/// Test patterns laid out for the launch raster of 1920 × 1080.
ItemArray makePresets()
{
    const ColorRef red = Color::redColor();
    const ColorRef green = Color::greenColor();
    const ColorRef white = Color::whiteColor();
    return {
        GXScreen::initWithrow(10, 10, 192, 108, red, white, white, 50, false, true, makeString(u"GRID"), false, 0, 0),
        // 1620 rows: the middle 1080 cover the raster, 270 overhang at the top and at the bottom.
        GXScreen::initWithrow(3, 1, 1920, 540, green, green, white, 50, false, true, makeString(u"LINES"), false, 0,
                              -270),
        GXScreen::initWithrow(2, 2, 960, 540, red, red, white, 50, false, true, makeString(u"CROSS"), false, 0, 0),
        GXScreen::initWithrow(1, 1, 960, 540, red, white, white, 50, false, false, makeString(u"CIRCLE"), true, 480,
                              270),
    };
}

} // namespace

GXAppDelegate::GXAppDelegate(const Desktop& desktop)
    : m_desktop(desktop)
    , m_self(std::make_shared<GXAppDelegate*>(this))
{
}

void GXAppDelegate::awakeFromNib()
{
    for (TableView* table : {m_outlets.ptable, m_outlets.table}) {
        if (table)
            table->registerForDraggedType(kRowDragType);
    }
}

void GXAppDelegate::applicationDidFinishLaunching()
{
    // The counter itself is not advanced: the first screen that is added becomes Layer 1.
    auto defaultItem = makeDefaultScreen(numberedName(u"Layer ", m_screenNumber));
    auto presets = makePresets();
    setOutputHeight(1080);
    setOutputWidth(1920);
    m_shouldUpdate = true;
    setAllScreensArray(std::make_shared<ItemArray>(ItemArray{std::move(defaultItem)}));
    setPresetScreensArray(std::make_shared<ItemArray>(std::move(presets)));
    buildPreview();

    m_arraycontroller.addObserverForArrangedObjects(observedProperties(), [this] { observeValueForKeyPath(); });
    m_presetarraycontroller.addObserverForArrangedObjects({"thumbnail"}, [this] { observeValueForKeyPath(); });
    update();
}

void GXAppDelegate::setAllScreensArray(ItemArrayRef items)
{
    m_allScreensArray = items;
    m_arraycontroller.setContent(std::move(items));
}

void GXAppDelegate::setPresetScreensArray(ItemArrayRef presets)
{
    m_presetScreensArray = presets;
    m_presetarraycontroller.setContent(std::move(presets));
}

void GXAppDelegate::buildPreview()
{
    if (!m_outlets.outputWindow)
        return;
    const Size output{static_cast<double>(m_OutputWidth), static_cast<double>(m_OutputHeight)};
    m_pvwImageWell = m_outlets.outputWindow->addImageView({{0, -25}, output});
    m_outlets.outputWindow->setFrame({{0, 0}, {640, 360}});
    m_pvwImageWell->setFrameSize({640, 360});
    m_pvwImageWell->setFollowsContainer();
}

void GXAppDelegate::observeValueForKeyPath()
{
    if (const ItemRef item = m_arraycontroller.selectedObject())
        item->drawInRect();
    reloadTable();
    update();
}

void GXAppDelegate::reloadTable()
{
    if (m_outlets.table)
        m_outlets.table->reloadData();
}

} // namespace wallgrid
