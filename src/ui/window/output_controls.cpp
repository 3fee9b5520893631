// SPDX-License-Identifier: MIT
#include "ui/window/output_controls.h"

#include "app/gx_app_delegate.h"
#include "ui/base/heading.h"
#include "ui/fields/color_field.h"
#include "ui/fields/fault_mark.h"
#include "ui/fields/number_field.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <functional>

namespace wallgrid {

namespace {

/// What a layered file may have.
constexpr int kLargestSide = 30'000;

struct OutputColor {
    QString caption;
    QString title;
    QString noneToolTip;
    ColorRef (GXAppDelegate::*get)() const;
    void (GXAppDelegate::*set)(ColorRef);
};

/// A field for a side of the output; gives what shows the present size. A size takes effect when it is typed to the
/// end, because every size on the way there would be composed.
std::function<void()> addSide(QGridLayout& layout, QHBoxLayout& sides, QLabel& caption, const QString& name,
                              GXAppDelegate& delegate, std::int32_t (GXAppDelegate::*get)() const,
                              void (GXAppDelegate::*set)(std::int32_t))
{
    auto* field = new NumberField(1, kLargestSide);
    field->setPutOff([](int) { return true; });
    field->setSuffix(OutputControls::tr(" px"));
    field->setToolTip(name);
    field->setAccessibleName(name);
    caption.setBuddy(field);
    QObject::connect(field, &NumberField::edited, field, [&delegate, set](const TypedNumber& side) {
        (delegate.*set)(side.value);
        delegate.update();
    });
    sides.addWidget(field);
    layout.addWidget(field->fault(), layout.rowCount(), 1, 1, 2);
    return [&delegate, field, get] { field->showValue((delegate.*get)()); };
}

/// Gives what shows the present colour.
std::function<void()> addColor(QGridLayout& layout, GXAppDelegate& delegate, const OutputColor& property)
{
    auto* field = new ColorField(property.title);
    auto* caption = new QLabel(property.caption);
    caption->setBuddy(field);
    auto* none = new QToolButton;
    none->setText(OutputControls::tr("None"));
    none->setToolTip(property.noneToolTip);
    none->setAccessibleName(property.noneToolTip);
    none->setFocusPolicy(Qt::StrongFocus);

    const auto apply = [&delegate, set = property.set](const ColorRef& color) {
        (delegate.*set)(color);
        delegate.update();
    };
    QObject::connect(field, &ColorField::colorChosen, field, apply);
    QObject::connect(none, &QToolButton::clicked, field, [apply] { apply(nullptr); });
    const int row = layout.rowCount();
    layout.addWidget(caption, row, 0);
    layout.addWidget(field, row, 1);
    layout.addWidget(none, row, 2);
    layout.addWidget(field->fault(), row + 1, 1, 1, 2);
    return [&delegate, field, none, get = property.get] {
        const ColorRef color = (delegate.*get)();
        field->setColor(color);
        none->setEnabled(color != nullptr);
    };
}

} // namespace

OutputControls::OutputControls(GXAppDelegate& delegate, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QGridLayout(this);
    layout->setVerticalSpacing(4);
    layout->setColumnStretch(1, 1);
    auto* heading = makeHeading(tr("Ou&tput"));
    layout->addWidget(heading, 0, 0);
    auto* sides = new QHBoxLayout;
    layout->addLayout(sides, 0, 1, 1, 2);
    const auto width = addSide(*layout, *sides, *heading, tr("Output width"), delegate, &GXAppDelegate::OutputWidth,
                               &GXAppDelegate::setOutputWidth);
    auto* times = new QLabel(tr("×"));
    sides->addWidget(times);
    const auto height = addSide(*layout, *sides, *times, tr("Output height"), delegate, &GXAppDelegate::OutputHeight,
                                &GXAppDelegate::setOutputHeight);
    const auto background =
        addColor(*layout, delegate,
                 {tr("&Background"), tr("Background colour"), tr("No background colour: the output is opaque black"),
                  &GXAppDelegate::bgColor, &GXAppDelegate::setBgColor});
    const auto edge = addColor(*layout, delegate,
                               {tr("Ed&ge"), tr("Edge colour"), tr("No edge colour: the edge is like the background"),
                                &GXAppDelegate::edgeColor, &GXAppDelegate::setEdgeColor});
    const auto refresh = [width, height, background, edge](std::string_view) {
        width();
        height();
        background();
        edge();
    };
    m_observation = delegate.observe(refresh);
    refresh({});
}

} // namespace wallgrid
