// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <QToolButton>

namespace wallgrid {

/// A swatch of a colour, or of no colour; a click opens a dialog to choose another, with alpha. A colour is never
/// written back unless the user chose a different one, so it keeps its own colour space.
class ColorButton final : public QToolButton {
    Q_OBJECT

public:
    /// The title names the colour, for the dialog and for screen readers.
    explicit ColorButton(const QString& title, QWidget* parent = nullptr);

    const ColorRef& color() const { return m_color; }
    void setColor(const ColorRef& color);
    /// Stands for several colours that differ.
    void setMixed();

    QSize sizeHint() const override;

signals:
    /// The user chose another colour; the button shows it already.
    void colorChosen(const wallgrid::ColorRef& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void setDescription(const QString& description);
    void choose();

    QString m_title;
    ColorRef m_color;
};

} // namespace wallgrid
