// SPDX-License-Identifier: MIT
#include "program_under_test.h"
#include "ui/appearance_action.h"
#include "ui/theme.h"

#include <QSettings>
#include <QToolButton>
#include <cmath>

using namespace wallgrid;

namespace {

/// Relative luminance, WCAG 2.1.
double luminance(const QColor& color)
{
    const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

class ThemeTest : public QObject {
    Q_OBJECT

private slots:
    void textsAreLegible_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("dark") << true;
        QTest::newRow("light") << false;
    }

    void textsAreLegible()
    {
        QFETCH(bool, dark);
        applyTheme(*qApp, dark ? Appearance::Dark : Appearance::Light);
        QCOMPARE(desktopAppearance() == Appearance::Dark, dark);
        constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> kPairs[]{
            {QPalette::WindowText, QPalette::Window},       {QPalette::Text, QPalette::Base},
            {QPalette::Text, QPalette::AlternateBase},      {QPalette::PlaceholderText, QPalette::Base},
            {QPalette::ButtonText, QPalette::Button},       {QPalette::HighlightedText, QPalette::Highlight},
            {QPalette::ToolTipText, QPalette::ToolTipBase}, {QPalette::Link, QPalette::Window},
            {QPalette::LinkVisited, QPalette::Window}};
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            for (const auto& [text, ground] : kPairs) {
                const double found = contrast(qApp->palette().color(group, text), qApp->palette().color(group, ground));
                QVERIFY2(found >= 4.5, qPrintable(QString("%1 on %2: %3").arg(text).arg(ground).arg(found)));
            }
        }
    }

    void theChoiceIsRememberedAndTakesEffectAtOnce()
    {
        applyTheme(*qApp, Appearance::Light);
        const QTemporaryDir folder;
        QSettings memory(folder.filePath("window.ini"), QSettings::IniFormat);
        AppearanceAction action(*qApp, memory);
        QVERIFY(!action.isChecked()); // as the desktop is
        ProgramUnderTest program;
        const auto iconColor = [&] {
            return program.find<QToolButton>("Align: CENTER")->icon().pixmap(20, 16).toImage().pixelColor(0, 0);
        };
        QVERIFY(luminance(iconColor()) < 0.2);
        action.trigger();
        program.settle();
        QVERIFY(luminance(program.window().palette().color(QPalette::Window)) < 0.2);
        QVERIFY(luminance(iconColor()) > 0.5);

        applyTheme(*qApp, Appearance::Light);
        QVERIFY(AppearanceAction(*qApp, memory).isChecked());
        QCOMPARE(desktopAppearance(), Appearance::Dark);
    }
};

QTEST_MAIN(ThemeTest)
#include "theme_test.moc"
