// SPDX-License-Identifier: MIT
#include "ui/inspector/drawing_controls.h"

#include "app/edit_layers.h"
#include "ui/fields/color_field.h"
#include "ui/fields/fault_mark.h"
#include "ui/fields/number_field.h"
#include "ui/inspector/shown_values.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace wallgrid {

namespace {

constexpr int kLargestWidth = 10'000;

struct Switch {
    const char* name;
    bool (GXItem::*enabled)() const;
    void (GXItem::*setEnabled)(bool);
    const char* colorName = nullptr; // null: no colour of its own
    ColorRef (GXItem::*color)() const = nullptr;
    void (GXItem::*setColor)(ColorRef) = nullptr;
    const char* widthName = nullptr; // null: no width
    std::int32_t (GXItem::*width)() const = nullptr;
    void (GXItem::*setWidth)(std::int32_t) = nullptr;
};

constexpr std::array<Switch, 5> kSwitches{{
    {QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Fill"), &GXItem::bgEnable, &GXItem::setBgEnable,
     QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Fill colour"), &GXItem::rectColor, &GXItem::setRectColor},
    {QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Frame"), &GXItem::BoarderEnable, &GXItem::setBoarderEnable,
     QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Frame colour"), &GXItem::boarderColor, &GXItem::setBoarderColor,
     QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Frame width"), &GXItem::boarderWidth, &GXItem::setBoarderWidth},
    {QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Circle"), &GXItem::CircleEnable, &GXItem::setCircleEnable,
     QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Circle colour"), &GXItem::circleColor, &GXItem::setCircleColor,
     QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Circle width, also the margin of the texts"),
     &GXItem::circleBWidth, &GXItem::setCircleBWidth},
    {QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Position text"), &GXItem::XYFontEnable, &GXItem::setXYFontEnable},
    {QT_TRANSLATE_NOOP("wallgrid::DrawingControls", "Size text"), &GXItem::screenFontEnable,
     &GXItem::setScreenFontEnable},
}};

} // namespace

DrawingControls::DrawingControls(GXAppDelegate& delegate, QWidget* parent)
    : QWidget(parent)
    , m_delegate(delegate)
    , m_texts(new QGridLayout)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    auto* colors = new QGridLayout;
    colors->setVerticalSpacing(4);
    colors->setColumnStretch(1, 1);
    layout->addLayout(colors);
    layout->addSpacing(4);
    m_texts->setVerticalSpacing(2);
    m_texts->setColumnStretch(0, 1);
    m_texts->setColumnStretch(1, 1);
    layout->addLayout(m_texts);

    int texts = 0;
    for (std::size_t i = 0; i < kRowCount; ++i) {
        const Switch& property = kSwitches[i];
        Row& row = m_rows[i];
        const int line = 3 * static_cast<int>(i); // below it what is wrong with colour and width
        row.enabled = new QCheckBox(tr(property.name), this);
        connect(row.enabled, &QCheckBox::clicked, this,
                [this, &property](bool on) { edit(property.enabled, property.setEnabled, on); });
        if (property.color)
            colors->addWidget(row.enabled, line, 0);
        else
            m_texts->addWidget(row.enabled, 0, texts++);
        if (property.color) {
            row.color = new ColorField(tr(property.colorName), this);
            connect(row.color, &ColorField::colorChosen, this,
                    [this, &property](const ColorRef& color) { edit(property.color, property.setColor, color); });
            colors->addWidget(row.color, line, 1);
            colors->addWidget(row.color->fault(), line + 1, 1, 1, 2);
        }
        if (property.width) {
            row.width = new NumberField(0, kLargestWidth, this);
            row.width->setSuffix(tr(" px"));
            row.width->setAccessibleName(tr(property.widthName));
            row.width->setToolTip(tr(property.widthName));
            row.width->setPutOff([this](int) { return m_items.size() > 1; });
            connect(row.width, &NumberField::edited, this, [this, &property](const TypedNumber& width) {
                setNumber(m_delegate, m_items, property.width, property.setWidth, width);
            });
            colors->addWidget(row.width, line, 2);
            colors->addWidget(row.width->fault(), line + 2, 1, 1, 2);
        }
    }
    show(ItemArray());
}

void DrawingControls::addTextSizes(const Captioned& position, const Captioned& size)
{
    int column = 0;
    QWidget* before = m_rows.back().enabled;
    for (const Captioned& number : {position, size}) {
        m_texts->addWidget(number.caption, 1, column);
        m_texts->addWidget(number.field, 2, column);
        m_texts->addWidget(number.field->fault(), 3 + column++, 0, 1, 2);
        setTabOrder(before, number.field);
        before = number.field;
    }
}

template <class Value>
void DrawingControls::edit(Value (GXItem::*get)() const, void (GXItem::*set)(Value), const Value& value)
{
    editLayers(m_delegate, m_items, [&](GXItem& item) {
        const bool changes = (item.*get)() != value;
        if (changes)
            (item.*set)(value);
        return changes;
    });
}

void DrawingControls::show(const ItemArray& items)
{
    const bool others = items != m_items;
    m_items = items;
    setEnabled(!items.empty());
    for (std::size_t i = 0; i < kRowCount; ++i) {
        const Switch& property = kSwitches[i];
        const Row& row = m_rows[i];
        showSwitch(*row.enabled, items, property.enabled);
        if (row.color) {
            if (others)
                row.color->dropTyped(); // it was meant for the items before
            row.color->setPutOff(items.size() > 1);
            showColor(*row.color, items, property.color);
        }
        if (row.width) {
            if (others)
                row.width->dropTyped();
            showNumber(*row.width, items, property.width);
        }
    }
}

} // namespace wallgrid
