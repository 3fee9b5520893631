// SPDX-License-Identifier: MIT
#include "ui/output_bar.h"

#include "app/gx_app_delegate.h"
#include "ui/color_button.h"
#include "ui/heading.h"

#include <QHBoxLayout>
#include <QLabel>
#include <functional>

namespace wallgrid {

namespace {

struct OutputColor {
    QString caption;
    QString title;
    QString noneToolTip;
    ColorRef (GXAppDelegate::*get)() const;
    void (GXAppDelegate::*set)(ColorRef);
};

/// Gives what shows the present colour.
std::function<void()> addColor(QHBoxLayout& layout, GXAppDelegate& delegate, const OutputColor& property)
{
    auto* button = new ColorButton(property.title);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* caption = new QLabel(property.caption);
    caption->setBuddy(button);
    auto* none = new QToolButton;
    none->setText(OutputBar::tr("None"));
    none->setToolTip(property.noneToolTip);
    none->setAccessibleName(property.noneToolTip);
    none->setFocusPolicy(Qt::StrongFocus);

    const auto apply = [&delegate, set = property.set](const ColorRef& color) {
        (delegate.*set)(color);
        delegate.update();
    };
    QObject::connect(button, &ColorButton::colorChosen, button, apply);
    QObject::connect(none, &QToolButton::clicked, button, [apply] { apply(nullptr); });
    layout.addWidget(caption);
    layout.addWidget(button);
    layout.addWidget(none);
    return [&delegate, button, none, get = property.get] {
        const ColorRef color = (delegate.*get)();
        button->setColor(color);
        none->setEnabled(color != nullptr);
    };
}

} // namespace

OutputBar::OutputBar(GXAppDelegate& delegate, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(makeHeading(tr("Output")));
    layout->addStretch();
    const auto background =
        addColor(*layout, delegate,
                 {tr("&Background"), tr("Background colour"), tr("No background colour: the output is opaque black"),
                  &GXAppDelegate::bgColor, &GXAppDelegate::setBgColor});
    layout->addSpacing(12);
    const auto edge = addColor(*layout, delegate,
                               {tr("Ed&ge"), tr("Edge colour"), tr("No edge colour: the edge is like the background"),
                                &GXAppDelegate::edgeColor, &GXAppDelegate::setEdgeColor});
    const auto refresh = [background, edge](std::string_view) {
        background();
        edge();
    };
    m_observation = delegate.observe(refresh);
    refresh({});
}

} // namespace wallgrid
