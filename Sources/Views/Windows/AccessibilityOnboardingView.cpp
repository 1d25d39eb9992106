#include "Windows/AccessibilityOnboardingView.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include <utility>

#include "Support/TextStyle.h"
#include "Windows/Controls/FocusRing.h"
#include "Windows/Controls/PushButton.h"
#include "Windows/WindowLabel.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int padding = 18; // Points, as the other lengths.
constexpr int spacing = 14;
constexpr int stepSpacing = 6;
constexpr int buttonSpacing = 8;

} // namespace

AccessibilityOnboardingView::AccessibilityOnboardingView(WindowTheme& theme,
                                                         std::function<void()> openSettings,
                                                         std::function<void()> close)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint)
    , theme_(theme)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    // Else the first button would have the keyboard focus, and its ring, as soon as the window opens.
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
    auto* content = new QVBoxLayout(this);
    content->setContentsMargins(padding, padding, padding, padding);
    content->setSpacing(spacing);
    content->addStretch();
    content->addWidget(new WindowLabel(tr("Enable Accessibility Access"),
                                       {textStyle::thirdLevelTitleSize, QFont::DemiBold},
                                       &WindowColors::primaryText, theme, WindowLabel::Wrapping::on));
    content->addWidget(new WindowLabel(
        tr("Tessel Clipboard needs Accessibility permission to paste selected items "
           "automatically into other apps."),
        {textStyle::bodySize}, &WindowColors::secondaryText, theme, WindowLabel::Wrapping::on));
    content->addLayout(makeSteps());
    content->addLayout(makeButtons(std::move(openSettings), std::move(close)));
    content->addStretch();
    new FocusRing(this, theme);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

QLayout* AccessibilityOnboardingView::makeSteps()
{
    auto* steps = new QVBoxLayout;
    steps->setSpacing(stepSpacing);
    const auto add = [&](const QString& text, QFont::Weight weight) {
        steps->addWidget(new WindowLabel(text, {textStyle::calloutSize, weight}, &WindowColors::primaryText,
                                         theme_, WindowLabel::Wrapping::on));
    };
    add(tr("How to enable it:"), QFont::DemiBold);
    add(tr("1. Open Privacy & Security settings"), QFont::Normal);
    add(tr("2. Go to Accessibility"), QFont::Normal);
    add(tr("3. Turn on access for Tessel Clipboard"), QFont::Normal);
    return steps;
}

QLayout* AccessibilityOnboardingView::makeButtons(std::function<void()> openSettings,
                                                  std::function<void()> close)
{
    auto* notNow = new PushButton(tr("Not now"), PushButton::Look::plain, theme_);
    connect(notNow, &QAbstractButton::clicked, this, std::move(close));
    auto* open =
        new PushButton(tr("Open Accessibility Settings"), PushButton::Look::borderedProminent, theme_);
    connect(open, &QAbstractButton::clicked, this, std::move(openSettings));
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(buttonSpacing);
    buttons->addWidget(notNow);
    buttons->addStretch();
    buttons->addWidget(open);
    return buttons;
}

void AccessibilityOnboardingView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), theme_.colors().windowBackground);
}

} // namespace tessel
