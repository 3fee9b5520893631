// SPDX-License-Identifier: MIT
#include "app/project_file.h"
#include "program_under_test.h"
#include "ui/recovery.h"
#include "ui/recovery_bar.h"
#include "ui/state_folder.h"

#include <QAbstractSpinBox>
#include <QDirIterator>
#include <QFileDialog>
#include <QProcess>
#include <QPushButton>
#include <QStatusBar>
#include <csignal>
#include <cstdio>
#include <new>

using namespace wallgrid;

namespace {

MainWindow* mainWindow()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<MainWindow*>(widget))
            return window;
    }
    return nullptr;
}

QStringList copiesIn(const QString& folder)
{
    QStringList files;
    for (QDirIterator walk(folder, {"*.mpr"}, QDir::Files, QDirIterator::Subdirectories); walk.hasNext();)
        files.append(walk.next());
    return files;
}

/// The program with its windows, in a process of its own. It types 7 into the columns, waits for the copy, and says so;
/// then it goes on until it is killed, or quits when somebody writes to it.
int runUser(GuardedApplication& application)
{
    auto* timer = new QTimer(&application);
    const qsizetype others = copiesIn(stateFolder()).size();
    QObject::connect(timer, &QTimer::timeout, [typed = false, others, timer]() mutable {
        if (!typed) {
            mainWindow()->resize(900, 700);
            for (auto* field : mainWindow()->findChildren<QAbstractSpinBox*>()) {
                if (field->accessibleName() != "COLS" || !field->isEnabled())
                    continue;
                field->selectAll();
                QTest::keyClicks(field, "7");
                typed = true;
            }
        } else if (copiesIn(stateFolder()).size() > others) {
            timer->stop();
            std::puts("ready");
            std::fflush(stdout);
            std::getchar(); // the parent decides
            mainWindow()->close();
        }
    });
    timer->start(50);
    return runApplication(application, std::nullopt);
}

struct Run : QProcess {
    explicit Run(const QString& state)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_STATE_HOME", state);
        setProcessEnvironment(environment);
        setProcessChannelMode(ForwardedErrorChannel);
        start(QCoreApplication::applicationFilePath(), {"--as-user"});
    }
    bool ready() { return waitForReadyRead(30'000) && readAllStandardOutput() == "ready\n"; }
};

struct Program : ProgramUnderTest {
    explicit Program(const QString& recoveryFolder)
    {
        application.keepRecovery(recoveryFolder);
        settle();
    }
    RecoveryBar* bar() { return window().findChild<RecoveryBar*>(); }
    void click(const QString& text)
    {
        for (auto* button : bar()->findChildren<QPushButton*>()) {
            if (button->text() == text)
                button->click();
        }
        settle();
    }
    /// The copies in a folder, after the time in which one is written.
    int copies(const QString& recoveryFolder)
    {
        runLoop.advance(Recovery::kIntervalSeconds);
        application.recovery()->finish();
        return static_cast<int>(copiesIn(recoveryFolder).size());
    }
};

} // namespace

class RecoveryTest : public QObject {
    Q_OBJECT

private slots:
    void aKilledProgramLeavesACopyThatTheNextOneOffers()
    {
        const QTemporaryDir state;
        const QString folder = state.filePath("wallgrid/recovery");
        Run run(state.path());
        QVERIFY(run.ready());
        QCOMPARE(copiesIn(folder).size(), 1);
        {
            Program other(folder); // the first one still runs
            QVERIFY(!other.bar()->isVisible());
        }
        run.kill();
        QVERIFY(run.waitForFinished());
        QCOMPARE(run.exitStatus(), QProcess::CrashExit);

        Program next(folder);
        QVERIFY(next.bar()->isVisible());
        {
            Program third(folder); // an offer is made to one only
            QVERIFY(!third.bar()->isVisible());
        }
        next.click("Restore");
        QVERIFY(!next.bar()->isVisible());
        QCOMPARE(next.item().col(), 7);
        QCOMPARE(next.copies(folder), 1); // no file of the user has it yet
        next.delegate().setBgColor(Color::redColor());
        QCOMPARE(next.copies(folder), 1);
        next.application.history().undo();
        next.application.history().undo();
        QCOMPARE(next.item().col(), 4);
        QCOMPARE(next.copies(folder), 0);
        next.application.history().redo();
        QCOMPARE(next.copies(folder), 1);
    }

    void aCopyIsOfferedOnce()
    {
        const QTemporaryDir state;
        const QString folder = state.filePath("wallgrid/recovery");
        for (int i = 0; i < 2; ++i) {
            Run run(state.path());
            QVERIFY(run.ready());
            run.kill();
            QVERIFY(run.waitForFinished());
        }
        {
            Program next(folder);
            next.click("Discard");
            QVERIFY(next.bar()->isVisible());
            QCOMPARE(copiesIn(folder).size(), 1);
            QFile broken(copiesIn(folder).constFirst());
            QVERIFY(broken.open(QFile::WriteOnly));
            broken.write("bplist00 and nothing else");
            broken.close();
            next.click("Restore");
            QVERIFY(next.bar()->isVisible()); // it cannot be read, and is not lost
            QCOMPARE(next.item().col(), 4);
        }
        // It was offered, and so it stays without being offered again.
        QVERIFY(!Program(folder).bar()->isVisible());
        QCOMPARE(copiesIn(folder).size(), 1);
        const QFileInfo aside(copiesIn(folder).constFirst());
        QCOMPARE(aside.absolutePath(), folder);
        QCOMPARE(aside.size(), 25);
    }

    void aProgramThatQuitsLeavesUnsavedChangesAndItsWindowsPlace()
    {
        const QTemporaryDir state;
        const QString folder = state.filePath("wallgrid/recovery");
        Run run(state.path());
        QVERIFY(run.ready());
        run.write("\n");
        QVERIFY(run.waitForFinished());
        QCOMPARE(run.exitCode(), 0);
        {
            Program next(folder);
            next.click("Restore");
            QCOMPARE(next.item().col(), 7);
            next.item().setCol(8); // so late that no copy holds it
        }
        {
            Program next(folder);
            QVERIFY(next.bar()->isVisible());
            next.click("Restore");
            QCOMPARE(next.item().col(), 8);
            next.panels.answer = next.location("stage.mpr");
            next.delegate().saveProject();
        }
        QVERIFY(QDir(folder).isEmpty());

        QSettings memory(state.filePath("wallgrid/window.ini"), QSettings::IniFormat);
        QWidget window;
        QVERIFY(window.restoreGeometry(memory.value("geometry").toByteArray()));
        QCOMPARE(window.size(), QSize(900, 700));
    }

    void aCopyKeepsTheColoursAndPresetsThatNoProjectHolds()
    {
        const QTemporaryDir state;
        const QString folder = state.filePath("recovery");
        {
            Program program(folder);
            program.delegate().setBgColor(Color::deviceRGB(1, 0, 0, 0.5));
            program.delegate().setEdgeColor(Color::greenColor());
            program.delegate().presetarraycontroller().removeObjectsAtArrangedObjectIndexes({0, 2});
            QCOMPARE(program.copies(folder), 1);
            QVERIFY(readProject(*readFile(copiesIn(folder).constFirst().toStdString())));
        }
        Program next(folder);
        next.click("Restore");
        QCOMPARE(next.delegate().bgColor()->rgba(), (Color::RGBA{1, 0, 0, 0.5}));
        QCOMPARE(next.delegate().edgeColor()->rgba(), Color::greenColor()->rgba());
        QCOMPARE(next.delegate().presetarraycontroller().arrangedObjects().size(), std::size_t{2});
        QCOMPARE(next.output(960, 1070), QString("80800000"));
        next.application.history().undo();
        QVERIFY(!next.delegate().bgColor());
        QCOMPARE(next.copies(folder), 0);
        next.panels.answer = next.location("presets");
        next.delegate().savePresets();
        next.delegate().openPresets();
        QCOMPARE(next.copies(folder), 0); // a file of the user has them
    }

    void thereIsACopyWhileTheProjectHoldsChanges()
    {
        const QTemporaryDir state;
        const QString folder = state.filePath("recovery");
        Program program(folder);
        const auto changed = [&](std::int32_t x) {
            program.item().setXpoint(x);
            return program.copies(folder);
        };
        QCOMPARE(program.copies(folder), 0);
        QCOMPARE(changed(5), 1);
        program.application.history().undo();
        QCOMPARE(program.copies(folder), 0);
        QCOMPARE(changed(6), 1);
        const auto copied = [&] { return readProject(*readFile(copiesIn(folder).constFirst().toStdString())); };
        QCOMPARE(copied()->items.front()->xpoint(), 6);
        QCOMPARE(changed(7), 1);
        QCOMPARE(copied()->items.front()->xpoint(), 7);

        program.panels.answer = program.location("stage.mpr");
        program.delegate().saveProject();
        QCOMPARE(program.copies(folder), 0);
        QCOMPARE(changed(8), 1);
        program.panels.answer = program.location("no folder/stage.mpr");
        program.delegate().saveProject(); // fails
        QCOMPARE(program.copies(folder), 1);
        program.panels.answer = program.location("stage.mpr");
        program.delegate().openProject();
        program.settle();
        QCOMPARE(program.copies(folder), 0);
        QCOMPARE(program.item().xpoint(), 7);
        QCOMPARE(changed(9), 1);
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
        QVERIFY(program.window().statusBar()->currentMessage().contains("memory"));
        QCOMPARE(outputAfter([&] {
                     program.delegate().setOutputWidth(5);
                     QEvent within(QEvent::User);
                     QCoreApplication::sendEvent(&thrower, &within);
                     program.delegate().setOutputHeight(6);
                 }),
                 launched);
        QVERIFY(!program.application.history().undoable());
        QCOMPARE(outputAfter([&] { program.delegate().setOutputWidth(5); }), QSize(5, launched.height()));
        QVERIFY(program.application.history().undoable());
    }
};

int main(int argc, char** argv)
{
    GuardedApplication application(argc, argv);
    if (application.arguments().value(1) == "--as-user") {
        const QtToolkit toolkit;
        return runUser(application);
    }
    RecoveryTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "recovery_test.moc"
