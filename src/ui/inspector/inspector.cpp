// SPDX-License-Identifier: MIT
#include "ui/inspector/inspector.h"

#include "app/arrangement.h"
#include "app/edit_layers.h"
#include "app/layer_names.h"
#include "app/still_pictures.h"
#include "items/gx_screen.h"
#include "ui/base/file_location.h"
#include "ui/base/fold_heading.h"
#include "ui/base/heading.h"
#include "ui/base/image_file_name.h"
#include "ui/base/shown_text.h"
#include "ui/fields/fault_mark.h"
#include "ui/fields/number_field.h"
#include "ui/fields/select_on_click.h"
#include "ui/inspector/align_buttons.h"
#include "ui/inspector/drawing_controls.h"
#include "ui/inspector/shown_values.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

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
constexpr double kSummaryScale = 1.3; // the size of a wall is what people look for first

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

QString summaryOf(const ItemArray& items)
{
    if (items.empty())
        return Inspector::tr("No layer selected");
    if (items.size() == 1)
        return summaryOf(*items.front());
    const auto count = std::count_if(items.begin(), items.end(), [](const ItemRef& item) { return isScreen(*item); });
    const auto others = std::ssize(items) - count;
    const QString screens = count == 1 ? Inspector::tr("1 screen") : Inspector::tr("%1 screens").arg(count);
    const QString stills = others == 1 ? Inspector::tr("1 still") : Inspector::tr("%1 stills").arg(others);
    if (count > 0 && others > 0)
        return Inspector::tr("%1, %2").arg(screens, stills);
    return count > 0 ? screens : stills;
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
    auto* place = new QWidget(this);
    auto* placeLayout = new QVBoxLayout(place);
    placeLayout->setContentsMargins({});
    layout->addWidget(new FoldHeading(QStringLiteral("place"), tr("&Size and place"), *place, this));
    layout->addWidget(place);
    placeLayout->addWidget(makeNumbers());
    m_align = new AlignButtons(this);
    auto* alignCaption = new QLabel(tr("&Align"), this);
    alignCaption->setBuddy(m_align);
    connect(m_align, &AlignButtons::alignRequested, this, &Inspector::align);
    placeLayout->addWidget(alignCaption);
    placeLayout->addWidget(m_align);

    layout->addSpacing(8);
    m_drawing = new DrawingControls(m_delegate, this);
    auto* drawing = new QWidget(this);
    auto* drawingLayout = new QVBoxLayout(drawing);
    drawingLayout->setContentsMargins({});
    drawingLayout->addWidget(m_drawing);
    m_drawingHeading = new FoldHeading(QStringLiteral("drawing"), tr("&Drawing"), *drawing, this);
    m_drawing->addTextSizes({m_numbers[kFirstTextSize].caption, m_numbers[kFirstTextSize].field},
                            {m_numbers[kFirstTextSize + 1].caption, m_numbers[kFirstTextSize + 1].field});
    layout->addWidget(m_drawingHeading);
    layout->addWidget(drawing);
    layout->addStretch();

    m_selectionObservation = m_delegate.arraycontroller().observeSelection([this] { m_refresh.schedule(); });
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
    QFont large = m_summary->font();
    large.setPointSizeF(large.pointSizeF() * kSummaryScale);
    m_summary->setFont(large);
    layout->addWidget(m_summary, 0, 0, 1, 2);

    m_name = new QLineEdit(box);
    selectAllOnFirstClick(*m_name, *m_name);
    auto* nameCaption = new QLabel(tr("&Name"), box);
    nameCaption->setBuddy(m_name);
    connect(m_name, &QLineEdit::textEdited, this, [this] { takeName(false); });
    connect(m_name, &QLineEdit::editingFinished, this, [this] { takeName(true); });
    layout->addWidget(nameCaption, 1, 0);
    layout->addWidget(m_name, 1, 1);

    m_file = new QLineEdit(box);
    m_fileFault = new FaultMark(*m_file);
    m_fileCaption = new QLabel(tr("File"), box);
    m_fileCaption->setBuddy(m_file);
    selectAllOnFirstClick(*m_file, *m_file);
    connect(m_file, &QLineEdit::editingFinished, this, &Inspector::takeFile);
    layout->addWidget(m_fileCaption, 2, 0);
    layout->addWidget(m_file, 2, 1);
    layout->addWidget(m_fileFault, 3, 0, 1, 2);

    m_visible = new QCheckBox(tr("V&isible in the output"), box);
    connect(m_visible, &QCheckBox::clicked, this, [this](bool visible) {
        editLayers(m_delegate, m_items, [visible](GXItem& item) {
            if (item.visible() != visible)
                item.setVisible(visible);
            return false;
        });
    });
    layout->addWidget(m_visible, 4, 1);
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
            const bool size = i < 4 && isScreen(*m_items.front());
            return m_items.size() > 1 || (size && pixelsWith(*m_items.front(), i, value) > kLargestWhileTyping);
        });
        connect(number.field, &NumberField::edited, this, [this, i](const TypedNumber& typed) {
            setNumber(m_delegate, itemsWithNumber(i), kNumbers[i].get, kNumbers[i].set, typed);
        });
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
    if (ItemArray selected = selectedLayers(m_delegate); selected != m_items)
        bind(std::move(selected));
    for (const Number& number : m_numbers)
        number.field->setEnabled(!m_items.empty());
    for (QWidget* widget :
         {static_cast<QWidget*>(m_name), static_cast<QWidget*>(m_visible), static_cast<QWidget*>(m_align)})
        widget->setEnabled(!m_items.empty());
    for (QLabel* caption : findChildren<QLabel*>()) {
        if (const QWidget* named = caption->buddy())
            caption->setEnabled(named->isEnabledTo(named->parentWidget()));
    }
    showIdentity();
    showNumbers();
    ItemArray drawn = m_items;
    std::erase_if(drawn, [](const ItemRef& item) { return item->captions().groupRightHidden; });
    m_drawing->show(drawn);
    const bool drawingHidden = drawn.empty() && !m_items.empty();
    m_drawingHeading->setHidden(drawingHidden);
    m_drawing->setHidden(drawingHidden);
}

void Inspector::bind(ItemArray items)
{
    m_items = std::move(items);
    m_name->setModified(false);
    m_file->setModified(false);
    for (const Number& number : m_numbers)
        number.field->dropTyped(); // it was meant for the items before
    m_itemObservations.clear();
    for (const ItemRef& item : m_items)
        m_itemObservations.push_back(item->observe([this](std::string_view) { m_refresh.schedule(); }));
}

ItemArray Inspector::itemsWithNumber(std::size_t index) const
{
    ItemArray items = m_items;
    std::erase_if(items, [index](const ItemRef& item) { return item->captions().fields[index].hidden; });
    return items;
}

void Inspector::takeName(bool settled)
{
    const bool several = m_items.size() > 1;
    if (several != settled || !m_name->isModified())
        return;
    const std::u16string typed = m_name->text().toStdU16String();
    if (several)
        m_name->setModified(false);
    std::size_t number = 0;
    editLayers(m_delegate, m_items, [&](GXItem& item) {
        const StringRef name = several ? nameWithNumber(typed, ++number) : makeString(typed);
        if (textOf(item.label()) != textOf(name))
            item.setLabel(name);
        return false;
    });
    m_refresh.schedule();
}

void Inspector::showName()
{
    const StringRef label = m_items.empty() ? nullptr : m_items.front()->label();
    const bool tooLong = viewOf(label).size() > kLongestEditableName;
    const bool mixed = std::any_of(m_items.begin(), m_items.end(),
                                   [&](const ItemRef& item) { return textOf(item->label()) != textOf(label); });
    m_name->setToolTip(m_items.size() > 1 ? tr("# becomes a running number: Wall #") : QString());
    m_name->setPlaceholderText(mixed ? tr("mixed") : tooLong ? shownText(label) : QString());
    if (m_items.size() > 1 && m_name->isModified())
        return; // it is being typed
    if (tooLong || mixed)
        m_name->setText({}); // clear() would count as typed
    else if (m_name->text() != viewOf(label))
        m_name->setText(viewOf(label).toString());
}

void Inspector::showIdentity()
{
    m_summary->setText(summaryOf(m_items));
    showName();
    showSwitch(*m_visible, m_items, &GXItem::visible);
    showFile();
}

void Inspector::takeFile()
{
    const auto still = m_items.size() == 1 ? std::dynamic_pointer_cast<GXStill>(m_items.front()) : nullptr;
    if (!still || !m_file->isModified())
        return;
    // A name alone is that of a file beside the present one.
    const auto present = still->ImageURL()->filePath();
    const QDir folder = QFileInfo(QFile::decodeName(present.value_or("/").c_str())).dir();
    const auto changed = changePicture(m_delegate, *still, fileLocation(folder.absoluteFilePath(m_file->text())));
    m_file->setModified(!changed);
    m_refresh.schedule();
    const QString reason = changed ? QString() : QString::fromStdString(changed.error().message);
    m_fileFault->setReason(reason.left(1).toUpper() + reason.mid(1));
}

void Inspector::showFile()
{
    const auto file = m_items.size() == 1 ? imageFile(*m_items.front()) : std::nullopt;
    m_fileCaption->setVisible(file.has_value());
    m_file->setVisible(file.has_value());
    if (file && m_file->isModified())
        return; // it is being typed, or is wrong
    const bool isMissing = file && missingImageFile(*m_items.front());
    m_fileFault->setReason(isMissing ? tr("This file is missing or unreadable.") : QString());
    if (file && m_file->text() != *file)
        m_file->setText(*file);
}

void Inspector::showNumbers()
{
    static const GXItem::Captions noCaptions = GXScreen().standardCaptions();
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        const Number& number = m_numbers[i];
        const ItemArray items = itemsWithNumber(i);
        const ItemRef captioned = items.empty() && !m_items.empty() ? m_items.front() : nullptr;
        const GXItem::Captions& captions = captioned       ? captioned->captions()
                                           : items.empty() ? noCaptions
                                                           : items.front()->captions();
        const GXItem::Caption& caption = captions.fields[i];
        number.caption->setText(withoutMnemonics(shownText(caption.text)));
        number.field->setAccessibleName(shownText(caption.text));
        number.caption->setHidden(caption.hidden);
        number.field->setHidden(caption.hidden);
        showNumber(*number.field, items, kNumbers[i].get);
    }
}

void Inspector::align(Anchor anchor)
{
    const PixelRect around = placeAround(m_items);
    const PixelPoint place = positionAt(anchor, around, {0, 0, m_delegate.OutputWidth(), m_delegate.OutputHeight()});
    bool drawn = false;
    for (const ItemRef& item : m_items)
        drawn |= moveTo(*item, item->frame().origin() + place + -around.origin());
    if (drawn)
        m_delegate.update();
}

} // namespace wallgrid
