// SPDX-License-Identifier: MIT
#include "app/connected_views.h"

#include "app/row_drag.h"

#include <utility>

namespace wallgrid {

Registration ConnectedViews::connect(const Outlets& outlets)
{
    auto connected = std::make_shared<Views>(Views{outlets});
    m_views = connected;
    return Registration(std::move(connected));
}

ConnectedViews::Views ConnectedViews::views() const
{
    const auto connected = m_views.lock();
    return connected ? *connected : Views{};
}

void ConnectedViews::registerTables() const
{
    for (TableView* table : {views().ptable, views().table}) {
        if (table)
            table->registerForDraggedType(kRowDragType);
    }
}

void ConnectedViews::setTableDelegate(TableDelegate& delegate) const
{
    for (TableView* table : {views().table, views().ptable}) {
        if (table)
            table->setDelegate(&delegate);
    }
}

void ConnectedViews::buildPreview(Size output)
{
    const auto connected = m_views.lock();
    if (!connected || !connected->outputWindow)
        return;
    connected->preview = connected->outputWindow->addImageView({{0, -25}, output});
    connected->outputWindow->setFrame({{0, 0}, {640, 360}});
    connected->preview->setFrameSize({640, 360});
    connected->preview->setFollowsContainer();
}

void ConnectedViews::reloadTable() const
{
    if (TableView* table = views().table)
        table->reloadData();
}

void ConnectedViews::show(const ImageRef& image) const
{
    for (ImageView* view : {views().preview, views().miniPvw}) {
        if (view)
            view->setImage(image);
    }
}

} // namespace wallgrid
