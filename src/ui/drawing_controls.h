// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <QWidget>
#include <array>

class QCheckBox;

namespace wallgrid {

class ColorButton;
class NumberField;

/// What of a screen is drawn, in which colour and how wide: the inspector's group of switches.
class DrawingControls final : public QWidget {
    Q_OBJECT

public:
    explicit DrawingControls(QWidget* parent = nullptr);

    /// Shows the item's present state; edits go to its setters. Empty shows nothing.
    void show(const ItemRef& item);
    using QWidget::show;

private:
    struct Row {
        QCheckBox* enabled = nullptr;
        ColorButton* color = nullptr;
        NumberField* width = nullptr;
    };

    static constexpr std::size_t kRowCount = 5;

    ItemRef m_item;
    std::array<Row, kRowCount> m_rows;
};

} // namespace wallgrid
