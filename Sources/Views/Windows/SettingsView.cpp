#include "Windows/SettingsView.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

#include "AppState.h"
#include "History/DurationText.h"
#include "Settings/QuickClearPresets.h"
#include "Settings/SettingsRules.h"
#include "Support/CoreText.h"
#include "Windows/CloseButton.h"
#include "Windows/ContentScrollArea.h"
#include "Windows/Controls/CheckBox.h"
#include "Windows/Controls/FocusRing.h"
#include "Windows/Controls/PopUpButton.h"
#include "Windows/Controls/PushButton.h"
#include "Windows/Controls/Slider.h"
#include "Windows/PresetRow.h"
#include "Windows/ScrollIndicatorView.h"
#include "Windows/SectionCard.h"
#include "Windows/WindowLabel.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr QSize rootSize(420, 500);
constexpr int padding = 18;
constexpr int spacing = 16;
constexpr int cardSpacing = 14;

constexpr Text titleText = {textStyle::titleSize, QFont::DemiBold};
constexpr Text bodyText = {textStyle::bodySize};
constexpr Text captionText = {textStyle::captionSize};
constexpr Text valueText = {textStyle::captionSize, QFont::DemiBold};

/// The slider's whole numbers are per cents of the opacity.
constexpr int leastTint = 10;
constexpr int mostTint = 70;
constexpr int pageOfTint = 10;

/// In tenths first: so rounded no per cent lies below itself, and what is truncated shows all of them as they
/// are. A hundredth of 29, 57 or 58 would be shown as one less.
double opacityOf(int percent)
{
    constexpr double tenth = 0.1;
    constexpr int tenthsInOne = 10;
    return percent * tenth / tenthsInOne;
}

/// Where the slider stands: as far as it goes, where the header says.
int sliderPosition(double opacity)
{
    return static_cast<int>(std::clamp<std::int64_t>(tintPercent(opacity), leastTint, mostTint));
}

} // namespace

SettingsView::SettingsView(AppState& appState, WindowTheme& theme, std::function<void()> close)
    : StateView(appState)
    , theme_(theme)
    , close_(std::move(close))
{
    setFixedSize(rootSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(spacing);
    column->addWidget(makeLabel(tr("Settings"), titleText, &WindowColors::primaryText));
    sections_ = new ContentScrollArea(this);
    sections_->setContent(makeSections());
    column->addWidget(sections_, 1);
    column->addLayout(makeBottomBar());
    scrollIndicator_ = new ScrollIndicatorView(*sections_, theme_, this);
    sections_->installEventFilter(this);
    new FocusRing(this, theme_);
}

QWidget* SettingsView::makeSections()
{
    auto* sections = new QWidget;
    auto* stack = new QVBoxLayout(sections);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(cardSpacing);
    stack->addWidget(makeLaunchAtLoginCard());
    stack->addWidget(makeKeyboardShortcutCard());
    stack->addWidget(makeQuickClearCard());
    stack->addWidget(makeTransparencyCard());
    stack->addStretch();
    return sections;
}

QWidget* SettingsView::makeLaunchAtLoginCard()
{
    auto* card = new SectionCard(theme_);
    launchAtLogin_ = new CheckBox(tr("Launch at login"), theme_);
    connect(launchAtLogin_, &QAbstractButton::toggled, this, [this](bool isOn) {
        if (const auto appState = state())
            appState->launchAtLogin = isOn;
    });
    card->content().addWidget(launchAtLogin_);
    card->content().addWidget(makeCaption(tr("Automatically start Tessel Clipboard when you sign in.")));
    return card;
}

QWidget* SettingsView::makeKeyboardShortcutCard()
{
    auto* card = new SectionCard(theme_);
    auto* label = makeLabel(tr("Keyboard shortcut"), bodyText, &WindowColors::primaryText);
    hotKeyPreset_ = new PopUpButton(theme_);
    for (const HotKeyPreset preset : allHotKeyPresets)
        hotKeyPreset_->addItem(coreText(title(preset)));
    hotKeyPreset_->setToolTip(
        tr("On a PC keyboard Cmd is the Super key, which is also called the Windows key, "
           "and Option is the Alt key."));
    label->setBuddy(hotKeyPreset_);
    connect(hotKeyPreset_, &QComboBox::activated, this, [this](int index) {
        const HotKeyPreset preset = allHotKeyPresets.at(static_cast<std::size_t>(index));
        if (const auto appState = state(); appState && *appState->hotKeyPreset != preset)
            appState->hotKeyPreset = preset;
    });
    card->content().addWidget(label);
    card->content().addWidget(hotKeyPreset_);
    card->content().addWidget(makeCaption(tr("If one preset conflicts in your apps, switch to another.")));
    return card;
}

QWidget* SettingsView::makeQuickClearCard()
{
    auto* card = new SectionCard(theme_);
    auto* header = new QHBoxLayout;
    auto* label = makeLabel(tr("Quick clear policy"), bodyText, &WindowColors::primaryText);
    quickClearValue_ = makeLabel({}, valueText, &WindowColors::secondaryText);
    header->addWidget(label);
    header->addStretch();
    header->addWidget(quickClearValue_);
    presets_ = new PresetRow(theme_);
    presets_->setAccessibleName(label->text());
    addPresets();
    card->content().addLayout(header);
    card->content().addWidget(presets_);
    card->content().addWidget(makeCaption(tr("Automatically remove older history items.")));
    return card;
}

void SettingsView::addPresets()
{
    for (const double seconds : quickClearPresets) {
        presets_->addChoice(QString::fromStdString(shortDurationLabel(seconds)), [this, seconds] {
            if (const auto appState = state())
                appState->selectPreset(seconds);
        });
    }
    presets_->addChoice(coreText("Infinity"), [this] {
        if (const auto appState = state())
            appState->quickClearPolicy = QuickClearPolicy::never;
    });
}

QWidget* SettingsView::makeTransparencyCard()
{
    auto* card = new SectionCard(theme_);
    auto* header = new QHBoxLayout;
    auto* label = makeLabel(tr("Panel transparency"), bodyText, &WindowColors::primaryText);
    tintValue_ = makeLabel({}, bodyText, &WindowColors::secondaryText);
    header->addWidget(label);
    header->addStretch();
    header->addWidget(tintValue_);
    tint_ = new Slider(theme_);
    tint_->setRange(leastTint, mostTint);
    tint_->setPageStep(pageOfTint);
    label->setBuddy(tint_);
    connect(tint_, &QAbstractSlider::valueChanged, this, [this](int value) {
        if (const auto appState = state())
            appState->panelTintOpacity = opacityOf(value);
    });
    card->content().addLayout(header);
    card->content().addWidget(tint_);
    card->content().addWidget(
        makeCaption(tr("Lower value = more transparent, higher value = darker panel.")));
    return card;
}

QHBoxLayout* SettingsView::makeBottomBar()
{
    auto* bar = new QHBoxLayout;
    auto* reset = new PushButton(tr("Reset"), PushButton::Look::bordered, theme_);
    connect(reset, &QAbstractButton::clicked, this, [this] {
        if (const auto appState = state())
            appState->panelTintOpacity = AppState::defaultPanelOpacity;
    });
    bar->addWidget(reset);
    bar->addStretch();
    bar->addWidget(new CloseButton(theme_, close_));
    return bar;
}

WindowLabel* SettingsView::makeLabel(const QString& text, const Text& style, WindowLabel::Color color)
{
    return new WindowLabel(text, style, color, theme_);
}

WindowLabel* SettingsView::makeCaption(const QString& text)
{
    return new WindowLabel(text, captionText, &WindowColors::secondaryText, theme_,
                           WindowLabel::Wrapping::on);
}

void SettingsView::showState(const AppState& state)
{
    // To show a value is not to write it.
    const QSignalBlocker launchAtLoginBlocker(launchAtLogin_);
    const QSignalBlocker tintBlocker(tint_);
    launchAtLogin_->setChecked(*state.launchAtLogin);
    const auto preset = std::find(allHotKeyPresets.begin(), allHotKeyPresets.end(), *state.hotKeyPreset);
    hotKeyPreset_->setCurrentIndex(static_cast<int>(preset - allHotKeyPresets.begin()));
    tintValue_->setText(QStringLiteral("%1%").arg(tintPercent(*state.panelTintOpacity)));
    tint_->setAccessibleDescription(tintValue_->text());
    tint_->setValue(sliderPosition(*state.panelTintOpacity));
    showPolicy(*state.quickClearPolicy, *state.quickClearCustomSeconds);
}

void SettingsView::showPolicy(QuickClearPolicy policy, double customSeconds)
{
    quickClearValue_->setText(coreText(quickClearValueText(policy, customSeconds)));
    for (std::size_t index = 0; index < quickClearPresets.size(); ++index)
        presets_->setCurrent(index, isPresetSelected(quickClearPresets[index], policy, customSeconds));
    presets_->setCurrent(quickClearPresets.size(), policy == QuickClearPolicy::never);
}

void SettingsView::showEvent(QShowEvent* event)
{
    StateView::showEvent(event);
    // Arrow keys scroll until the first Tab.
    if (window()->focusWidget() == nullptr)
        sections_->setFocus(Qt::OtherFocusReason);
}

void SettingsView::keyPressEvent(QKeyEvent* event)
{
    // In the program the monitor of all keys takes Escape before. This closes the window where there is none.
    if (event->key() == Qt::Key_Escape)
        return close_();
    StateView::keyPressEvent(event);
}

bool SettingsView::eventFilter(QObject* object, QEvent* event)
{
    if (object == sections_ && (event->type() == QEvent::Resize || event->type() == QEvent::Move)) {
        // In the middle of the padding, at the end of the lines.
        const QRect area = sections_->geometry();
        const int inset = (padding - ScrollIndicatorView::thickness) / 2;
        scrollIndicator_->setGeometry(QStyle::visualRect(
            layoutDirection(), area,
            {area.right() + 1 + inset, area.top(), ScrollIndicatorView::thickness, area.height()}));
    }
    return StateView::eventFilter(object, event);
}

} // namespace tessel
