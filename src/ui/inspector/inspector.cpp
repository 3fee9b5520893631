// SPDX-License-Identifier: MIT
#include "ui/inspector/inspector.h"

#include "items/gx_screen.h"
#include "ui/base/heading.h"
#include "ui/base/image_file_name.h"
#include "ui/base/shown_text.h"
#include "ui/fields/fault_mark.h"
#include "ui/fields/number_field.h"
#include "ui/fields/select_on_click.h"
#include "ui/inspector/align_buttons.h"
#include "ui/inspector/drawing_controls.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace wallgrid {

namespace {

/// Above this many pixels a screen is not drawn before its numbers are typed to the end.
constexpr double kLargestWhileTyping = 64e6;

struct NumberProperty {
    std::int32_t (GXItem::*get)() const;
    void (GXItem::*set)(std::int32_t);
    int minimum;
    int maximum;
    bool pixels;
    const char* toolTip;
};

constexpr std::array<NumberProperty, GXItem::kCaptionCount> kNumbers{{
    {&GXItem::panelWidth, &GXItem::setPanelWidth, 0, 100'000, true,
     QT_TRANSLATE_NOOP("wallgrid::Inspector", "Panel width")},
    {&GXItem::panelHeight, &GXItem::setPanelHeight, 0, 100'000, true,
     QT_TRANSLATE_NOOP("wallgrid::Inspector", "Panel height")},
    {&GXItem::col, &GXItem::setCol, 0, 10'000, false, QT_TRANSLATE_NOOP("wallgrid::Inspector", "Columns of panels")},
    {&GXItem::row, &GXItem::setRow, 0, 10'000, false, QT_TRANSLATE_NOOP("wallgrid::Inspector", "Rows of panels")},
    {&GXItem::xpoint, &GXItem::setXpoint, -100'000, 100'000, true,
     QT_TRANSLATE_NOOP("wallgrid::Inspector", "Left edge")},
    {&GXItem::ypoint, &GXItem::setYpoint, -100'000, 100'000, true,
     QT_TRANSLATE_NOOP("wallgrid::Inspector", "Top edge")},
    {&GXItem::XYFontSize, &GXItem::setXYFontSize, 0, 10'000, true,
     QT_TRANSLATE_NOOP("wallgrid::Inspector", "Size of the position text; 0 is 13 px")},
    {&GXItem::screenFontSize, &GXItem::setScreenFontSize, 0, 10'000, true,
     QT_TRANSLATE_NOOP("wallgrid::Inspector", "Size of the size text; 0 is 13 px")},
}};

/// From here on the numbers are the sizes of texts, which stand with the texts' switches.
constexpr std::size_t kFirstTextSize = 6;

constexpr int kRoomAboveCaption = 3;

bool isScreen(const GXItem& item)
{
    return dynamic_cast<const GXScreen*>(&item) != nullptr;
}

/// How many pixels a screen would have with another number in place of one of its own.
double pixelsWith(const GXItem& item, std::size_t changed, int value)
{
    double pixels = 1;
    for (std::size_t i = 0; i < 4; ++i)
        pixels *= i == changed ? value : (item.*kNumbers[i].get)();
    return pixels;
}

QString summaryOf(const GXItem& item)
{
    const QString size = Inspector::tr("%1 × %2 px").arg(item.screenSizeWidth()).arg(item.screenSizeHeight());
    if (!isScreen(item))
        return Inspector::tr("Still, %1").arg(size);
    const bool drawn = item.thumbnail() && item.thumbnail()->firstRepresentation();
    const bool empty = item.screenSizeWidth() <= 0 || item.screenSizeHeight() <= 0;
    return drawn || empty ? Inspector::tr("Screen, %1").arg(size)
                          : Inspector::tr("Screen, %1: too large to draw").arg(size);
}

} // namespace

Inspector::Inspector(GXAppDelegate& delegate, QWidget* parent)
    : QWidget(parent)
    , m_delegate(delegate)
    , m_refresh([this] { refresh(); })
{
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeIdentity());
    layout->addSpacing(8);
    layout->addWidget(makeHeading(tr("Size and place"), this));
    layout->addWidget(makeNumbers());

    m_align = new AlignButtons(this);
    auto* alignCaption = new QLabel(tr("&Align"), this);
    alignCaption->setBuddy(m_align);
    connect(m_align, &AlignButtons::alignRequested, this, &Inspector::align);
    layout->addWidget(alignCaption);
    layout->addWidget(m_align);

    layout->addSpacing(8);
    m_drawingHeading = makeHeading(tr("Drawing"), this);
    m_drawing = new DrawingControls(this);
    m_drawing->addTextSizes({m_numbers[kFirstTextSize].caption, m_numbers[kFirstTextSize].field},
                            {m_numbers[kFirstTextSize + 1].caption, m_numbers[kFirstTextSize + 1].field});
    layout->addWidget(m_drawingHeading);
    layout->addWidget(m_drawing);
    layout->addStretch();

    m_delegate.arraycontroller().addSelectionObserver([this] { m_refresh.schedule(); });
    refresh();
}

QWidget* Inspector::makeIdentity()
{
    auto* box = new QWidget(this);
    auto* layout = new QGridLayout(box);
    layout->setContentsMargins({});
    layout->setVerticalSpacing(4);

    m_summary = makeHeading({}, box);
    m_summary->setTextFormat(Qt::PlainText);
    layout->addWidget(m_summary, 0, 0, 1, 2);

    m_name = new QLineEdit(box);
    selectAllOnFirstClick(*m_name, *m_name);
    auto* nameCaption = new QLabel(tr("&Name"), box);
    nameCaption->setBuddy(m_name);
    connect(m_name, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_item->setLabel(makeString(text.toStdU16String())); });
    layout->addWidget(nameCaption, 1, 0);
    layout->addWidget(m_name, 1, 1);

    m_file = new QLineEdit(box);
    m_file->setReadOnly(true);
    m_fileCaption = new QLabel(tr("File"), box);
    m_fileCaption->setBuddy(m_file);
    layout->addWidget(m_fileCaption, 2, 0);
    layout->addWidget(m_file, 2, 1);

    m_visible = new QCheckBox(tr("V&isible in the output"), box);
    connect(m_visible, &QCheckBox::clicked, this, [this](bool visible) { m_item->setVisible(visible); });
    layout->addWidget(m_visible, 3, 1);
    return box;
}

QWidget* Inspector::makeNumbers()
{
    auto* box = new QWidget(this);
    auto* layout = new QGridLayout(box);
    layout->setContentsMargins({});
    layout->setVerticalSpacing(2);
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        const NumberProperty& property = kNumbers[i];
        Number& number = m_numbers[i];
        number.field = new NumberField(property.minimum, property.maximum, box);
        if (property.pixels)
            number.field->setSuffix(tr(" px"));
        number.field->setToolTip(tr(property.toolTip));
        number.caption = new QLabel(box);
        number.caption->setBuddy(number.field);
        number.field->setPutOff([this, i](int value) {
            return i < 4 && isScreen(*m_item) && pixelsWith(*m_item, i, value) > kLargestWhileTyping;
        });
        connect(number.field, &NumberField::edited, this,
                [this, set = property.set](const TypedNumber& typed) { ((*m_item).*set)(typed.value); });
        if (i >= kFirstTextSize)
            continue;
        number.caption->setContentsMargins(0, kRoomAboveCaption, 0, 0);
        const int line = 4 * static_cast<int>(i / 2); // of caption, field and what is wrong with each of two
        const int column = static_cast<int>(i % 2);
        layout->addWidget(number.caption, line, column);
        layout->addWidget(number.field, line + 1, column);
        layout->addWidget(number.field->fault(), line + 2 + column, 0, 1, 2);
    }
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    return box;
}

void Inspector::refresh()
{
    const ItemRef selected = m_delegate.arraycontroller().selectedObject();
    if (selected != m_item)
        bind(selected);
    for (const Number& number : m_numbers)
        number.field->setEnabled(m_item != nullptr);
    for (QWidget* widget :
         {static_cast<QWidget*>(m_name), static_cast<QWidget*>(m_visible), static_cast<QWidget*>(m_align)})
        widget->setEnabled(m_item != nullptr);
    for (QLabel* caption : findChildren<QLabel*>()) {
        if (const QWidget* named = caption->buddy())
            caption->setEnabled(named->isEnabledTo(named->parentWidget()));
    }
    showIdentity();
    showNumbers();
    m_drawing->show(m_item);
    const bool drawingHidden = m_item && m_item->captions().groupRightHidden;
    m_drawingHeading->setHidden(drawingHidden);
    m_drawing->setHidden(drawingHidden);
}

void Inspector::bind(const ItemRef& item)
{
    m_item = item;
    for (const Number& number : m_numbers)
        number.field->dropTyped(); // it was meant for the item before
    m_observation = {};
    if (m_item)
        m_observation = m_item->observe([this](std::string_view) { m_refresh.schedule(); });
}

void Inspector::showIdentity()
{
    const std::size_t selectedRows = m_delegate.arraycontroller().selectionIndexes().size();
    m_summary->setText(m_item ? summaryOf(*m_item) : tr("No layer selected"));
    m_summary->setToolTip(selectedRows > 1 ? tr("The first of %1 selected layers is shown.").arg(selectedRows)
                                           : QString());

    const StringRef label = m_item ? m_item->label() : nullptr;
    const bool tooLong = viewOf(label).size() > kLongestEditableName;
    if (tooLong)
        m_name->clear();
    else if (m_name->text() != viewOf(label))
        m_name->setText(viewOf(label).toString());
    m_name->setPlaceholderText(tooLong ? shownText(label) : QString());
    m_visible->setChecked(m_item && m_item->visible());

    const auto file = m_item ? imageFile(*m_item) : std::nullopt;
    m_fileCaption->setVisible(file.has_value());
    m_file->setVisible(file.has_value());
    if (file && m_file->text() != *file)
        m_file->setText(*file);
    m_file->setToolTip(file && missingImageFile(*m_item) ? tr("This file is missing or unreadable.") : QString());
}

void Inspector::showNumbers()
{
    static const GXItem::Captions noCaptions = GXScreen().standardCaptions();
    const GXItem::Captions& captions = m_item ? m_item->captions() : noCaptions;
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        const Number& number = m_numbers[i];
        const GXItem::Caption& caption = captions.fields[i];
        number.caption->setText(withoutMnemonics(shownText(caption.text)));
        number.field->setAccessibleName(shownText(caption.text));
        number.caption->setHidden(caption.hidden);
        number.field->setHidden(caption.hidden);
        number.field->showValue(m_item ? ((*m_item).*kNumbers[i].get)() : 0);
    }
}

void Inspector::align(Anchor anchor)
{
    const Position position = positionAt(anchor, {m_item->screenSizeWidth(), m_item->screenSizeHeight()},
                                         {m_delegate.OutputWidth(), m_delegate.OutputHeight()});
    const ItemRef item = m_item;
    if (item->xpoint() != position.x)
        item->setXpoint(position.x);
    if (item->ypoint() != position.y)
        item->setYpoint(position.y);
}

} // namespace wallgrid
