// SPDX-License-Identifier: MIT
#pragma once

#include "base/registration.h"

#include <QWidget>

namespace wallgrid {

class GXAppDelegate;

/// What belongs to the output and to no item: its size and its two colours, each of which may be none, as at launch.
class OutputControls final : public QWidget {
    Q_OBJECT

public:
    explicit OutputControls(GXAppDelegate& delegate, QWidget* parent = nullptr);

private:
    Registration m_observation;
};

} // namespace wallgrid
