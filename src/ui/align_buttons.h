// SPDX-License-Identifier: MIT
#pragma once

#include "ui/anchor.h"

#include <QWidget>

namespace wallgrid {

/// One button for each anchor.
class AlignButtons final : public QWidget {
    Q_OBJECT

public:
    explicit AlignButtons(QWidget* parent = nullptr);

    static QString anchorName(Anchor anchor);

signals:
    void alignRequested(wallgrid::Anchor anchor);
};

} // namespace wallgrid
