// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "base/typed_number.h"

class QCheckBox;

namespace wallgrid {

class ColorField;
class NumberField;

/// How a control stands for a property of several items: it shows the value that they share, or that they differ. Of no
/// items it shows nothing.

void showSwitch(QCheckBox& box, const ItemArray& items, bool (GXItem::*get)() const);
void showColor(ColorField& field, const ItemArray& items, ColorRef (GXItem::*get)() const);
void showNumber(NumberField& field, const ItemArray& items, std::int32_t (GXItem::*get)() const);

/// Sets the property of all, to a number or by one.
void setNumber(GXAppDelegate& delegate, const ItemArray& items, std::int32_t (GXItem::*get)() const,
               void (GXItem::*set)(std::int32_t), const TypedNumber& number);

} // namespace wallgrid
