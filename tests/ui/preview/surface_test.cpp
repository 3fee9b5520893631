// SPDX-License-Identifier: MIT
#include "ui/preview/preview_surface.h"

#include "ui/program_under_test.h"

using namespace wallgrid;

// Runs at several scales of the desktop.
class SurfaceTest : public QObject {
    Q_OBJECT

private:
    /// What the desktop shows of the surface, in device pixels from the corner that the surface counts from.
    static QImage shown(ProgramUnderTest& program)
    {
        QCoreApplication::processEvents();
        PreviewSurface& surface = *program.window().miniPvw();
        QScreen* screen = program.window().screen();
        QImage window = screen->grabWindow(program.window().winId()).toImage();
        window.setDevicePixelRatio(1);
        // What is not on the screen is not in the picture.
        window = window.copy(QRect({}, screen->size() * surface.devicePixelRatioF()) & window.rect());
        const QPointF corner = QPointF(surface.mapTo(&program.window(), QPoint())) * surface.devicePixelRatioF();
        const QRect place(corner.toPoint(), (QSizeF(surface.size()) * surface.devicePixelRatioF()).toSize());
        return window.copy(place & window.rect());
    }

    /// A place of the surface where a pixel of the raster is.
    static QPoint at(PreviewSurface& surface, double x, double y)
    {
        const QRectF pixel = surface.viewport().toView({std::int64_t(x), std::int64_t(y), 0, 0});
        return (pixel.topLeft() / surface.devicePixelRatioF()).toPoint();
    }

    static void drag(PreviewSurface& surface, QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(&surface, Qt::LeftButton, {}, from);
        for (const QPoint step : {from + (to - from) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, step, surface.mapToGlobal(step), Qt::NoButton, Qt::LeftButton,
                             modifiers);
            QCoreApplication::sendEvent(&surface, &move);
        }
    }

    static void release(PreviewSurface& surface, QPoint at) { QTest::mouseRelease(&surface, Qt::LeftButton, {}, at); }

private slots:
    void everyPixelIsExact()
    {
        ProgramUnderTest program;
        program.delegate().setBgColor(Color::deviceRGB(0.2, 0.4, 0.6));
        program.item().setXYFontEnable(true); // text, whose edges have many shades
        program.settle();
        program.delegate().arraycontroller().setSelectionIndexes({});
        PreviewSurface& surface = *program.window().miniPvw();
        for (const int scale : {1, 3}) {
            surface.zoomTo(scale);
            const QImage seen = shown(program);
            const QRect picture = surface.viewport().picture();
            const QRect visible = surface.viewport().visiblePicture() & seen.rect();
            QVERIFY(visible.width() > 100 && visible.height() > 60);
            QCOMPARE(picture.size(), QSize(1920, 1080) * scale);
            QVERIFY(program.find<QLabel>(QString("%1 %").arg(100 * scale)));
            for (int y = visible.top(); y <= visible.bottom(); ++y) {
                for (int x = visible.left(); x <= visible.right(); ++x) {
                    const Pixel pixel =
                        program.delegate().offscreenRep()->at((x - picture.x()) / scale, (y - picture.y()) / scale);
                    if (seen.pixel(x, y) != qRgb(pixel.r, pixel.g, pixel.b))
                        QFAIL(qPrintable(QString("%1, %2 at %3").arg(x).arg(y).arg(scale)));
                }
            }
            program.delegate().setBgColor(nullptr); // seen at once
            program.delegate().update();
        }
    }

    void aDragMovesAndSnaps()
    {
        ProgramUnderTest program;
        program.insert(makeScreen(u"wall", 200, 600, 400));
        program.settle();
        PreviewSurface& surface = *program.window().miniPvw();
        UndoHistory& history = program.application.history();
        GXItem& wall = program.item(0);
        const QPoint from = at(surface, 700, 500);
        const auto click = [&] {
            drag(surface, from, from + QPoint(0, 2));
            release(surface, from);
        };
        program.delegate().arraycontroller().setSelectionIndex(1);
        history.start();
        click();
        QCOMPARE(program.delegate().arraycontroller().selectionIndex(), std::optional<std::size_t>(0));
        QCOMPARE(wall.ypoint(), 400);

        // The default layer ends at column 312. The wall's left edge is brought near to it, in points.
        const QPoint near = at(surface, 700 - 288, 500) + QPoint(6, 0);
        drag(surface, from, near);
        QCOMPARE(wall.xpoint(), 312);
        program.settle();
        QVERIFY(!history.undoable()); // before it has ended
        QVERIFY(program.window().statusBar()->currentMessage().startsWith("Alt: no snapping. Esc: put back."));
        drag(surface, from, near, Qt::AltModifier); // goes on, without snapping
        const int unsnapped =
            600 + qRound((near.x() - from.x()) * surface.devicePixelRatioF() / surface.viewport().scale());
        QCOMPARE(wall.xpoint(), unsnapped);
        release(surface, near);
        program.settle();
        QCOMPARE(program.output(unsnapped, 400), "ff00ff00");
        QCOMPARE(program.window().statusBar()->currentMessage(), QString());
        drag(surface, at(surface, unsnapped + 50, 500), at(surface, 1500, 900));
        QVERIFY(wall.xpoint() != unsnapped);
        QTest::keyClick(&surface, Qt::Key_Escape);
        QCOMPARE(wall.xpoint(), unsnapped);
        program.settle();
        drag(surface, at(surface, unsnapped + 50, 500), at(surface, 1500, 900));
        surface.clearFocus();
        program.settle();
        history.undo(); // it has ended
        QCOMPARE(wall.xpoint(), unsnapped);
        surface.setFocus();
        QTest::keyPress(&surface, Qt::Key_Space);
        surface.clearFocus();
        QVERIFY(surface.cursor().shape() != Qt::OpenHandCursor);
        history.undo(); // all of the first drag is one step
        QCOMPARE(wall.xpoint(), 600);
        QVERIFY(!history.undoable());

        program.item(1).setXYFontEnable(true);
        program.delegate().arraycontroller().setSelectionIndexes({0, 1});
        const ImageRef before = program.item(1).thumbnail();
        QTest::keyClick(&surface, Qt::Key_Right);
        QVERIFY(program.item(1).thumbnail() != before); // which says where it is
    }

    void theSelectionIsZoomedTo()
    {
        ProgramUnderTest program;
        program.insert(makeScreen(u"outside", 100, 5000, 2000));
        PreviewSurface& surface = *program.window().miniPvw();
        const QRectF view({}, QSizeF(surface.size()) * surface.devicePixelRatioF());
        const auto middle = [&](Qt::Key key) {
            QTest::keyClick(&surface, key, Qt::ControlModifier);
            return (surface.viewport().toView(program.item().frame()).center() - view.center()).manhattanLength() < 2;
        };
        const auto outside = [&] { return surface.viewport().toView(program.item().frame()); };
        program.activate();
        QVERIFY(!view.contains(outside()));
        QVERIFY(!middle(Qt::Key_0) && view.contains(outside()));
        program.delegate().arraycontroller().setSelectionIndex(0);
        QVERIFY(middle(Qt::Key_1) && surface.viewport().scale() == 1);
        QVERIFY(middle(Qt::Key_3) && surface.viewport().scale() > 1);
        QVERIFY(view.contains(outside()));
        QVERIFY(surface.actions().contains(program.action("Zoom to &Selection"))); // of the context menu
        program.delegate().arraycontroller().setSelectionIndexes({});
        middle(Qt::Key_3);
        QCOMPARE(program.window().statusBar()->currentMessage(), "No layer is selected.");
    }

    void clicksSelect()
    {
        ProgramUnderTest program;
        program.insert(makeScreen(u"small", 100, 0, 0));
        program.settle();
        PreviewSurface& surface = *program.window().miniPvw();
        const auto selected = [&](QPoint place, Qt::KeyboardModifiers modifiers) {
            QTest::mouseClick(&surface, Qt::LeftButton, modifiers, place);
            return program.delegate().arraycontroller().selectionIndexes();
        };
        using Rows = std::set<std::size_t>;
        const QPoint both = at(surface, 50, 50);
        QCOMPARE(selected(both, {}), Rows{0});
        QCOMPARE(selected(both, Qt::ControlModifier), Rows{1});
        QCOMPARE(selected(both, Qt::ControlModifier), Rows{0});
        QCOMPARE(selected(at(surface, 250, 250), Qt::ShiftModifier), (Rows{0, 1}));
        QCOMPARE(selected(both, Qt::ShiftModifier), Rows{1});
        QCOMPARE(selected(at(surface, 1500, 900), {}), Rows{});
    }

    void arrowKeysNudge()
    {
        ProgramUnderTest program;
        const auto place = [&] { return QPoint(program.item().xpoint(), program.item().ypoint()); };
        const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(program.window().miniPvw(), key, modifiers);
            program.runLoop.advance(0.5);
        };
        program.item().setPanelHeight(50);
        press(Qt::Key_Right);
        press(Qt::Key_Down, Qt::ShiftModifier);
        press(Qt::Key_Left, Qt::ControlModifier);
        press(Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(place(), QPoint(1 - 78, 10 - 50));
        program.settle();
        program.settle();
    }

    void theWheelZoomsAndPans()
    {
        ProgramUnderTest program;
        PreviewSurface& surface = *program.window().miniPvw();
        const QPointF place = QPoint(surface.width() / 3, surface.height() / 2);
        const auto turn = [&](int angle, Qt::KeyboardModifiers modifiers) {
            QWheelEvent wheel(place, surface.mapToGlobal(place), {}, {0, angle}, {}, modifiers, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(&surface, &wheel);
        };
        drag(surface, at(surface, 700, 500), at(surface, 700, 500));
        release(surface, at(surface, 700, 500));
        const QStringList pixel = program.find<QLabel>("Pixel under the pointer")->text().split(", ");
        QVERIFY(std::abs(pixel[0].toInt() - 700) < 8 && std::abs(pixel[1].toInt() - 500) < 8);
        surface.zoomTo(1);
        const QPointF kept = surface.viewport().toRaster(place * surface.devicePixelRatioF());
        turn(60, Qt::ControlModifier); // half a notch
        QCOMPARE(surface.viewport().scale(), 1.);
        turn(60, Qt::ControlModifier);
        QCOMPARE(surface.viewport().scale(), 2.);
        const QPointF still = surface.viewport().toRaster(place * surface.devicePixelRatioF());
        QVERIFY((still - kept).manhattanLength() <= 1);
        const QPoint before = surface.viewport().picture().topLeft();
        const int step = qRound(60 * surface.devicePixelRatioF());
        turn(-120, {});
        QCOMPARE(surface.viewport().picture().topLeft(), before - QPoint(0, step));
        turn(-120, Qt::ShiftModifier);
        QCOMPARE(surface.viewport().picture().topLeft(), before - QPoint(step, step));
    }
};

QTEST_MAIN(SurfaceTest)
#include "surface_test.moc"
