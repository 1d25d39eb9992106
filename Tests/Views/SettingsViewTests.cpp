// The settings' content: what it shows of the state, what it writes there, and how it is used with keys.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <QtGui/QAccessible>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>

#include "Support/PanelDesktop.h"
#include "Windows/CloseButton.h"
#include "Windows/ContentScrollArea.h"
#include "Windows/Controls/CheckBox.h"
#include "Windows/Controls/FocusRing.h"
#include "Windows/Controls/PopUpButton.h"
#include "Windows/Controls/PushButton.h"
#include "Windows/Controls/Slider.h"
#include "Windows/PresetRow.h"
#include "Windows/ScrollIndicatorView.h"
#include "Windows/SecondaryWindowController.h"
#include "Windows/SettingsView.h"

namespace tessel::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class SettingsContent : public testing::Test {
protected:
    ~SettingsContent() override { QApplication::setLayoutDirection(Qt::LeftToRight); }

    void open()
    {
        desktop_.state->showSettingsWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window(), 60'000));
        runMainLoop();
    }
    /// Opens the window with less room than its content needs.
    void openLow()
    {
        open();
        view().setFixedSize(420, 300);
        runMainLoop();
    }

    AppState& state() { return *desktop_.state; }
    QWidget& window()
    {
        return dynamic_cast<SecondaryWindowController&>(*state().settingsController).window();
    }
    SettingsView& view() { return *window().findChild<SettingsView*>(); }
    template <class Control>
    Control& the()
    {
        return *view().findChild<Control*>();
    }
    PushButton& button(std::string_view title)
    {
        for (auto* button : view().findChildren<PushButton*>()) {
            if (button->text().toStdString() == title)
                return *button;
        }
        throw std::logic_error("No button has that title.");
    }
    void click(std::string_view title)
    {
        QTest::mouseClick(&button(title), Qt::LeftButton);
        runMainLoop();
    }
    std::vector<std::string> currentPresets()
    {
        std::vector<std::string> titles;
        for (const auto* button : the<PresetRow>().findChildren<PushButton*>()) {
            if (button->isChecked())
                titles.push_back(button->text().toStdString());
        }
        return titles;
    }
    std::vector<std::string> texts()
    {
        std::vector<std::string> result;
        for (const QLabel* label : view().findChildren<QLabel*>())
            result.push_back(label->text().toStdString());
        return result;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window().focusWidget(), key, modifiers);
        runMainLoop();
    }
    /// The name of a control, and of one with a label before it that label.
    static std::string nameOf(QWidget& control)
    {
        const auto* node = QAccessible::queryAccessibleInterface(&control);
        for (const auto& [other, relation] : node->relations(QAccessible::Label)) {
            if (relation == QAccessible::Label)
                return other->text(QAccessible::Name).toStdString();
        }
        return node->text(QAccessible::Name).toStdString();
    }
    /// What has the keyboard focus.
    std::string focused() { return nameOf(*window().focusWidget()); }
    void turnWheel(QWidget& widget, const QPoint& angle)
    {
        const QPointF place = widget.rect().center();
        QWheelEvent event(place, widget.mapToGlobal(place), {}, angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        // Only a wheel of the system is handed on to what is around a widget that ignores it.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&widget, &event);
    }
    void expectFocusInView()
    {
        SCOPED_TRACE(focused());
        const QWidget& control = *window().focusWidget();
        for (QWidget* area :
             {static_cast<QWidget*>(&the<PresetRow>()), static_cast<QWidget*>(&the<ContentScrollArea>())})
            EXPECT_TRUE(!area->isAncestorOf(&control) || inView(*area).contains(inView(control)));
    }
    QRect inView(const QWidget& widget) { return {widget.mapTo(&view(), QPoint(0, 0)), widget.size()}; }

    PanelDesktop desktop_;
};

TEST_F(SettingsContent, OpeningWritesNothingAndChangesNothing)
{
    desktop_.defaults->putStored(AppState::panelOpacityKey, 0.95);
    desktop_.relaunch();
    desktop_.defaults->forgetWrites();
    desktop_.log->forget();
    open();
    EXPECT_THAT(desktop_.defaults->writes(), IsEmpty());
    EXPECT_THAT(desktop_.log->effects(), Not(Contains("loginItem.register")));
    EXPECT_EQ(*state().panelTintOpacity, 0.95);
}

TEST_F(SettingsContent, ShowTheirTexts)
{
    open();
    EXPECT_THAT(texts(),
                testing::UnorderedElementsAre(
                    "Settings", "Automatically start Tessel Clipboard when you sign in.", "Keyboard shortcut",
                    "If one preset conflicts in your apps, switch to another.", "Quick clear policy",
                    "Infinity", "Automatically remove older history items.", "Panel transparency", "25%",
                    "Lower value = more transparent, higher value = darker panel."));
    EXPECT_EQ(the<CheckBox>().text(), "Launch at login");
    EXPECT_EQ(the<CloseButton>().text(), "Close");
    std::vector<std::string> titles;
    for (const auto* button : view().findChildren<PushButton*>())
        titles.push_back(button->text().toStdString());
    EXPECT_THAT(titles, ElementsAre("30s", "5m", "15m", "1h", "3h", "6h", "24h", "Infinity", "Reset"));
}

struct Policy {
    QuickClearPolicy policy;
    double seconds;
    std::vector<std::string> presets;
    std::string value;
};

TEST_F(SettingsContent, ShowThePolicyByItsPresetAndItsValue)
{
    open();
    for (const Policy& example : {
             Policy{QuickClearPolicy::custom, 30, {"30s"}, "30s"},
             Policy{QuickClearPolicy::custom, 299.6, {"5m"}, "5m"},
             Policy{QuickClearPolicy::custom, 299.4, {}, "4m"},
             Policy{QuickClearPolicy::custom, 5400, {}, "1h 30m"},
             Policy{QuickClearPolicy::custom, 21600, {"6h"}, "6h"},
             Policy{QuickClearPolicy::oneDay, 300, {"24h"}, "24h"},
             Policy{QuickClearPolicy::never, 300, {"Infinity"}, "Infinity"},
         }) {
        state().quickClearCustomSeconds = example.seconds;
        state().quickClearPolicy = example.policy;
        runMainLoop();
        EXPECT_EQ(currentPresets(), example.presets) << example.seconds;
        EXPECT_THAT(texts(), Contains(example.value)) << example.seconds;
    }
}

TEST_F(SettingsContent, APresetIsChosenByItsButton)
{
    state().quickClearCustomSeconds = 300;
    open();
    click("24h");
    EXPECT_EQ(*state().quickClearPolicy, QuickClearPolicy::oneDay);
    EXPECT_EQ(*state().quickClearCustomSeconds, 300);
    click("1h");
    EXPECT_EQ(*state().quickClearPolicy, QuickClearPolicy::custom);
    EXPECT_EQ(*state().quickClearCustomSeconds, 3600);
    EXPECT_THAT(currentPresets(), ElementsAre("1h"));
    click("1h");
    EXPECT_THAT(currentPresets(), ElementsAre("1h"));
    click("Infinity");
    EXPECT_EQ(*state().quickClearPolicy, QuickClearPolicy::never);
    EXPECT_EQ(*state().quickClearCustomSeconds, 3600);
    EXPECT_THAT(currentPresets(), ElementsAre("Infinity"));
}

TEST_F(SettingsContent, ThePercentageIsTruncatedAndResetSetsOnlyTheTint)
{
    open();
    state().quickClearPolicy = QuickClearPolicy::oneDay;
    state().panelTintOpacity = 0.699;
    runMainLoop();
    EXPECT_THAT(texts(), Contains("69%"));
    EXPECT_EQ(*state().panelTintOpacity, 0.699);
    desktop_.defaults->forgetWrites();
    click("Reset");
    EXPECT_EQ(*state().panelTintOpacity, 0.25);
    EXPECT_THAT(texts(), Contains("25%"));
    EXPECT_EQ(the<Slider>().value(), 25);
    EXPECT_EQ(desktop_.defaults->writes().size(), 1U);
}

TEST_F(SettingsContent, AStoredTintOutsideTheRangeStaysUntilTheSliderMoves)
{
    desktop_.defaults->putStored(AppState::panelOpacityKey, 0.95);
    desktop_.relaunch();
    open();
    EXPECT_THAT(texts(), Contains("95%"));
    EXPECT_EQ(the<Slider>().value(), the<Slider>().maximum());
    state().quickClearPolicy = QuickClearPolicy::oneDay; // All is shown anew.
    runMainLoop();
    EXPECT_EQ(*state().panelTintOpacity, 0.95);
    EXPECT_THAT(texts(), Contains("95%"));
    the<Slider>().setFocus();
    press(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(*state().panelTintOpacity, 0.69);
}

TEST_F(SettingsContent, TheSliderWritesWholeHundredthsWhichTheHeaderAndAssistiveProgramsSay)
{
    open();
    the<Slider>().setFocus();
    auto* value = QAccessible::queryAccessibleInterface(&the<Slider>())->valueInterface();
    press(Qt::Key_Home);
    for (int hundredth = 10; hundredth <= 70; ++hundredth) {
        EXPECT_DOUBLE_EQ(*state().panelTintOpacity, hundredth / 100.0);
        EXPECT_THAT(texts(), Contains(std::to_string(hundredth) + "%"));
        EXPECT_EQ(value->currentValue(), hundredth);
        press(Qt::Key_Right);
    }
    EXPECT_EQ(*state().panelTintOpacity, 0.7);
}

TEST_F(SettingsContent, TheSliderStandsWhereTheHeaderSays)
{
    open();
    for (const auto& [opacity, percent] : {std::pair(0.699, 69), {0.29, 28}, {0.58, 57}, {0.1, 10}}) {
        state().panelTintOpacity = opacity;
        runMainLoop();
        EXPECT_THAT(texts(), Contains(std::to_string(percent) + "%"));
        EXPECT_EQ(the<Slider>().value(), percent);
        EXPECT_EQ(*state().panelTintOpacity, opacity);
    }
}

TEST_F(SettingsContent, TheKnobIsDraggedAndComesWhereThePointerPresses)
{
    open();
    Slider& slider = the<Slider>();
    const int middle = slider.height() / 2;
    QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() - 1, middle});
    EXPECT_EQ(*state().panelTintOpacity, 0.7);
    QTest::mouseMove(&slider, {slider.width() / 2, middle});
    EXPECT_EQ(*state().panelTintOpacity, 0.4);
    QTest::mouseMove(&slider, {-200, middle});
    EXPECT_EQ(*state().panelTintOpacity, 0.1);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, {-200, middle});
    // Held off its centre, the knob does not jump.
    desktop_.defaults->forgetWrites();
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {13, middle});
    EXPECT_THAT(desktop_.defaults->writes(), IsEmpty());
}

TEST_F(SettingsContent, FromRightToLeftTheSliderIsMirrored)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    open();
    Slider& slider = the<Slider>();
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {1, slider.height() / 2});
    EXPECT_EQ(*state().panelTintOpacity, 0.7);
    slider.setFocus();
    press(Qt::Key_Right);
    EXPECT_DOUBLE_EQ(*state().panelTintOpacity, 0.69);
}

TEST_F(SettingsContent, TheWheelIsNotForTheControls)
{
    open();
    desktop_.defaults->forgetWrites();
    for (const int angle : {120, -120}) {
        turnWheel(the<Slider>(), {0, angle});
        turnWheel(the<PopUpButton>(), {0, angle});
    }
    EXPECT_THAT(desktop_.defaults->writes(), IsEmpty());
}

TEST_F(SettingsContent, LaunchAtLoginSpringsBackWhereTheSystemRefuses)
{
    open();
    QTest::mouseClick(&the<CheckBox>(), Qt::LeftButton, {}, {5, 5});
    runMainLoop();
    EXPECT_TRUE(*state().launchAtLogin);
    EXPECT_TRUE(the<CheckBox>().isChecked());
    QTest::mouseClick(&the<CheckBox>(), Qt::LeftButton, {}, {5, 5});
    runMainLoop();
    EXPECT_FALSE(*state().launchAtLogin);
    desktop_.loginItem->behaviour = LoginItemBehaviour::refuses;
    QTest::mouseClick(&the<CheckBox>(), Qt::LeftButton, {}, {5, 5});
    runMainLoop();
    EXPECT_FALSE(*state().launchAtLogin);
    EXPECT_FALSE(the<CheckBox>().isChecked());
}

TEST_F(SettingsContent, AShortcutIsChosenFromTheMenu)
{
    open();
    PopUpButton& picker = the<PopUpButton>();
    QTest::mousePress(&picker, Qt::LeftButton);
    ASSERT_NE(picker.openMenu(), nullptr);
    const auto items = picker.openMenu()->actions();
    ASSERT_EQ(items.size(), 3);
    EXPECT_EQ(items[0]->text(), "Cmd + Shift + V");
    EXPECT_EQ(items[1]->text(), "Ctrl + Shift + V");
    EXPECT_EQ(items[2]->text(), "Cmd + Option + V");
    EXPECT_TRUE(items[0]->isChecked());
    EXPECT_FALSE(items[2]->isChecked());
    items[2]->trigger();
    EXPECT_EQ(*state().hotKeyPreset, HotKeyPreset::cmdOptionV);
    picker.hidePopup();
    runMainLoop();
    EXPECT_EQ(picker.openMenu(), nullptr);
    EXPECT_EQ(picker.currentText(), "Cmd + Option + V");

    desktop_.defaults->forgetWrites();
    picker.showPopup();
    picker.openMenu()->actions()[2]->trigger();
    EXPECT_THAT(desktop_.defaults->writes(), IsEmpty());
}

TEST_F(SettingsContent, KeysChooseAShortcut)
{
    open();
    the<PopUpButton>().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(*state().hotKeyPreset, HotKeyPreset::ctrlShiftV);
    press(Qt::Key_Space);
    ASSERT_NE(the<PopUpButton>().openMenu(), nullptr);
    QTest::keyClick(the<PopUpButton>().openMenu(), Qt::Key_Down);
    QTest::keyClick(the<PopUpButton>().openMenu(), Qt::Key_Return);
    EXPECT_EQ(*state().hotKeyPreset, HotKeyPreset::cmdOptionV);
}

TEST_F(SettingsContent, TheToolTipNamesTheKeysOfAPC)
{
    open();
    EXPECT_TRUE(the<PopUpButton>().toolTip().contains("Super"));
    EXPECT_TRUE(the<PopUpButton>().toolTip().contains("Alt"));
    const auto* node = QAccessible::queryAccessibleInterface(&the<PopUpButton>());
    EXPECT_EQ(node->text(QAccessible::Description), the<PopUpButton>().toolTip());
}

TEST_F(SettingsContent, TheToolTipIsNarrowerThanTheWindowAndAsDarkAsIt)
{
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        desktop_.appearance.change({scheme, std::nullopt, false});
        open();
        PopUpButton& picker = the<PopUpButton>();
        const QPoint place = picker.rect().center();
        QHelpEvent hover(QEvent::ToolTip, place, picker.mapToGlobal(place));
        QApplication::sendEvent(&picker, &hover);
        const auto windows = QApplication::topLevelWidgets();
        const auto isToolTip = [](const QWidget* widget) {
            return widget->inherits("QTipLabel") && widget->isVisible();
        };
        const auto tip = std::find_if(windows.begin(), windows.end(), isToolTip);
        ASSERT_NE(tip, windows.end());
        EXPECT_LT((*tip)->width(), window().width() * 3 / 4);
        EXPECT_GT((*tip)->height(), 2 * QFontMetrics((*tip)->font()).height());
        const bool isDark = scheme == ColorScheme::dark;
        EXPECT_EQ((*tip)->palette().color(QPalette::ToolTipBase).lightness() < 128, isDark);
        EXPECT_EQ((*tip)->palette().color(QPalette::ToolTipText).lightness() > 128, isDark);
        delete *tip;
        QTest::mouseClick(&the<CloseButton>(), Qt::LeftButton);
        runMainLoop();
    }
}

TEST_F(SettingsContent, TheMenuCanBeOpenedAgainAsSoonAsItIsClosed)
{
    open();
    PopUpButton& picker = the<PopUpButton>();
    picker.showPopup();
    picker.hidePopup();
    EXPECT_EQ(picker.openMenu(), nullptr);
    picker.showPopup();
    ASSERT_NE(picker.openMenu(), nullptr);
    EXPECT_TRUE(picker.openMenu()->isVisible());
}

TEST_F(SettingsContent, AMenuInTheOldColorsIsClosed)
{
    open();
    the<PopUpButton>().showPopup();
    desktop_.appearance.change({ColorScheme::dark, std::nullopt, false});
    EXPECT_EQ(the<PopUpButton>().openMenu(), nullptr);
    the<PopUpButton>().showPopup();
    EXPECT_GT(the<PopUpButton>().openMenu()->palette().color(QPalette::Text).lightness(), 128);
}

TEST_F(SettingsContent, EscapeClosesOnlyAnOpenMenu)
{
    open();
    the<PopUpButton>().setFocus();
    press(Qt::Key_Space);
    ASSERT_NE(the<PopUpButton>().openMenu(), nullptr);
    QTest::keyClick(the<PopUpButton>().openMenu(), Qt::Key_Escape);
    runMainLoop();
    ASSERT_NE(state().settingsController, nullptr);
    EXPECT_EQ(the<PopUpButton>().openMenu(), nullptr);
    QTest::keyClick(&the<PopUpButton>(), Qt::Key_Escape);
    EXPECT_EQ(state().settingsController, nullptr);
}

TEST_F(SettingsContent, EscapeClosesTheWindowFromAnywhere)
{
    for (std::size_t tabs = 0; tabs <= 13; ++tabs) {
        open();
        for (std::size_t tab = 0; tab < tabs; ++tab)
            press(Qt::Key_Tab);
        SCOPED_TRACE(focused());
        QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(state().settingsController, nullptr);
        runMainLoop();
    }
}

TEST_F(SettingsContent, CloseClosesTheWindow)
{
    open();
    QTest::mouseClick(&the<CloseButton>(), Qt::LeftButton);
    EXPECT_EQ(state().settingsController, nullptr);
}

TEST_F(SettingsContent, KeysPressClose)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        open();
        QTest::keyClick(&the<CloseButton>(), key);
        EXPECT_EQ(state().settingsController, nullptr) << key;
        runMainLoop();
    }
}

TEST_F(SettingsContent, AHeldReturnPressesAButtonOnce)
{
    open();
    button("Reset").setFocus();
    press(Qt::Key_Return);
    state().panelTintOpacity = 0.5;
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&button("Reset"), &repeated);
    EXPECT_EQ(*state().panelTintOpacity, 0.5);
}

TEST_F(SettingsContent, TabGoesThroughAllControlsInReadingOrder)
{
    open();
    EXPECT_EQ(focused(), "");
    std::vector<std::string> names;
    for (int tab = 0; tab < 14; ++tab) {
        press(Qt::Key_Tab);
        names.push_back(focused());
    }
    EXPECT_THAT(names,
                ElementsAre("Launch at login", "Keyboard shortcut", "30s", "5m", "15m", "1h", "3h", "6h",
                            "24h", "Infinity", "Panel transparency", "Reset", "Close", "Launch at login"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "Close");
}

TEST_F(SettingsContent, KeysPressTheButtons)
{
    open();
    the<CheckBox>().setFocus();
    press(Qt::Key_Space);
    EXPECT_TRUE(*state().launchAtLogin);
    button("3h").setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(*state().quickClearCustomSeconds, 10800);
    button("24h").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(*state().quickClearPolicy, QuickClearPolicy::oneDay);
}

TEST_F(SettingsContent, ArrowsGoAlongThePresets)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        const auto [forwards, backwards] = direction == Qt::LeftToRight
                                               ? std::pair(Qt::Key_Right, Qt::Key_Left)
                                               : std::pair(Qt::Key_Left, Qt::Key_Right);
        open();
        button("24h").setFocus();
        press(forwards);
        EXPECT_EQ(focused(), "Infinity");
        press(forwards);
        EXPECT_EQ(focused(), "Infinity");
        press(backwards);
        press(backwards);
        EXPECT_EQ(focused(), "6h");
        button("30s").setFocus();
        press(backwards);
        EXPECT_EQ(focused(), "30s");
        QTest::mouseClick(&the<CloseButton>(), Qt::LeftButton);
        runMainLoop();
    }
}

TEST_F(SettingsContent, AClickLeavesTheKeyboardFocusWhereItIs)
{
    open();
    QTest::mouseClick(&the<CheckBox>(), Qt::LeftButton, {}, {5, 5});
    click("30s");
    QTest::mouseClick(&the<Slider>(), Qt::LeftButton);
    EXPECT_EQ(focused(), "");
    EXPECT_FALSE(the<FocusRing>().isVisible());
}

TEST_F(SettingsContent, TheRingIsAroundWhatHasTheKeyboardFocus)
{
    open();
    for (int tab = 0; tab < 13; ++tab) {
        press(Qt::Key_Tab);
        SCOPED_TRACE(focused());
        auto* control = window().focusWidget();
        const auto [outline, radius] = dynamic_cast<HasFocusOutline&>(*control).focusOutline();
        const QRectF around = outline.translated(control->mapTo(&view(), QPoint(0, 0)));
        EXPECT_TRUE(the<FocusRing>().isVisible());
        EXPECT_EQ(the<FocusRing>().geometry(), around.adjusted(-3, -3, 3, 3).toAlignedRect());
    }
}

TEST_F(SettingsContent, TheRingGoesWithTheKnob)
{
    open();
    the<Slider>().setFocus();
    ASSERT_TRUE(the<FocusRing>().isVisible());
    const int before = the<FocusRing>().x();
    press(Qt::Key_End);
    EXPECT_TRUE(waitUntil([&] { return the<FocusRing>().x() > before + 100; }));
}

TEST_F(SettingsContent, WhatHasTheKeyboardFocusIsInView)
{
    openLow();
    the<PresetRow>().setFixedWidth(150);
    runMainLoop();
    // Once around, and along the presets.
    std::vector<Qt::Key> keys(15, Qt::Key_Tab);
    keys.resize(keys.size() + 14, Qt::Key_Backtab);
    for (const Qt::Key key : keys) {
        press(key);
        expectFocusInView();
    }
    button("30s").setFocus();
    for (int arrow = 0; arrow < 7; ++arrow) {
        press(Qt::Key_Right);
        expectFocusInView();
    }
}

TEST_F(SettingsContent, TheRingEndsWhereTheControlIsCutOff)
{
    openLow();
    the<PopUpButton>().setFocus();
    QScrollBar& bar = *the<ContentScrollArea>().verticalScrollBar();
    const QRect area = inView(the<ContentScrollArea>());
    bar.setValue(bar.value() + inView(the<PopUpButton>()).top() - area.top() + 10);
    EXPECT_EQ(the<FocusRing>().geometry().top(), area.top() - FocusRing::reach);
    bar.setValue(bar.maximum());
    EXPECT_FALSE(the<FocusRing>().isVisible());
    bar.setValue(0);
    EXPECT_TRUE(the<FocusRing>().isVisible());
}

TEST_F(SettingsContent, KeysAndTheWheelScrollWhatDoesNotFit)
{
    openLow();
    const QScrollBar& bar = *the<ContentScrollArea>().verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    press(Qt::Key_Down);
    EXPECT_GT(bar.value(), 0);
    press(Qt::Key_Up);
    EXPECT_EQ(bar.value(), 0);
    turnWheel(the<Slider>(), {0, -120});
    EXPECT_GT(bar.value(), 0);
}

TEST_F(SettingsContent, TheWheelScrollsThePresetsAndAtTheirEndWhatIsAroundThem)
{
    openLow();
    the<PresetRow>().setFixedWidth(150);
    runMainLoop();
    QScrollBar& row = *the<PresetRow>().horizontalScrollBar();
    QScrollBar& page = *the<ContentScrollArea>().verticalScrollBar();
    turnWheel(button("30s"), {-120, 0});
    EXPECT_GT(row.value(), 0);
    row.setValue(0);
    turnWheel(button("30s"), {0, -120});
    EXPECT_GT(row.value(), 0);
    EXPECT_EQ(page.value(), 0);
    row.setValue(row.maximum());
    turnWheel(button("30s"), {0, -120});
    EXPECT_EQ(row.value(), row.maximum());
    EXPECT_GT(page.value(), 0);
}

TEST_F(SettingsContent, TheIndicatorShowsWhatIsOutOfViewAndScrolls)
{
    open();
    auto& indicator = the<ScrollIndicatorView>();
    EXPECT_FALSE(indicator.isVisible());
    view().setFixedSize(420, 300);
    runMainLoop();
    ASSERT_TRUE(indicator.isVisible());
    EXPECT_EQ(indicator.geometry().top(), the<ContentScrollArea>().geometry().top());
    EXPECT_EQ(indicator.geometry().left(), 420 - 18 + 5);
    QTest::mousePress(&indicator, Qt::LeftButton, {}, {4, 10});
    QTest::mouseMove(&indicator, {4, indicator.height()});
    QTest::mouseRelease(&indicator, Qt::LeftButton, {}, {4, indicator.height()});
    const QScrollBar& bar = *the<ContentScrollArea>().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST_F(SettingsContent, AssistiveProgramsReadTheControls)
{
    open();
    const auto node = [](QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget); };
    const auto text = [&](QWidget& widget, QAccessible::Text kind) {
        return node(widget)->text(kind).toStdString();
    };
    EXPECT_EQ(node(the<CheckBox>())->role(), QAccessible::CheckBox);
    EXPECT_FALSE(node(the<CheckBox>())->state().checked);
    EXPECT_EQ(node(the<PopUpButton>())->role(), QAccessible::ComboBox);
    EXPECT_EQ(nameOf(the<PopUpButton>()), "Keyboard shortcut");
    EXPECT_EQ(text(the<PopUpButton>(), QAccessible::Value), "Cmd + Shift + V");
    EXPECT_EQ(node(window())->role(), QAccessible::Window);
    EXPECT_EQ(text(window(), QAccessible::Name), "Settings");
    EXPECT_EQ(node(button("Infinity"))->role(), QAccessible::RadioButton);
    EXPECT_EQ(text(button("Infinity"), QAccessible::Name), "Infinity");
    EXPECT_TRUE(node(button("Infinity"))->state().checkable);
    EXPECT_TRUE(node(button("Infinity"))->state().checked);
    EXPECT_FALSE(node(button("30s"))->state().checked);
    EXPECT_EQ(text(the<PresetRow>(), QAccessible::Name), "Quick clear policy");
    EXPECT_EQ(node(the<Slider>())->role(), QAccessible::Slider);
    EXPECT_EQ(text(the<Slider>(), QAccessible::Name), "Panel transparency");
    EXPECT_EQ(text(the<Slider>(), QAccessible::Description), "25%");
    auto* value = node(the<Slider>())->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue(), 25);
    EXPECT_EQ(value->minimumValue(), 10);
    EXPECT_EQ(value->maximumValue(), 70);
    value->setCurrentValue(40);
    EXPECT_EQ(*state().panelTintOpacity, 0.4);
    EXPECT_EQ(node(button("Reset"))->role(), QAccessible::Button);
    EXPECT_EQ(node(the<CloseButton>())->role(), QAccessible::Button);
}

TEST_F(SettingsContent, AssistiveProgramsChoose)
{
    open();
    const auto toggle = [](QWidget& widget) {
        QAccessible::queryAccessibleInterface(&widget)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
        runMainLoop();
    };
    toggle(button("6h"));
    EXPECT_EQ(*state().quickClearPolicy, QuickClearPolicy::custom);
    EXPECT_EQ(*state().quickClearCustomSeconds, 21600);
    toggle(button("6h"));
    EXPECT_THAT(currentPresets(), ElementsAre("6h"));
    toggle(the<CheckBox>());
    EXPECT_TRUE(*state().launchAtLogin);
}

} // namespace

} // namespace tessel::test
