// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "ui/base/deferred.h"
#include "ui/inspector/anchor.h"

#include <QWidget>
#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace wallgrid {

class AlignButtons;
class DrawingControls;
class FaultMark;
class NumberField;

/// Shows and edits the selected items of the main list. Edits go through the setters of all that have the property; the
/// controller hears of them there. Those of one item do so while they are typed, those of several when they are typed
/// to the end. Showing an item never changes it, whatever its file held.
class Inspector final : public QWidget {
    Q_OBJECT

public:
    explicit Inspector(GXAppDelegate& delegate, QWidget* parent = nullptr);

private:
    struct Number {
        QLabel* caption = nullptr;
        NumberField* field = nullptr;
    };

    QWidget* makeIdentity();
    QWidget* makeNumbers();

    void refresh();
    void bind(ItemArray items);
    /// Those whose captions do not hide the number.
    ItemArray itemsWithNumber(std::size_t index) const;
    void takeName(bool settled);
    void takeFile();
    void showName();
    void showFile();
    void showIdentity();
    void showNumbers();
    void align(Anchor anchor);

    GXAppDelegate& m_delegate;
    ItemArray m_items; // those shown
    Deferred m_refresh;
    std::vector<Registration> m_itemObservations;
    Registration m_selectionObservation;

    QLineEdit* m_name = nullptr;
    QCheckBox* m_visible = nullptr;
    QLabel* m_summary = nullptr;
    QLabel* m_fileCaption = nullptr;
    QLineEdit* m_file = nullptr;
    FaultMark* m_fileFault = nullptr;
    std::array<Number, GXItem::kCaptionCount> m_numbers;
    AlignButtons* m_align = nullptr;
    QWidget* m_drawingHeading = nullptr;
    DrawingControls* m_drawing = nullptr;
};

} // namespace wallgrid
