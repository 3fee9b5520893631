// SPDX-License-Identifier: MIT
#include "ui/window/layer_actions.h"

#include "app/preset_file.h"
#include "app/undo_history.h"
#include "ui/fields/number_field.h"
#include "ui/window/command_icons.h"
#include "ui/window/number_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QMenu>
#include <QMimeData>
#include <QToolBar>
#include <array>

namespace wallgrid {

namespace {

/// The layers as a presets file, so that they go between windows of the program.
constexpr auto kClipboardType = "application/x-wallgrid-layers";

constexpr int kMostInOneDirection = 1000;
constexpr int kLargestGap = 100'000;

struct Alignment {
    Direction direction;
    Edge edge;
    const char* name;
    const char* toolTip;
    const char* keys;
};
constexpr std::array kAlignments{
    Alignment{Direction::Across, Edge::Near, QT_TRANSLATE_NOOP("wallgrid::LayerActions", "&Left"),
              QT_TRANSLATE_NOOP("wallgrid::LayerActions", "Align left edges"), "Ctrl+Shift+L"},
    Alignment{Direction::Across, Edge::Middle, QT_TRANSLATE_NOOP("wallgrid::LayerActions", "&Centre"),
              QT_TRANSLATE_NOOP("wallgrid::LayerActions", "Align middles, left to right"), "Ctrl+Shift+C"},
    Alignment{Direction::Across, Edge::Far, QT_TRANSLATE_NOOP("wallgrid::LayerActions", "&Right"),
              QT_TRANSLATE_NOOP("wallgrid::LayerActions", "Align right edges"), "Ctrl+Shift+R"},
    Alignment{Direction::Down, Edge::Near, QT_TRANSLATE_NOOP("wallgrid::LayerActions", "&Top"),
              QT_TRANSLATE_NOOP("wallgrid::LayerActions", "Align top edges"), "Ctrl+Shift+T"},
    Alignment{Direction::Down, Edge::Middle, QT_TRANSLATE_NOOP("wallgrid::LayerActions", "&Middle"),
              QT_TRANSLATE_NOOP("wallgrid::LayerActions", "Align middles, top to bottom"), "Ctrl+Shift+M"},
    Alignment{Direction::Down, Edge::Far, QT_TRANSLATE_NOOP("wallgrid::LayerActions", "&Bottom"),
              QT_TRANSLATE_NOOP("wallgrid::LayerActions", "Align bottom edges"), "Ctrl+Shift+B"},
};

int toInt(std::int64_t number)
{
    return static_cast<int>(number);
}

} // namespace

LayerActions::LayerActions(GXAppDelegate& delegate, UndoHistory& history, QWidget& window)
    : QObject(&window)
    , m_delegate(delegate)
    , m_history(history)
    , m_window(window)
{
    makeEditActions();
    makeAlignActions();
    window.installEventFilter(this);
    drawIcons();
}

template <class Command>
QAction* LayerActions::makeAction(const QString& text, const QString& toolTip, const QKeySequence& keys,
                                  std::size_t fewest, Command command)
{
    auto* action = new QAction(text, this);
    action->setShortcut(keys);
    const QString shownKeys = keys.toString(QKeySequence::NativeText);
    action->setToolTip(shownKeys.isEmpty() ? toolTip : tr("%1 (%2)").arg(toolTip, shownKeys));
    connect(action, &QAction::triggered, this, [this, fewest, command] {
        const std::size_t selected = m_delegate.arraycontroller().selectionIndexes().size();
        if (selected >= fewest)
            asOneStep(command);
        else if (fewest == 1)
            emit messageWanted(tr("No layer is selected."));
        else
            emit messageWanted(tr("Select at least %1 layers.").arg(fewest));
    });
    return action;
}

template <class Command>
void LayerActions::asOneStep(Command command)
{
    m_history.closeStep();
    command();
    m_history.closeStep();
}

void LayerActions::makeEditActions()
{
    m_selectAll = makeAction(tr("&Select All"), tr("Select all layers"), QKeySequence::SelectAll, 0, [this] {
        auto& layers = m_delegate.arraycontroller();
        GXAppDelegate::ItemController::Indexes all;
        for (std::size_t row = 0; row < layers.arrangedObjects().size(); ++row)
            all.insert(all.end(), row);
        layers.setSelectionIndexes(all);
    });
    m_edit = {
        makeAction(tr("Cu&t"), tr("Copy the selected layers and remove them"), QKeySequence::Cut, 1,
                   [this] {
                       copy();
                       m_delegate.remove();
                   }),
        makeAction(tr("&Copy"), tr("Copy the selected layers"), QKeySequence::Copy, 1, [this] { copy(); }),
        makeAction(tr("&Paste"), tr("Add the layers that were copied"), QKeySequence::Paste, 0, [this] { paste(); }),
        m_selectAll,
        makeAction(tr("&Duplicate"), tr("Put a copy beside each selected layer"), Qt::CTRL | Qt::Key_D, 1,
                   [this] { duplicateLayers(m_delegate); }),
        makeAction(tr("Arra&y…"), tr("Repeat the selected layers side by side and on top of each other"),
                   Qt::CTRL | Qt::SHIFT | Qt::Key_A, 1, [this] { askForArray(); }),
    };
    const std::array themeIcons{"edit-cut", "edit-copy", "edit-paste"};
    for (std::size_t i = 0; i < themeIcons.size(); ++i)
        m_edit[qsizetype(i)]->setIcon(QIcon::fromTheme(QString::fromLatin1(themeIcons[i])));
}

void LayerActions::makeAlignActions()
{
    for (const Alignment& each : kAlignments) {
        const auto align = [this, each](const PixelRect& frame) {
            alignLayers(m_delegate, each.direction, each.edge, frame);
        };
        const auto inOutput = [this, align] { align({0, 0, m_delegate.OutputWidth(), m_delegate.OutputHeight()}); };
        m_align.append(makeAction(tr(each.name), tr(each.toolTip), QKeySequence(each.keys), 1, [=, this] {
            const ItemArray selected = selectedLayers(m_delegate);
            if (selected.size() == 1) // there is only the output to align it to
                inOutput();
            else
                align(placeAround(selected));
        }));
        m_alignInOutput.append(
            makeAction(tr(each.name), tr("%1 in the output").arg(tr(each.toolTip)), {}, 1, inOutput));
    }
    m_distribute = {
        makeAction(tr("Distribute &Across"), tr("Make equal gaps from left to right"), Qt::CTRL | Qt::SHIFT | Qt::Key_X,
                   3, [this] { distributeLayers(m_delegate, Direction::Across); }),
        makeAction(tr("Distribute &Down"), tr("Make equal gaps from top to bottom"), Qt::CTRL | Qt::SHIFT | Qt::Key_D,
                   3, [this] { distributeLayers(m_delegate, Direction::Down); }),
    };
    m_rows = makeAction(tr("Place in Ro&ws…"), tr("Place the selected layers one behind the other"),
                        Qt::CTRL | Qt::SHIFT | Qt::Key_W, 2, [this] { askForRows(); });
}

void LayerActions::addTo(QMenu& arrange)
{
    arrange.addActions(m_align);
    arrange.addMenu(tr("&In the Output"))->addActions(m_alignInOutput);
    arrange.addSeparator();
    arrange.addActions(m_distribute);
    arrange.addSeparator();
    arrange.addAction(m_rows);
}

void LayerActions::addTo(QToolBar& bar)
{
    bar.addActions(m_align);
    bar.addSeparator();
    bar.addActions(m_distribute);
    bar.addAction(m_rows);
}

void LayerActions::copy() const
{
    const Bytes bytes = writePresets(selectedLayers(m_delegate));
    auto* data = new QMimeData;
    data->setData(kClipboardType, {reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size())});
    QApplication::clipboard()->setMimeData(data);
}

void LayerActions::paste()
{
    const QMimeData* data = QApplication::clipboard()->mimeData();
    if (!data || !data->hasFormat(kClipboardType)) {
        emit messageWanted(tr("Nothing to paste: no layers were copied."));
        return;
    }
    const QByteArray bytes = data->data(kClipboardType);
    if (const auto items = readPresets(Bytes(bytes.begin(), bytes.end())))
        pasteLayers(m_delegate, *items);
    else
        emit messageWanted(
            tr("The copied layers cannot be read: %1").arg(QString::fromStdString(items.error().message)));
}

void LayerActions::askForArray()
{
    auto* dialog = new NumberDialog(tr("Array"), tr("&Make"), &m_window);
    auto* across = dialog->addNumber(tr("&Columns"), 1, kMostInOneDirection, toInt(std::int64_t(m_lastArray.across)));
    auto* down = dialog->addNumber(tr("&Rows"), 1, kMostInOneDirection, toInt(std::int64_t(m_lastArray.down)));
    auto* gapAcross = dialog->addNumber(tr("Gap &between columns"), -kLargestGap, kLargestGap,
                                        toInt(m_lastArray.gapAcross), tr(" px"));
    auto* gapDown =
        dialog->addNumber(tr("&Gap between rows"), -kLargestGap, kLargestGap, toInt(m_lastArray.gapDown), tr(" px"));
    const ItemArray selected = selectedLayers(m_delegate);
    dialog->setSummary([=, around = placeAround(selected), each = selected.size()]() -> QString {
        const std::int64_t count = std::int64_t(across->value()) * down->value() * std::int64_t(each);
        if (count > std::int64_t(ArrayLayout::kMostCopies))
            return tr("%1 layers are more than %2.").arg(count).arg(ArrayLayout::kMostCopies);
        return tr("%1 layers, %2 × %3 px")
            .arg(count)
            .arg((around.width + gapAcross->value()) * across->value() - gapAcross->value())
            .arg((around.height + gapDown->value()) * down->value() - gapDown->value());
    });
    connect(dialog, &QDialog::accepted, this, [=, this] {
        m_lastArray = {std::size_t(across->value()), std::size_t(down->value()), gapAcross->value(), gapDown->value()};
        asOneStep([this] { makeArray(m_delegate, m_lastArray); });
    });
    dialog->open();
}

void LayerActions::askForRows()
{
    auto* dialog = new NumberDialog(tr("Place in Rows"), tr("&Place"), &m_window);
    auto* perRow =
        dialog->addNumber(tr("&Layers in a row"), 1, kMostInOneDirection, toInt(std::int64_t(m_lastRows.perRow)));
    auto* gapAcross =
        dialog->addNumber(tr("Gap &between layers"), -kLargestGap, kLargestGap, toInt(m_lastRows.gapAcross), tr(" px"));
    auto* gapDown =
        dialog->addNumber(tr("&Gap between rows"), -kLargestGap, kLargestGap, toInt(m_lastRows.gapDown), tr(" px"));
    connect(dialog, &QDialog::accepted, this, [=, this] {
        m_lastRows = {std::size_t(perRow->value()), gapAcross->value(), gapDown->value()};
        asOneStep([this] { placeInRows(m_delegate, m_lastRows); });
    });
    dialog->open();
}

void LayerActions::drawIcons()
{
    const QPalette palette = m_window.palette();
    const qreal ratio = m_window.devicePixelRatioF();
    for (std::size_t i = 0; i < kAlignments.size(); ++i) {
        const QIcon icon = alignIcon(kAlignments[i].direction, kAlignments[i].edge, palette, ratio);
        m_align[qsizetype(i)]->setIcon(icon);
        m_alignInOutput[qsizetype(i)]->setIcon(icon);
    }
    m_distribute[0]->setIcon(distributeIcon(Direction::Across, palette, ratio));
    m_distribute[1]->setIcon(distributeIcon(Direction::Down, palette, ratio));
    m_rows->setIcon(rowsIcon(palette, ratio));
}

bool LayerActions::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        drawIcons();
    return QObject::eventFilter(watched, event);
}

} // namespace wallgrid
