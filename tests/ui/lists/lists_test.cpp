// SPDX-License-Identifier: MIT
#include "app/row_drag.h"
#include "items/gx_still.h"
#include "ui/program_under_test.h"

using namespace wallgrid;

namespace {

using Indexes = GXAppDelegate::ItemController::Indexes;

constexpr int visibleColumn = 0;
constexpr int thumbnailColumn = 1;
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

    /// Drags with events of its own, and looks at the target before letting go; nothing when it is not taken.
    std::optional<QImage> drop(const QMimeData& data, ItemTable& to, QPoint end)
    {
        QDragEnterEvent enter(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(to.viewport(), &enter);
        QDragMoveEvent move(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(to.viewport(), &move);
        const QImage before = to.viewport()->grab().toImage();
        QDropEvent event(end, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(to.viewport(), &event);
        settle();
        return enter.isAccepted() && event.isAccepted() ? std::optional(before) : std::nullopt;
    }
    QImage drag(ItemTable& from, int row, ItemTable& to, int toRow, int fromMiddle)
    {
        return *drop(pick(from, row), to, place(to, toRow, 1) + QPoint(0, fromMiddle));
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
        program.insert(makeScreen(u"two\nlines & <b>"), 1);
        program.insert(makeScreen(u""), 2);
        program.insert(program.delegate().arraycontroller().arrangedObjects()[0], 3);  // once more
        program.insert(makeScreen(std::u16string().assign(10'000'000, u'\xd83d')), 4); // high surrogates only
        program.settle();
        QStringList shown{"C", "two lines & <b>", "(no name)", "C", "", "B", "A"};
        const QString monster = program.cell(4, nameColumn).toString();
        QVERIFY2(monster.size() <= 201 && monster.endsWith(u'…'), qPrintable(QString::number(monster.size())));
        QVERIFY(!monster.at(monster.size() - 2).isHighSurrogate() || monster.size() < 201);
        shown[4] = monster;
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

    void visibilityAndNamesAreSetThroughTheModel()
    {
        Lists program;
        QAbstractItemModel& model = *program.table.model();
        QVERIFY(model.setData(model.index(1, nameColumn), "x", Qt::EditRole));
        QVERIFY(!model.setData(model.index(1, thumbnailColumn), "y", Qt::EditRole));
        QVERIFY(!model.setData(model.index(1, nameColumn), "y", Qt::DisplayRole));
        QCOMPARE(program.order(), QString("C x A"));
        program.click(0, visibleColumn);
        program.settle();
        QVERIFY(!program.item().visible());
        QCOMPARE(program.cell(0, visibleColumn, Qt::CheckStateRole).toInt(), int{Qt::Unchecked});
        QTest::keyClick(&program.table, Qt::Key_Space);
        QVERIFY(program.item().visible());
    }

    void theSelectionIsSharedBothWays()
    {
        Lists program;
        auto& controller = program.delegate().arraycontroller();
        program.insert(makeScreen(u"D"));
        program.settle();
        program.click(2, nameColumn);
        QCOMPARE(program.selection(), Indexes{2});
        program.click(3, nameColumn, Qt::ShiftModifier);
        QCOMPARE(program.selection(), (Indexes{2, 3}));
        program.click(0, nameColumn, Qt::ControlModifier);
        QCOMPARE(program.selection(), (Indexes{0, 2, 3}));
        for (const Indexes& rows : {Indexes{1, 3}, Indexes{}}) {
            controller.setSelectionIndexes(rows);
            program.settle();
            QCOMPARE(program.shownSelection(), rows);
        }
        // A click meets the list as it is, also before the table has taken it over.
        program.insert(makeScreen(u"new"), 0);
        program.click(3, nameColumn);
        QCOMPARE(textOf(controller.selectedObject()->label()), std::u16string(u"B"));
        program.settle();
        QCOMPARE(program.shownSelection(), Indexes{3});
    }

    void namesAreEditedInTheTable()
    {
        for (const auto key : {Qt::Key(), Qt::Key_F2, Qt::Key_Return}) { // none: a double click
            Lists program;
            program.click(1, nameColumn);
            const auto begin = [&] {
                if (key == Qt::Key())
                    QTest::mouseDClick(program.table.viewport(), Qt::LeftButton, {},
                                       program.place(program.table, 1, 2));
                else
                    QTest::keyClick(&program.table, key);
                return program.table.viewport()->findChild<QLineEdit*>();
            };
            int changes = 0;
            const auto observation = program.item(1).observe([&](std::string_view) { ++changes; });
            const auto end = [&](QLineEdit* editor, Qt::Key last) {
                QTest::keyClick(editor, last);
                program.settle();
                return QTest::qWaitFor([&] { return !program.table.viewport()->findChild<QLineEdit*>(); }) ? changes
                                                                                                           : -1;
            };
            QLineEdit* editor = begin();
            QCOMPARE(editor->text(), QString("B"));
            QCOMPARE(end(editor, Qt::Key_Return), 0); // as it was
            editor = begin();
            for (const char* typed : {"Wall ", "& stage"}) {
                program.table.reloadData(); // as a composition does at any time
                program.settle();
                QTest::keyClicks(editor, typed);
            }
            QCOMPARE(end(editor, Qt::Key_Return), 1);
            QTest::keyClicks(editor = begin(), "not this");
            QCOMPARE(end(editor, Qt::Key_Escape), 1);
            QCOMPARE(program.shownNames(), (QStringList{"C", "Wall & stage", "A"}));
        }
    }

    void aMissingImageFileIsNamed()
    {
        Lists program;
        auto still = GXStill::initWithimage(nullptr);
        still->setImageURL(program.location("gone & <i>.png"));
        program.insert(still);
        program.settle();
        QVERIFY(program.cell(0, nameColumn, Qt::FontRole).value<QFont>().italic());
        QVERIFY(program.cell(0, nameColumn, Qt::ToolTipRole)
                    .toString()
                    .contains("missing or unreadable: " + program.path("gone &amp; &lt;i&gt;.png")));
        QVERIFY(!program.cell(0, thumbnailColumn, Qt::DecorationRole).value<QIcon>().isNull()); // a warning sign
        QVERIFY(!program.cell(1, nameColumn, Qt::FontRole).isValid());
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
    }

    void rowsAreDraggedWithTheMouse()
    {
        Lists program;
        ItemTable& table = program.table;
        ItemTable& ptable = program.ptable;
        program.window().resize(900, 900);                     // with room below the rows
        const auto marks = [&](const QImage& image, int gap) { // a line from side to side
            const QImage row =
                image.copy(0, qFloor(gap * table.rowHeight(0) * image.devicePixelRatio()), image.width(), 1);
            QImage line = row;
            line.fill(table.palette().text().color());
            return row == line;
        };
        const QImage below = program.drag(table, 0, table, 1, 4); // the lower half: below B
        QCOMPARE(program.order(), QString("B C A"));
        QVERIFY(marks(below, 2) && !marks(below, 1) && !marks(table.viewport()->grab().toImage(), 2));
        QVERIFY(marks(program.drag(table, 2, table, 0, -4), 0));
        QCOMPARE(program.order(), QString("A B C"));
        program.drop(program.pick(table, 0), table, {5, table.viewport()->height() - 4}); // the room below all rows
        QCOMPARE(program.order(), QString("B C A"));
        QCOMPARE(program.window().focusWidget(), &table);

        program.drag(ptable, 1, table, 1, -4);
        QCOMPARE(program.order(), QString("B LINES C A"));
        QCOMPARE(program.selection(), Indexes{1});
        program.drag(ptable, 3, ptable, 0, -4);
        program.drag(table, 3, ptable, 0, 4);
        QCOMPARE(program.presets(), QString("CIRCLE A GRID LINES CROSS"));
        QCOMPARE(program.order(), QString("B LINES C A"));
    }

    void strangeDragsChangeNothing()
    {
        Lists program;
        const auto taken = [&](const QMimeData& data) { return program.drop(data, program.table, {5, 5}).has_value(); };
        QMimeData text;
        text.setText("wall");
        QVERIFY(!taken(text));
        const QString rowType = QString::fromUtf8(kRowDragType.data(), qsizetype(kRowDragType.size()));
        const QMimeData& rows = program.pick(program.table, 2);
        QMimeData foreign; // of another program, or another run of this one
        foreign.setData(rowType, rows.data(rowType));
        QVERIFY(!taken(foreign));
        QMimeData strange;
        for (const QString& format : rows.formats())
            strange.setData(format, rows.data(format));
        Pasteboard pasteboard;
        writeDraggedRows({40}, pasteboard);
        const Bytes& past = *pasteboard.dataForType(kRowDragType);
        for (const QByteArray& bytes :
             {QByteArray("bplist00"), QByteArray(reinterpret_cast<const char*>(past.data()), qsizetype(past.size()))}) {
            strange.setData(rowType, bytes);
            QVERIFY(taken(strange));
        }
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
        QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
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
        program.select(program.ptable, 0);
        program.trigger("&Add…");
        QCOMPARE(program.sheet()->windowModality(), Qt::WindowModal);
        const auto* mask = program.find<QPushButton>("&Mask");
        QVERIFY(!mask->isEnabled() && !mask->toolTip().isEmpty());
        program.press(*program.sheet(), Qt::Key_Escape);
        QVERIFY(!program.sheet());
        QCOMPARE(program.order(), QString("C B A"));

        program.trigger("&Add…");
        program.press(*program.sheet(), Qt::Key_Return);
        QVERIFY(!program.sheet());
        QCOMPARE(program.order(), QString("C Layer 1 B A"));
        QVERIFY(program.window().focusWidget() == &program.table);

        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        program.trigger("&Add…");
        program.find<QPushButton>("&Image…")->click();
        QVERIFY(program.sheet()); // no file was chosen
        QImage(30, 20, QImage::Format_RGB32).save(program.path("logo.png"));
        program.panels.answer = program.location("logo.png");
        program.find<QPushButton>("&Image…")->click();
        QVERIFY(!program.sheet());
        QCOMPARE(*dynamic_cast<GXStill&>(program.item(1)).ImageURL(), *program.location("logo.png"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(program.window().findChildren<QDialog*>().size(), 1); // the last one

        program.trigger("&About Wallgrid");
        program.press(*program.sheet(), Qt::Key_Return);
        QVERIFY(!program.sheet());
    }
};

QTEST_MAIN(ListsTest)
#include "lists_test.moc"
