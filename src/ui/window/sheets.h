// SPDX-License-Identifier: MIT
#pragma once

#include "app/new_layers.h"
#include "ui/desktop/qt_panels.h"

#include <QObject>

class QDialog;

namespace wallgrid {

/// Makes the sheets of a window as dialogs that are modal to it: "AddWindow", a choice of what to add, and "About".
class Sheets final : public QObject, public SheetLoader {
    Q_OBJECT

public:
    Sheets(GXAppDelegate& delegate, NewLayers& newLayers, QWidget& window);

    std::shared_ptr<Sheet> loadNibNamed(std::string_view name) override;

signals:
    /// Before an action that opens a file panel.
    void panelAhead(const wallgrid::PanelPurpose& purpose);

private:
    QDialog* makeAddSheet();
    QDialog* makeAboutSheet();

    GXAppDelegate& m_delegate;
    NewLayers& m_newLayers;
    QWidget& m_window;
};

} // namespace wallgrid
