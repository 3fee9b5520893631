// SPDX-License-Identifier: MIT
#include "app/row_drag.h"
#include "items/gx_still.h"
#include "ui/program_under_test.h"

using namespace wallgrid;

namespace {

using Indexes = GXAppDelegate::ItemController::Indexes;

constexpr int nameColumn = 2;

/// The launched program with the layers C, B, A (from the top) and the presets GRID, LINES, CROSS, CIRCLE.
struct Lists : ProgramUnderTest {
    Lists()
    {
        delegate().loadProject({1080, 1920, {makeScreen(u"C"), makeScreen(u"B"), makeScreen(u"A")}});
        settle();
        activate();
    }

    ItemTable& table = *window().table();
    ItemTable& ptable = *window().ptable();
    QAbstractItemModelTester rules{table.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    QString order() { return layers().join(u' '); }
    QString presets() { return names(delegate().presetarraycontroller()).join(u' '); }
    Indexes selection() { return delegate().arraycontroller().selectionIndexes(); }
    QVariant cell(int row, int column, int role = Qt::DisplayRole)
    {
        return table.model()->data(table.model()->index(row, column), role);
    }
    QStringList shownNames()
    {
        QStringList shown;
        for (int row = 0; row < table.model()->rowCount(); ++row)
            shown.append(cell(row, nameColumn).toString());
        return shown;
    }
    Indexes shownSelection()
    {
        Indexes rows;
        for (const QModelIndex& index : table.selectionModel()->selectedRows())
            rows.insert(static_cast<std::size_t>(index.row()));
        return rows;
    }
    QPoint place(ItemTable& list, int row, int column)
    {
        return list.visualRect(list.model()->index(row, column)).center();
    }
    void click(int row, int column, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, place(table, row, column));
    }
    void select(ItemTable& list, int row)
    {
        list.setFocus();
        // Not selectRow(), which minds the keys that were pressed last.
        list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                               QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&widget, key, modifiers);
        settle();
    }
    QDialog* sheet()
    {
        const QList<QDialog*> sheets = window().findChildren<QDialog*>();
        const auto shown = std::find_if(sheets.begin(), sheets.end(), [](auto* each) { return each->isVisible(); });
        return shown == sheets.end() ? nullptr : *shown;
    }

    /// Begins a drag with the mouse, which the offscreen platform ends at once, and gives what it carries.
    const QMimeData& pick(ItemTable& from, int row)
    {
        const QPoint start = place(from, row, 1);
        QTest::mousePress(from.viewport(), Qt::LeftButton, {}, start);
        for (const int distance : {1, 3 * QApplication::startDragDistance()})
            QTest::mouseMove(from.viewport(), start + QPoint(0, distance));
        QTest::mouseRelease(from.viewport(), Qt::LeftButton, {}, start);
        return *from.findChildren<QDrag*>().constLast()->mimeData();
    }

    /// Drags with events of its own; whether it is taken.
    bool drop(const QMimeData& data, QPoint end)
    {
        QDragEnterEvent enter(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(table.viewport(), &enter);
        QDropEvent event(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(table.viewport(), &event);
        settle();
        return enter.isAccepted() && event.isAccepted();
    }
};

} // namespace

// Runs at several scales of the desktop.
class ListsTest : public QObject {
    Q_OBJECT

private slots:
    void theListsAreShown()
    {
        Lists program;
        program.insert(makeScreen(u"two\n\u2028lines & <b>"), 1);
        program.insert(makeScreen(u""), 2);
        program.insert(program.delegate().arraycontroller().arrangedObjects()[0], 3);  // once more
        const QString faces = "x" + QStringLiteral(u"\U0001F600").repeated(5'000'000); // the limit falls within a pair
        program.insert(makeScreen(faces.toStdU16String()), 4);
        program.settle();
        QStringList shown{"C", "two  lines & <b>", "(no name)", "C", "", "B", "A"};
        shown[4] = faces.first(199) + u'…';
        QCOMPARE(program.shownNames(), shown);
        QVERIFY(!(program.table.model()->flags(program.table.model()->index(4, nameColumn)) & Qt::ItemIsEditable));

        const QSignalSpy resets(program.table.model(), &QAbstractItemModel::modelReset);
        const QSignalSpy repaints(program.table.model(), &QAbstractItemModel::dataChanged);
        program.item(0).setLabel(makeString(u"Main wall"));
        program.settle();
        QCOMPARE(repaints.size(), 1);
        shown[0] = shown[3] = "Main wall";
        QCOMPARE(program.shownNames(), shown);
        for (int i = 0; i < 100; ++i)
            program.insert(makeScreen(u"item"));
        QCOMPARE(resets.size(), 0);
        program.settle(); // takes them all over at once
        QCOMPARE(resets.size(), 1);
    }

    void theSelectionIsSharedBothWays()
    {
        Lists program;
        auto& controller = program.delegate().arraycontroller();
        program.insert(makeScreen(u"D"));
        program.settle();
        program.click(2, nameColumn);
        program.click(0, nameColumn, Qt::ControlModifier);
        QCOMPARE(program.selection(), (Indexes{0, 2}));
        controller.setSelectionIndexes({1, 3});
        program.settle();
        QCOMPARE(program.shownSelection(), (Indexes{1, 3}));
        // A click meets the list as it is, also before the table has taken it over.
        program.insert(makeScreen(u"new"), 0);
        program.click(3, nameColumn);
        QCOMPARE(textOf(controller.selectedObject()->label()), std::u16string(u"B"));
        program.settle();
        QCOMPARE(program.shownSelection(), Indexes{3});
    }

    void namesAreEditedInTheTable()
    {
        Lists program;
        int changes = 0;
        const auto observation = program.item(1).observe([&](std::string_view) { ++changes; });
        const auto edit = [&](const QStringList& typed, Qt::Key last) {
            program.click(1, nameColumn);
            QTest::keyClick(&program.table, typed.size() > 1 ? Qt::Key_F2 : Qt::Key_Return);
            auto* editor = program.table.viewport()->findChild<QLineEdit*>();
            for (const QString& letters : typed) {
                program.table.reloadData(); // as a composition does at any time
                program.settle();
                QTest::keyClicks(editor, letters);
            }
            QTest::keyClick(editor, last);
            program.settle();
            return QTest::qWaitFor([&] { return !program.table.viewport()->findChild<QLineEdit*>(); }) ? changes : -1;
        };
        QCOMPARE(edit({}, Qt::Key_Return), 0); // as it was
        QCOMPARE(edit({"Wall ", "& stage"}, Qt::Key_Return), 1);
        QCOMPARE(edit({"not this"}, Qt::Key_Escape), 1);
        QCOMPARE(program.shownNames(), (QStringList{"C", "Wall & stage", "A"}));
    }

    void thumbnailsAreMadeOnceForEachPicture()
    {
        ProgramUnderTest program;
        const QAbstractItemModel& model = *program.window().table()->model();
        const auto icon = [&] { return model.data(model.index(0, 1), Qt::DecorationRole).value<QIcon>(); };
        const QIcon before = icon();
        QCOMPARE(before.cacheKey(), icon().cacheKey());
        const qreal ratio = qApp->devicePixelRatio();
        QCOMPARE(before.actualSize(ItemTableModel::thumbnailSize()), ItemTableModel::thumbnailSize());
        const QImage picture = before.pixmap(ItemTableModel::thumbnailSize(), ratio).toImage();
        QCOMPARE(picture.size(), (ItemTableModel::thumbnailSize().toSizeF() * ratio).toSize());
        QCOMPARE(picture.pixelColor(0, picture.height() / 2).alpha(), 0); // beside the square screen
        const QColor inIt = picture.pixelColor(QPoint(20, 10) * ratio);
        QVERIFY(inIt.red() > 200 && inIt.green() < 150);
        program.item().setRectColor(Color::greenColor()); // renders anew
        QVERIFY(before.cacheKey() != icon().cacheKey());
        const auto still = GXStill::initWithimage(program.item().thumbnail());
        program.insert(still);
        program.settle();
        const QIcon unscaled = icon();
        still->setPanelHeight(9);
        program.settle();
        QVERIFY(unscaled.cacheKey() != icon().cacheKey());
    }

    void ownRowsAreDroppedAndStrangeOnesChangeNothing()
    {
        Lists program;
        const QString rowType = QString::fromUtf8(kRowDragType.data(), qsizetype(kRowDragType.size()));
        const QMimeData& rows = program.pick(program.table, 2);
        QMimeData foreign; // of another program, or another run of this one
        foreign.setData(rowType, rows.data(rowType));
        QVERIFY(!program.drop(foreign, {5, 5}));
        QMimeData strange;
        for (const QString& format : rows.formats())
            strange.setData(format, rows.data(format));
        strange.setData(rowType, "bplist00");
        QVERIFY(program.drop(strange, {5, 5}));
        QCOMPARE(program.order(), QString("C B A"));
        QVERIFY(program.drop(rows, {5, 5}));
        QCOMPARE(program.order(), QString("A C B"));
        const int below = program.table.rowViewportPosition(2) + program.table.rowHeight(2);
        program.drop(program.pick(program.table, 0), {5, below});
        QCOMPARE(program.order(), QString("C B A"));
    }

    void theKeyboardMovesCopiesAndRemoves()
    {
        Lists program;
        ItemTable& table = program.table;
        ItemTable& ptable = program.ptable;
        const auto control = Qt::ControlModifier | Qt::ShiftModifier;
        program.select(table, 0);
        QString orders;
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
            program.press(table, key, control);
            orders += program.order() + ", ";
        }
        QCOMPARE(orders, QString("C B A, B C A, B A C, B A C, B C A, "));

        program.select(ptable, 3);
        program.press(ptable, Qt::Key_Up, control);
        QCOMPARE(program.presets(), QString("GRID LINES CIRCLE CROSS"));
        program.press(ptable, Qt::Key_P, control);
        QCOMPARE(program.order(), QString("CIRCLE B C A"));
        QCOMPARE(program.window().focusWidget(), &table);
        program.select(ptable, 0);
        program.press(ptable, Qt::Key_Delete);
        QCOMPARE(program.presets(), QString("LINES CIRCLE CROSS"));
        ptable.selectAll();
        program.press(ptable, Qt::Key_Delete);
        program.trigger("Re&move");
        QCOMPARE(program.presets(), QString());
        program.select(table, 1);
        program.item(2).setVisible(false);
        QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
        program.press(table, Qt::Key_Space);
        QVERIFY(!program.item(1).visible() && !program.item(2).visible());
        QVERIFY(program.cell(1, nameColumn, Qt::ForegroundRole).isValid()); // grey
        program.press(table, Qt::Key_Delete);
        QCOMPARE(program.order(), QString("CIRCLE A"));
        program.press(table, Qt::Key_Delete);
        program.press(table, Qt::Key_Delete);
        QCOMPARE(program.order(), QString("CIRCLE"));
        QCOMPARE(program.panels.alerts, std::vector<std::string>(2, "List Cannot be empty, Function was cancelled|"));
    }

    void theAddSheetOffersAScreenOrAnImage()
    {
        Lists program;
        QVERIFY(program.find<QToolButton>(program.action("&Add…")->toolTip())->toolTip().contains("Ctrl+Shift+N"));
        program.trigger("&Add…");
        QCOMPARE(program.sheet()->windowModality(), Qt::WindowModal);
        QCOMPARE(program.sheet()->findChildren<QPushButton*>().size(), 3);
        program.press(*program.sheet(), Qt::Key_Escape);
        QVERIFY(!program.sheet());
        program.trigger("&Add…");
        program.press(*program.sheet(), Qt::Key_Return);
        QVERIFY(!program.sheet());
        QCOMPARE(program.order(), QString("C Layer 1 B A"));
        QVERIFY(program.window().focusWidget() == &program.table);

        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        program.trigger("&Add…");
        program.find<QPushButton>("&Image…")->click();
        QVERIFY(program.sheet()); // no file was chosen
        program.panels.answer = program.location("no logo.png");
        program.find<QPushButton>("&Image…")->click();
        QVERIFY(!program.sheet());
        QCOMPARE(*dynamic_cast<GXStill&>(program.item(1)).ImageURL(), *program.location("no logo.png"));
        program.trigger("&About Wallgrid");
        program.press(*program.sheet(), Qt::Key_Return);
        QVERIFY(!program.sheet());
    }
};

QTEST_MAIN(ListsTest)
#include "lists_test.moc"
