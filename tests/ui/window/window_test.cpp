// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "ui/desktop/qt_panels.h"
#include "ui/fields/number_field.h"
#include "ui/preview/image_view.h"
#include "ui/preview/preview_surface.h"
#include "ui/program_under_test.h"
#include "ui/theme/appearance_action.h"
#include "ui/theme/theme.h"
#include "ui/window/message_bar.h"
#include "ui/window/window_memory.h"

#include <cmath>
#include <limits>
#include <sys/stat.h>

using namespace wallgrid;

namespace {

void acceptFile(QFileDialog& dialog, const QString& name)
{
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
    static_cast<QDialog&>(dialog).accept();
}

QString fileName(const UrlRef& url)
{
    return url ? QFileInfo(QString::fromStdString(*url->filePath())).fileName() : QString();
}

/// Relative luminance, WCAG 2.1.
double luminance(const QColor& color)
{
    const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    void whatTheThrottleSkippedIsCaughtUpWith()
    {
        ProgramUnderTest program;
        for (const int x : {100, 500, 1000}) // the first one renders, the others are skipped
            program.item().setXpoint(x);
        QCOMPARE(program.output(100, 0), QString("ffffffff"));
        program.runLoop.advance(0.09);
        QCOMPARE(program.output(1000, 0), QString("ff000000"));
        program.runLoop.advance(0.02);
        QCOMPARE(program.output(1000, 0), QString("ffffffff"));
        QCOMPARE(program.window().miniPvw()->image(), program.delegate().img());
        program.runLoop.advance(10); // and then it is quiet
        QCOMPARE(program.runLoop.pendingTimers(), std::size_t{0});
    }

    void filesAreSavedAndOpened()
    {
        ProgramUnderTest program;
        const QString name = "a wall%20 & co.mpr";
        program.panels.answer = program.location("a wall%20 & co");
        program.trigger("&Save Project…");
        const auto opens = [&](const std::function<void()>& open) {
            program.item().setLabel(makeString(u"changed"));
            open();
            return program.layers() == QStringList("Layer 0");
        };
        program.panels.answer = program.location(name);
        QVERIFY(opens([&] { program.trigger("&Open Project…"); }));
        QVERIFY(opens([&] { program.trigger(program.path("a wall%20 && co.mpr")); })); // of the recent ones
        QVERIFY(opens([&] { program.application.openFile(program.path(name).toStdString()); }));
        QVERIFY(opens([&] {
            QFileOpenEvent event(program.path(name));
            QCoreApplication::sendEvent(qApp, &event);
        }));
        const QString here = QDir::currentPath();
        QDir::setCurrent(program.folder.path());
        QVERIFY(opens([&] { program.application.openFile(name.toStdString()); }));
        QDir::setCurrent(here);

        program.panels.answer = program.location("no/such/folder");
        program.trigger("&Save Project…");
        QCOMPARE(fileName(program.delegate().documentFile()->location), name);
        QMenu* recent = program.action("Open &Recent")->menu();
        QCOMPARE(recent->actions().size(), 3); // with a line and what clears the menu
        program.trigger("&Clear Menu");
        QVERIFY(!recent->isEnabled());
        QCOMPARE(QtRecentDocuments(program.path("recent.ini")).locations(), QStringList());

        QVERIFY(program.panels.alerts.empty());
        program.application.openFile("no such file");
        QCOMPARE(program.panels.alerts, std::vector<std::string>{"No File Found|File Not Found"});
        program.delegate().arraycontroller().setSelectionIndexes({});
        program.trigger("&Duplicate");
        QCOMPARE(program.window().statusBar()->currentMessage(), "No layer is selected.");
    }

    void aNewScreenHasTheLastPanelsAndLiesBesideTheOthers()
    {
        ProgramUnderTest program;
        program.activate();
        const auto add = [&] {
            QTest::keyClick(&program.window(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
            program.settle();
            return program.item(1).frame();
        };
        QCOMPARE(add(), (PixelRect{312, 0, 312, 312}));
        type(program.find<QWidget>("Panel-H"), "150");
        type(program.find<QWidget>("Panel-V"), "100");
        QCOMPARE(add(), (PixelRect{912, 0, 600, 400}));
        QCOMPARE(add(), (PixelRect{0, 400, 600, 400}));
        type(program.find<QWidget>("Panel-H"), "500");
        QCOMPARE(add(), (PixelRect{0, 0, 2000, 400})); // as nowhere is room for it
    }

    void layersGoThroughTheClipboard()
    {
        ProgramUnderTest program;
        program.insert(makeScreen(u"a", 4, 20, 10));
        program.trigger("&Copy");
        program.trigger("&Paste");
        QCOMPARE(program.layers(), QStringList({"a 2", "a", "Layer 0"}));
        QCOMPARE(program.item(0).xpoint(), 24);
        program.action("&Right")->trigger();
        program.item(0).setXpoint(24);
        program.settle();
        program.application.history().undo(); // a command is a step of its own
        QCOMPARE(program.item(0).xpoint(), 1916);
        QApplication::clipboard()->setText("a");
        program.trigger("&Paste");
        QCOMPARE(program.window().statusBar()->currentMessage(), "Nothing to paste: no layers were copied.");
        program.trigger("&Select All");
        program.trigger("Cu&t");
        QCOMPARE(program.layers(), QStringList());
        program.trigger("&Paste");
        QCOMPARE(program.layers(), QStringList({"a 2", "a", "Layer 0"}));
    }

    void whatIsEmptySaysWhatToDo()
    {
        ProgramUnderTest program;
        const auto says = [&](const QString& sentence, const QString& button) {
            program.settle();
            const auto* text = program.find<QLabel>(sentence);
            auto* action = text ? text->parentWidget()->findChild<QToolButton*>() : nullptr;
            if (!action || !text->isVisible() || action->text() != button)
                return false;
            action->click();
            program.settle();
            return true;
        };
        auto& presets = program.delegate().presetarraycontroller();
        presets.removeObjects(ItemArray(presets.arrangedObjects()));
        program.panels.answer = nullptr;
        QVERIFY(says("No presets. Drag a layer here to keep a copy.", "Open…"));
        program.delegate().arraycontroller().setSelectionIndexes({});
        QVERIFY(says("No layer is selected. Click one in the list or in the preview to change it.", "Select All"));
        program.delegate().loadProject({100, 100, {}});
        QVERIFY(says("No layers yet.", "Add…"));
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
        QCOMPARE(program.layers().size(), 1);
    }

    void helpIsThereOffline()
    {
        ProgramUnderTest program;
        program.activate();
        QTest::keyClick(&program.window(), Qt::Key_F1);
        auto* page = program.window().findChild<QTextBrowser*>();
        QVERIFY(page && page->isVisible());
        for (const char* name : {"guide.md", "first-stage.md"}) {
            page->setSource(QUrl(QString("qrc:/docs/") + name));
            QVERIFY(page->toPlainText().size() > 3000);
            int links = 0;
            for (const QTextFormat& format : page->document()->allFormats()) {
                for (const auto property : {QTextFormat::AnchorHref, QTextFormat::ImageName}) {
                    const QString target = format.stringProperty(property);
                    QVERIFY2(target.isEmpty() || QFile::exists(":/docs/" + target), qPrintable(target));
                    links += target.isEmpty() ? 0 : 1;
                }
            }
            QVERIFY(links > 1);
        }
        QTest::keyClick(page, Qt::Key_Escape);
        QVERIFY(!page->isVisible());

        program.activate();
        QTest::keyClick(&program.window(), Qt::Key_F1, Qt::ControlModifier);
        auto* list = program.window().findChild<QTreeWidget*>();
        QStringList lines;
        for (QTreeWidgetItemIterator line(list, QTreeWidgetItemIterator::NoChildren); *line; ++line)
            lines.append((*line)->text(0) + ": " + (*line)->text(1));
        QVERIFY(lines.contains("Zoom In: Ctrl++ or Ctrl+=") && lines.filter("Undo").size() == 1);
        for (const QAction* action : program.window().findChildren<QAction*>())
            QVERIFY(action->shortcut().isEmpty() || !lines.filter(": " + action->shortcut().toString()).isEmpty());
        const QPointer<QWidget> window = list->window();
        QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!window);
    }

    void theStatusBarCounts()
    {
        ProgramUnderTest program;
        ItemTable& table = *program.window().table();
        const auto mark = [&](int row) { return table.model()->index(row, 3).data(Qt::ToolTipRole).toString(); };
        QVERIFY(program.find<QLabel>("1 layer") && table.isColumnHidden(3));
        program.delegate().loadProject({192, 8704, {makeScreen(u"a"), makeScreen(u"b")}});
        program.settle();
        QVERIFY(program.find<QLabel>("2 layers"));
        QVERIFY(program.find<QLabel>("Output 8704 × 192 px"));
        QVERIFY(program.find<QToolButton>("1 pair overlaps") && !table.isColumnHidden(3));
        QCOMPARE(mark(1), QString("Overlaps another layer."));
        using Limits = std::numeric_limits<std::int32_t>;
        const std::tuple<std::size_t, std::int32_t, std::int32_t, const char*> places[]{
            {0, 8700, 188, ""}, // touches the corner from inside
            {0, 8701, 188, "1 layer reaches over the edge"},
            {0, 8704, 0, "1 layer lies outside"}, // touches it from outside
            {1, 0, -1, "1 layer lies outside, 1 layer reaches over the edge"},
            {1, Limits::min(), Limits::max(), "2 layers lie outside"}};
        for (const auto& [row, x, y, text] : places) {
            program.item(row).setXpoint(x);
            program.item(row).setYpoint(y);
            program.settle();
            QVERIFY2(!*text || program.find<QToolButton>(text), text);
        }
        program.item(0).setVisible(false);
        program.settle();
        QCOMPARE(mark(0), QString());
        QCOMPARE(mark(1), QString("Lies outside the output, or reaches over its edge."));
        program.find<QToolButton>("1 layer lies outside")->click();
        QCOMPARE(program.delegate().arraycontroller().selectionIndexes(), std::set<std::size_t>{1});
    }

    void filesAreDropped()
    {
        ProgramUnderTest program;
        program.panels.answer = program.location("a wall.mpr");
        program.delegate().saveProject();
        program.item().setLabel(makeString(u"changed"));
        QImage(30, 20, QImage::Format_RGB32).save(program.path("logo #1.png"));
        for (const char* name : {"notes.txt", "cut.mpr"}) {
            QFile file(program.path(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("text") == 4);
        }
        QCOMPARE(::mkfifo(qPrintable(program.path("pipe.png")), 0600), 0);
        QPoint place(5, 5);
        const auto drop = [&](const QList<QUrl>& urls) {
            QMimeData data;
            data.setText("text");
            if (!urls.isEmpty())
                data.setUrls(urls);
            QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            enter.ignore();
            QCoreApplication::sendEvent(&program.window(), &enter);
            QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&program.window(), &event);
            program.settle();
            return enter.isAccepted() ? program.layers().join(", ") : "refused";
        };
        const auto file = [&](const QString& name) { return QUrl::fromLocalFile(program.path(name)); };

        QCOMPARE(drop({}), QString("refused"));
        QCOMPARE(drop({QUrl("https://example.org/logo.png")}), QString("refused"));
        QCOMPARE(drop({file("notes.txt"), file("."), file("pipe.png"), file("gone.mpr")}), QString("refused"));
        QCOMPARE(drop({file("cut.mpr")}), QString("changed"));
        auto* bar = program.window().findChild<MessageBar*>();
        QVERIFY(bar->isVisible());
        QVERIFY(bar->accessibleName().endsWith("cut.mpr: this is not a project"));
        program.find<QToolButton>("Dismiss")->click();
        QVERIFY(!bar->isVisible());
        program.window().showFailure("one");
        program.window().showFailure("two");
        QCOMPARE(bar->findChild<QLabel*>()->toolTip(), "<p>two\none</p>");
        program.delegate().openAbout();
        QCOMPARE(drop({file("a wall.mpr")}), QString("refused"));
        program.delegate().closeAbout();
        QCOMPARE(drop({file("a wall.mpr"), file("logo #1.png")}), QString("Layer 0, logo #1"));
        const auto* still = dynamic_cast<GXStill*>(&program.item(1)); // below the first row, as the Add sheet's
        QCOMPARE(fileName(still->ImageURL()), QString("logo #1.png"));
        const PreviewSurface& preview = *program.window().miniPvw();
        place = preview.mapTo(&program.window(), preview.rect().center());
        QCOMPARE(drop({file("logo #1.png")}), QString("Layer 0, logo #1, logo #1"));
        const PixelPoint middle = program.item(1).frame().origin() + PixelPoint{15, 10};
        QVERIFY(std::abs(middle.x - 960) < 12 && std::abs(middle.y - 540) < 12);
        place = preview.mapTo(&program.window(), QPoint(1, 1));
        drop({file("logo #1.png")});
        QCOMPARE(program.item(1).frame().origin(), PixelPoint()); // as near as it lies in the output
        for (const char* command : {"&Select All", "&Copy", "&Paste"})
            program.trigger(command);
        program.item(1).setPanelWidth(5);
        program.item(1).drawInRect();
        QCOMPARE(program.item(2).picture()->size().width, 22.5); // of the same file
        const auto copy = std::dynamic_pointer_cast<GXStill>(program.item(1).copy());
        QCOMPARE(fileName(copy->ImageURL()), QString("logo #1.png"));
        program.item(1).setPanelWidth(7);
        program.item(1).drawInRect();
        QCOMPARE(copy->picture()->size().width, 5.0);
        copy->setThumbnail(program.item(0).thumbnail());
        QCOMPARE(copy->picture()->representations(), program.item(0).thumbnail()->representations());
        QVERIFY(program.panels.alerts.empty());
    }

    void theTitleNamesTheProject()
    {
        ProgramUnderTest program;
        program.application.keepRecovery(program.path("recovery"));
        const auto title = [&] {
            return program.window().windowTitle() + (program.window().isWindowModified() ? "+" : "");
        };
        QString proposed, own;
        connect(&program.window(), &MainWindow::panelAhead, this, [&](auto& purpose) {
            proposed = purpose.name;
            own = QFileInfo(purpose.own).fileName();
        });
        QCOMPARE(title(), QString("Wallgrid"));
        program.panels.answer = program.location("stage");
        program.delegate().saveProject();
        QCOMPARE(title(), QString("stage.mpr[*]"));
        program.trigger("&Duplicate");
        QCOMPARE(title(), QString("stage.mpr[*]+"));
        QCOMPARE(program.layers().size(), 2);
        QVERIFY(&program.item(0) != &program.item(1));
        program.window().open(program.location("gone.mpr")->absoluteString());
        QFile::copy(program.path("stage.mpr"), program.path("empty.mpr"));
        QVERIFY(QFile(program.path("empty.mpr")).resize(0));
        program.window().open(program.location("empty.mpr")->absoluteString());
        QCOMPARE(title(), QString("stage.mpr[*]+"));
        QFile::copy(program.path("stage.mpr"), program.path("other.mpr"));
        program.window().open(program.location("other.mpr")->absoluteString());
        QCOMPARE(title(), QString("other.mpr[*]"));
        program.trigger("&Export PNG…");
        QCOMPARE(proposed, QString("other"));

        // The file belongs to the state that the history goes back to.
        const auto expect = [&](const char* expected) {
            program.settle();
            QCOMPARE(title(), QString(expected));
            program.panels.answer = nullptr;
            program.trigger("&Save Project…");
            QCOMPARE(proposed, title().section('.', 0, 0));
            QCOMPARE(own, title().section('[', 0, 0));
        };
        UndoHistory& history = program.application.history();
        program.trigger("&New Project");
        QCOMPARE(title(), QString("Wallgrid"));
        QCOMPARE(program.layers(), QStringList("Layer 0"));
        QVERIFY(program.action("&Undo New Project"));
        history.undo();
        expect("other.mpr[*]");
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
    }

    void theBarOffersWhatCanBeDone()
    {
        ProgramUnderTest program;
        auto& bar = *program.window().findChild<MessageBar*>();
        auto* remedy = bar.findChild<QPushButton*>();
        connect(&program.window(), &MainWindow::panelAhead, this, [&](auto& purpose) {
            const QString name = purpose.whole ? "a.psd" : "a";
            program.panels.answer = program.location(purpose.folder == QDir::homePath() ? name : "no folder/" + name);
        });
        for (const char* command : {"&Save Project…", "&Export PNG…", "Export &Layered PSD…", "Sa&ve Presets…"}) {
            program.trigger(command);
            QVERIFY(bar.accessibleName().endsWith(": there is no such folder"));
            QCOMPARE(remedy->text(), QString("Save elsewhere…"));
            QTest::mouseClick(remedy, Qt::LeftButton);
            QVERIFY2(!bar.isVisible(), command);
        }
        for (const char* file : {"a.mpr", "a.png", "a.psd", "a"})
            QVERIFY2(QFile::exists(program.path(file)), file);

        QVERIFY(QFile(program.path("a.mpr")).resize(400) && QDir(program.folder.path()).mkpath("recovery/x"));
        program.item().setLabel(makeString(u"copied"));
        const Bytes copy = writeProject(program.delegate().project());
        QVERIFY(writeFileAtomically(program.path("recovery/x/project.mpr").toStdString(), copy));
        program.item().setLabel(nullptr);
        program.application.keepRecovery(program.path("recovery"));
        for (const char* layer : {"", "copied"}) {
            program.window().open(program.location("a.mpr")->absoluteString());
            QVERIFY(bar.accessibleName().endsWith("a.mpr: the project is damaged: it ends too early"));
            if (*layer)
                QTest::mouseClick(remedy, Qt::LeftButton);
            program.settle();
            QCOMPARE(program.layers(), QStringList(layer));
        }
    }

    void missingPicturesAreFoundByName()
    {
        ProgramUnderTest program;
        for (const char* name : {"a.png", "b.png"}) {
            QImage(3, 2, QImage::Format_RGB32).save(program.path(name));
            program.delegate().addImageAt(program.location(name));
        }
        program.panels.answer = program.location("stage.mpr");
        program.delegate().saveProject();
        QVERIFY(QDir(program.folder.path()).mkpath("moved/deep"));
        QVERIFY(QFile::rename(program.path("a.png"), program.path("moved/deep/a.png")));
        QVERIFY(QFile::rename(program.path("b.png"), program.path("moved/c.png")));
        program.trigger("&Open Project…");
        auto& bar = *program.window().findChild<MessageBar*>();
        QCOMPARE(bar.accessibleName(), QString("2 pictures are missing"));
        const Bytes before = writeProject(program.delegate().project());
        whenAsked<QFileDialog>([&](QFileDialog& dialog) { acceptFile(dialog, program.path("moved")); });
        QTest::mouseClick(bar.findChild<QPushButton*>(), Qt::LeftButton);
        QCOMPARE(bar.accessibleName(), QString("1 picture is missing"));
        program.settle();
        QVERIFY(program.item(2).thumbnail() && program.action("&Undo Change Image"));

        program.delegate().arraycontroller().setSelectionIndex(1); // b, which Find cannot know
        program.settle();
        const PixelRect frame = program.item(1).frame();
        auto* file = program.find<QLineEdit>("File");
        type(file, "moved/d.png\r");
        QCOMPARE(file->accessibleDescription(), QString("There is no such file"));
        QVERIFY(bar.isVisible());
        QVERIFY(!program.item(1).thumbnail());
        type(file, "moved/c.png\r");
        program.settle();
        QCOMPARE(file->accessibleDescription(), QString());
        QCOMPARE(file->text(), program.path("moved/c.png"));
        QCOMPARE(program.item(1).frame(), frame);
        QVERIFY(program.item(1).thumbnail() && !bar.isVisible());
        for (int i = 0; i < 2; ++i)
            program.application.history().undo();
        QVERIFY(writeProject(program.delegate().project()) == before);
    }

    void equalNamesAreNumberedWhenTheUserWants()
    {
        ProgramUnderTest program;
        QtPanels panels;
        bool wanted = false;
        connect(&program.window(), &MainWindow::panelAhead, this, [&](const PanelPurpose& purpose) {
            panels.prepare(purpose);
            if (!purpose.answer.isEmpty()) {
                program.panels.answer = panels.runSavePanel();
                return;
            }
            whenAsked<QFileDialog>([&, name = "wall." + purpose.extension](QFileDialog& dialog) {
                if (auto* box = dialog.findChild<QCheckBox*>())
                    box->setChecked(wanted);
                acceptFile(dialog, program.path(name)); // not wall.psd.psd
            });
            program.panels.answer = panels.runSavePanel();
        });
        program.insert(makeScreen(u"Layer 0"));
        for (const bool numbers : {false, true}) {
            wanted = numbers;
            QFile file(program.path("wall.psd"));
            file.remove();
            program.trigger("Export &Layered PSD…");
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll().contains("Layer 0 2"), numbers);
        }
        QVERIFY(QFile::remove(program.path("wall.psd")));
        program.trigger("&Save Project…");
        program.panels.answer = nullptr;
        program.trigger("Export A&gain"); // not the project
        QVERIFY(QFile::exists(program.path("wall.psd")));
        QVERIFY(program.window().statusBar()->currentMessage().startsWith("Written: "));
        program.window().statusBar()->clearMessage();
        program.delegate().arraycontroller().removeObjects(program.delegate().arraycontroller().arrangedObjects());
        QTest::qWait(20);
        program.trigger("Export A&gain"); // nothing is visible
        QCOMPARE(program.window().statusBar()->currentMessage(), QString());
    }

    void aCancelledExportLeavesTheOldFile()
    {
        ProgramUnderTest program;
        const ItemRef wall = makeScreen(u"wall", 1000);
        wall->setCircleEnable(true); // no row is like the one above
        wall->drawInRect();
        program.delegate().arraycontroller().addObjects(ItemArray(600, wall)); // would take many seconds
        QFile old(program.path("wall.psd"));
        QVERIFY(old.open(QIODevice::ReadWrite) && old.write("precious") && old.flush());
        program.panels.answer = program.location("wall.psd");
        whenAsked<QProgressDialog>([](QProgressDialog& dialog) { dialog.findChild<QPushButton*>()->click(); });
        program.trigger("Export &Layered PSD…");
        QVERIFY(old.seek(0));
        QCOMPARE(old.readAll(), "precious");
        QVERIFY(!program.window().findChild<MessageBar*>()->isVisible());
    }

    void anArrayIsMadeOfWhatIsTyped()
    {
        ProgramUnderTest program;
        program.activate();
        program.trigger("Arra&y…");
        const auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        const auto enter = [&](const char* columns) {
            QTest::keyClicks(dialog->focusWidget(), columns);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        };
        dialog->findChildren<NumberField*>()[2]->enter(10);
        enter("0");
        QVERIFY(dialog->isVisible());
        QTest::keyClicks(dialog->focusWidget(), "3");
        QVERIFY(program.find<QLabel>("6 layers, 956 × 624 px"));
        enter("");
        QCOMPARE(program.layers().size(), 6);
    }

    void theOutputWindowShowsTheOutput()
    {
        ProgramUnderTest program;
        program.delegate().loadProject({30, 40, {makeScreen(u"wall")}});
        program.trigger("Output in a &Window");
        OutputWindow& window = program.application.outputWindow();
        auto* view = window.findChild<ImageViewWidget*>();
        QCOMPARE(window.findChild<QLabel*>()->text(), "40 × 30 px, shown at 100 %");
        const QImage before = view->grab().toImage();
        program.delegate().setBgColor(Color::redColor());
        program.delegate().update();
        program.settle();
        QVERIFY(view->grab().toImage() != before);
        const QSize room = view->size();
        window.resize(window.size() + QSize(10, 20));
        QCOMPARE(view->size(), room + QSize(10, 20));
        window.close();
        QVERIFY(!program.action("Output in a &Window")->isChecked());
        program.trigger("&New Project");
        QVERIFY(!program.delegate().bgColor());
    }

    void savingAsksBeforeItReplacesTheFileThatIsWritten()
    {
        const QTemporaryDir folder;
        for (const char* name : {"wall.mpr", "wall.txt"})
            QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        QtPanels panels;
        const auto choose = [&](const QString& name, std::optional<QMessageBox::StandardButton> answer = {}) {
            whenAsked<QFileDialog>([&, name, answer](QFileDialog& dialog) {
                if (answer) {
                    whenAsked<QMessageBox>([answer = *answer](QMessageBox& question) {
                        QVERIFY(question.text().contains("wall."));
                        const bool isOwn = question.text().contains("wall.mpr");
                        QCOMPARE(question.defaultButton(), question.button(isOwn ? QMessageBox::Yes : QMessageBox::No));
                        if (answer == QMessageBox::No)
                            whenAsked<QFileDialog>([](QFileDialog& again) { again.reject(); });
                        question.button(answer)->click();
                    });
                }
                acceptFile(dialog, name);
            });
        };
        const auto save = [&] {
            PanelPurpose purpose{"Save", "project", "Projects (*.mpr)", "mpr"};
            purpose.own = folder.filePath("wall.mpr");
            panels.prepare(purpose);
            return fileName(panels.runSavePanel());
        };
        choose(folder.filePath("wall.txt")); // will be wall.txt.mpr
        QCOMPARE(save(), QString("wall.txt"));
        choose(folder.filePath("wall"), QMessageBox::No);
        QCOMPARE(save(), QString());
        choose("wall.mpr", QMessageBox::Yes); // in the folder of the last time
        QCOMPARE(save(), QString("wall.mpr"));

        QFile(folder.filePath("wall.PSD")).open(QIODevice::WriteOnly);
        choose("wall.PSD", QMessageBox::Yes);
        panels.prepare({"Export", "psd", "Photoshop documents (*.psd)", "psd", true});
        QCOMPARE(fileName(panels.runSavePanel()), QString("wall.PSD"));

        // Each kind has its folder, no file is looked into, and a name of 256 bytes is refused aloud.
        QVERIFY(QDir(folder.path()).mkdir("pictures"));
        QImage(2, 2, QImage::Format_RGB32).save(folder.filePath("pictures/a"), "PNG");
        const auto open = [&](const QString& kind, const QString& name) {
            panels.prepare({"Open", kind, {}, {}});
            choose(name);
            return panels.runOpenPanel();
        };
        QVERIFY(open("image", folder.filePath("pictures/a")));
        QVERIFY(open("project", "wall.mpr"));
        panels.prepare({"Open", "image", {}, {}});
        bool warned = false;
        whenAsked<QFileDialog>([&](QFileDialog& dialog) {
            QCOMPARE(dialog.directory().dirName(), QString("pictures"));
            QVERIFY(!dialog.iconProvider()->type(QFileInfo(folder.filePath("pictures/a"))).contains("PNG"));
            whenAsked<QMessageBox>([&](QMessageBox& warning) {
                warned = warning.text() == "This name is too long.";
                warning.accept();
            });
            acceptFile(dialog, QString(128, u'ä'));
            dialog.reject();
        });
        QVERIFY(!panels.runOpenPanel() && warned);
    }

    void theLayoutIsRemembered()
    {
        ProgramUnderTest program;
        QSettings memory(program.path("window.ini"), QSettings::IniFormat);
        MainWindow& window = program.window();
        auto* lists = window.findChild<QSplitter*>("lists");
        window.setGeometry(30000, 20000, 700, 500); // of a display that is unplugged
        lists->setSizes({200, 200});
        const QList<int> sizes = lists->sizes();
        auto* drawing = program.find<QToolButton>("&Drawing");
        drawing->click();
        rememberWindow(window, memory);
        lists->setSizes({300, 100});
        drawing->click();
        QVERIFY(program.find<QCheckBox>("Circle")->isVisible());
        QVERIFY(lists->sizes() != sizes);
        restoreWindow(window, memory);
        QCOMPARE(lists->sizes(), sizes);
        QVERIFY(!program.find<QCheckBox>("Circle")->isVisible());
        QVERIFY(window.screen()->availableGeometry().contains(window.geometry()));
        memory.setValue("splitters/lists", QVariantList{0, "x"});
        memory.setValue("geometry", "x");
        restoreWindow(window, memory);
        QCOMPARE(lists->sizes(), sizes);
    }

    void theAppearanceIsRememberedAndTakesEffectAtOnce()
    {
        applyTheme(*qApp, Appearance::Light);
        ProgramUnderTest program;
        QSettings memory(program.path("window.ini"), QSettings::IniFormat);
        AppearanceAction action(*qApp, memory);
        QVERIFY(!action.isChecked()); // as the desktop is
        const auto iconLuminances = [&] {
            const auto corner = [](const QIcon& icon, int side) {
                return luminance(icon.pixmap(20, 16).toImage().pixelColor(side, side));
            };
            const auto* align = program.find<QToolButton>("Align: Centre");
            return std::array{corner(align->icon(), 0), corner(program.action("&Left")->icon(), 1)};
        };
        QVERIFY(std::ranges::max(iconLuminances()) < 0.2);
        action.trigger();
        program.settle();
        QVERIFY(luminance(program.window().palette().color(QPalette::Window)) < 0.2);
        QVERIFY(std::ranges::min(iconLuminances()) > 0.5);
        const QPalette palette = program.window().palette();
        QVERIFY(palette.color(QPalette::Disabled, QPalette::Text) != palette.color(QPalette::Text));
        applyTheme(*qApp, Appearance::Light);
        QVERIFY(AppearanceAction(*qApp, memory).isChecked());
        QCOMPARE(desktopAppearance(), Appearance::Dark);
    }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
