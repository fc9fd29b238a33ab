// SPDX-License-Identifier: MIT
#include "GeneralSettingsTab.h"

#include "Accessibility.h"
#include "AppFixture.h"
#include "Ink.h"
#include "MirkDescription.h"
#include "StepSlider.h"
#include "Switch.h"
#include "TextLabel.h"
#include "Widgets.h"

#include <QTest>
#include <QWheelEvent>

namespace sablequill {
namespace {

const QString onTop = QStringLiteral("Always on top");
const QString atLogin = QStringLiteral("Launch at login");
const QString mirk = QStringLiteral("Mirk mode (hide from recordings)");

class GeneralSettingsTabTest : public AppFixture {
protected:
    GeneralSettingsTabTest()
    {
        tab.resize(520, 340);
        present(tab);
        tab.activateWindow();
        turn();
        journal.take();
    }

    /// Each save touches the login item once.
    long saves()
    {
        const auto lines = journal.take();
        return std::count_if(lines.begin(), lines.end(),
            [](const std::string& line) { return line.starts_with("loginItem."); });
    }

    void setOpacity(double value)
    {
        viewModel.opacity = value;
        turn();
    }

    QString opacityText() { return textsIn(tab).at(1); }
    QString fontSizeText() { return textsIn(tab).at(3); }
    Switch& control(const QString& label) { return found<Switch>(tab, label); }

    SettingsViewModel& viewModel = *appState.settingsViewModel;
    GeneralSettingsTab tab{viewModel, mirkProtection};
    StepSlider& opacity = found<StepSlider>(tab, QStringLiteral("opacity"));
    StepSlider& fontSize = found<StepSlider>(tab, QStringLiteral("fontSize"));
};

TEST_F(GeneralSettingsTabTest, texts_firstRun_areExactAndInOrder)
{
    EXPECT_EQ(textsIn(tab),
        QStringList({QStringLiteral("Opacity"), QStringLiteral("92%"), QStringLiteral("Font Size"),
            QStringLiteral("16 pt"), onTop, atLogin, mirk}));
}

TEST_F(GeneralSettingsTabTest, show_always_savesNothing)
{
    EXPECT_EQ(saves(), 0);
    EXPECT_FALSE(std::filesystem::exists(home.settings()));
}

// Values

TEST_F(GeneralSettingsTabTest, opacityText_anyValue_isTruncatedTowardZero)
{
    struct Row {
        double opacity;
        QString text;
    };
    for (const Row& row : {Row{0.92, QStringLiteral("92%")}, {0.9, QStringLiteral("90%")},
             {0.58, QStringLiteral("57%")}, {0.999, QStringLiteral("99%")},
             {1, QStringLiteral("100%")}, {0.1, QStringLiteral("10%")},
             {-0.015, QStringLiteral("-1%")}, {1e300, QStringLiteral("2147483647%")}}) {
        setOpacity(row.opacity);
        EXPECT_EQ(opacityText(), row.text);
    }
    EXPECT_EQ(saves(), 0);
}

TEST_F(GeneralSettingsTabTest, fontSizeText_anyValue_isTruncatedTowardZero)
{
    struct Row {
        double size;
        QString text;
    };
    for (const Row& row : {Row{16, QStringLiteral("16 pt")}, {16.9, QStringLiteral("16 pt")},
             {28, QStringLiteral("28 pt")}, {40, QStringLiteral("40 pt")}}) {
        viewModel.fontSize = row.size;
        turn();
        EXPECT_EQ(fontSizeText(), row.text);
    }
}

TEST_F(GeneralSettingsTabTest, opacitySteps_each_areTheNearestDoubles)
{
    for (int hundredths = 40; hundredths <= 100; hundredths += 2) {
        opacity.setValue(hundredths);
        EXPECT_EQ(viewModel.opacity, hundredths / 100.0);
    }
}

TEST_F(GeneralSettingsTabTest, valueTexts_allSteps_takeTheSamePlace)
{
    auto* label = tab.findChildren<TextLabel*>().at(1);
    const QRect before = frameIn(tab, *label);
    for (int hundredths = 40; hundredths <= 100; hundredths += 2) {
        opacity.setValue(hundredths);
        turn();
        EXPECT_EQ(frameIn(tab, *label), before) << hundredths;
    }
    EXPECT_EQ(label->ink(), Ink{InkRole::secondary});
}

// Sliders

TEST_F(GeneralSettingsTabTest, opacity_oneStepDown_showsIt90AndSavesOnce)
{
    QTest::keyClick(&opacity, Qt::Key_Left);
    EXPECT_EQ(opacityText(), QStringLiteral("90%"));
    EXPECT_EQ(saves(), 1);
    EXPECT_EQ(savedSettings().opacity, 0.9);
    turn();
    EXPECT_EQ(saves(), 0);
    EXPECT_EQ(opacityText(), QStringLiteral("90%"));
}

TEST_F(GeneralSettingsTabTest, opacity_step_isOnTheOverlayAtOnce)
{
    appState.bootstrap();
    clock.advance(1);
    QTest::keyClick(&opacity, Qt::Key_Left);
    EXPECT_EQ(panels.panel->alpha(), 0.9);
    EXPECT_EQ(appState.currentSettings->opacity, 0.9);
}

TEST_F(GeneralSettingsTabTest, opacity_ends_are40And100)
{
    QTest::keyClick(&opacity, Qt::Key_Home);
    EXPECT_EQ(viewModel.opacity, 0.4);
    QTest::keyClick(&opacity, Qt::Key_Left);
    EXPECT_EQ(viewModel.opacity, 0.4);
    QTest::keyClick(&opacity, Qt::Key_End);
    EXPECT_EQ(viewModel.opacity, 1.0);
    QTest::keyClick(&opacity, Qt::Key_Right);
    EXPECT_EQ(viewModel.opacity, 1.0);
    EXPECT_EQ(saves(), 2);
}

TEST_F(GeneralSettingsTabTest, fontSize_ends_are12And28InWholePoints)
{
    QTest::keyClick(&fontSize, Qt::Key_Right);
    EXPECT_EQ(viewModel.fontSize, 17);
    EXPECT_EQ(fontSizeText(), QStringLiteral("17 pt"));
    QTest::keyClick(&fontSize, Qt::Key_Home);
    EXPECT_EQ(viewModel.fontSize, 12);
    QTest::keyClick(&fontSize, Qt::Key_End);
    QTest::keyClick(&fontSize, Qt::Key_Right);
    EXPECT_EQ(viewModel.fontSize, 28);
    EXPECT_EQ(saves(), 3);
    EXPECT_EQ(savedSettings().fontSize, 28);
}

TEST_F(GeneralSettingsTabTest, sliders_mouse_saveEachStepOfADragOnce)
{
    const auto at = [&](int value) {
        return QPoint(static_cast<int>(opacity.knobCenter(value)), 10);
    };
    QTest::mousePress(&opacity, Qt::LeftButton, {}, at(92));
    EXPECT_EQ(saves(), 0);
    for (int x = at(92).x(); x >= at(86).x(); --x)
        QTest::mouseMove(&opacity, {x, 10});
    QTest::mouseRelease(&opacity, Qt::LeftButton, {}, at(86));
    EXPECT_EQ(saves(), 3);
    EXPECT_EQ(savedSettings().opacity, 0.86);
}

TEST_F(GeneralSettingsTabTest, sliders_wheel_movesByAStep)
{
    QWheelEvent event(QPointF(5, 5), fontSize.mapToGlobal(QPointF(5, 5)), {}, {0, 120},
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&fontSize, &event);
    EXPECT_EQ(savedSettings().fontSize, 17);
    EXPECT_EQ(saves(), 1);
}

TEST_F(GeneralSettingsTabTest, sliders_valueBetweenSteps_nextStepIsOnTheGrid)
{
    setOpacity(0.935);
    EXPECT_EQ(opacityText(), QStringLiteral("93%"));
    QTest::keyClick(&opacity, Qt::Key_Left);
    EXPECT_EQ(viewModel.opacity, 0.92);
}

TEST_F(GeneralSettingsTabTest, sliders_changedElsewhere_followWithoutSaving)
{
    viewModel.opacity = 0.5;
    viewModel.fontSize = 20;
    turn();
    EXPECT_EQ(opacity.value(), 50);
    EXPECT_EQ(fontSize.value(), 20);
    EXPECT_EQ(saves(), 0);
}

// Switches

TEST_F(GeneralSettingsTabTest, switches_firstRun_areAsTheSettings)
{
    EXPECT_TRUE(control(onTop).isChecked());
    EXPECT_FALSE(control(atLogin).isChecked());
    EXPECT_TRUE(control(mirk).isChecked());
}

TEST_F(GeneralSettingsTabTest, switches_click_saveOnceEach)
{
    for (const QString& label : {onTop, atLogin, mirk}) {
        QTest::mouseClick(&control(label), Qt::LeftButton);
        EXPECT_EQ(saves(), 1) << label.toStdString();
    }
    AppSettings expected;
    expected.alwaysOnTop = false;
    expected.launchAtStartup = true;
    expected.mirkModeEnabled = false;
    EXPECT_EQ(savedSettings(), expected);
    turn();
    EXPECT_EQ(saves(), 0);
}

TEST_F(GeneralSettingsTabTest, launchAtLogin_on_registersTheLoginItem)
{
    QTest::mouseClick(&control(atLogin), Qt::LeftButton);
    EXPECT_EQ(callsOf("loginItem.registerItem()"), 1);
}

TEST_F(GeneralSettingsTabTest, mirkMode_off_isSavedAndTheOverlayIsCapturable)
{
    appState.bootstrap();
    EXPECT_EQ(panels.panel->sharingType, SharingType::none);
    QTest::mouseClick(&control(mirk), Qt::LeftButton);
    EXPECT_EQ(panels.panel->sharingType, SharingType::readOnly);
    EXPECT_FALSE(savedSettings().mirkModeEnabled);
}

TEST_F(GeneralSettingsTabTest, switches_saveFails_keepTheEdit)
{
    std::filesystem::create_directories(home.settings() / "occupied");
    QTest::mouseClick(&control(onTop), Qt::LeftButton);
    turn();
    EXPECT_FALSE(control(onTop).isChecked());
    EXPECT_FALSE(appState.currentSettings->alwaysOnTop);
}

// Keyboard and screen readers

TEST_F(GeneralSettingsTabTest, tabKey_allControls_inTheirOrder)
{
    leaveControls(tab);
    QStringList names;
    for (int i = 0; i < 5; ++i)
        names.append(accessibleName(*focusAfterTab(tab)));
    EXPECT_EQ(names,
        QStringList(
            {QStringLiteral("Opacity"), QStringLiteral("Font Size"), onTop, atLogin, mirk}));
    QTest::keyClick(tab.focusWidget(), Qt::Key_Space);
    EXPECT_FALSE(savedSettings().mirkModeEnabled);
}

TEST_F(GeneralSettingsTabTest, accessible_sliders_tellWhatTheySet)
{
    EXPECT_EQ(accessible(opacity).valueInterface()->currentValue().toInt(), 92);
    EXPECT_EQ(accessible(fontSize).valueInterface()->currentValue().toInt(), 16);
    EXPECT_EQ(accessible(fontSize).valueInterface()->maximumValue().toInt(), 28);
}

TEST_F(GeneralSettingsTabTest, accessible_valueBetweenSteps_isSetToAStep)
{
    accessible(opacity).valueInterface()->setCurrentValue(51);
    EXPECT_EQ(viewModel.opacity, 0.52);
    turn();
    EXPECT_EQ(opacity.value(), 52);
    EXPECT_EQ(opacityText(), QStringLiteral("52%"));
}

TEST_F(GeneralSettingsTabTest, mirkEffect_startAndChange_isSaidAtTheSwitchOnly)
{
    const auto expectSaid = [this](MirkEffect effect) {
        const QString text = mirkDescription(effect);
        EXPECT_EQ(found(tab, mirk).toolTip(), text);
        EXPECT_EQ(found(tab, mirk).parentWidget()->toolTip(), text);
        EXPECT_EQ(found(tab, mirk).accessibleDescription(), text);
    };
    expectSaid(MirkEffect::unknown);
    mirkProtection.effect = MirkEffect::none;
    turn();
    expectSaid(MirkEffect::none);
    EXPECT_EQ(found(tab, atLogin).toolTip(), QString());
    EXPECT_EQ(accessibleName(found(tab, mirk)), mirk);
}

} // namespace
} // namespace sablequill
