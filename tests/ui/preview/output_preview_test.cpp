// SPDX-License-Identifier: MIT
#include "ui/preview/output_preview.h"

#include "ui/preview/preview_surface.h"
#include "ui/program_under_test.h"

using namespace wallgrid;

// On a desktop of three displays.
class OutputPreviewTest : public QObject {
    Q_OBJECT

private:
    static QScreen* display(const QString& name)
    {
        for (QScreen* screen : QGuiApplication::screens()) {
            if (screen->name() == name)
                return screen;
        }
        return nullptr;
    }

    static RasterWindow* rasterWindow()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* window = qobject_cast<RasterWindow*>(widget);
            if (window && window->isVisible())
                return window;
        }
        return nullptr;
    }

    /// How many pixels of the display are not what the raster, or the black around it, has there.
    static int wrongPixels(ProgramUnderTest& program, QScreen& screen)
    {
        QCoreApplication::processEvents();
        if (!rasterWindow())
            return -1;
        // Where the platform scales the display this is a part of it, in pixels of the display all the same.
        const QImage seen = screen.grabWindow(rasterWindow()->winId()).toImage();
        if (seen.size() != screen.size())
            return -1;
        const Bitmap& raster = *program.delegate().offscreenRep();
        int wrong = 0;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                const bool inside = x < raster.width() && y < raster.height();
                const Pixel pixel = inside ? raster.at(x, y) : Pixel{255, 0, 0, 0};
                wrong += seen.pixel(x, y) != qRgba(pixel.r, pixel.g, pixel.b, 255);
            }
        }
        return wrong;
    }

private slots:
    void theDisplayShowsTheRasterAndNothingElse()
    {
        const std::tuple<const char*, QSize, Qt::Key, const char*> displays[]{
            {"wall", {400, 300}, Qt::Key_F, "Output Preview on wall, 400 × 300, pixel for pixel"},
            {"desk", {1000, 800}, Qt::Key_F11, "Output Preview on desk, 1000 × 800, pixel for pixel"},
            {"scaled",
             {600, 450},
             Qt::Key_Escape,
             "The desktop scales scaled to 150 %: set it to 100 % for exact pixels."}};
        for (const auto& [name, pixels, key, report] : displays) {
            ProgramUnderTest program;
            program.delegate().loadProject({300, 400, {makeScreen(u"a", 120, 77, 33)}});
            program.delegate().setEdgeColor(Color::greenColor());
            program.window().outputPreview().chooseDisplay(name);
            program.delegate().openPvw();
            program.settle();
            RasterWindow* window = rasterWindow();
            QVERIFY(window);
            QCOMPARE(window->screen(), display(name));
            QCOMPARE(window->geometry(), display(name)->geometry());
            QCOMPARE((QSizeF(window->size()) * window->devicePixelRatioF()).toSize(), pixels);
            QCOMPARE(window->cursor().shape(), Qt::BlankCursor);
            QVERIFY(program.delegate().offscreenRep()->at(100, 50).g == 255);
            const auto* note = window->findChild<QLabel*>();
            QCOMPARE(note->isVisible(), name != std::string("wall")); // exact, and not where the main window is
            if (note->isVisible())
                QCOMPARE(note->text(), report + QString("\nEsc ends it"));
            window->findChild<QTimer*>()->setInterval(0);
            QTRY_VERIFY(!note->isVisible());
            QCOMPARE(wrongPixels(program, *display(name)), 0);
            QVERIFY(program.find<QLabel>(report));

            program.item().setXpoint(200); // it follows
            program.settle();
            QCOMPARE(wrongPixels(program, *display(name)), 0);
            program.delegate().openPvw(); // again: nothing changes
            QCOMPARE(rasterWindow(), window);
            QTest::keyClick(window, key);
            QVERIFY(!rasterWindow());
            program.settle();
            QVERIFY(!program.find<QLabel>(report));
        }
    }

    void itWaitsForAnUnpluggedDisplay()
    {
        ProgramUnderTest program;
        OutputPreview& preview = program.window().outputPreview();
        QVERIFY(preview.display() != "desk"); // where the main window is
        preview.chooseDisplay("wall");
        program.delegate().openPvw();
        QVERIFY(rasterWindow());
        emit qGuiApp->screenRemoved(display("scaled"));
        QVERIFY(rasterWindow());
        emit qGuiApp->screenRemoved(display("wall"));
        QVERIFY(!rasterWindow());
        QVERIFY(preview.isActive());
        QCOMPARE(preview.report(), "The display wall is gone. The Output Preview comes back with it.");
        emit qGuiApp->screenAdded(display("wall"));
        QVERIFY(rasterWindow()->testAttribute(Qt::WA_ShowWithoutActivating)); // the keyboard stays in the editor
        preview.leave();
        emit qGuiApp->screenAdded(display("wall"));
        QVERIFY(!rasterWindow());
        program.delegate().openPvw();
        QVERIFY(rasterWindow() && program.action("wall, 400 × 300")->isChecked());
        program.window().close();
        QVERIFY(!rasterWindow());
    }
};

int main(int argc, char** argv)
{
    QTemporaryDir folder;
    QFile desktop(folder.filePath("displays.json"));
    if (!desktop.open(QIODevice::WriteOnly))
        return 1;
    desktop.write(R"({"screens": [
        {"name": "desk", "x": 0, "y": 0, "width": 1000, "height": 800, "logicalDpi": 96, "dpr": 1},
        {"name": "wall", "x": 1000, "y": 0, "width": 400, "height": 300, "logicalDpi": 96, "dpr": 1},
        {"name": "scaled", "x": 1400, "y": 0, "width": 400, "height": 300, "logicalDpi": 96, "dpr": 1.5}]})");
    desktop.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + desktop.fileName().toLocal8Bit());
    QApplication application(argc, argv);
    OutputPreviewTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "output_preview_test.moc"
