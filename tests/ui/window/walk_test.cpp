// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "ui/program_under_test.h"

using namespace wallgrid;

namespace {

bool isControl(const QWidget& widget)
{
    const auto* line = qobject_cast<const QLineEdit*>(&widget);
    const bool insideSpinBox = line && qobject_cast<const QAbstractSpinBox*>(line->parentWidget());
    return widget.focusPolicy() != Qt::NoFocus && !widget.focusProxy() && !insideSpinBox &&
           !qobject_cast<const QMenuBar*>(&widget);
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

void press(QWidget& window, const QString& text)
{
    QWidget* const focus = window.focusWidget();
    QTest::keyClick(focus ? focus : &window, static_cast<Qt::Key>(mnemonic(text).unicode()), Qt::AltModifier);
}

void closePopups()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        QTest::keyClick(popup, Qt::Key_Escape);
}

/// Every entry of an open menu runs or opens at its letter; nothing else of it happens.
int pressEntries(QMenu& menu)
{
    int pressed = 0;
    for (QAction* action : menu.actions()) {
        if (mnemonic(action->text()).isNull() || !action->isEnabled())
            continue;
        menu.popup({});
        bool landed = false;
        action->disconnect(SIGNAL(triggered(bool)));
        QObject::connect(action, &QAction::triggered, &menu, [&landed] { landed = true; });
        QTest::keyClick(&menu, static_cast<Qt::Key>(mnemonic(action->text()).unicode()));
        landed = landed || (action->menu() && action->menu()->isVisible());
        if (!landed)
            qFatal("%s does nothing", qPrintable(action->text()));
        ++pressed;
        closePopups();
    }
    return pressed;
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
        for (const QAction* action : program.window().findChildren<QAction*>()) {
            for (const QKeySequence& key : action->shortcuts())
                keys.append(key.toString());
        }
        QVERIFY(keys.size() > 20 && keys.contains("Del") && keys.contains("Ctrl+Shift+N"));
        QCOMPARE(keys.removeDuplicates(), 0);
    }

    void everyUnderlinedLetterLands()
    {
        int pressed = 0;
        walk([&](QWidget& window) {
            if (!window.isVisible())
                return;
            window.activateWindow(); // which it has not been since the last menu
            QTRY_COMPARE(QApplication::activeWindow(), &window);
            for (const QLabel* label : window.findChildren<QLabel*>()) {
                if (mnemonic(label->text()).isNull() || !label->isVisibleTo(&window))
                    continue;
                press(window, label->text());
                const QWidget* const focus = window.focusWidget();
                QVERIFY2(focus == label->buddy() || focus == label->buddy()->focusProxy(), qPrintable(label->text()));
                ++pressed;
            }
            for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
                if (mnemonic(button->text()).isNull() || !button->isEnabled() || !button->isVisibleTo(&window))
                    continue;
                button->disconnect(SIGNAL(clicked(bool)));
                const QSignalSpy clicked(button, &QAbstractButton::clicked);
                press(window, button->text());
                QTRY_VERIFY2(clicked.size() == 1, qPrintable(button->text()));
                ++pressed;
            }
            for (QAction* menu :
                 window.findChild<QMenuBar*>() ? window.findChild<QMenuBar*>()->actions() : QList<QAction*>()) {
                press(window, menu->text());
                QCOMPARE(QApplication::activePopupWidget(), menu->menu());
                closePopups();
                pressed += 1 + pressEntries(*menu->menu());
            }
        });
        QVERIFY2(pressed > 70, qPrintable(QString::number(pressed)));
    }
};

QTEST_MAIN(WalkTest)
#include "walk_test.moc"
