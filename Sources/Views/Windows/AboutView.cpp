#include "Windows/AboutView.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include <utility>

#include "AppState.h"
#include "HotKey/HotKeyPreset.h"
#include "Support/CoreText.h"
#include "Support/TextStyle.h"
#include "Windows/CloseButton.h"
#include "Windows/Controls/FocusRing.h"
#include "Windows/LinkButton.h"
#include "Windows/ShortcutCard.h"
#include "Windows/Website.h"
#include "Windows/WindowLabel.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int padding = 18; // Points, as the other lengths.
constexpr int spacing = 14;
constexpr int textSpacing = 5;
constexpr int spacingInBar = 8;
constexpr QMargins headerPadding(4, 2, 4, 0);

constexpr double headerOffset = -8;
constexpr double cardOffset = 10;
constexpr double springResponse = 0.55; // Seconds.
constexpr double springDamping = 0.88;

} // namespace

AboutView::AboutView(AppState& appState, WindowTheme& theme, const Actions& actions)
    : StateView(appState)
    , theme_(theme)
    , shortcuts_(new ShortcutCard(theme))
    , entrance_(SpringCurve(springResponse, springDamping))
{
    QWidget* header = makeHeader();
    QWidget* footer = makeFooter(actions);
    auto* content = new QVBoxLayout(this);
    content->setContentsMargins(padding, padding, padding, padding);
    content->setSpacing(spacing);
    for (QWidget* part : {header, static_cast<QWidget*>(shortcuts_), footer})
        content->addWidget(part);
    setFocusPolicy(Qt::ClickFocus);
    entrance_.add(header, headerOffset);
    entrance_.add(shortcuts_, cardOffset);
    entrance_.add(footer, 0);
    new FocusRing(this, theme);
    const auto skipUnwantedMotion = [this] {
        if (theme_.reducesMotion())
            entrance_.skip();
    };
    connect(&theme, &WindowTheme::didChange, this, skipUnwantedMotion);
    skipUnwantedMotion();
    // The window is laid out before it appears.
    showState(appState);
}

QWidget* AboutView::makeHeader()
{
    auto* header = new QWidget;
    auto* texts = new QVBoxLayout(header);
    texts->setContentsMargins(headerPadding);
    texts->setSpacing(textSpacing);
    const auto add = [&](const QString& text, const Text& style, WindowLabel::Color color) {
        texts->addWidget(new WindowLabel(text, style, color, theme_));
    };
    add(tr("Tessel Clipboard"), {textStyle::secondLevelTitleSize, QFont::Bold}, &WindowColors::primaryText);
    add(tr("Tessel clipboard history for macOS."), {textStyle::thirdLevelTitleSize, QFont::DemiBold},
        &WindowColors::secondaryText);
    add(tr("Current beta supports text and images."), {textStyle::calloutSize}, &WindowColors::tertiaryText);
    return header;
}

QWidget* AboutView::makeFooter(const Actions& actions)
{
    const QString hostName =
        QString::fromUtf8(website::hostName.data(), static_cast<qsizetype>(website::hostName.size()));
    auto* footer = new QWidget;
    auto* bar = new QHBoxLayout(footer);
    bar->setContentsMargins(0, 0, 0, 0);
    bar->setSpacing(spacingInBar);
    bar->addWidget(new LinkButton(hostName, theme_, actions.openWebsite));
    bar->addStretch();
    bar->addWidget(new CloseButton(theme_, actions.close));
    return footer;
}

void AboutView::showEvent(QShowEvent* event)
{
    StateView::showEvent(event);
    // Else the first control would have the keyboard focus, and its ring, as soon as the window opens.
    if (!hasEntered_)
        setFocus();
}

void AboutView::paintEvent(QPaintEvent*)
{
    // Shown is not yet seen: until the window is on screen the entrance waits.
    if (!std::exchange(hasEntered_, true) && !theme_.reducesMotion())
        entrance_.start();
}

void AboutView::showState(const AppState& state)
{
    shortcuts_->setHotKey(coreText(title(*state.hotKeyPreset)));
}

} // namespace tessel
