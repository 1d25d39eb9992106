#include "Windows/TrayNoticeView.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include <memory>
#include <utility>

#include "Support/ApplicationIcon.h"
#include "Support/Retirement.h"
#include "Support/TextStyle.h"
#include "Windows/Controls/FocusRing.h"
#include "Windows/Controls/PushButton.h"
#include "Windows/WindowLabel.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int noticeWidth = 430; // Points, as the other lengths.
constexpr int padding = 18;
constexpr int spacing = 14;
constexpr int buttonSpacing = 8;

/// The combination by the names that keyboards without an Apple have.
QString keysOf(HotKeyPreset preset)
{
    switch (preset) {
    case HotKeyPreset::cmdShiftV:
        return TrayNoticeView::tr("Super+Shift+V");
    case HotKeyPreset::ctrlShiftV:
        return TrayNoticeView::tr("Ctrl+Shift+V");
    case HotKeyPreset::cmdOptionV:
        return TrayNoticeView::tr("Super+Alt+V");
    }
    return {};
}

} // namespace

TrayNoticeView::TrayNoticeView(HotKeyPreset preset, WindowTheme& theme, std::function<void()> openSettings)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint)
    , theme_(theme)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setWindowTitle(tr("Tessel Clipboard is running"));
    setWindowIcon(applicationIcon());
    // Else the first button would have the keyboard focus, and its ring.
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
    auto* content = new QVBoxLayout(this);
    content->setContentsMargins(padding, padding, padding, padding);
    content->setSpacing(spacing);
    content->addWidget(new WindowLabel(tr("Press %1 to open the history.").arg(keysOf(preset)),
                                       {textStyle::thirdLevelTitleSize, QFont::DemiBold},
                                       &WindowColors::primaryText, theme, WindowLabel::Wrapping::on));
    content->addWidget(new WindowLabel(
        tr("This desktop has no tray for the icon. Starting Tessel Clipboard again opens the history, too. "
           "Its entry among your applications leads to the settings and to its end, and so do these "
           "commands:\ntessel-clipboard --settings\ntessel-clipboard --quit"),
        {textStyle::bodySize}, &WindowColors::secondaryText, theme, WindowLabel::Wrapping::on));
    auto* settings = new PushButton(tr("Open Settings"), PushButton::Look::plain, theme);
    connect(settings, &QAbstractButton::clicked, this, [this, openSettings = std::move(openSettings)] {
        close();
        openSettings();
    });
    auto* understood = new PushButton(tr("OK"), PushButton::Look::borderedProminent, theme);
    connect(understood, &QAbstractButton::clicked, this, &QWidget::close);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(buttonSpacing);
    buttons->addWidget(settings);
    buttons->addStretch();
    buttons->addWidget(understood);
    content->addLayout(buttons);
    setFixedSize(noticeWidth, content->heightForWidth(noticeWidth));
    new FocusRing(this, theme);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void TrayNoticeView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), theme_.colors().windowBackground);
}

void TrayNoticeView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

TrayNoticeWindow trayNoticeWindow(WindowTheme& theme, std::function<void()> openSettings)
{
    const auto window = std::make_shared<std::unique_ptr<QWidget, Retirement>>();
    return {.show =
                [&theme, openSettings = std::move(openSettings), window](HotKeyPreset preset) {
                    window->reset(new TrayNoticeView(preset, theme, openSettings));
                    (*window)->show();
                },
            .hide = [window] { window->reset(); }};
}

} // namespace tessel
