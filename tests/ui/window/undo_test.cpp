// SPDX-License-Identifier: MIT
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
};

} // namespace

class UndoTest : public QObject {
    Q_OBJECT

private slots:
    void whatDoesNotCountYetIsDroppedFirst()
    {
        const char* const fields[][3]{{"Output width", "64", "1920 px"}, // counts when it is typed to the end
                                      {"COLS", "9999", "9"},             // too large to draw on the way
                                      {"COLS", "", "4"},                 // no number
                                      {"Fill colour as #RRGGBB or #RRGGBBAA", "#12", "#FF0000"}};
        for (const auto& [field, typed, text] : fields) {
            Steps program;
            QCOMPARE(program.menu(), QString("(&Undo) (&Redo)"));
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
};

QTEST_MAIN(UndoTest)
#include "undo_test.moc"
