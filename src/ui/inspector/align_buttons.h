// SPDX-License-Identifier: MIT
#pragma once

#include "ui/inspector/anchor.h"

#include <QWidget>
#include <vector>

class QToolButton;

namespace wallgrid {

/// One button for each anchor.
class AlignButtons final : public QWidget {
    Q_OBJECT

public:
    explicit AlignButtons(QWidget* parent = nullptr);

    static QString anchorName(Anchor anchor);

protected:
    void changeEvent(QEvent* event) override;

signals:
    void alignRequested(wallgrid::Anchor anchor);

private:
    /// In the colours of the palette.
    void drawIcons();

    std::vector<QToolButton*> m_buttons; // in the order of the anchors
};

} // namespace wallgrid
