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
class NumberField;

/// Shows and edits the first selected item of the main list. Edits go through the item's setters while they are typed;
/// the controller hears of them there. Showing an item never changes it, whatever its file held.
class Inspector final : public QWidget {
    Q_OBJECT

public:
    /// The delegate must outlive the inspector and tell it nothing once the inspector has ended.
    explicit Inspector(GXAppDelegate& delegate, QWidget* parent = nullptr);

private:
    struct Number {
        QLabel* caption = nullptr;
        NumberField* field = nullptr;
    };

    QWidget* makeIdentity();
    QWidget* makeNumbers();

    void refresh();
    void bind(const ItemRef& item);
    void showIdentity();
    void showNumbers();
    void align(Anchor anchor);

    GXAppDelegate& m_delegate;
    ItemRef m_item; // the one shown, or empty
    KeyValueObservable::Observation m_observation;
    Deferred m_refresh;

    QLineEdit* m_name = nullptr;
    QCheckBox* m_visible = nullptr;
    QLabel* m_summary = nullptr;
    QLabel* m_fileCaption = nullptr;
    QLineEdit* m_file = nullptr;
    std::array<Number, GXItem::kCaptionCount> m_numbers;
    AlignButtons* m_align = nullptr;
    QWidget* m_drawingHeading = nullptr;
    DrawingControls* m_drawing = nullptr;
};

} // namespace wallgrid
