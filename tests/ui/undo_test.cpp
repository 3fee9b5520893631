// SPDX-License-Identifier: MIT
#include "program_under_test.h"

#include "ui/color_button.h"
#include "ui/preview/preview_surface.h"

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QMenuBar>
#include <array>

using namespace wallgrid;

namespace {

struct Steps : ProgramUnderTest {
    /// The first two entries of the Edit menu, in brackets when they are disabled.
    QString menu()
    {
        const QList<QAction*> actions = window().menuBar()->actions()[1]->menu()->actions();
        QStringList texts;
        for (const QAction* action : {actions[0], actions[1]})
            texts.append(action->isEnabled() ? action->text() : "(" + action->text() + ")");
        return texts.join(u' ');
    }
    void type(QWidget& widget, const QString& text)
    {
        widget.setFocus();
        QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&widget, text);
    }
    void undo() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier); }
    void redo() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
};

} // namespace

class UndoTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsTypedInTheInspectorIsTakenBackByTheDocument()
    {
        Steps program;
        program.activate();
        QCOMPARE(program.menu(), "(&Undo) (&Redo)");
        auto* columns = program.find<QAbstractSpinBox>("COLS");
        QLineEdit* name = nullptr;
        for (auto* edit : program.window().inspector()->findChildren<QLineEdit*>()) {
            if (edit->text() == "Layer 0")
                name = edit;
        }
        // No turn of the event loop in between.
        program.type(*columns, "12");
        program.type(*name, "Stage");
        program.settle();
        QCOMPARE(program.menu(), "&Undo Rename (&Redo)");

        program.undo(); // in the name's field
        program.settle();
        QCOMPARE(name->text(), "Layer 0");
        QCOMPARE(program.item().col(), 12);
        QCOMPARE(program.menu(), "&Undo Change Columns &Redo Rename");
        columns->setFocus();
        program.undo();
        program.settle();
        QCOMPARE(columns->text(), "4");
        QCOMPARE(program.output(12 * 78 - 1, 5), "ff000000");
        program.redo();
        program.redo();
        program.settle();
        QCOMPARE(name->text(), "Stage");
        QCOMPARE(columns->text(), "12");
        QCOMPARE(program.output(12 * 78 - 1, 5), "ffffffff");
        QCOMPARE(program.menu(), "&Undo Rename (&Redo)");
    }

    void dragOnThePreviewIsOneStep()
    {
        Steps program;
        program.activate();
        auto* surface = program.window().miniPvw();
        const QPoint start = surface->rect().center();
        program.item().setXpoint(1920 / 2 - 100);
        program.item().setYpoint(1080 / 2 - 100);
        program.settle();
        program.settle();
        const std::int32_t before = program.item().xpoint();
        QTest::mousePress(surface, Qt::LeftButton, {}, start);
        for (int step = 1; step < 5; ++step) {
            QTest::mouseMove(surface, start + QPoint(20 * step, 0));
            program.settle();
        }
        QCOMPARE(program.menu(), "&Undo Move (&Redo)"); // the one before
        QTest::mouseRelease(surface, Qt::LeftButton, {}, start + QPoint(80, 0));
        program.settle();
        QVERIFY(program.item().xpoint() > before);
        program.delegate().setBgColor(Color::redColor());
        surface->setFocus();
        program.undo();
        program.undo();
        QCOMPARE(program.item().xpoint(), before);
        QCOMPARE(program.menu(), "&Undo Move &Redo Move");
    }

    void sizeOfTheOutputIsTakenBackInItsField()
    {
        Steps program;
        program.activate();
        auto* width = program.find<QAbstractSpinBox>("Output width");
        program.type(*width, "640");
        QTest::keyClick(width, Qt::Key_Return);
        program.settle();
        QCOMPARE(program.delegate().offscreenRep()->width(), 640);
        QCOMPARE(program.menu(), "&Undo Change Output Size (&Redo)");
        program.undo();
        QCOMPARE(program.delegate().offscreenRep()->width(), 1920);
        QCOMPARE(width->text(), "1920 px");
    }

    void whatDoesNotCountYetIsDroppedFirst_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        using Row = std::array<const char*, 4>;
        for (const auto& [name, field, typed, text] :
             {Row{"counts when typed to the end", "Output width", "64", "1920 px"},
              Row{"too large to draw on the way", "COLS", "9999", "9"}, Row{"no number", "COLS", "", "4"},
              Row{"half a colour", "Fill colour as #RRGGBB or #RRGGBBAA", "#12", "#FF0000"}})
            QTest::newRow(name) << QString(field) << QString(typed) << QString(text);
    }

    void whatDoesNotCountYetIsDroppedFirst()
    {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, text);
        Steps program;
        program.activate();
        program.item().setRow(300);
        program.settle();
        auto* edited = program.find<QWidget>(field);
        program.type(*edited, "");
        QTest::keyClick(edited, Qt::Key_Backspace);
        QTest::keyClicks(edited, typed);
        program.settle();
        QVERIFY(edited->property("text").toString() != text);
        const QString menu = program.menu();
        program.undo();
        program.settle();
        QCOMPARE(edited->property("text").toString(), text);
        QCOMPARE(program.menu(), menu);
        program.undo(); // now the step before
        QVERIFY(program.menu() != menu);
    }

    void nameThatIsBeingEditedInAListIsTakenBackThere()
    {
        Steps program;
        program.activate();
        program.item().setXpoint(9);
        program.settle();
        auto* table = program.window().table();
        table->setFocus();
        table->edit(table->model()->index(0, table->model()->columnCount() - 1));
        auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(editor);
        QTest::keyClicks(editor, "Stage");
        program.undo();
        QCOMPARE(editor->text(), "Layer 0");
        QCOMPARE(program.menu(), "&Undo Move (&Redo)");
    }

    void colourOfTheOutputIsShownAsItIs()
    {
        Steps program;
        program.activate();
        auto* button = program.find<ColorButton>("Background colour");
        auto* none = program.find<QToolButton>("No background colour: the output is opaque black");
        emit button->colorChosen(Color::greenColor());
        program.settle();
        QCOMPARE(program.output(900, 900), "ff00ff00");
        QVERIFY(none->isEnabled());
        program.undo();
        QCOMPARE(program.output(900, 900), "ff000000");
        QVERIFY(!none->isEnabled());
        QCOMPARE(button->color(), nullptr);
        QCOMPARE(program.menu(), "(&Undo) &Redo Change Background Colour");
    }
};

QTEST_MAIN(UndoTest)
#include "undo_test.moc"
