// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <QWidget>
#include <optional>

class QLineEdit;

namespace wallgrid {

class ColorButton;
class FaultMark;

/// A colour as a swatch to click and as a text to type or paste: "#RRGGBB", "#RRGGBBAA", "#RGB" or a name of CSS. A
/// text takes effect as soon as it is a whole colour. One that is none when the field is left is marked with the
/// reason, and the colour is what it was before the typing.
class ColorField final : public QWidget {
    Q_OBJECT

public:
    /// The title names the colour, for the dialog and for screen readers.
    explicit ColorField(const QString& title, QWidget* parent = nullptr);

    /// Shows a colour and tells nobody. The text stays as it is being typed while the colour stays the same.
    void setColor(const ColorRef& color);
    /// Shows that there are several colours, which differ.
    void setMixed();
    /// Whether a text counts only when it is typed to the end.
    void setPutOff(bool putOff) { m_putOff = putOff; }
    /// Goes back to the colour when what is typed means none or none yet, and says whether it was so.
    bool dropTyped();
    /// To be laid out beside the field.
    FaultMark* fault() const { return m_fault; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The user chose another colour; the field shows it already.
    void colorChosen(const wallgrid::ColorRef& color);

private:
    void keep(const ColorRef& color);
    void showText();
    void take(const QString& text);
    void choose(const QColor& typed);
    void settle();

    ColorButton* m_button;
    QLineEdit* m_text;
    FaultMark* m_fault;
    bool m_putOff = false;
    QString m_shown;                  // the colour's text, whatever is being typed
    std::optional<ColorRef> m_before; // the colour before the typing, once that has changed it
};

} // namespace wallgrid
