// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "ui/fields/color_button.h"
#include "ui/fields/color_text.h"
#include "ui/fields/fault_mark.h"
#include "ui/fields/number_field.h"
#include "ui/inspector/anchor.h"
#include "ui/program_under_test.h"

#include <limits>

using namespace wallgrid;

namespace {

constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
constexpr auto highest = std::numeric_limits<std::int32_t>::max();

struct Edited : ProgramUnderTest {
    Edited() { activate(); }

    /// What the item told its observers since the last call.
    QString changes()
    {
        settle();
        return std::exchange(m_changes, {}).join(u' ');
    }

    QStringList m_changes;
    Registration m_observation =
        item().observe([this](std::string_view key) { m_changes.append(QString::fromStdString(std::string(key))); });
};

} // namespace

class InspectorTest : public QObject {
    Q_OBJECT

private slots:
    void everyControlEditsAndShowsItsOwnProperty()
    {
        Edited program;
        QStringList found;
        const QWidget* const inspector = program.window().inspector();
        for (QWidget* control = inspector->nextInFocusChain(); inspector->isAncestorOf(control);
             control = control->nextInFocusChain()) { // as Tab goes
            auto* box = qobject_cast<QCheckBox*>(control);
            const bool line = qobject_cast<QLineEdit*>(control) && !qobject_cast<NumberField*>(control->parent());
            if (!control->isVisible() || !(box || line || qobject_cast<NumberField*>(control)))
                continue;
            const QString name = box ? box->text() : control->accessibleName();
            const auto shown = [&] { return control->property(box ? "checked" : "text").toString(); };
            const QString before = shown();
            std::map<std::string_view, GXItem::FieldValue> values;
            for (const GXItem::Field& field : GXItem::fields())
                values[field.property] = program.item().value(field);
            if (box)
                box->click();
            else
                type(control, name.contains('#') ? "#123456" : "7");
            const QString changed = program.changes();
            found.append(QString(name + ' ' + changed).remove(" as #RRGGBB or #RRGGBBAA"));
            QVERIFY2(shown() != before, qPrintable(name));
            for (const GXItem::Field& field : GXItem::fields()) {
                if (changed == QString::fromStdString(std::string(field.property)))
                    program.item().setValue(field, values[field.property]);
            }
            QCOMPARE(program.changes(), changed);
            QCOMPARE(shown(), before);
        }
        QCOMPARE(found.join(", "),
                 " label, V&isible in the output visible, Panel-H panelWidth, Panel-V panelHeight, COLS col, ROWS row, "
                 "H-Start xpoint, V-Start ypoint, Fill bgEnable, Fill colour rectColor, Frame BoarderEnable, Frame "
                 "colour boarderColor, Frame width boarderWidth, Circle CircleEnable, Circle colour circleColor, "
                 "Circle width, also the margin of the texts circleBWidth, Position text XYFontEnable, Size text "
                 "screenFontEnable, XY Label Size XYFontSize, Label Screen Size screenFontSize");
    }

    void numbersAreStepped()
    {
        Edited program;
        auto* left = program.find<NumberField>("H-Start");
        QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(left, &wheel); // scrolls past it
        QCOMPARE(program.item().xpoint(), 0);
        left->setFocus();
        QTest::keyClick(left, Qt::Key_Up);
        QCOMPARE(program.item().xpoint(), 1);
        QTest::keyClick(left, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(program.item().xpoint(), -9);
        program.item().setXpoint(99'995);
        program.settle();
        QTest::keyClick(left, Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(program.item().xpoint(), 100'000);
    }

    void coloursAreTypedAndPasted()
    {
        Edited program;
        auto* field = program.find<QLineEdit>("Fill colour as #RRGGBB or #RRGGBBAA");
        const ColorRef red = program.item().rectColor();
        const auto paste = [&](const QString& text) {
            program.item().setRectColor(red);
            program.settle();
            field->setFocus();
            field->selectAll();
            QGuiApplication::clipboard()->setText(text);
            field->paste();
            program.settle();
            QTest::keyClick(field, Qt::Key_Return);
            const bool taken = program.item().rectColor() != red;
            return field->text() + (taken ? "" : " left");
        };
        QCOMPARE(paste("#00ff7F"), "#00FF7F");
        QVERIFY(program.item().rectColor()->rgba() == (Color::RGBA{0, 1, 127 / 255.0, 1}));
        QCOMPARE(program.item().rectColor()->space(), Color::Space::CalibratedRGB);
        QCOMPARE(paste("#00FF7f80"), "#00FF7F80");
        QCOMPARE(program.item().rectColor()->rgba().a, 128 / 255.0);
        QCOMPARE(paste(" 00FF7FFF "), "#00FF7F");
        QCOMPARE(paste("#4Af"), "#44AAFF");
        QCOMPARE(paste(" Navy"), "#000080");
        for (const char* wrong : {"", "#00FF7", "#00FF7F8", "#00FF7F801", "#00FF7G", "greem", "##00FF7F", "#ff0000"}) {
            const bool same = qstrcmp(wrong, "#ff0000") == 0;
            QCOMPARE(paste(wrong), same ? "#FF0000 left" : QString(wrong) + " left");
            QCOMPARE(program.find<FaultMark>("A colour is #RRGGBB, #RRGGBBAA, #RGB or a name such as navy.") != nullptr,
                     !same);
        }
        type(field, "#00FF7F8"); // was a colour on the way
        QCOMPARE(program.item().rectColor()->rgba().g, 1.0);
        program.window().table()->setFocus();
        QCOMPARE(program.item().rectColor(), red);
    }

    void whatIsTypedReplacesWhatStandsThere()
    {
        Edited program;
        const auto clickAtTheEnd = [&](QWidget* field) {
            auto* line = qobject_cast<QLineEdit*>(field);
            line = line ? line : field->findChild<QLineEdit*>();
            QTest::mouseClick(line, Qt::LeftButton, {}, line->rect().center() + QPoint(line->width() / 3, 0));
        };
        auto* left = program.find<NumberField>("H-Start");
        program.item().setXpoint(5);
        program.settle();
        clickAtTheEnd(left);
        QTest::keyClicks(left, "448");
        QCOMPARE(program.item().xpoint(), 448);
        QTest::keyClick(left, Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "12");
        QCOMPARE(program.item().ypoint(), 12);
        clickAtTheEnd(left);
        clickAtTheEnd(left); // behind "px"
        QTest::keyClicks(left, "0");
        QCOMPARE(program.item().xpoint(), 4480);
        QTest::keyClicks(left, "-2*128");
        QTest::keyClick(left, Qt::Key_Return);
        QCOMPARE(left->text(), "4224 px");
        QVERIFY(left->findChild<QLineEdit*>()->hasSelectedText());
        auto* name = program.find<QLineEdit>("&Name");
        for (const char* typed : {"Main", " 2"}) {
            clickAtTheEnd(name);
            QTest::keyClicks(name, typed);
        }
        QCOMPARE(program.layers(), QStringList("Main 2"));
    }

    void whatIsNoNumberIsMarkedAndChangesNothing()
    {
        Edited program;
        const std::tuple<const char*, const char*, const char*> faults[]{
            {"COLS", "99999", "99999 is too large: 10000 is the most."},
            {"COLS", "-1", "-1 is too small: 0 is the least."},
            {"COLS", "5*", "The end of the sum is missing."},
            {"COLS", "", "A number is missing."},
            {"COLS", "1.5", "This is neither a whole number nor a sum."},
            {"COLS", "7/0", "Nothing can be divided by 0."},
            {"COLS", "9999999999999999999", "Such large numbers cannot be computed."},
            {"COLS", "+9997", "10001 is too large: 10000 is the most."},
            {"Output width", "0", "0 is too small: 1 is the least."},
            {"Frame width", "2*8000", "16000 is too large: 10000 is the most."}};
        const Bytes before = writeProject(program.delegate().project());
        for (const auto& [name, typed, reason] : faults) {
            auto* field = program.find<NumberField>(name);
            const int value = field->value();
            const QColor plain = field->palette().color(QPalette::Base);
            type(field, typed);
            if (*typed == 0)
                QTest::keyClick(field, Qt::Key_Backspace);
            QTest::keyClick(field, Qt::Key_Tab);
            program.settle();
            QVERIFY2(writeProject(program.delegate().project()) == before, typed);
            QCOMPARE(field->text(), typed);
            QVERIFY2(program.find<FaultMark>(reason)->isVisible(), reason);
            QVERIFY(field->palette().color(QPalette::Base) != plain);
            type(field, QString::number(value));
            QVERIFY(!program.find<FaultMark>(reason) && field->palette().color(QPalette::Base) == plain);
            QTest::keyClick(field, Qt::Key_Return);
        }
        auto* rows = program.find<NumberField>("ROWS");
        auto* color = program.find<QLineEdit>("Fill colour as #RRGGBB or #RRGGBBAA");
        type(rows, "x");
        type(color, "#12");
        program.insert(program.item().copy());
        program.settle();
        QCOMPARE(rows->text() + color->text(), "4#FF0000");
        type(rows, "+=2*2");
        QCOMPARE(program.item().row(), 4); // not before it is typed to the end
        QTest::keyClick(rows, Qt::Key_Return);
        QTest::keyClick(rows, Qt::Key_Return);
        QCOMPARE(program.item().row(), 8);
    }

    void coloursAreChosenInAPanel()
    {
        Edited program;
        auto* none = program.find<QToolButton>("No edge colour: the edge is like the background");
        const auto choose = [&](const QColor& color, bool accepted) {
            whenAsked<QColorDialog>([&](QColorDialog& dialog) {
                QVERIFY(dialog.testOption(QColorDialog::ShowAlphaChannel));
                dialog.setCurrentColor(color.isValid() ? color : dialog.currentColor());
                accepted ? dialog.accept() : dialog.reject();
            });
            program.find<ColorButton>("Edge colour")->click();
            program.settle();
            return program.delegate().edgeColor();
        };
        QVERIFY(!none->isEnabled());
        QVERIFY(choose({}, true)); // black, which none is not
        const ColorRef chosen = choose(QColor(255, 128, 0, 51), true);
        QVERIFY(chosen->rgba() == (Color::RGBA{1, 128 / 255.0, 0, 51 / 255.0}));
        QCOMPARE(choose(Qt::blue, false), chosen);
        QCOMPARE(choose({}, true), chosen); // the same
        none->click();
        program.settle();
        QVERIFY(!program.delegate().edgeColor() && !none->isEnabled());
    }

    void showingAnItemChangesNothingOfIt()
    {
        Edited program;
        const ItemRef item = makeScreen(u"extreme");
        bool low = false;
        for (const GXItem::Field& field : GXItem::fields()) {
            if (std::holds_alternative<std::int32_t>(item->value(field)))
                item->setValue(field, (low = !low) ? lowest : highest);
        }
        item->setRectColor(nullptr);
        item->setBoarderColor(std::make_shared<Color>(Color::Space::DeviceCMYK, std::array{0.1, 0.2, 0.3, 0.4}, 0.123));
        item->setLabel(makeString(std::u16string{u'a', u'\xd800', u'\0', u'\n', u'b'}));
        program.insert(item);
        program.settle();
        const Bytes before = writeProject(program.delegate().project());
        program.m_observation = item->observe([&](std::string_view) { QFAIL("changed"); });
        QCOMPARE(program.find<NumberField>("COLS")->value(), item->col());
        QCOMPARE(program.find<NumberField>("ROWS")->value(), item->row());
        QCOMPARE(program.find<ColorButton>("Frame colour")->color(), item->boarderColor());
        QCOMPARE(program.find<QLineEdit>("Frame colour as #RRGGBB or #RRGGBBAA")->text(), "#8A7A6B1F");
        for (int i = 0; i < 60; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        for (const auto& rows : {std::set<std::size_t>{1}, {0}, {}}) {
            program.delegate().arraycontroller().setSelectionIndexes(rows);
            program.settle();
        }
        QVERIFY(!program.find<NumberField>("COLS")->isEnabled() && !program.find<QLineEdit>("&Name")->isEnabled());
        QVERIFY(writeProject(program.delegate().project()) == before);
        program.insert(makeScreen(u"wall", 1'000'000));
        program.settle();
        QVERIFY(program.find<QLabel>("Screen, 1000000 × 1000000 px: too large to draw"));
    }

    void severalLayersAreEditedAtOnce()
    {
        Edited program;
        for (int i = 0; i < 2; ++i)
            program.insert(makeScreen(u"same", 10 + i, 100 * i, 7));
        program.insert(GXStill::initWithimage(nullptr), 1);
        GXAppDelegate& delegate = program.delegate();
        delegate.arraycontroller().setSelectionIndexes({0, 1, 2});
        program.settle();
        UndoHistory& history = program.application.history();
        history.commit();
        history.start();
        const ItemArray items(delegate.arraycontroller().arrangedObjects()); // screen, still, screen, and one beside
        const auto all = [&](auto get) {
            QStringList texts;
            for (const ItemRef& item : items)
                texts.append(QString::number(((*item).*get)()));
            return texts.join(u' ');
        };
        const auto enter = [&](const char* field, const char* typed) {
            auto* edited = program.find<QWidget>(field);
            type(edited, typed);
            QTest::keyClick(edited, Qt::Key_Return);
            program.runLoop.advance(2); // or the next would be the same step
            program.settle();
        };
        const Bytes before = writeProject(delegate.project());
        const auto undone = [&] { // in one step
            const Bytes after = writeProject(delegate.project());
            history.undo();
            const bool restored = writeProject(delegate.project()) == before && !history.undoable();
            history.redo();
            const bool again = after != before && writeProject(delegate.project()) == after;
            history.undo();
            program.settle();
            return restored && again;
        };
        QVERIFY(program.find<QLabel>("2 screens, 1 still"));
        auto* left = program.find<NumberField>("H-Start");
        auto* placeholder = left->findChild<QLineEdit*>();
        QCOMPARE(left->text() + placeholder->placeholderText(), "mixed");

        enter("H-Start", "5");
        QCOMPARE(all(&GXItem::xpoint), "5 5 5 0");
        QCOMPARE(left->text(), "5 px");
        QVERIFY(undone());
        enter("H-Start", "+=2*8");
        QCOMPARE(all(&GXItem::xpoint), "116 16 16 0");
        QVERIFY(undone());
        enter("H-Start", "+99950"); // 100050 for one of them
        QCOMPARE(all(&GXItem::xpoint), "100 0 0 0");
        QVERIFY(program.find<FaultMark>("100050 is too large: 100000 is the most."));
        enter("H-Start", "-=1");
        QVERIFY(undone());
        enter("COLS", "3"); // which a still has not
        QCOMPARE(all(&GXItem::col), "3 0 3 4");
        QCOMPARE(all(&GXItem::screenSizeWidth), "33 0 30 312");
        QCOMPARE(items[2]->thumbnail()->size().width, 30.0);
        QVERIFY(undone());
        enter("Frame width", "9");
        QCOMPARE(all(&GXItem::boarderWidth), "9 1 9 1");
        QVERIFY(undone());
        enter("Fill colour as #RRGGBB or #RRGGBBAA", "navy");
        QVERIFY(toQColor(*items[0]->rectColor()) == QColor(0, 0, 128));
        QCOMPARE(items[2]->rectColor(), items[0]->rectColor());
        QVERIFY(undone());
        items[2]->setVisible(false);
        items[2]->setRectColor(Color::calibratedRGB(0, 1, 0)); // alike, not the same
        program.settle();
        QCOMPARE(program.find<QLineEdit>("Fill colour as #RRGGBB or #RRGGBBAA")->text(), "#00FF00");
        history.start();
        auto* visible = program.find<QCheckBox>("V&isible in the output");
        QCOMPARE(visible->checkState(), Qt::PartiallyChecked);
        visible->click();
        QCOMPARE(all(&GXItem::visible), "1 1 1 1");
        history.commit();
        history.undo();
        QCOMPARE(all(&GXItem::visible), "1 1 0 1");
        program.find<QCheckBox>("Circle")->click();
        QCOMPARE(all(&GXItem::CircleEnable), "1 0 1 0");
        program.settle();
        history.start();
        enter("&Name", "Wall ##");
        QCOMPARE(program.layers(), QStringList({"Wall 01", "Wall 02", "Wall 03", "Layer 0"}));
        history.undo();
        QCOMPARE(program.layers(), QStringList({"same", "", "same", "Layer 0"}));
        QVERIFY(!history.undoable());
        program.find<QToolButton>("Align: Top right")->click(); // as they stand to each other
        QCOMPARE(all(&GXItem::xpoint), "1909 1809 1809 0");
        type(program.find<QLineEdit>("&Name"), "for the three");
        delegate.arraycontroller().setSelectionIndexes({2, 3});
        program.settle();
        QTest::keyClick(program.find<QLineEdit>("&Name"), Qt::Key_Return);
        QCOMPARE(program.layers(), QStringList({"same", "", "same", "Layer 0"}));
    }

    void alignMovesTheItem()
    {
        ProgramUnderTest program;
        const std::pair<const char*, PixelPoint> places[]{{"Top left", {0, 0}},
                                                          {"Top right", {1608, 0}},
                                                          {"Centre", {804, 384}},
                                                          {"Bottom left", {0, 768}},
                                                          {"Bottom right", {1608, 768}}};
        for (const auto& [name, place] : places) {
            program.item().setXpoint(-3);
            program.item().setYpoint(5);
            program.find<QToolButton>(QString("Align: ") + name)->click();
            program.settle();
            QVERIFY2(program.item().frame().origin() == place, name);
        }
        QVERIFY(positionAt(Anchor::Center, {0, 0, 1920, 1621}, {0, 0, 1920, 1080}) == (PixelPoint{0, -271}));
        program.item().setPosition({std::int64_t{highest} + 1, std::int64_t{lowest} - 1});
        QVERIFY(program.item().frame().origin() == (PixelPoint{highest, lowest}));
    }
};

QTEST_MAIN(InspectorTest)
#include "inspector_test.moc"
