// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"

#include <QWidget>
#include <array>

class QCheckBox;
class QGridLayout;
class QLabel;

namespace wallgrid {

class ColorField;
class NumberField;

/// What of screens is drawn, in which colour and how wide: the inspector's group of switches.
class DrawingControls final : public QWidget {
    Q_OBJECT

public:
    /// The delegate must outlive the controls.
    explicit DrawingControls(GXAppDelegate& delegate, QWidget* parent = nullptr);

    struct Captioned {
        QLabel* caption = nullptr;
        NumberField* field = nullptr;
    };
    /// Puts the fields of the texts' sizes below the texts' switches.
    void addTextSizes(const Captioned& position, const Captioned& size);

    /// Shows the present state of these items, and where they differ; edits go to the setters of all.
    void show(const ItemArray& items);
    using QWidget::show;

private:
    struct Row {
        QCheckBox* enabled = nullptr;
        ColorField* color = nullptr;
        NumberField* width = nullptr;
    };

    static constexpr std::size_t kRowCount = 5;

    template <class Value>
    void edit(Value (GXItem::*get)() const, void (GXItem::*set)(Value), const Value& value);

    GXAppDelegate& m_delegate;
    ItemArray m_items;
    QGridLayout* m_texts;
    std::array<Row, kRowCount> m_rows;
};

} // namespace wallgrid
