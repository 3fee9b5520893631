// SPDX-License-Identifier: MIT
#include "app/row_drag.h"
#include "items/gx_still.h"
#include "program_under_test.h"

#include <QDialog>
#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPushButton>

using namespace wallgrid;

namespace {

const std::string kRefusal = "List Cannot be empty, Function was cancelled|";
const QString kRowType = "BasicTableViewDragAndDropDataType";

/// The launched program with the layers C, B, A (from the top) and the presets GRID, LINES, CROSS, CIRCLE.
struct Lists : ProgramUnderTest {
    Lists()
    {
        delegate().loadProject({1080, 1920, {makeScreen(u"C"), makeScreen(u"B"), makeScreen(u"A")}});
        settle();
        activate();
    }

    ItemTable& table() { return *window().table(); }
    ItemTable& ptable() { return *window().ptable(); }
    static QString names(const GXAppDelegate::ItemController& list)
    {
        QStringList names;
        for (const ItemRef& item : list.arrangedObjects())
            names.append(QString::fromStdU16String(textOf(item->label())));
        return names.join(u' ');
    }
    QString layers() { return names(delegate().arraycontroller()); }
    QString presets() { return names(delegate().presetarraycontroller()); }
    void select(ItemTable& list, int row)
    {
        list.setFocus();
        // Not selectRow(), which minds the keys that were pressed last.
        list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                               QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    void trigger(const QString& text)
    {
        QList<QAction*> found;
        for (QAction* action : window().findChildren<QAction*>()) {
            if (action->text() == text)
                found.append(action);
        }
        QCOMPARE(found.size(), 1);
        found.first()->trigger();
        settle();
    }
    void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&widget, key, modifiers);
        settle();
    }
    QDialog* sheet()
    {
        for (QDialog* dialog : window().findChildren<QDialog*>()) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    /// Begins a drag with the mouse, which the offscreen platform ends at once, and gives what it carries.
    const QMimeData& pick(ItemTable& from, int row)
    {
        const QPoint start = from.visualRect(from.model()->index(row, 1)).center();
        QTest::mousePress(from.viewport(), Qt::LeftButton, {}, start);
        for (const int distance : {1, 3 * QApplication::startDragDistance()})
            QTest::mouseMove(from.viewport(), start + QPoint(0, distance));
        QTest::mouseRelease(from.viewport(), Qt::LeftButton, {}, start);

        return *from.findChildren<QDrag*>().constLast()->mimeData();
    }

    /// Drags a row with events of its own. Looks at the target before letting go. Rows past the last are the room below
    /// all.
    QImage drag(ItemTable& from, int row, ItemTable& to, int toRow, int fromMiddle)
    {
        const QMimeData& data = pick(from, row);
        const QPoint end = toRow < to.model()->rowCount()
                               ? to.visualRect(to.model()->index(toRow, 1)).center() + QPoint(0, fromMiddle)
                               : QPoint(5, to.viewport()->height() - 4);
        QDragEnterEvent enter(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(to.viewport(), &enter);
        QDragMoveEvent move(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(to.viewport(), &move);
        const QImage before = to.viewport()->grab().toImage();
        QDropEvent drop(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(to.viewport(), &drop);
        settle();
        return before;
    }
};

/// The rows of pixels that are of one colour from side to side.
QList<int> linesIn(const QImage& image, const QColor& color)
{
    QList<int> lines;
    for (int y = 0; y < image.height(); ++y) {
        bool whole = true;
        for (int x = 0; x < image.width() && whole; ++x)
            whole = image.pixelColor(x, y) == color;
        if (whole)
            lines.append(y);
    }
    return lines;
}

} // namespace

class ListEditingTest : public QObject {
    Q_OBJECT

private slots:
    void rowsAreDraggedWithTheMouse()
    {
        Lists program;
        ItemTable& table = program.table();
        ItemTable& ptable = program.ptable();
        const int height = table.rowHeight(0);
        const QColor lineColor = table.palette().text().color();

        const QImage gap = program.drag(table, 0, table, 1, 4); // the lower half: below B
        QCOMPARE(program.layers(), QString("B C A"));
        QCOMPARE(linesIn(gap, lineColor), (QList<int>{2 * height - 1, 2 * height}));
        QCOMPARE(linesIn(table.viewport()->grab().toImage(), lineColor), QList<int>());
        QCOMPARE(program.delegate().draggedTV(), 1);

        const QImage top = program.drag(table, 2, table, 0, -4);
        QCOMPARE(program.layers(), QString("A B C"));
        QCOMPARE(linesIn(top, lineColor), (QList<int>{0, 1}));
        program.drag(table, 0, table, 9, 0); // the room below all rows
        QCOMPARE(program.layers(), QString("B C A"));
        QCOMPARE(program.window().focusWidget(), &table);

        program.drag(ptable, 1, table, 1, -4);
        QCOMPARE(program.layers(), QString("B LINES C A"));
        QCOMPARE(program.presets(), QString("GRID LINES CROSS CIRCLE"));
        QCOMPARE(program.delegate().arraycontroller().selectionIndex(), 1U);
        program.drag(ptable, 3, ptable, 0, -4);
        QCOMPARE(program.presets(), QString("CIRCLE GRID LINES CROSS"));
        program.drag(table, 3, ptable, 0, 4);
        QCOMPARE(program.presets(), QString("CIRCLE A GRID LINES CROSS"));
        QCOMPARE(program.layers(), QString("B LINES C A"));
    }

    void strangeDragsChangeNothing()
    {
        Lists program;
        const auto drop = [&](const QMimeData& data) {
            QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(program.table().viewport(), &enter);
            QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(program.table().viewport(), &event);
            program.settle();
            return enter.isAccepted() && event.isAccepted();
        };
        QMimeData text;
        text.setText("wall");
        QVERIFY(!drop(text));
        const QMimeData& rows = program.pick(program.table(), 2);
        QMimeData foreign; // of another program, or another run of this one
        foreign.setData(kRowType, rows.data(kRowType));
        QVERIFY(!drop(foreign));
        QMimeData strange;
        for (const QString& format : rows.formats())
            strange.setData(format, rows.data(format));
        strange.setData(kRowType, "bplist00");
        QVERIFY(drop(strange));
        Pasteboard pasteboard;
        writeDraggedRows({40}, pasteboard);
        const Bytes& bytes = *pasteboard.dataForType(kRowDragType);
        strange.setData(kRowType, {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())});
        QVERIFY(drop(strange));
        QCOMPARE(program.layers(), QString("C B A"));
        QVERIFY(!program.window().isHidden());
    }

    void theKeyboardMovesCopiesAndRemoves()
    {
        Lists program;
        ItemTable& table = program.table();
        const auto control = Qt::ControlModifier | Qt::ShiftModifier;
        program.select(table, 0);
        program.press(table, Qt::Key_Up, control); // is there already
        program.press(table, Qt::Key_Down, control);
        QCOMPARE(program.layers(), QString("B C A"));
        program.press(table, Qt::Key_Down, control);
        program.press(table, Qt::Key_Down, control);
        QCOMPARE(program.layers(), QString("B A C"));
        program.press(table, Qt::Key_Up, control);
        QCOMPARE(program.layers(), QString("B C A"));

        program.select(program.ptable(), 3);
        program.press(program.ptable(), Qt::Key_Up, control);
        QCOMPARE(program.presets(), QString("GRID LINES CIRCLE CROSS"));
        program.press(program.ptable(), Qt::Key_P, control);
        QCOMPARE(program.layers(), QString("CIRCLE B C A"));
        QCOMPARE(program.window().focusWidget(), &table);

        table.selectAll();
        program.select(program.ptable(), 0); // leaves the one row that was selected last
        QCOMPARE(program.delegate().arraycontroller().selectionIndexes(), std::set<std::size_t>{0});
        program.press(program.ptable(), Qt::Key_Delete);
        QCOMPARE(program.presets(), QString("LINES CIRCLE CROSS"));
        program.ptable().selectAll();
        program.press(program.ptable(), Qt::Key_Delete);
        QCOMPARE(program.presets(), QString());
        program.trigger("Re&move");
        program.select(table, 1);
        QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
        program.press(table, Qt::Key_Delete);
        QCOMPARE(program.layers(), QString("CIRCLE A"));
        program.press(table, Qt::Key_Delete);
        program.press(table, Qt::Key_Delete);
        QCOMPARE(program.layers(), QString("CIRCLE"));
        QCOMPARE(program.panels.alerts, std::vector<std::string>(2, kRefusal));
    }

    void theAddSheetOffersAScreenOrAnImage()
    {
        Lists program;
        program.select(program.ptable(), 0);
        program.trigger("&Add…");
        QDialog* sheet = program.sheet();
        QVERIFY(sheet);
        QCOMPARE(sheet->windowModality(), Qt::WindowModal);
        for (const QPushButton* button : sheet->findChildren<QPushButton*>()) {
            QCOMPARE(button->isEnabled(), button->text() != "&Mask");
            QVERIFY(button->isEnabled() || !button->toolTip().isEmpty());
        }
        program.press(*sheet, Qt::Key_Escape);
        QVERIFY(!program.sheet());
        QCOMPARE(program.layers(), QString("C B A"));

        program.trigger("&Add…");
        program.press(*program.sheet(), Qt::Key_Return);
        QVERIFY(!program.sheet());
        QCOMPARE(program.layers(), QString("C Layer 1 B A"));
        QVERIFY(program.window().focusWidget() == &program.table());

        program.trigger("&Add…");
        const auto addImage = [&] {
            for (QPushButton* button : program.sheet()->findChildren<QPushButton*>()) {
                if (button->text() == "&Image…")
                    button->click();
            }
        };
        addImage();
        QVERIFY(program.sheet()); // no file was chosen
        QImage(30, 20, QImage::Format_RGB32).save(program.path("logo.png"));
        program.panels.answer = program.location("logo.png");
        addImage();
        QVERIFY(!program.sheet());
        QCOMPARE(program.item(1).thumbnail()->firstRepresentation()->width(), 30);
        QCOMPARE(*dynamic_cast<GXStill&>(program.item(1)).ImageURL(), *program.location("logo.png"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(program.window().findChildren<QDialog*>().size(), 1); // the last one

        program.trigger("&About Wallgrid");
        QVERIFY(program.sheet());
        program.press(*program.sheet(), Qt::Key_Return);
        QVERIFY(!program.sheet());
    }

    void presetsAreSavedAndOpened()
    {
        Lists program;
        program.panels.answer = program.location("presets");
        program.trigger("Sa&ve Presets…");
        program.delegate().presetarraycontroller().removeObjectsAtArrangedObjectIndexes({0, 1, 3});
        program.trigger("Open &Presets…");
        QCOMPARE(program.presets(), QString("GRID LINES CROSS CIRCLE"));
        QCOMPARE(program.ptable().model()->rowCount(), 4);
    }

    void everyButtonAndActionHasItsNameAndNoShortcutTwoOwners()
    {
        Lists program;
        program.trigger("&Add…");
        for (const QAbstractButton* button : program.window().findChildren<QAbstractButton*>()) {
            if (button->isVisible())
                QVERIFY2(!button->accessibleName().isEmpty() || !button->text().isEmpty(),
                         button->metaObject()->className());
        }
        QSet<QString> shortcuts;
        for (const QAction* action : program.window().findChildren<QAction*>()) {
            for (const QKeySequence& shortcut : action->shortcuts()) {
                QVERIFY2(!shortcuts.contains(shortcut.toString()), qPrintable(shortcut.toString()));
                shortcuts.insert(shortcut.toString());
            }
        }
        QVERIFY(shortcuts.contains("Del") && shortcuts.contains("Ctrl+Shift+N"));
    }
};

QTEST_MAIN(ListEditingTest)
#include "list_editing_test.moc"
