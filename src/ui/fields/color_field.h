// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <QWidget>

class QLineEdit;

namespace wallgrid {

class ColorButton;

/// A colour as a swatch to click and as a hexadecimal text to type or paste: "#RRGGBB" or "#RRGGBBAA". A text takes
/// effect as soon as it is a whole colour; what is none when the field is left gives way to the colour.
class ColorField final : public QWidget {
    Q_OBJECT

public:
    /// The title names the colour, for the dialog and for screen readers.
    explicit ColorField(const QString& title, QWidget* parent = nullptr);

    /// Shows a colour and tells nobody. The text stays as it is being typed while the colour stays the same.
    void setColor(const ColorRef& color);
    /// Goes back to the colour when what is typed means none or none yet, and says whether it was so.
    bool dropTyped();

signals:
    /// The user chose another colour; the field shows it already.
    void colorChosen(const wallgrid::ColorRef& color);

private:
    void showText();
    void takeText(const QString& text);

    ColorButton* m_button;
    QLineEdit* m_text;
    QString m_shown; // the colour's text, whatever is being typed
};

} // namespace wallgrid
