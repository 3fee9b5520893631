// SPDX-License-Identifier: MIT
#include "ui/inspector/shown_values.h"

#include "app/edit_layers.h"
#include "ui/fields/color_field.h"
#include "ui/fields/number_field.h"

#include <QCheckBox>
#include <algorithm>

namespace wallgrid {

namespace {

template <class Equal>
bool differ(const ItemArray& items, Equal equal)
{
    return !std::all_of(items.begin(), items.end(), [&](const ItemRef& item) { return equal(*items.front(), *item); });
}

bool lookEqual(const ColorRef& a, const ColorRef& b)
{
    return a == b || (a && b && a->rgba() == b->rgba());
}

} // namespace

void showSwitch(QCheckBox& box, const ItemArray& items, bool (GXItem::*get)() const)
{
    const bool mixed = differ(items, [get](const GXItem& a, const GXItem& b) { return (a.*get)() == (b.*get)(); });
    box.setTristate(mixed); // only then: a click leads to one of the other two
    box.setCheckState(mixed ? Qt::PartiallyChecked
                            : (!items.empty() && (*items.front().*get)() ? Qt::Checked : Qt::Unchecked));
}

void showColor(ColorField& field, const ItemArray& items, ColorRef (GXItem::*get)() const)
{
    if (differ(items, [get](const GXItem& a, const GXItem& b) { return lookEqual((a.*get)(), (b.*get)()); }))
        field.setMixed();
    else
        field.setColor(items.empty() ? nullptr : (*items.front().*get)());
}

void showNumber(NumberField& field, const ItemArray& items, std::int32_t (GXItem::*get)() const)
{
    const auto less = [get](const ItemRef& a, const ItemRef& b) { return (*a.*get)() < (*b.*get)(); };
    const auto [lowest, highest] = std::minmax_element(items.begin(), items.end(), less);
    if (items.empty())
        field.showValue(0);
    else
        field.showValues((**lowest.*get)(), (**highest.*get)());
}

void setNumber(GXAppDelegate& delegate, const ItemArray& items, std::int32_t (GXItem::*get)() const,
               void (GXItem::*set)(std::int32_t), const TypedNumber& number)
{
    const bool position = get == &GXItem::xpoint || get == &GXItem::ypoint;
    editLayers(delegate, items, [&](GXItem& item) {
        const std::int32_t value = number.relative ? (item.*get)() + number.value : number.value;
        if ((item.*get)() == value)
            return false;
        (item.*set)(value);
        return !position || item.XYFontEnable();
    });
}

} // namespace wallgrid
