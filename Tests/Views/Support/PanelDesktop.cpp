#include "Support/PanelDesktop.h"

#include <stdexcept>

#include <QtCore/QCoreApplication>
#include <QtGui/QImage>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

#include "Panel/PanelFactory.h"
#include "Panel/PanelSelection.h"
#include "Windows/SecondaryWindows.h"

namespace tessel::test {

namespace {

/// In milliseconds; far more than anything takes here.
constexpr int patience = 60'000;

} // namespace

bool waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, patience);
}

QImage drawn(QWidget& widget)
{
    QImage image(widget.size() * widget.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(widget.devicePixelRatioF());
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

void runMainLoop()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

PanelDesktop::PanelDesktop()
{
    relaunch();
    application->setActive(true);
}

PanelDesktop::~PanelDesktop()
{
    quit();
    // Its windows go on the next turn, and use the window system until then.
    runMainLoop();
}

void PanelDesktop::relaunch()
{
    quit();
    WindowFactory windows = windowFactory();
    windows.panel = panelFactory(nativeWindows, *application);
    const SecondaryWindowNeeds needs = {theme, nativeWindows, *screens, *workspace};
    windows.settings = settingsFactory(needs);
    windows.about = aboutFactory(needs);
    windows.onboarding = onboardingFactory(needs);
    state = AppState::create(platform(), windows);
    queue->runPending();
}

void PanelDesktop::openPanel()
{
    state->showPanel();
    if (!QTest::qWaitForWindowExposed(&window(), patience))
        throw std::runtime_error("The panel's window does not appear.");
    runMainLoop();
}

void PanelDesktop::copyAll(const std::vector<std::string>& texts)
{
    for (const std::string& text : texts)
        copy(text);
}

void PanelDesktop::pin(std::string_view text)
{
    state->togglePinned(item(text));
}

ClipboardPanelController& PanelDesktop::controller() const
{
    return dynamic_cast<ClipboardPanelController&>(*state->panelController);
}

QPoint PanelDesktop::rowCenter(std::string_view text) const
{
    return list().rowRectangle(item(text).id).value().center();
}

std::string PanelDesktop::selectedText() const
{
    const History ordered = state->orderedHistory();
    const ClipboardItem* selected = selectedItem(ordered, view().selectedItemID());
    return selected ? *std::get<SharedText>(selected->content) : "";
}

std::vector<std::string> PanelDesktop::visibleLabels() const
{
    std::vector<std::string> texts;
    for (const QLabel* label : window().findChildren<QLabel*>()) {
        if (label->isVisible())
            texts.push_back(label->text().toStdString());
    }
    return texts;
}

void PanelDesktop::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(window().focusWidget(), &press);
}

void PanelDesktop::movePointer(const QPoint& place)
{
    // Sent, and not made with the system's pointer, whose events would come when they come.
    QMouseEvent move(QEvent::MouseMove, place, list().mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(&list(), &move);
}

void PanelDesktop::click(std::string_view text)
{
    QTest::mouseClick(&list(), Qt::LeftButton, {}, rowCenter(text));
}

void PanelDesktop::doubleClick(std::string_view text)
{
    const QPoint place = rowCenter(text);
    click(text);
    QMouseEvent secondPress(QEvent::MouseButtonDblClick, place, list().mapToGlobal(place), Qt::LeftButton,
                            Qt::LeftButton, {});
    QCoreApplication::sendEvent(&list(), &secondPress);
    QTest::mouseRelease(&list(), Qt::LeftButton, {}, place);
}

void PanelDesktop::clickButton(std::string_view title)
{
    for (QAbstractButton* button : window().findChildren<QAbstractButton*>()) {
        if (button->text().toStdString() != title)
            continue;
        if (!button->isEnabled())
            throw std::logic_error("The button is disabled.");
        return QTest::mouseClick(button, Qt::LeftButton);
    }
    throw std::logic_error("No button has that title.");
}

} // namespace tessel::test
