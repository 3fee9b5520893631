// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "program_under_test.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QSignalSpy>

using namespace wallgrid;

namespace {

using Indexes = GXAppDelegate::ItemController::Indexes;

constexpr int visibleColumn = 0;
constexpr int thumbnailColumn = 1;
constexpr int nameColumn = 2;

QVariant cell(const ItemTable& table, int row, int column, int role = Qt::DisplayRole)
{
    return table.model()->data(table.model()->index(row, column), role);
}

QStringList names(const ItemTable& table, int column)
{
    QStringList result;
    for (int row = 0; row < table.model()->rowCount(); ++row)
        result.append(cell(table, row, column).toString());
    return result;
}

Indexes selectedRows(const ItemTable& table)
{
    Indexes rows;
    for (const QModelIndex& index : table.selectionModel()->selectedRows())
        rows.insert(static_cast<std::size_t>(index.row()));
    return rows;
}

void click(ItemTable& table, int row, int column, Qt::KeyboardModifiers modifiers = {})
{
    QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers,
                      table.visualRect(table.model()->index(row, column)).center());
}

} // namespace

class TablesTest : public QObject {
    Q_OBJECT

private slots:
    void showTheLists()
    {
        ProgramUnderTest program;
        QCOMPARE(names(*program.window().table(), nameColumn), QStringList{"Layer 0"});
        QCOMPARE(names(*program.window().ptable(), 1), (QStringList{"GRID", "LINES", "CROSS", "CIRCLE"}));
        QCOMPARE(program.window().table()->draggedTypes(), QStringList{"BasicTableViewDragAndDropDataType"});
        QCOMPARE(program.window().ptable()->draggedTypes(), QStringList{"BasicTableViewDragAndDropDataType"});

        program.insert(makeScreen(u"two\nlines & <b>"), 1);
        program.insert(makeScreen(u""), 2);
        program.insert(program.delegate().arraycontroller().arrangedObjects()[0], 3); // once more
        program.settle();
        QCOMPARE(names(*program.window().table(), nameColumn),
                 (QStringList{"Layer 0", "two lines & <b>", "(no name)", "Layer 0"}));

        const QSignalSpy repaints(program.window().table()->model(), &QAbstractItemModel::dataChanged);
        program.item(0).setLabel(makeString(u"Main wall"));
        program.settle();
        QCOMPARE(repaints.size(), 1);
        QCOMPARE(names(*program.window().table(), nameColumn),
                 (QStringList{"Main wall", "two lines & <b>", "(no name)", "Main wall"}));
    }

    void theModelKeepsTheRulesOfModels()
    {
        ProgramUnderTest program;
        ItemTableModel model(
            program.delegate().arraycontroller(),
            {ItemTableModel::Column::Visible, ItemTableModel::Column::Thumbnail, ItemTableModel::Column::Name});
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        const QAbstractItemModelTester shown(program.window().table()->model(),
                                             QAbstractItemModelTester::FailureReportingMode::Fatal);
        program.insert(makeScreen(u"a"));
        program.insert(makeScreen(u"b"));
        model.synchronize();
        program.settle();
        QCOMPARE(model.rowCount(), 3);
        QVERIFY(model.setData(model.index(1, visibleColumn), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(model.setData(model.index(1, nameColumn), "x", Qt::EditRole));
        QVERIFY(!model.setData(model.index(1, thumbnailColumn), "x", Qt::EditRole));
        QVERIFY(!model.setData(model.index(1, nameColumn), "x", Qt::DisplayRole));
        QVERIFY(!program.item(1).visible());
        program.delegate().arraycontroller().removeObjectsAtArrangedObjectIndexes({0, 1, 2});
        model.synchronize();
        program.settle();
        QCOMPARE(model.rowCount(), 0);
    }

    void visibilityIsToggledByMouseAndKeyboard()
    {
        ProgramUnderTest program;
        program.activate();
        ItemTable& table = *program.window().table();
        QCOMPARE(program.output(10, 10), QString("ffff0000"));

        click(table, 0, visibleColumn);
        program.settle();
        QVERIFY(!program.item().visible());
        QCOMPARE(cell(table, 0, visibleColumn, Qt::CheckStateRole).toInt(), int{Qt::Unchecked});
        QCOMPARE(program.output(10, 10), QString("ff000000"));

        table.setFocus();
        QTest::keyClick(&table, Qt::Key_Space);
        program.settle();
        QVERIFY(program.item().visible());
        QCOMPARE(program.output(10, 10), QString("ffff0000"));
    }

    void theSelectionIsSharedBothWays()
    {
        ProgramUnderTest program;
        program.activate();
        auto& controller = program.delegate().arraycontroller();
        ItemTable& table = *program.window().table();
        for (const char16_t* name : {u"c", u"b", u"a"})
            program.insert(makeScreen(name));
        program.settle();
        QCOMPARE(selectedRows(table), Indexes{0});

        click(table, 2, nameColumn);
        QCOMPARE(controller.selectionIndexes(), Indexes{2});
        click(table, 3, nameColumn, Qt::ShiftModifier);
        QCOMPARE(controller.selectionIndexes(), (Indexes{2, 3}));
        click(table, 0, nameColumn, Qt::ControlModifier);
        QCOMPARE(controller.selectionIndexes(), (Indexes{0, 2, 3}));

        controller.setSelectionIndexes({1, 3});
        program.settle();
        QCOMPARE(selectedRows(table), (Indexes{1, 3}));
        QCOMPARE(controller.selectionIndexes(), (Indexes{1, 3}));

        // A click meets the list as it is, also before the table has taken it over.
        program.insert(makeScreen(u"new"), 0);
        click(table, 3, nameColumn);
        QCOMPARE(controller.selectionIndexes(), Indexes{3});
        QCOMPARE(textOf(controller.selectedObject()->label()), std::u16string(u"c"));
        program.settle();
        QCOMPARE(selectedRows(table), Indexes{3});

        controller.setSelectionIndexes({});
        program.settle();
        QVERIFY(!table.selectionModel()->hasSelection());
    }

    void aLongListIsTakenOverOnce()
    {
        ProgramUnderTest program;
        ItemTable& table = *program.window().table();
        QSignalSpy resets(table.model(), &QAbstractItemModel::modelReset);
        for (int i = 0; i < 10'000; ++i)
            table.reloadData();
        Project project{1080, 1920, {}};
        for (int i = 0; i < 1'000; ++i)
            project.items.push_back(makeScreen(u"item"));
        program.delegate().loadProject(project);
        QCOMPARE(resets.size(), 0);
        program.settle();
        QCOMPARE(resets.size(), 1);
        QCOMPARE(table.model()->rowCount(), 1'000);
        program.item(500).setXpoint(5);
        program.settle();
        QCOMPARE(resets.size(), 1);
    }

    void monstrousNamesAreCut()
    {
        ProgramUnderTest program;
        const auto name = std::u16string().assign(10'000'000, u'\xd83d'); // high surrogates only
        program.insert(makeScreen(name));
        program.settle();
        const QString shown = cell(*program.window().table(), 0, nameColumn).toString();
        QVERIFY2(shown.size() <= 201 && shown.endsWith(u'…'), qPrintable(QString::number(shown.size())));
        QCOMPARE(textOf(program.item().label()).size(), name.size());
    }

    void namesAreEditedInTheTable_data()
    {
        QTest::addColumn<int>("key"); // 0: a double click
        QTest::newRow("double click") << 0;
        QTest::newRow("F2") << int(Qt::Key_F2);
        QTest::newRow("Enter") << int(Qt::Key_Return);
    }

    void namesAreEditedInTheTable()
    {
        QFETCH(int, key);
        ProgramUnderTest program;
        program.activate();
        program.insert(makeScreen(u"second"), 1);
        program.settle();
        ItemTable& table = *program.window().table();
        const QPoint place = table.visualRect(table.model()->index(1, nameColumn)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
        const auto begin = [&] {
            if (key == 0)
                QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
            else
                QTest::keyClick(&table, Qt::Key(key));
            return table.viewport()->findChild<QLineEdit*>();
        };
        std::vector<std::string> changes;
        const auto observation = program.item(1).observe([&](std::string_view name) { changes.emplace_back(name); });

        QLineEdit* editor = begin();
        QVERIFY(editor);
        QCOMPARE(editor->text(), QString("second"));
        QTest::keyClick(editor, Qt::Key_Return); // as it was
        QVERIFY(QTest::qWaitFor([&] { return !table.viewport()->findChild<QLineEdit*>(); }));
        QCOMPARE(changes, std::vector<std::string>());

        editor = begin();
        for (const char* typed : {"Wall ", "& stage"}) {
            table.reloadData(); // as a composition does at any time
            program.settle();
            QTest::keyClicks(editor, typed);
        }
        QTest::keyClick(editor, Qt::Key_Return);
        program.settle();
        QCOMPARE(changes, std::vector<std::string>{"label"});
        QCOMPARE(cell(table, 1, nameColumn).toString(), QString("Wall & stage"));
        QVERIFY(QTest::qWaitFor([&] { return !table.viewport()->findChild<QLineEdit*>(); }));

        editor = begin();
        QTest::keyClicks(editor, "not this");
        QTest::keyClick(editor, Qt::Key_Escape);
        QCOMPARE(changes.size(), std::size_t{1});
        program.item(1).setLabel(makeString(std::u16string().assign(1'001, u'x')));
        program.settle();
        QVERIFY(!(table.model()->flags(table.model()->index(1, nameColumn)) & Qt::ItemIsEditable));
    }

    void aMissingImageFileIsNamed()
    {
        ProgramUnderTest program;
        auto still = GXStill::initWithimage(nullptr);
        still->setImageURL(program.location("gone & <i>.png"));
        program.insert(still);
        program.settle();
        const ItemTable& table = *program.window().table();
        QVERIFY(cell(table, 0, nameColumn, Qt::FontRole).value<QFont>().italic());
        const QString toolTip = cell(table, 0, nameColumn, Qt::ToolTipRole).toString();
        QVERIFY2(toolTip.contains("missing or unreadable: " + program.path("gone &amp; &lt;i&gt;.png")),
                 qPrintable(toolTip));
        QVERIFY(!cell(table, 0, thumbnailColumn, Qt::DecorationRole).value<QIcon>().isNull()); // a warning sign
        QVERIFY(!cell(table, 1, thumbnailColumn, Qt::DecorationRole).value<QIcon>().isNull());
        QVERIFY(!cell(table, 1, nameColumn, Qt::FontRole).isValid());
    }

    void thumbnailsAreMadeOnceForEachPicture()
    {
        ProgramUnderTest program;
        const ItemTable& table = *program.window().table();
        const auto icon = [&] { return cell(table, 0, thumbnailColumn, Qt::DecorationRole).value<QIcon>(); };
        const QIcon before = icon();
        QCOMPARE(before.cacheKey(), icon().cacheKey());
        const qreal ratio = qApp->devicePixelRatio();
        const QImage picture = before.pixmap(ItemTableModel::thumbnailSize(), ratio).toImage();
        QCOMPARE(picture.size(), (ItemTableModel::thumbnailSize().toSizeF() * ratio).toSize());
        QCOMPARE(picture.pixelColor(0, picture.height() / 2).alpha(), 0); // beside the square screen
        const QColor inIt = picture.pixelColor(QPoint(20, 10) * ratio);
        QVERIFY(inIt.red() > 200);
        QVERIFY(inIt.green() < 150);
        program.item().setRectColor(Color::greenColor()); // renders anew
        QVERIFY(before.cacheKey() != icon().cacheKey());
    }
};

QTEST_MAIN(TablesTest)
#include "tables_test.moc"
