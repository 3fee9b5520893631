// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "ui/program_under_test.h"

using namespace wallgrid;

namespace {

bool isControl(const QWidget& widget)
{
    const auto* line = qobject_cast<const QLineEdit*>(&widget);
    const bool insideSpinBox = line && qobject_cast<const QAbstractSpinBox*>(line->parentWidget());
    return widget.focusPolicy() != Qt::NoFocus && !insideSpinBox && !qobject_cast<const QMenuBar*>(&widget);
}

/// The window with a screen and with a still selected, and its sheets.
template <class Look>
void walk(Look look)
{
    ProgramUnderTest program;
    look(program.window());
    look(program.application.outputWindow());
    const auto still = GXStill::initWithimage(nullptr);
    still->setImageURL(program.location("gone.png"));
    program.insert(still);
    program.settle();
    look(program.window());
    program.delegate().add();
    look(*QApplication::activeModalWidget());
    program.delegate().CancelAddWindow();
    program.delegate().openAbout();
    look(*QApplication::activeModalWidget());
    program.delegate().closeAbout();
}

/// The letter behind "&", or none.
QChar mnemonic(const QString& text)
{
    const QKeySequence key = QKeySequence::mnemonic(text);
    return key.isEmpty() ? QChar() : QChar(key[0].key());
}

} // namespace

class WalkTest : public QObject {
    Q_OBJECT

private slots:
    void everyControlAndActionHasAName()
    {
        int controls = 0;
        walk([&](const QWidget& window) {
            QList<const QWidget*> buddies; // whose names are their labels' texts
            for (const QLabel* label : window.findChildren<QLabel*>()) {
                buddies.append(label->buddy());
                QVERIFY2(label->buddy() || mnemonic(label->text()).isNull(), qPrintable(label->text()));
            }
            for (const QWidget* widget : window.findChildren<QWidget*>()) {
                if (!isControl(*widget) || !widget->isVisibleTo(&window))
                    continue;
                ++controls;
                const auto* button = qobject_cast<const QAbstractButton*>(widget);
                // A screen reader says nothing useful of a lone sign.
                const bool named = !widget->accessibleName().isEmpty() || (button && button->text().size() > 1);
                QVERIFY2(named || buddies.contains(widget), widget->metaObject()->className());
            }
            for (const QAction* action : window.findChildren<QAction*>()) {
                const QObjectList users = action->associatedObjects();
                const bool reached = !users.isEmpty() && !users.constFirst()->objectName().startsWith("qt_");
                QVERIFY(!reached || action->isSeparator() || !action->text().isEmpty());
            }
        });
        QVERIFY2(controls > 60, qPrintable(QString::number(controls)));
    }

    void noShortcutIsThereTwice()
    {
        ProgramUnderTest program;
        QStringList keys;
        const auto note = [&](const QString& scope, const QString& text) {
            if (!mnemonic(text).isNull())
                keys.append(scope + mnemonic(text));
        };
        for (const QAction* action : program.window().findChildren<QAction*>()) {
            for (const QKeySequence& key : action->shortcuts())
                keys.append(key.toString());
        }
        for (const QMenu* menu : program.window().findChildren<QMenu*>()) {
            for (const QAction* action : menu->actions())
                note(menu->title() + " ", action->text());
        }
        for (const QAction* menu : program.window().menuBar()->actions())
            note("Alt+", menu->text());
        for (const QLabel* label : program.window().findChildren<QLabel*>())
            note("Alt+", label->text());
        for (const QAbstractButton* button : program.window().findChildren<QAbstractButton*>())
            note("Alt+", button->text());
        QVERIFY(keys.size() > 40 && keys.contains("Del") && keys.contains("Ctrl+Shift+N"));
        for (const QString& key : keys)
            QVERIFY2(keys.count(key) == 1, qPrintable(key));
    }

    void theTabKeyFollowsTheEye()
    {
        ProgramUnderTest program;
        program.activate();
        QMainWindow& window = program.window();
        const auto* columns = qobject_cast<QSplitter*>(window.centralWidget());
        const auto columnOf = [&](const QWidget* widget) {
            while (widget->parentWidget() != columns && widget->parentWidget() != &window)
                widget = widget->parentWidget();
            return widget == window.statusBar() ? columns->count() : columns->indexOf(const_cast<QWidget*>(widget));
        };
        const auto place = [&](QWidget* widget) { return QRect(widget->mapTo(&window, QPoint()), widget->size()); };

        QWidget* const first = program.window().table();
        first->setFocus();
        int steps = 0;
        QWidget* from = first;
        for (;; ++steps) {
            QTest::keyClick(from, Qt::Key_Tab);
            QWidget* const to = QApplication::focusWidget();
            if (to == first || steps > 100)
                break;
            const QRect before = place(from);
            const QRect after = place(to);
            const bool below = after.top() > before.bottom();
            const bool beside = after.bottom() >= before.top() && after.left() > before.left();
            const bool inNextColumn = columnOf(to) > columnOf(from);
            QVERIFY2(inNextColumn || (columnOf(to) == columnOf(from) && (below || beside)),
                     qPrintable(from->accessibleName() + " -> " + to->accessibleName()));
            from = to;
        }
        QVERIFY2(steps > 30 && steps < 100, qPrintable(QString::number(steps)));
    }
};

QTEST_MAIN(WalkTest)
#include "walk_test.moc"
