// SPDX-License-Identifier: MIT
#pragma once

#include "base/key_value_observing.h"

#include <QWidget>

namespace wallgrid {

class GXAppDelegate;

/// What belongs to the output and to no item: its size and its two colours, each of which may be none, as at launch.
class OutputControls final : public QWidget {
    Q_OBJECT

public:
    /// The delegate must outlive the controls.
    explicit OutputControls(GXAppDelegate& delegate, QWidget* parent = nullptr);

private:
    KeyValueObservable::Observation m_observation;
};

} // namespace wallgrid
