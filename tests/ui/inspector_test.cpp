// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "program_under_test.h"
#include "ui/anchor.h"
#include "ui/color_button.h"
#include "ui/color_text.h"
#include "ui/number_field.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <limits>

using namespace wallgrid;

namespace {

constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
constexpr auto highest = std::numeric_limits<std::int32_t>::max();

void type(QWidget* widget, const QString& text)
{
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, text);
}

QLineEdit* nameField(ProgramUnderTest& program)
{
    for (QLabel* label : program.window().findChildren<QLabel*>()) {
        if (label->text() == "&Name")
            return qobject_cast<QLineEdit*>(label->buddy());
    }
    return nullptr;
}

QCheckBox* checkBox(ProgramUnderTest& program, const QString& text)
{
    for (QCheckBox* box : program.window().findChildren<QCheckBox*>()) {
        if (box->text() == text)
            return box;
    }
    return nullptr;
}

/// A screen with what no user would type.
ItemRef makeExtremeScreen()
{
    ItemRef item = makeScreen(u"extreme");
    item->setPanelWidth(lowest);
    item->setPanelHeight(highest);
    item->setCol(-7);
    item->setRow(highest);
    item->setXpoint(lowest);
    item->setYpoint(highest);
    item->setXYFontSize(-5);
    item->setScreenFontSize(highest);
    item->setBoarderWidth(lowest);
    item->setCircleBWidth(highest);
    item->setRectColor(nullptr);
    item->setBoarderColor(std::make_shared<Color>(Color::Space::DeviceCMYK, std::array{0.1, 0.2, 0.3, 0.4}, 0.123));
    item->setLabel(makeString(std::u16string{u'a', u'\xd800', u'\0', u'\n', u'b'}));
    return item;
}

} // namespace

class InspectorTest : public QObject {
    Q_OBJECT

private slots:
    void typingChangesTheItemAndTheOutput()
    {
        ProgramUnderTest program;
        program.activate();
        auto* columns = program.find<NumberField>("COLS");
        QCOMPARE(columns->value(), 4);
        QCOMPARE(program.output(400, 10), QString("ff000000"));

        type(columns, "6");
        QCOMPARE(program.item().col(), 6);
        QCOMPARE(program.item().screenSizeWidth(), 468);
        program.settle();
        QCOMPARE(program.output(400, 10), QString("ffff0000"));
        QCOMPARE(columns->text(), QString("6"));

        auto* left = program.find<NumberField>("H-Start");
        left->setFocus();
        QTest::keyClick(left, Qt::Key_Up);
        QCOMPARE(program.item().xpoint(), 1);
        QTest::keyClick(left, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(program.item().xpoint(), -9);
        QTest::keyClick(left, Qt::Key_PageUp);
        QCOMPARE(program.item().xpoint(), 1);
    }

    void everyFieldEditsItsOwnProperty_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("property");
        const char* rows[][2] = {{"Panel-H", "panelWidth"},
                                 {"Panel-V", "panelHeight"},
                                 {"COLS", "col"},
                                 {"ROWS", "row"},
                                 {"H-Start", "xpoint"},
                                 {"V-Start", "ypoint"},
                                 {"XY Label Size", "XYFontSize"},
                                 {"Label Screen Size", "screenFontSize"},
                                 {"Frame width", "boarderWidth"},
                                 {"Circle width, also the margin of the texts", "circleBWidth"}};
        for (const auto& row : rows)
            QTest::newRow(row[1]) << QString(row[0]) << QString(row[1]);
    }

    void everyFieldEditsItsOwnProperty()
    {
        QFETCH(QString, caption);
        QFETCH(QString, property);
        ProgramUnderTest program;
        program.activate();
        std::vector<std::string> changes;
        const auto observation = program.item().observe([&](std::string_view key) { changes.emplace_back(key); });
        type(program.find<NumberField>(caption), "7");
        QCOMPARE(changes, std::vector{property.toStdString()});
    }

    void everySwitchSetsItsOwnProperty_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("property");
        const char* rows[][2] = {{"Fill", "bgEnable"},
                                 {"Frame", "BoarderEnable"},
                                 {"Circle", "CircleEnable"},
                                 {"Position text", "XYFontEnable"},
                                 {"Size text", "screenFontEnable"},
                                 {"V&isible in the output", "visible"}};
        for (const auto& row : rows)
            QTest::newRow(row[1]) << QString(row[0]) << QString(row[1]);
    }

    void everySwitchSetsItsOwnProperty()
    {
        QFETCH(QString, text);
        QFETCH(QString, property);
        ProgramUnderTest program;
        std::vector<std::string> changes;
        const auto observation = program.item().observe([&](std::string_view key) { changes.emplace_back(key); });
        QCheckBox* box = checkBox(program, text);
        const bool before = box->isChecked();
        box->click();
        QCOMPARE(changes, std::vector{property.toStdString()});
        program.settle();
        QCOMPARE(box->isChecked(), !before);
        box->click();
        QCOMPARE(changes.size(), std::size_t{2});
    }

    void coloursAreTypedAndPasted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("taken");
        QTest::newRow("opaque") << "#00ff7F"
                                << "#00FF7F";
        QTest::newRow("with alpha") << "#00FF7f80"
                                    << "#00FF7F80";
        QTest::newRow("without a sign") << " 00FF7FFF "
                                        << "#00FF7F";
        QTest::newRow("the same") << "#ff0000" << QString();
        for (const char* wrong : {"", "#00FF7", "#00FF7F8", "#00FF7F801", "#00FF7G", "green", "##00FF7F"})
            QTest::newRow(wrong) << wrong << QString();
    }

    void coloursAreTypedAndPasted()
    {
        QFETCH(QString, text);
        QFETCH(QString, taken);
        ProgramUnderTest program;
        program.activate();
        auto* field = program.find<QLineEdit>("Fill colour as #RRGGBB or #RRGGBBAA");
        QCOMPARE(field->text(), QString("#FF0000"));
        const ColorRef before = program.item().rectColor();
        field->setFocus();
        field->selectAll();
        QGuiApplication::clipboard()->setText(text);
        field->paste();
        if (taken.isEmpty()) {
            QCOMPARE(program.item().rectColor(), before);
        } else {
            QCOMPARE(hexText(toQColor(*program.item().rectColor())), taken);
            QCOMPARE(program.item().rectColor()->space(), Color::Space::CalibratedRGB);
        }
        program.settle();
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(field->text(), taken.isEmpty() ? QString("#FF0000") : taken);
    }

    void showingAnItemChangesNothingOfIt()
    {
        ProgramUnderTest program;
        program.activate();
        const ItemRef item = makeExtremeScreen();
        program.insert(item);
        program.settle();
        const Bytes before = writeProject(program.delegate().project());
        std::vector<std::string> changes;
        const auto observation = item->observe([&](std::string_view key) { changes.emplace_back(key); });

        QCOMPARE(program.find<NumberField>("Panel-H")->value(), lowest);
        QCOMPARE(program.find<NumberField>("ROWS")->value(), highest);
        QCOMPARE(program.find<ColorButton>("Frame colour")->color(), item->boarderColor());
        for (int i = 0; i < 60; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        program.delegate().arraycontroller().setSelectionIndex(1);
        program.settle();
        program.delegate().arraycontroller().setSelectionIndex(0);
        program.settle();
        QCOMPARE(changes, std::vector<std::string>{});
        QVERIFY(writeProject(program.delegate().project()) == before);
    }

    void changesFromElsewhereShow()
    {
        ProgramUnderTest program;
        program.item().setCol(9);
        program.item().setBoarderWidth(3);
        program.item().setLabel(makeString(u"renamed"));
        program.settle();
        QCOMPARE(program.find<NumberField>("COLS")->value(), 9);
        QCOMPARE(program.find<NumberField>("Frame width")->value(), 3);
        QCOMPARE(nameField(program)->text(), QString("renamed"));

        program.delegate().arraycontroller().setSelectionIndexes({});
        program.settle();
        QVERIFY(!program.find<NumberField>("COLS")->isEnabled());
        QVERIFY(!nameField(program)->isEnabled());
    }

    void aMonsterIsNotDrawnBeforeItIsTypedToTheEnd()
    {
        ProgramUnderTest program;
        program.activate();
        program.item().setRow(1);
        program.item().setPanelHeight(1);
        program.item().setPanelWidth(7'000);
        program.settle();
        auto* columns = program.find<NumberField>("COLS");
        type(columns, "9999");
        QCOMPARE(program.item().col(), 999);
        program.item().setXpoint(3); // an observed change does not take the digit away
        program.settle();
        QCOMPARE(columns->text(), QString("9999"));
        QTest::keyClick(columns, Qt::Key_Tab);
        QCOMPARE(program.item().col(), 9'999);
    }

    void namesAreKeptUntilTheyAreEdited()
    {
        ProgramUnderTest program;
        program.activate();
        type(nameField(program), "Main");
        QCOMPARE(textOf(program.item().label()), std::u16string(u"Main"));

        const StringRef monster = makeString(std::u16string().assign(10'000'000, u'x'));
        program.item().setLabel(monster);
        program.settle();
        QCOMPARE(nameField(program)->text(), QString());
        QVERIFY(nameField(program)->placeholderText().size() < 300);
        QCOMPARE(program.item().label(), monster);
        type(nameField(program), "short");
        QCOMPARE(textOf(program.item().label()), std::u16string(u"short"));
    }

    void aStillShowsWhatAStillHas()
    {
        ProgramUnderTest program;
        auto still = GXStill::initWithimage(nullptr);
        still->setImageURL(program.location("still.png"));
        program.insert(still);
        program.settle();
        QVERIFY(program.find<NumberField>("Width")->isVisible());
        QVERIFY(program.find<NumberField>("Height")->isVisible());
        QVERIFY(program.find<NumberField>("H-Start")->isVisible());
        for (const char* hidden : {"Pos-H", "Pos-V", "XY Label Size", "Label Screen Size"})
            QVERIFY2(!program.find<NumberField>(hidden)->isVisible(), hidden);
        QVERIFY(!checkBox(program, "Fill")->isVisible());
        bool shown = false;
        for (const QLineEdit* field : program.window().inspector()->findChildren<QLineEdit*>())
            shown = shown || (field->isVisible() && field->text() == program.path("still.png"));
        QVERIFY(shown);

        program.delegate().arraycontroller().setSelectionIndex(1);
        program.settle();
        QVERIFY(program.find<NumberField>("COLS")->isVisible());
        QVERIFY(checkBox(program, "Fill")->isVisible());
    }

    void alignMovesTheItem_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::newRow("top left") << "Align: TOP LEFT" << 0 << 0;
        QTest::newRow("top right") << "Align: TOP RIGHT" << 1608 << 0;
        QTest::newRow("center") << "Align: CENTER" << 804 << 384;
        QTest::newRow("bottom left") << "Align: BOTTOM LEFT" << 0 << 768;
        QTest::newRow("bottom right") << "Align: BOTTOM RIGHT" << 1608 << 768;
    }

    void alignMovesTheItem()
    {
        QFETCH(QString, button);
        QFETCH(int, x);
        QFETCH(int, y);
        ProgramUnderTest program;
        program.item().setXpoint(-3);
        program.item().setYpoint(5);
        program.find<QToolButton>(button)->click();
        program.settle();
        QCOMPARE(program.item().xpoint(), x);
        QCOMPARE(program.item().ypoint(), y);
        QCOMPARE(program.output(x, y), QString("ffffffff")); // the frame's corner
    }

    void alignOverhangsEvenly()
    {
        QVERIFY(positionAt(Anchor::Center, {1920, 1621}, {1920, 1080}) == (Position{0, -271}));
        QVERIFY(positionAt(Anchor::BottomRight, {lowest, highest}, {highest, lowest}) == (Position{highest, lowest}));
    }
};

QTEST_MAIN(InspectorTest)
#include "inspector_test.moc"
