// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_screen.h"
#include "platform/qt/qt_toolkit.h"
#include "ui/application.h"
#include "ui/inspector.h"
#include "ui/item_table.h"
#include "ui/qt_recent_documents.h"

#include <QTemporaryDir>
#include <QtTest>
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

/// The launched program in a clock that the test turns.
class ProgramUnderTest {
public:
    ProgramUnderTest()
    {
        application.launch();
        settle();
    }

    /// Lets the throttle pass and everything that is put off happen.
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

    /// The widget that screen readers call by this name.
    template <class Widget>
    Widget* find(const QString& accessibleName)
    {
        for (Widget* widget : window().findChildren<Widget*>()) {
            if (widget->accessibleName() == accessibleName)
                return widget;
        }
        return nullptr;
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
