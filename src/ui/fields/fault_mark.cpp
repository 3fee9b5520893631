// SPDX-License-Identifier: MIT
#include "ui/fields/fault_mark.h"

namespace wallgrid {

namespace {

/// For text on the palette's window, and on its base mixed with it.
QColor redOn(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128 ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20);
}

QColor mixed(const QColor& color, const QColor& other, int percent)
{
    const auto mix = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return {mix(color.red(), other.red()), mix(color.green(), other.green()), mix(color.blue(), other.blue())};
}

} // namespace

FaultMark::FaultMark(QWidget& field)
    : QLabel(field.parentWidget())
    , m_field(field)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    hide();
}

void FaultMark::setReason(const QString& reason)
{
    if (reason == text())
        return;
    setText(reason);
    setHidden(reason.isEmpty());
    m_field.setAccessibleDescription(reason);
    m_field.setPalette({});
    if (reason.isEmpty())
        return;
    QPalette marked = m_field.palette();
    const QColor red = redOn(marked);
    marked.setColor(QPalette::Base, mixed(marked.color(QPalette::Base), red, 25));
    m_field.setPalette(marked);
    QPalette ofText = palette();
    ofText.setColor(QPalette::WindowText, red);
    setPalette(ofText);
}

} // namespace wallgrid
