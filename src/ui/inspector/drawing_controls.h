// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <QWidget>
#include <array>

class QCheckBox;
class QGridLayout;
class QLabel;

namespace wallgrid {

class ColorField;
class NumberField;

/// What of a screen is drawn, in which colour and how wide: the inspector's group of switches.
class DrawingControls final : public QWidget {
    Q_OBJECT

public:
    explicit DrawingControls(QWidget* parent = nullptr);

    struct Captioned {
        QLabel* caption = nullptr;
        NumberField* field = nullptr;
    };
    /// Puts the fields of the texts' sizes below the texts' switches.
    void addTextSizes(const Captioned& position, const Captioned& size);

    /// Shows the item's present state; edits go to its setters. Empty shows nothing.
    void show(const ItemRef& item);
    using QWidget::show;

private:
    struct Row {
        QCheckBox* enabled = nullptr;
        ColorField* color = nullptr;
        NumberField* width = nullptr;
    };

    static constexpr std::size_t kRowCount = 5;

    ItemRef m_item;
    QGridLayout* m_texts;
    std::array<Row, kRowCount> m_rows;
};

} // namespace wallgrid
