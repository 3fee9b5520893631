// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_screen.h"
#include "qt/qt_toolkit.h"
#include "ui/desktop/qt_recent_documents.h"
#include "ui/inspector/inspector.h"
#include "ui/lists/item_table.h"
#include "ui/window/application.h"

#include <QtTest>
#include <QtWidgets>
#include <string>
#include <vector>

namespace wallgrid {

/// Panels whose user is the test.
struct ScriptedPanels : Panels {
    UrlRef runSavePanel() override { return answer; }
    UrlRef runOpenPanel() override { return answer; }
    void runAlert(std::string_view message, std::string_view informativeText) override
    {
        alerts.push_back(std::string(message) + "|" + std::string(informativeText));
    }

    UrlRef answer;
    std::vector<std::string> alerts;
};

/// Does something with the modal dialog that the next call opens.
template <class Dialog, class Answer>
void whenAsked(Answer answer)
{
    QTimer::singleShot(0, qApp, [answer] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        answer(*dialog);
    });
}

/// Types over what the field holds.
inline void type(QWidget* field, const QString& text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

/// The launched program in a clock that the test turns.
class ProgramUnderTest {
public:
    ProgramUnderTest()
    {
        application.launch();
        settle();
    }

    /// Lets the time of the throttle pass, and runs everything that was put off.
    void settle()
    {
        runLoop.advance(1);
        QCoreApplication::processEvents();
    }

    void activate() { QVERIFY(QTest::qWaitForWindowActive(&window())); }

    GXAppDelegate& delegate() { return application.delegate(); }
    MainWindow& window() { return application.mainWindow(); }
    GXItem& item(std::size_t row = 0) { return *delegate().arraycontroller().arrangedObjects()[row]; }
    void insert(ItemRef newItem, std::size_t row = 0)
    {
        delegate().arraycontroller().insertObjectAtArrangedObjectIndex(std::move(newItem), row);
    }

    /// "aarrggbb" of a pixel of the output raster, as it is stored.
    QString output(int x, int y) { return text(delegate().offscreenRep()->at(x, y)); }
    static QString text(Pixel pixel)
    {
        return QString::asprintf("%02x%02x%02x%02x", pixel.a, pixel.r, pixel.g, pixel.b);
    }

    QString path(const QString& name) const { return folder.filePath(name); }
    UrlRef location(const QString& name) const
    {
        return std::make_shared<const Url>(Url::fromFilePath(path(name).toStdString()));
    }

    QStringList names(const GXAppDelegate::ItemController& list)
    {
        QStringList names;
        for (const ItemRef& item : list.arrangedObjects())
            names.append(QString::fromStdU16String(textOf(item->label())));
        return names;
    }
    QStringList layers() { return names(delegate().arraycontroller()); }

    /// The widget that is called so: for screen readers, by its label or by its own text.
    template <class Widget>
    Widget* find(const QString& name)
    {
        for (Widget* widget : window().findChildren<Widget*>()) {
            if (widget->accessibleName() == name)
                return widget;
        }
        for (const QLabel* label : window().findChildren<QLabel*>()) {
            if (auto* widget = qobject_cast<Widget*>(label->buddy()); widget && label->text() == name)
                return widget;
        }
        for (Widget* widget : window().findChildren<Widget*>()) {
            if (widget->property("text") == name)
                return widget;
        }
        return nullptr;
    }

    QAction* action(const QString& text)
    {
        const QList<QAction*> actions = window().findChildren<QAction*>();
        const auto found =
            std::find_if(actions.begin(), actions.end(), [&](auto* each) { return each->text() == text; });
        return found == actions.end() ? nullptr : *found;
    }
    void trigger(const QString& text)
    {
        action(text)->trigger();
        settle();
    }

    QTemporaryDir folder;
    QtToolkit toolkit;
    ManualRunLoop runLoop;
    ScriptedPanels panels;
    QtRecentDocuments recentDocuments{folder.filePath("recent.ini")};
    Application application{runLoop, panels, recentDocuments};
};

inline ItemRef makeScreen(std::u16string name, std::int32_t size = 4, std::int32_t x = 0, std::int32_t y = 0)
{
    return GXScreen::initWithrow(1, 1, size, size, Color::greenColor(), Color::whiteColor(), Color::whiteColor(), 50,
                                 true, false, makeString(std::move(name)), false, x, y);
}

} // namespace wallgrid
