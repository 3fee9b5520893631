// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "program_under_test.h"
#include "ui/preview/preview_surface.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <map>

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

QStringList twice(const std::map<QString, QStringList>& uses)
{
    QStringList found;
    for (const auto& [key, users] : uses) {
        if (users.size() > 1)
            found.append(key + ": " + users.join(" | "));
    }
    return found;
}

} // namespace

class WalkTest : public QObject {
    Q_OBJECT

private slots:
    void everyControlAndActionHasAName()
    {
        int controls = 0;
        int actions = 0;
        walk([&](const QWidget& window) {
            QList<const QWidget*> buddies; // whose names are their labels' texts
            for (const QLabel* label : window.findChildren<QLabel*>())
                buddies.append(label->buddy());
            for (const QWidget* widget : window.findChildren<QWidget*>()) {
                const auto* button = qobject_cast<const QAbstractButton*>(widget);
                if (!isControl(*widget) || !widget->isVisibleTo(&window))
                    continue;
                ++controls;
                const bool named = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
                QVERIFY2(named || buddies.contains(widget), widget->metaObject()->className());
                // A screen reader says nothing useful of a lone sign.
                QVERIFY2(!button || button->text().size() > 1 || !button->accessibleName().isEmpty(),
                         widget->metaObject()->className());
            }
            for (const QAction* action : window.findChildren<QAction*>()) {
                const QObjectList users = action->associatedObjects();
                if (users.isEmpty() || users.constFirst()->objectName().startsWith("qt_")) // nobody can reach it
                    continue;
                ++actions;
                QVERIFY(action->isSeparator() || !action->text().isEmpty());
            }
        });
        QVERIFY2(controls > 60 && actions > 30, qPrintable(QString("%1 %2").arg(controls).arg(actions)));
    }

    void everyLabelThatNamesAControlIsItsBuddy()
    {
        QStringList without;
        walk([&](const QWidget& window) {
            for (const QLabel* label : window.findChildren<QLabel*>()) {
                if (!label->isVisibleTo(&window) || label->buddy() || label->text().isEmpty())
                    continue;
                QVERIFY2(mnemonic(label->text()).isNull(), qPrintable(label->text()));
                if (!without.contains(label->text()))
                    without.append(label->text());
            }
        });
        without.sort();
        without.removeIf([](const QString& text) { return text.endsWith(" %"); }); // the preview's scale
        QCOMPARE(without.join("\n"),
                 (QStringList{"1 layer", "2 layers", "A picture from a file", "A wall of LED panels",
                              "Add to the layers", "Drawing", "Geometry", "Not available", "Output 1920 × 1080 px",
                              "Pixel-map test images for LED video walls.", "Screen, 312 × 312 px", "Still, 0 × 0 px",
                              "Wallgrid 0.1.0"})
                     .join("\n"));
    }

    void noShortcutIsThereTwice()
    {
        ProgramUnderTest program;
        std::map<QString, QStringList> shortcuts;
        std::map<QString, QStringList> mnemonics;
        const auto note = [](std::map<QString, QStringList>& uses, const QString& scope, const QString& text) {
            if (!mnemonic(text).isNull())
                uses[scope + mnemonic(text)].append(text);
        };
        for (const QAction* action : program.window().findChildren<QAction*>()) {
            for (const QKeySequence& key : action->shortcuts())
                shortcuts[key.toString()].append(action->text());
        }
        QVERIFY(shortcuts.size() > 12);
        QCOMPARE(twice(shortcuts).join("\n"), QString());

        for (const QMenu* menu : program.window().findChildren<QMenu*>()) {
            for (const QAction* action : menu->actions())
                note(mnemonics, menu->title() + " ", action->text());
        }
        for (const QAction* menu : program.window().menuBar()->actions())
            note(mnemonics, "Alt+", menu->text());
        for (const QLabel* label : program.window().findChildren<QLabel*>())
            note(mnemonics, "Alt+", label->text());
        for (const QAbstractButton* button : program.window().findChildren<QAbstractButton*>())
            note(mnemonics, "Alt+", button->text());
        QCOMPARE(twice(mnemonics).join("\n"), QString());
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
