#include "Panel/ClipboardPanelController.h"

#include <utility>

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

#include "Panel/ClipboardPanelView.h"
#include "Panel/PanelArtwork.h"
#include "ScreenSpace.h"
#include "Support/NativeHandle.h"

namespace tessel {

namespace {

/// Applies the steps of a panel's configuration, one after the other.
class PanelConfiguration {
public:
    PanelConfiguration(ClipboardPanelWindow& window, ClipboardPanelView* view)
        : window_(window)
        , view_(view)
    {
        traits_.becomesMain = window.canBecomeMain();
    }

    const PanelTraits& traits() const { return traits_; }

    void operator()(PanelStep::FloatingPanel step) { traits_.floatsAboveOthers = step.on; }
    void operator()(PanelStep::Level step)
    {
        constexpr int floatingWindowLevel = 3;
        traits_.floatsAboveOthers = step.value >= floatingWindowLevel;
    }
    void operator()(PanelStep::CollectionBehavior step)
    {
        constexpr std::uint64_t canJoinAllSpaces = 0x1;
        constexpr std::uint64_t fullScreenAuxiliary = 0x100;
        traits_.joinsAllSpaces = (step.mask & canJoinAllSpaces) != 0;
        traits_.overFullScreen = (step.mask & fullScreenAuxiliary) != 0;
    }
    void operator()(PanelStep::HasShadow step) { traits_.hasShadow = step.on; }
    void operator()(PanelStep::MovableByWindowBackground step)
    {
        using enum ClipboardPanelWindow::Dragging;
        window_.setDragging(step.on ? byBackground : byTitleBar);
    }
    void operator()(PanelStep::Opaque step) { window_.setAttribute(Qt::WA_TranslucentBackground, !step.on); }
    void operator()(PanelStep::ClearBackground) { window_.setAttribute(Qt::WA_NoSystemBackground); }
    void operator()(PanelStep::ContentViewController) { window_.setContentView(view_); }

private:
    ClipboardPanelWindow& window_;
    ClipboardPanelView* view_;
    PanelTraits traits_;
};

} // namespace

ClipboardPanelController::ClipboardPanelController(AppState& appState, const PanelDescription& description,
                                                   NativeWindows& nativeWindows, Application& application,
                                                   std::shared_ptr<PanelArtwork> artwork)
    : nativeWindows_(nativeWindows)
    , application_(application)
    , window_(new ClipboardPanelWindow)
    , backdrop_(*window_, nativeWindows)
    , activityObservation_(application.observeActivity([this] { activityDidChange(); }))
{
    window_->setGeometry(screenSpace::toToolkit(description.contentRect));
    configure(description, new ClipboardPanelView(appState, std::move(artwork), window_.get()));
}

void ClipboardPanelController::configure(const PanelDescription& description, ClipboardPanelView* view)
{
    PanelConfiguration configuration(*window_, view);
    for (const PanelConfigurationStep& step : description.configuration)
        std::visit(configuration, step);
    nativeWindows_.preparePanel(handleOf(*window_), configuration.traits());
    window_->windowHandle()->installEventFilter(this);
    connect(window_->windowHandle(), &QWindow::screenChanged, this, [this] {
        if (window_->isVisible())
            backdrop_.fit();
    });
}

void ClipboardPanelController::showWindow()
{
    applyGeometry();
    // Once it is on the screen it would see itself.
    if (!window_->isVisible())
        backdrop_.windowWillShow();
    window_->show();
}

void ClipboardPanelController::close()
{
    window_->hide();
    backdrop_.windowDidHide();
}

void ClipboardPanelController::makeKeyAndOrderFront()
{
    if (!window_->isVisible())
        showWindow();
    nativeWindows_.makeKeyAndOrderFront(handleOf(*window_));
}

QRect ClipboardPanelController::geometry() const
{
    return nextGeometry_.value_or(window_->geometry());
}

Rect ClipboardPanelController::frame() const
{
    return screenSpace::toSeam(geometry());
}

void ClipboardPanelController::setContentSize(Size size)
{
    // The top edge stays where it is.
    setGeometry({geometry().topLeft(), QSize(qRound(size.width), qRound(size.height))});
}

void ClipboardPanelController::setFrameOrigin(Point origin)
{
    setGeometry(screenSpace::toToolkit({origin, frame().size}));
}

void ClipboardPanelController::setGeometry(const QRect& geometry)
{
    const bool isWaiting = nextGeometry_.has_value();
    nextGeometry_ = geometry;
    if (!window_->isVisible())
        applyGeometry();
    else if (!isWaiting)
        scheduleGeometry();
}

void ClipboardPanelController::scheduleGeometry()
{
    QMetaObject::invokeMethod(
        this, [this] { applyGeometry(); }, Qt::QueuedConnection);
}

void ClipboardPanelController::applyGeometry()
{
    // A window manager that is still placing the window would put it back to where it was shown.
    if (window_->isVisible() && !window_->windowHandle()->isExposed())
        return;
    const auto geometry = std::exchange(nextGeometry_, std::nullopt);
    if (!geometry)
        return;
    // The toolkit would notice another screen, and with it another scale, only on a later turn.
    if (QScreen* screen = QGuiApplication::screenAt(geometry->center()))
        window_->setScreen(screen);
    if (window_->isVisible())
        backdrop_.windowWillChange(*geometry);
    window_->setGeometry(*geometry);
    if (window_->isVisible())
        backdrop_.fit();
}

bool ClipboardPanelController::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::Expose)
        return false;
    if (nextGeometry_)
        scheduleGeometry();
    if (window_->isVisible())
        backdrop_.fit();
    return false;
}

void ClipboardPanelController::activityDidChange()
{
    if (!application_.isActive())
        close();
}

} // namespace tessel
