// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "ui/base/deferred.h"

#include <QStackedWidget>
#include <array>

class QAction;

namespace wallgrid {

/// Shows the inspector while a layer is selected, and otherwise how to come by one.
class InspectorPages final : public QStackedWidget {
    Q_OBJECT

public:
    InspectorPages(GXAppDelegate& delegate, QWidget* inspector, QAction* selectAll, QAction* add);

private:
    void refresh();

    const GXAppDelegate::ItemController& m_layers;
    Deferred m_refresh;
    std::array<Registration, 2> m_observations;
};

} // namespace wallgrid
