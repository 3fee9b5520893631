// SPDX-License-Identifier: MIT
#include "ui/preview/preview_surface.h"

#include "ui/program_under_test.h"

using namespace wallgrid;

namespace {

/// What a user's hands do, in the window that has the keyboard.
class Hands {
public:
    explicit Hands(ProgramUnderTest& program)
        : m_program(program)
    {
        program.activate();
    }

    /// "Ctrl+Shift+N"
    void press(const QString& keys)
    {
        const QKeyCombination key = QKeySequence(keys == "Enter" ? "Return" : keys)[0];
        QTest::keyClick(keyboard(), key.key(), key.keyboardModifiers());
        done();
    }

    void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClick(keyboard(), letter.toLatin1());
        done();
    }

    void click(QWidget* widget, Qt::KeyboardModifiers modifiers = {}, std::optional<QPoint> place = {})
    {
        QVERIFY(widget);
        for (QScrollArea* area : m_program.window().findChildren<QScrollArea*>())
            area->ensureWidgetVisible(widget);
        QTest::mouseClick(keyboard(), Qt::LeftButton, modifiers,
                          widget->mapTo(widget->window(), place.value_or(widget->rect().center())));
        done();
    }

    void clickRow(int row, Qt::KeyboardModifiers modifiers = {})
    {
        ItemTable* table = m_program.window().table();
        const QModelIndex name = table->model()->index(row, 2);
        table->scrollTo(name);
        click(table->viewport(), modifiers, table->visualRect(name).center());
    }

    /// Drags the selected item on the preview, nearly to a place where it snaps.
    void dragTo(int x, int y)
    {
        PreviewSurface& surface = *m_program.window().miniPvw();
        const PixelRect frame = selected().frame();
        const auto at = [&](PixelPoint point) {
            const QPointF place = surface.viewport().toView({point.x, point.y, 0, 0}).topLeft();
            return surface.mapTo(&m_program.window(), (place / surface.devicePixelRatioF()).toPoint());
        };
        const PixelPoint grip{frame.width / 3, frame.height / 3};
        QWindow* window = m_program.window().windowHandle();
        QTest::mousePress(window, Qt::LeftButton, {}, at(frame.origin() + grip));
        for (const int away : {60, 3})
            QTest::mouseMove(window, at(PixelPoint{x + away, y + away} + grip));
        QTest::mouseRelease(window, Qt::LeftButton, {}, at(PixelPoint{x + 3, y + 3} + grip));
        done();
    }

    GXItem& selected() { return m_program.item(*m_program.delegate().arraycontroller().selectionIndex()); }

    int actions = 0;

private:
    /// The window that has it. Without a window manager nobody gives it to a dialog, or back to the editor.
    QWindow* keyboard()
    {
        QWidget* modal = QApplication::activeModalWidget();
        QWidget* active = QApplication::activeWindow();
        if (modal ? active != modal : !active || !active->isVisible()) {
            active = modal ? modal : &m_program.window();
            active->activateWindow();
            [&] { QVERIFY(QTest::qWaitForWindowActive(active)); }();
            m_program.settle();
        }
        return active->windowHandle();
    }

    void done()
    {
        ++actions;
        for (const QPushButton* button : m_program.window().findChildren<QPushButton*>()) // shown pressed for a moment
            [&] { QTRY_VERIFY(!button->isDown()); }();
        m_program.settle();
    }

    ProgramUnderTest& m_program;
};

const QString kFillColor = "Fill colour as #RRGGBB or #RRGGBBAA";

/// The field, button or box that a user calls so: by what it holds, what it says or what stands beside it.
QWidget* named(ProgramUnderTest& program, const QString& name)
{
    for (const QLabel* label : program.window().findChildren<QLabel*>()) {
        if (label->buddy() && QString(label->text()).remove('&') == name)
            return label->buddy();
    }
    return program.find<QWidget>(name);
}

/// Does what a step of a page says, and sees what it says.
void carryOut(ProgramUnderTest& program, Hands& hands, QString step)
{
    const auto fill = [&](const QString& field, const QString& text) {
        hands.click(named(program, field));
        hands.type(text);
        hands.press("Enter");
    };
    const auto expectPlace = [&](int x, int y) { QCOMPARE(hands.selected().frame().origin(), (PixelPoint{x, y})); };
    const std::pair<const char*, std::function<void(const QStringList&)>> rules[]{
        {R"((\S+\+Up) until the \w+ is above \*(\w+)\*)",
         [&](auto& word) {
             while (program.layers().indexOf("Logo") > program.layers().indexOf(word[2]))
                 hands.press(word[1]);
         }},
        {R"((?:[Pp]ress )?\b((?:Ctrl|Alt)\+[\w+]+|Enter|Tab|Esc|F\d+)\b( twice|))",
         [&](auto& word) {
             for (int i = word[2].isEmpty() ? 1 : 2; i > 0; --i)
                 hands.press(word[1]);
         }},
        {R"((?:[Tt]ype|,) `([^`]+)`)", [&](auto& word) { hands.type(word[1]); }},
        {R"([Cc]lick into (?:\*\*|`)(.+?)(?:\*\*|`))", [&](auto& word) { hands.click(named(program, word[1])); }},
        {R"(Tick \*\*(.+?)\*\*, \*\*(.+?)\*\* and \*\*(.+?)\*\*)",
         [&](auto& word) {
             for (int i = 1; i <= 3; ++i)
                 hands.click(named(program, word[i]), {}, QPoint(8, 8));
         }},
        {R"(\*\*([^*]+)\*\* is given a number, say `(\d+)`)", [&](auto& word) { fill(word[1], word[2]); }},
        {R"((?:Give it )?(\d+) columns, (\d+) rows?, (?:and a )?fill (?:of )?`(#\w+)`)",
         [&](auto& word) {
             fill("COLS", word[1]);
             fill("ROWS", word[2]);
             fill(kFillColor, word[3]);
         }},
        {R"(click the (\w+) picture: \*(.)(.+?)\*)",
         [&](auto& word) {
             QToolButton* button = program.find<QToolButton>("Align: " + word[2].toUpper() + word[3]);
             QCOMPARE(button->parentWidget()->findChildren<QToolButton*>().indexOf(button),
                      QStringList({"first", "second", "third", "fourth"}).indexOf(word[1]));
             hands.click(button);
         }},
        {R"(Drag it on the preview until.*?`(\d+), (\d+)`)",
         [&](auto& word) {
             hands.dragTo(word[1].toInt(), word[2].toInt());
             expectPlace(word[1].toInt(), word[2].toInt());
         }},
        {"Drag it to the middle of the main wall",
         [&](auto&) {
             hands.dragTo(448 + (1024 - 160) / 2, (512 - 90) / 2);
             expectPlace(448 + (1024 - 160) / 2, (512 - 90) / 2);
         }},
        {"Drag the picture's file .* or ", [](auto&) {}}, // the other way is taken
        {R"((?:It jumps to |texts say `xy )(\d+)(?:, | x )(\d+))",
         [&](auto& word) { expectPlace(word[1].toInt(), word[2].toInt()); }},
        {R"(stands \*(.+?)\*)", [&](auto& word) { QVERIFY(program.find<QLabel>(word[1])); }},
        {R"(beside the first, \*(.+?)\*)", [&](auto& word) { QVERIFY(program.layers().contains(word[1])); }},
    };
    step.remove(QRegularExpression(R"(\([^)]*\))"));
    while (!step.isEmpty()) {
        QRegularExpressionMatch first;
        const std::function<void(const QStringList&)>* action = nullptr;
        for (const auto& [pattern, run] : rules) {
            const auto found = QRegularExpression(pattern).match(step);
            if (found.hasMatch() && (!action || found.capturedStart() < first.capturedStart())) {
                first = found;
                action = &run;
            }
        }
        const QString passedOver = step.first(action ? first.capturedStart() : step.size());
        static const QRegularExpression command(
            R"(\b([Pp]ress|[Cc]lick|Type|(?<!you )type|[Tt]ick|[Dd]rag|[Gg]ive)\b)");
        QVERIFY2(!passedOver.contains(command), qPrintable(passedOver));
        if (action)
            (*action)(first.capturedTexts());
        step.remove(0, action ? first.capturedEnd() : step.size());
    }
}

} // namespace

class StageTest : public QObject {
    Q_OBJECT

private slots:
    void thePageYourFirstStageIsRight()
    {
        QFile page(":/docs/first-stage.md");
        QVERIFY(page.open(QIODevice::ReadOnly));
        QString text = page.readAll();
        text.replace(QRegularExpression(R"(\n *(?=[a-z`]))"), " "); // a line for each step
        ProgramUnderTest program;
        QImage logo(160, 90, QImage::Format_RGB32);
        logo.setDotsPerMeterX(2835); // 72 dpi: a pixel for each of the output
        logo.setDotsPerMeterY(2835);
        logo.save(program.path("logo.png"));
        Hands hands(program);
        connect(&program.window(), &MainWindow::panelAhead, this, [&](const PanelPurpose& purpose) {
            if (purpose.chosen)
                purpose.chosen(QString::fromStdString(*program.panels.answer->filePath()));
        });
        QMap<QString, QStringList> walls;
        int steps = 0;
        for (const QString& line : text.split('\n')) {
            program.panels.answer = program.location("logo.png");
            const QStringList cells = line.split(" | ");
            if (cells.size() == 4 && cells[1].contains(u'×')) {
                walls[cells[0].mid(2)] = cells.mid(1);
            } else if (line.startsWith("| Ctrl+")) {
                const QString kind = line.contains("PNG") ? "a.png" : line.contains("PSD") ? "a.psd" : "a.mpr";
                program.panels.answer = program.location(kind);
                hands.press(cells[0].mid(2));
                QVERIFY(QFile::exists(program.path(kind)));
                QVERIFY(program.window().statusBar()->currentMessage().startsWith("Written:"));
                ++steps;
            } else if (line.contains(QRegularExpression(R"(^(\d\.|Press) )"))) {
                carryOut(program, hands, line);
                ++steps;
            }
        }
        QCOMPARE(steps, 21);
        QCOMPARE(program.layers(), QStringList({"Logo", "Main", "Banner", "Floor", "Right", "Left"}));
        for (std::size_t row = 1; row < 6; ++row) { // the logo is no wall
            const GXItem& item = program.item(row);
            const QString name = program.layers()[qsizetype(row)];
            QCOMPARE(QStringList({QString("%1 × %2").arg(item.col()).arg(item.row()),
                                  QString("%1 × %2").arg(item.screenSizeWidth()).arg(item.screenSizeHeight()),
                                  QString("%1, %2 |").arg(item.xpoint()).arg(item.ypoint())}),
                     walls.take(name));
        }
        QVERIFY(walls.isEmpty());
    }

    void fortyWallsTakeFewerThanSixtyActions()
    {
        const auto build = [](bool asArray, QByteArray& project) {
            ProgramUnderTest program;
            Hands hands(program);
            const auto pressAll = [&](const QString& keys) {
                for (const QString& key : keys.split(u' ')) {
                    static const QRegularExpression number(R"(^[+#\dW])");
                    key.contains(number) ? hands.type(QString(key).replace('_', ' ')) : hands.press(key);
                }
            };
            const auto fill = [&](const QString& field, const QString& keys) {
                hands.click(named(program, field));
                pressAll(keys);
            };
            fill("Panel-H", "192 Tab 192 Tab 11 Tab 5 Enter");
            fill("Name", "Wall_1 Enter");
            if (asArray) {
                pressAll("Ctrl+Shift+A 8 Tab 5 Tab 64 Tab 64 Enter");
                for (int row = 1; row < 40; row += 2)
                    hands.clickRow(row, row == 1 ? Qt::NoModifier : Qt::ControlModifier);
                fill(kFillColor, "#00F Enter");
            } else {
                pressAll("Ctrl+D");
                hands.clickRow(1);
                fill(kFillColor, "#00F Enter");
                hands.clickRow(1); // or Ctrl+A would select the text of the field
                pressAll("Ctrl+A Ctrl+D Ctrl+A Ctrl+D Ctrl+A Ctrl+D Ctrl+A Ctrl+D");
                hands.clickRow(0);
                hands.clickRow(7, Qt::ShiftModifier);
                pressAll("Ctrl+D Ctrl+A Ctrl+Shift+W 8 Tab 64 Tab 64 Enter");
                hands.click(named(program, "Align: Top left"));
                fill("Name", "Wall_# Enter");
            }
            hands.clickRow(11);
            hands.clickRow(13, Qt::ShiftModifier);
            fill("H-Start", "+128 Enter");
            fill("Output width", "8*2112+7*64 Tab 5*960+4*64 Enter");
            program.panels.answer = program.location("walls.png");
            hands.press("Ctrl+E");
            QImageReader::setAllocationLimit(0);
            const QImage picture(program.path("walls.png"));
            QCOMPARE(picture.size(), QSize(17344, 5056));
            QCOMPARE(picture.pixelColor(3 * 2176 + 128 + 9, 1024 + 9), QColor(Qt::blue)); // of the twelfth wall
            QCOMPARE(program.layers()[11], QString("Wall 12"));
            QVERIFY2(hands.actions < 60, qPrintable(QString::number(hands.actions)));
            program.panels.answer = program.location("walls.mpr");
            hands.press("Ctrl+S");
            QFile file(program.path("walls.mpr"));
            QVERIFY(file.open(QIODevice::ReadOnly));
            project = file.readAll();
        };
        QByteArray one;
        QByteArray other;
        build(false, one);
        build(true, other);
        QVERIFY(!one.isEmpty() && one == other);
    }
};

QTEST_MAIN(StageTest)
#include "stage_test.moc"
