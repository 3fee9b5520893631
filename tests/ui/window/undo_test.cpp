// SPDX-License-Identifier: MIT
#include "ui/fields/color_button.h"
#include "ui/program_under_test.h"

using namespace wallgrid;

namespace {

struct Steps : ProgramUnderTest {
    Steps() { activate(); }

    /// The first two entries of the Edit menu, in brackets when they are disabled.
    QString menu()
    {
        const QList<QAction*> actions = window().menuBar()->actions()[1]->menu()->actions();
        QStringList texts;
        for (const QAction* action : {actions[0], actions[1]})
            texts.append(action->isEnabled() ? action->text() : "(" + action->text() + ")");
        return texts.join(u' ');
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
        QCOMPARE(program.menu(), "(&Undo) (&Redo)");
        auto* columns = program.find<QAbstractSpinBox>("COLS");
        auto* name = program.find<QLineEdit>("&Name");
        // No turn of the event loop in between.
        type(columns, "12");
        type(name, "Stage");
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
        program.redo();
        program.redo();
        program.settle();
        QCOMPARE(columns->text(), "12");
        QCOMPARE(program.menu(), "&Undo Rename (&Redo)");
    }

    void sizeAndColourOfTheOutputAreTakenBackInTheirFields()
    {
        Steps program;
        auto* width = program.find<QAbstractSpinBox>("Output width");
        auto* button = program.find<ColorButton>("Background colour");
        type(width, "640");
        QTest::keyClick(width, Qt::Key_Return);
        program.settle();
        QCOMPARE(program.delegate().offscreenRep()->width(), 640);
        emit button->colorChosen(Color::greenColor());
        program.settle();
        QCOMPARE(program.output(600, 900), "ff00ff00");
        program.undo();
        QCOMPARE(button->color(), nullptr);
        program.undo();
        QCOMPARE(width->text(), "1920 px");
        QCOMPARE(program.menu(), "(&Undo) &Redo Change Output Size");
    }

    void whatDoesNotCountYetIsDroppedFirst()
    {
        const char* const fields[][3]{{"Output width", "64", "1920 px"}, // counts when it is typed to the end
                                      {"COLS", "9999", "9"},             // too large to draw on the way
                                      {"COLS", "", "4"},                 // no number
                                      {"Fill colour as #RRGGBB or #RRGGBBAA", "#12", "#FF0000"}};
        for (const auto& [field, typed, text] : fields) {
            Steps program;
            program.item().setRow(300);
            program.settle();
            auto* edited = program.find<QWidget>(field);
            type(edited, "");
            QTest::keyClick(edited, Qt::Key_Backspace);
            QTest::keyClicks(edited, typed);
            program.item().setXpoint(3); // an observed change takes nothing away
            program.settle();
            QVERIFY(edited->property("text").toString() != text);
            const QString menu = program.menu();
            program.undo();
            program.settle();
            QCOMPARE(edited->property("text").toString(), QString(text));
            QCOMPARE(program.menu(), menu);
            program.undo(); // now the step before
            QVERIFY(program.menu() != menu);
        }
    }

    void nameThatIsBeingEditedInAListIsTakenBackThere()
    {
        Steps program;
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
};

QTEST_MAIN(UndoTest)
#include "undo_test.moc"
