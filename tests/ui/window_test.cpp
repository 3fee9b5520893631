// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "program_under_test.h"
#include "ui/color_button.h"
#include "ui/number_field.h"
#include "ui/preview/preview_surface.h"
#include "ui/qt_panels.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileOpenEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <limits>

using namespace wallgrid;

namespace {

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

QAction* action(MainWindow& window, const QString& text)
{
    for (QAction* candidate : window.findChildren<QAction*>()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

QStringList entries(MainWindow& window)
{
    QStringList texts;
    for (const QAction* entry : action(window, "Open &Recent")->menu()->actions()) {
        if (!entry->isSeparator())
            texts.append(entry->text());
    }
    return texts;
}

void acceptFile(QFileDialog& dialog, const QString& name)
{
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
    static_cast<QDialog&>(dialog).accept();
}

QString fileName(const UrlRef& url)
{
    return url ? QFileInfo(QString::fromStdString(*url->filePath())).fileName() : QString();
}

} // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    void whatTheThrottleSkippedIsCaughtUpWith()
    {
        ProgramUnderTest program;
        program.item().setXpoint(100); // renders
        QCOMPARE(program.output(100, 0), QString("ffffffff"));
        program.item().setXpoint(500);  // skipped
        program.item().setXpoint(1000); // skipped
        QCOMPARE(program.output(1000, 0), QString("ff000000"));
        program.runLoop.advance(0.09);
        QCOMPARE(program.output(1000, 0), QString("ff000000"));
        program.runLoop.advance(0.02);
        QCOMPARE(program.output(1000, 0), QString("ffffffff"));
        QCOMPARE(program.window().miniPvw()->image(), program.delegate().img());

        const BitmapRef caughtUp = program.delegate().offscreenRep();
        program.runLoop.advance(10);
        QCOMPARE(program.delegate().offscreenRep(), caughtUp); // and then it is quiet
        QCOMPARE(program.runLoop.pendingTimers(), std::size_t{0});
    }

    void timersMayOutliveTheProgram()
    {
        ManualRunLoop runLoop;
        {
            const QTemporaryDir folder;
            ScriptedPanels panels;
            QtRecentDocuments recentDocuments(folder.filePath("recent.ini"));
            Application application(runLoop, panels, recentDocuments);
            application.launch();
            application.delegate().update();
        }
        QVERIFY(runLoop.pendingTimers() > 0);
        runLoop.advance(1);
    }

    void theColoursOfTheOutput()
    {
        ProgramUnderTest program;
        auto* background = program.find<ColorButton>("Background colour");
        auto* none = program.find<QToolButton>("No background colour: the output is opaque black");
        QVERIFY(!program.delegate().bgColor());
        QVERIFY(!none->isEnabled());

        whenAsked<QColorDialog>([](QColorDialog& dialog) {
            QVERIFY(dialog.testOption(QColorDialog::ShowAlphaChannel));
            dialog.setCurrentColor(QColor(255, 128, 0, 51));
            dialog.accept();
        });
        background->click();
        program.settle();
        const ColorRef chosen = program.delegate().bgColor();
        QCOMPARE(chosen->space(), Color::Space::CalibratedRGB);
        QVERIFY(chosen->rgba() == (Color::RGBA{1, 128 / 255.0, 0, 51 / 255.0}));
        QCOMPARE(program.output(1000, 1000), QString("33331a00"));

        whenAsked<QColorDialog>([](QColorDialog& dialog) { dialog.accept(); }); // as it was
        background->click();
        QCOMPARE(program.delegate().bgColor(), chosen);
        whenAsked<QColorDialog>([](QColorDialog& dialog) {
            dialog.setCurrentColor(Qt::blue);
            dialog.reject();
        });
        background->click();
        QCOMPARE(program.delegate().bgColor(), chosen);

        none->click();
        program.settle();
        QVERIFY(!program.delegate().bgColor());
        QCOMPARE(program.output(1000, 1000), QString("ff000000"));

        whenAsked<QColorDialog>([](QColorDialog& dialog) { dialog.accept(); }); // black, which none is not
        program.find<ColorButton>("Edge colour")->click();
        program.settle();
        QVERIFY(program.delegate().edgeColor());
    }

    void projectsAndPicturesAreSavedAndOpened()
    {
        ProgramUnderTest program;
        program.panels.answer = program.location("wall & co");
        action(program.window(), "&Save Project…")->trigger();
        QVERIFY(QFile::exists(program.path("wall & co.mpr")));
        QCOMPARE(entries(program.window()), (QStringList{program.path("wall && co.mpr"), "&Clear Menu"}));

        program.item().setLabel(makeString(u"changed"));
        program.panels.answer = program.location("wall & co.mpr");
        action(program.window(), "&Open Project…")->trigger();
        QCOMPARE(textOf(program.item().label()), std::u16string(u"Layer 0"));

        program.item().setLabel(makeString(u"changed"));
        action(program.window(), program.path("wall && co.mpr"))->trigger();
        QCOMPARE(textOf(program.item().label()), std::u16string(u"Layer 0"));

        program.panels.answer = program.location("picture");
        action(program.window(), "&Export PNG…")->trigger();
        const QImage picture(program.path("picture.png"));
        QCOMPARE(picture.size(), QSize(1920, 1080));
        QCOMPARE(picture.pixelColor(10, 10), QColor(Qt::red));

        action(program.window(), "&Clear Menu")->trigger();
        program.settle();
        QVERIFY(!action(program.window(), "Open &Recent")->menu()->isEnabled());
        QCOMPARE(QtRecentDocuments(program.path("recent.ini")).locations(), QStringList());
    }

    void filesAreHandedOver()
    {
        ProgramUnderTest program;
        program.panels.answer = program.location("a wall%20.mpr");
        program.delegate().saveProject();
        const auto change = [&] { program.item().setLabel(makeString(u"changed")); };

        change();
        program.application.openFile(program.path("a wall%20.mpr").toStdString());
        QCOMPARE(textOf(program.item().label()), std::u16string(u"Layer 0"));

        change();
        const QString here = QDir::currentPath();
        QDir::setCurrent(program.folder.path());
        program.application.openFile("a wall%20.mpr");
        QDir::setCurrent(here);
        QCOMPARE(textOf(program.item().label()), std::u16string(u"Layer 0"));

        change();
        QFileOpenEvent event(program.path("a wall%20.mpr"));
        QCoreApplication::sendEvent(qApp, &event);
        QCOMPARE(textOf(program.item().label()), std::u16string(u"Layer 0"));

        QCOMPARE(program.panels.alerts.size(), std::size_t{0});
        program.application.openFile("no such file");
        QCOMPARE(program.panels.alerts, std::vector<std::string>{"No File Found|File Not Found"});
    }

    void whatFailsIsSaidInTheStatusBar()
    {
        ProgramUnderTest program;
        QFile(program.path("text.mpr")).open(QIODevice::WriteOnly);
        program.application.openFile(program.path("text.mpr").toStdString());
        QVERIFY(program.window().statusBar()->currentMessage().contains("text.mpr"));
        program.delegate().arraycontroller().setSelectionIndexes({});
        action(program.window(), "Du&plicate")->trigger();
        QCOMPARE(program.window().statusBar()->currentMessage(), "No layer is selected.");
    }

    void theStatusBarCounts()
    {
        ProgramUnderTest program;
        const auto says = [&](const QString& text) {
            for (const QLabel* label : program.window().statusBar()->findChildren<QLabel*>()) {
                if (label->text() == text)
                    return true;
            }
            return false;
        };
        QVERIFY(says("1 layer"));
        QVERIFY(says("Output 1920 × 1080 px"));
        program.delegate().loadProject({192, 8704, {makeScreen(u"a"), makeScreen(u"b")}});
        program.settle();
        QVERIFY(says("2 layers"));
        QVERIFY(says("Output 8704 × 192 px"));

        QVERIFY(says(""));
        const auto place = [&](std::size_t row, std::int32_t x, std::int32_t y) {
            program.item(row).setXpoint(x);
            program.item(row).setYpoint(y);
            program.settle();
        };
        place(0, 8700, 188); // touches the corner from inside
        QVERIFY(says(""));
        place(0, 8701, 188);
        QVERIFY(says("1 layer reaches over the edge"));
        place(0, 8704, 0); // touches it from outside
        QVERIFY(says("1 layer lies outside"));
        place(1, 0, -1);
        QVERIFY(says("1 layer lies outside, 1 layer reaches over the edge"));
        place(1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
        QVERIFY(says("2 layers lie outside"));
        program.item(0).setVisible(false);
        program.settle();
        QVERIFY(says("1 layer lies outside"));
    }

    void theOutputSizeIsTyped()
    {
        ProgramUnderTest program;
        program.activate();
        auto* width = program.find<NumberField>("Output width");
        QCOMPARE(width->value(), 1920);
        QTest::keyClick(width, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(width, "3840");
        QCOMPARE(program.delegate().OutputWidth(), 1920);
        QTest::keyClick(width, Qt::Key_Return);
        QTest::keyClick(program.find<NumberField>("Output height"), Qt::Key_Up, Qt::ShiftModifier);
        program.settle();
        QCOMPARE(program.delegate().offscreenRep()->width(), 3840);
        QCOMPARE(program.delegate().offscreenRep()->height(), 1090);
    }

    void filesAreDropped()
    {
        ProgramUnderTest program;
        program.panels.answer = program.location("a wall.mpr");
        program.delegate().saveProject();
        program.item().setLabel(makeString(u"changed"));
        QImage picture(30, 20, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        picture.setDotsPerMeterX(2835); // one point a pixel
        picture.setDotsPerMeterY(2835);
        picture.save(program.path("logo #1.png"));
        QFile text(program.path("notes.txt"));
        QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no project") > 0);
        text.close();

        const auto drop = [&](const QList<QUrl>& urls) {
            QMimeData data;
            if (!urls.isEmpty())
                data.setUrls(urls);
            const QPoint place(5, 5);
            QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            enter.ignore();
            QCoreApplication::sendEvent(&program.window(), &enter);
            if (enter.isAccepted()) {
                QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(&program.window(), &event);
            }
            program.settle();
            return enter.isAccepted();
        };
        const auto file = [&](const QString& name) { return QUrl::fromLocalFile(program.path(name)); };

        QVERIFY(!drop({}));
        QVERIFY(!drop({QUrl("https://example.org/logo.png")}));
        QVERIFY(drop({file("logo #1.png")}));
        const auto* still = dynamic_cast<GXStill*>(&program.item(1)); // below the first row, as the Add sheet's
        QVERIFY(still);
        QCOMPARE(fileName(still->ImageURL()), QString("logo #1.png"));
        QCOMPARE(still->panelWidth(), 30);
        program.item(0).setVisible(false);
        program.settle();
        QCOMPARE(program.output(3, 3), QString("ff0000ff"));

        QVERIFY(drop({file("notes.txt")}));
        QVERIFY(program.window().statusBar()->currentMessage().contains("notes.txt"));
        QCOMPARE(program.delegate().arraycontroller().arrangedObjects().size(), std::size_t{2});

        QVERIFY(drop({file("a wall.mpr"), file("logo #1.png")}));
        QCOMPARE(program.delegate().arraycontroller().arrangedObjects().size(), std::size_t{2});
        QCOMPARE(textOf(program.item().label()), std::u16string(u"Layer 0"));
        QVERIFY(program.panels.alerts.empty());
    }

    void theTitleNamesTheProject()
    {
        ProgramUnderTest program;
        program.application.keepRecovery(program.path("recovery"));
        const auto title = [&] {
            return program.window().windowTitle() + (program.window().isWindowModified() ? "+" : "");
        };
        QCOMPARE(title(), QString("Wallgrid"));
        program.panels.answer = program.location("stage");
        program.delegate().saveProject();
        QCOMPARE(title(), QString("stage.mpr[*]"));
        action(program.window(), "Du&plicate")->trigger();
        program.settle();
        QCOMPARE(title(), QString("stage.mpr[*]+"));
        QCOMPARE(program.delegate().arraycontroller().arrangedObjects().size(), std::size_t{2});
        QCOMPARE(program.delegate().arraycontroller().selectionIndex(), std::size_t{0});
        program.window().open(program.location("gone.mpr")->absoluteString());
        QCOMPARE(title(), QString("stage.mpr[*]+"));
        QFile::copy(program.path("stage.mpr"), program.path("other.mpr"));
        program.window().open(program.location("other.mpr")->absoluteString());
        QCOMPARE(title(), QString("other.mpr[*]"));

        // The file belongs to the state that the history goes back to.
        QString proposed;
        connect(&program.window(), &MainWindow::panelAhead, [&](const PanelPurpose& panel) { proposed = panel.name; });
        const auto expect = [&](const char* expected) {
            program.settle();
            QCOMPARE(title(), QString(expected));
            program.panels.answer = nullptr;
            action(program.window(), "&Save Project…")->trigger();
            QCOMPARE(proposed, title().section('.', 0, 0));
        };
        UndoHistory& history = program.application.history();
        history.undo();
        expect("stage.mpr[*]+");
        history.undo();
        expect("stage.mpr[*]");
        history.redo();
        history.redo();
        expect("other.mpr[*]");
        program.panels.answer = program.location("stage");
        program.delegate().saveProject();
        expect("stage.mpr[*]");
        history.undo();
        expect("stage.mpr[*]+"); // as it is no longer in that file
        program.panels.answer = program.location("other.mpr");
        program.delegate().openProject();
        expect("other.mpr[*]");
        program.item().setXpoint(9);
        expect("other.mpr[*]+");
        program.panels.answer = program.location("other.mpr");
        program.delegate().saveProject();
        expect("other.mpr[*]");
        history.undo();
        expect("other.mpr[*]+");
        history.undo();
        expect("stage.mpr[*]+");
    }

    void copiesOfAStillHaveTheirOwnSize()
    {
        ProgramUnderTest program;
        QImage(40, 30, QImage::Format_RGB32).save(program.path("logo.png"));
        program.delegate().addImageAt(program.location("logo.png"));
        const ImageRef image = program.item(1).thumbnail();
        const Size size = image->size();
        action(program.window(), "Du&plicate")->trigger();
        program.item(1).setPanelWidth(90);
        program.settle();
        QVERIFY(program.item(1).thumbnail()->size() != size);
        QVERIFY(program.item(2).thumbnail() == image && image->size() == size);
    }

    void whatCoversMuchIsOpenedAgain()
    {
        ProgramUnderTest program;
        QImage(1, 1, QImage::Format_RGB32).save(program.path("dot.png"));
        ItemArray items;
        for (int i = 0; i < 6; ++i) {
            program.delegate().addImageAt(program.location("dot.png"));
            program.item(1).setPanelWidth(30000);
            program.item(1).setPanelHeight(30000);
            program.item(1).drawInRect();
            items.push_back(program.delegate().arraycontroller().arrangedObjects()[1]);
        }
        QVERIFY(readProject(writeProject({30000, 30000, items})));
        items.assign(7, items[0]); // which the window cannot make
        QVERIFY(!readProject(writeProject({30000, 30000, items})));
    }

    void equalNamesAreNumberedWhenTheUserWants()
    {
        ProgramUnderTest program;
        QtPanels panels;
        QString offered;
        connect(&program.window(), &MainWindow::panelAhead, this, [&](const PanelPurpose& purpose) {
            offered = purpose.option.text;
            panels.prepare(purpose);
            whenAsked<QFileDialog>([&](QFileDialog& dialog) {
                auto* box = dialog.findChild<QCheckBox*>();
                QCOMPARE(box != nullptr, !offered.isEmpty());
                if (box) {
                    QVERIFY(!box->isChecked());
                    box->click();
                }
                acceptFile(dialog, program.path("wall.psd")); // not wall.psd.psd
            });
            program.panels.answer = panels.runSavePanel();
        });
        QAction* exportPsd = action(program.window(), "Export &Layered PSD…");
        const auto names = [&] {
            exportPsd->trigger();
            QFile file(program.path("wall.psd"));
            return file.open(QIODevice::ReadOnly) ? file.readAll().count("Layer 0 2") : -1;
        };
        QCOMPARE(names(), 0);
        QCOMPARE(offered, QString());
        QFile::remove(program.path("wall.psd"));
        program.insert(makeScreen(u"Layer 0"));
        QCOMPARE(names(), 1);
        QFile::remove(program.path("wall.psd"));
        program.item().setLabel(makeString(u"other"));
        QCOMPARE(names(), 0); // the choice held for that one file
        QCOMPARE(textOf(program.item(1).label()), std::u16string(u"Layer 0"));
    }

    void theOutputWindowComesAndGoes()
    {
        ProgramUnderTest program;
        QAction* shown = action(program.window(), "&Output Window");
        QVERIFY(!program.application.outputWindow().isVisible());
        shown->trigger();
        QVERIFY(program.application.outputWindow().isVisible());
        program.application.outputWindow().close();
        QVERIFY(!shown->isChecked());
        shown->trigger();
        program.window().close();
        QVERIFY(!program.application.outputWindow().isVisible());
    }

    void recentDocumentsAreKeptNewestFirst()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("state/recent.ini");
        const auto url = [&](int i) { return Url::fromFilePath(folder.filePath(QString::number(i)).toStdString()); };
        {
            QtRecentDocuments recent(file);
            for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 5}) {
                QVERIFY(QFile(folder.filePath(QString::number(i))).open(QFile::WriteOnly));
                recent.noteNewRecentDocument(std::make_shared<const Url>(url(i)));
            }
            recent.noteNewRecentDocument(std::make_shared<const Url>(url(12))); // its saving has failed
        }
        QStringList expected;
        for (const int i : {5, 11, 10, 9, 8, 7, 6, 4, 3, 2})
            expected.append(QString::fromStdString(url(i).absoluteString()));
        QCOMPARE(QtRecentDocuments(file).locations(), expected);
    }

    void alertsHaveOneButton()
    {
        QtPanels panels;
        whenAsked<QMessageBox>([](QMessageBox& alert) {
            QCOMPARE(alert.text(), QString("No <File> Found"));
            QCOMPARE(alert.informativeText(), QString("File Not Found"));
            QCOMPARE(alert.textFormat(), Qt::PlainText);
            QCOMPARE(alert.buttons().size(), 1);
            QCOMPARE(alert.buttons().constFirst()->text(), QString("OK"));
            alert.buttons().constFirst()->click();
        });
        panels.runAlert("No <File> Found", "File Not Found");
    }

    void savingAsksBeforeItReplacesTheFileThatIsWritten()
    {
        const QTemporaryDir folder;
        QFile(folder.filePath("wall.mpr")).open(QIODevice::WriteOnly);
        QFile(folder.filePath("wall.txt")).open(QIODevice::WriteOnly);
        QtPanels panels;
        const auto choose = [&](const QString& name) {
            whenAsked<QFileDialog>([path = folder.filePath(name)](QFileDialog& dialog) { acceptFile(dialog, path); });
        };
        const auto save = [&] {
            panels.prepare({"Save", "Projects (*.mpr)", "mpr"});
            return fileName(panels.runSavePanel());
        };

        choose("wall.txt"); // will be wall.txt.mpr
        QCOMPARE(save(), QString("wall.txt"));

        int questions = 0;
        whenAsked<QFileDialog>([&](QFileDialog& dialog) {
            whenAsked<QMessageBox>([&](QMessageBox& question) {
                QVERIFY(question.text().contains("wall.mpr"));
                ++questions;
                question.button(QMessageBox::No)->click();
                whenAsked<QFileDialog>([](QFileDialog& again) { again.reject(); });
            });
            acceptFile(dialog, folder.filePath("wall"));
        });
        QCOMPARE(save(), QString());
        QCOMPARE(questions, 1);

        whenAsked<QFileDialog>([&](QFileDialog& dialog) {
            QCOMPARE(dialog.directory().canonicalPath(), QFileInfo(folder.path()).canonicalFilePath());
            whenAsked<QMessageBox>([&](QMessageBox& question) { question.button(QMessageBox::Yes)->click(); });
            acceptFile(dialog, "wall.mpr");
        });
        QCOMPARE(save(), QString("wall.mpr"));

        QFile(folder.filePath("wall.PSD")).open(QIODevice::WriteOnly);
        whenAsked<QFileDialog>([&](QFileDialog& dialog) {
            whenAsked<QMessageBox>([&](QMessageBox& question) {
                QVERIFY(question.text().contains("wall.PSD"));
                question.button(QMessageBox::Yes)->click();
            });
            acceptFile(dialog, "wall.PSD");
        });
        panels.prepare({"Export", "Photoshop documents (*.psd)", "psd", true});
        QCOMPARE(fileName(panels.runSavePanel()), QString("wall.PSD"));

        choose("wall.txt");
        QCOMPARE(fileName(panels.runOpenPanel()), QString("wall.txt"));
        whenAsked<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        QVERIFY(!panels.runOpenPanel());
    }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
