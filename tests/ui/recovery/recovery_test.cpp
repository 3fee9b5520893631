// SPDX-License-Identifier: MIT
#include "app/project_file.h"
#include "ui/base/state_folder.h"
#include "ui/program_under_test.h"
#include "ui/recovery/recovery.h"
#include "ui/recovery/recovery_bar.h"
#include "ui/window/message_bar.h"

#include <new>

using namespace wallgrid;

namespace {

QStringList copiesIn(const QString& folder)
{
    QStringList files;
    for (QDirIterator walk(folder, {"*.mpr"}, QDir::Files, QDirIterator::Subdirectories); walk.hasNext();)
        files.append(walk.next());
    return files;
}

struct Program : ProgramUnderTest {
    explicit Program(QString recoveryFolder)
        : m_folder(std::move(recoveryFolder))
    {
        application.keepRecovery(m_folder);
        settle();
    }
    // Or the copies of two that end one after the other could be of the same time.
    ~Program() { QTest::qSleep(10); }
    bool offers() { return window().findChild<RecoveryBar*>()->isVisible(); }
    void click(const QString& text)
    {
        find<QPushButton>(text)->click();
        settle();
    }
    /// How many there are after the time in which one is written.
    int copies()
    {
        runLoop.advance(Recovery::kIntervalSeconds);
        application.recovery()->finish();
        return static_cast<int>(copiesIn(m_folder).size());
    }
    void save(const char* name)
    {
        panels.answer = location(name);
        delegate().saveProject();
    }

    QString m_folder;
};

} // namespace

class RecoveryTest : public QObject {
    Q_OBJECT

private slots:
    void aCopyIsOfferedOnce()
    {
        const QTemporaryDir state;
        const QString folder = state.filePath("recovery");
        {
            Program programs[]{Program(folder), Program(folder), Program(folder)};
            for (int columns = 5; Program & program : programs) {
                program.item().setCol(columns++);
                QVERIFY(program.copies() > 0);
            }
            QVERIFY(!Program(folder).offers()); // they still run
            for (const QString& name : QDir(folder).entryList({"*.lock"})) {
                QFile lock(QDir(folder).filePath(name));
                QVERIFY(lock.open(QFile::ReadWrite));
                lock.setFileTime(QDateTime::currentDateTime().addDays(-1), QFile::FileModificationTime);
            }
            QVERIFY(!Program(folder).offers()); // for however long
        }
        {
            Program next(folder);
            QVERIFY(next.offers());
            QVERIFY(!Program(folder).offers()); // to one only
            next.click("Restore");
            QCOMPARE(next.item().col(), 5); // the newest: this program ended last
            QCOMPARE(next.copies(), 3);     // no file of the user has it yet
            next.application.history().undo();
            QCOMPARE(next.item().col(), 4);
            QCOMPARE(next.copies(), 2);
            next.application.history().redo();
            QCOMPARE(next.copies(), 3);
            next.application.history().undo();
            next.click("Discard");
            QVERIFY(next.offers());
            QCOMPARE(next.copies(), 1);
            QFile broken(copiesIn(folder).constFirst());
            QVERIFY(broken.open(QFile::WriteOnly));
            broken.write("bplist00 and nothing else");
            broken.close();
            next.click("Restore");
            QVERIFY(next.offers()); // it cannot be read, and is not lost
            QCOMPARE(next.item().col(), 4);
        }
        // It was offered, and so it stays without being offered again.
        QVERIFY(!Program(folder).offers());
        const QFileInfo aside(copiesIn(folder).value(0));
        QCOMPARE(aside.absolutePath(), folder);
        QCOMPARE(aside.size(), 25);
    }

    void aProgramThatQuitsLeavesUnsavedChangesAndItsWindowsPlace()
    {
        const QTemporaryDir state;
        qputenv("XDG_STATE_HOME", "relative");
        QVERIFY(QDir::isAbsolutePath(stateFolder()));
        qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
        const std::string named = state.filePath("named.mpr").toStdString();
        QVERIFY(writeFileAtomically(named, writeProject({300, 400, {makeScreen(u"named")}})));
        QTimer::singleShot(0, qApp, [] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (!qobject_cast<MainWindow*>(widget))
                    continue;
                widget->resize(900, 700);
                const auto actions = widget->findChildren<QAction*>();
                QVERIFY(std::ranges::none_of(actions, [](auto* each) { return each->text() == "&Undo Open Project"; }));
                for (auto* action : actions) {
                    if (action->text() == "&Duplicate")
                        action->trigger();
                }
                widget->close();
            }
        });
        QCOMPARE(runApplication(*qobject_cast<GuardedApplication*>(qApp), named), 0);
        const QSettings memory(state.filePath("wallgrid/window.ini"), QSettings::IniFormat);
        QWidget window;
        QVERIFY(window.restoreGeometry(memory.value("geometry").toByteArray()));
        QCOMPARE(window.size(), QSize(900, 700));

        const QString folder = state.filePath("wallgrid/recovery");
        {
            Program next(folder);
            next.click("Restore");
            QCOMPARE(next.layers(), (QStringList{"named 2", "named"}));
            next.item().setCol(8); // so late that no copy holds it
        }
        {
            Program next(folder);
            next.click("Restore");
            QCOMPARE(next.item().col(), 8);
            QVERIFY(!next.offers());
            next.save("stage.mpr");
        }
        QVERIFY(QDir(folder).isEmpty());
    }

    void aCopyKeepsTheColoursAndPresetsThatNoProjectHolds()
    {
        const QTemporaryDir state;
        const QString folder = state.filePath("recovery");
        {
            Program program(folder);
            program.delegate().setBgColor(Color::deviceRGB(1, 0, 0, 0.5));
            program.delegate().setEdgeColor(Color::greenColor());
            QCOMPARE(program.copies(), 1);
            const auto copied = [&] { return readFile(copiesIn(folder).constFirst().toStdString()).value(); };
            const Bytes before = copied();
            program.delegate().presetarraycontroller().removeObjectsAtArrangedObjectIndexes({0, 2});
            QCOMPARE(program.copies(), 1);
            QVERIFY(copied() != before && readProject(copied()));
        }
        Program next(folder);
        next.click("Restore");
        QCOMPARE(next.delegate().bgColor()->rgba(), (Color::RGBA{1, 0, 0, 0.5}));
        QCOMPARE(next.delegate().edgeColor()->rgba(), Color::greenColor()->rgba());
        QCOMPARE(next.delegate().presetarraycontroller().arrangedObjects().size(), std::size_t{2});
        QCOMPARE(next.output(960, 1070), QString("80800000"));
        next.application.history().undo();
        QVERIFY(!next.delegate().bgColor());
        QCOMPARE(next.copies(), 0);
        next.panels.answer = next.location("presets");
        next.trigger("Sa&ve Presets…");
        next.trigger("Open &Presets…");
        QCOMPARE(next.copies(), 0); // a file of the user has them
    }

    void thereIsACopyWhileTheProjectHoldsChanges()
    {
        const QTemporaryDir state;
        Program program(state.filePath("recovery"));
        /// The position in the copy; -1 without one.
        const auto copied = [&] {
            if (program.copies() == 0)
                return -1;
            const auto bytes = readFile(copiesIn(state.path()).constFirst().toStdString());
            return int{readProject(*bytes)->items.front()->xpoint()};
        };
        QCOMPARE(copied(), -1);
        program.item().setXpoint(5);
        QCOMPARE(copied(), 5);
        program.application.history().undo();
        QCOMPARE(copied(), -1);
        for (const int x : {6, 7}) {
            program.item().setXpoint(x);
            QCOMPARE(copied(), x);
        }
        program.save("stage.mpr");
        QCOMPARE(copied(), -1);
        program.item().setXpoint(8);
        program.save("no folder/stage.mpr"); // fails
        QCOMPARE(copied(), 8);
        program.panels.answer = program.location("stage.mpr");
        program.delegate().openProject();
        QCOMPARE(copied(), -1);
        program.application.history().undo();
        QCOMPARE(copied(), 8); // no file holds that
    }

    void anEventWithoutMemoryIsTakenBackWhole()
    {
        struct Thrower : QObject {
            bool event(QEvent*) override { throw std::bad_alloc(); }
        } thrower;
        ProgramUnderTest program;
        connect(qobject_cast<GuardedApplication*>(qApp), &GuardedApplication::ranOutOfMemory, &program.application,
                &Application::goOnWithoutMemory);
        const auto outputAfter = [&](const std::function<void()>& handler) {
            QTimer::singleShot(0, &program.application, handler);
            QCoreApplication::processEvents();
            program.settle();
            return QSize(program.delegate().OutputWidth(), program.delegate().OutputHeight());
        };
        const QSize launched = outputAfter([] {});
        QCOMPARE(outputAfter([&] {
                     program.delegate().setOutputWidth(5);
                     throw std::bad_alloc();
                 }),
                 launched);
        QVERIFY(program.window().findChild<MessageBar*>()->accessibleName().contains("memory"));
        QCOMPARE(outputAfter([&] {
                     program.delegate().setOutputWidth(5);
                     QEvent within(QEvent::User);
                     QCoreApplication::sendEvent(&thrower, &within);
                     program.delegate().setOutputHeight(6);
                 }),
                 launched);
        QVERIFY(!program.application.history().undoable());
        QCOMPARE(outputAfter([&] { program.delegate().setOutputWidth(5); }), QSize(5, launched.height()));
    }
};

int main(int argc, char** argv)
{
    GuardedApplication application(argc, argv);
    RecoveryTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "recovery_test.moc"
