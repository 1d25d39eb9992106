#include "Backend.h"

#include <QtCore/QtGlobal>
#include <xcb/xcb.h>

#include <array>
#include <utility>

#include "Desktop/AccessibilityStatus.h"
#include "Desktop/AutostartLoginItem.h"
#include "Desktop/CoreDumps.h"
#include "Desktop/DesktopAppearance.h"
#include "Desktop/JSONDefaultsStore.h"
#include "Desktop/OpenSSLDigest.h"
#include "Desktop/QtMainQueue.h"
#include "Desktop/SessionBusControl.h"
#include "Desktop/SessionEnd.h"
#include "Desktop/StatusNotifier/StatusNotifierItem.h"
#include "Desktop/SystemClock.h"
#include "Desktop/TerminationSignals.h"
#include "StatusItemWithFallback.h"
#include "X11/Selections/X11Pasteboard.h"
#include "X11/StartupNotification.h"
#include "X11/TrayStatusItem.h"
#include "X11/X11Room.h"

namespace tessel {

namespace {

/// Of the Startup Notification protocol, and of its successor, with which some launchers say the same.
constexpr std::array startupIDVariables = {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"};

std::shared_ptr<X11Pasteboard> makePasteboard(const std::shared_ptr<QtMainQueue>& queue,
                                              const std::shared_ptr<Digest>& digest, Backend::Rules& rules)
{
    return std::make_shared<X11Pasteboard>(SelectionsEnvironment{
        .postToMain = [queue](std::function<void()> work) { queue->post(std::move(work)); },
        .fingerprintImage = [digest, fingerprint = std::move(rules.imageFingerprint)](
                                const PlatformImage& image) { return fingerprint(image, *digest); },
    });
}

} // namespace

/// Declared in the order in which they are made.
struct Backend::Parts {
    explicit Parts(Rules rules)
        : queue(std::make_shared<QtMainQueue>())
        , digest(std::make_shared<OpenSSLDigest>())
        , pasteboard(makePasteboard(queue, digest, rules))
        , x11(makeX11Room({
              .showTrustPrompt = std::move(rules.showTrustPrompt),
              .offerPrimary = [pasteboard = pasteboard] { return pasteboard->offerPrimary(); },
              .whenAvailable =
                  [pasteboard = pasteboard](std::function<void()> done) {
                      pasteboard->whenAvailable(std::move(done));
                  },
          }))
        , platform({
              .pasteboard = pasteboard,
              .digest = digest,
              .defaults = std::make_shared<JSONDefaultsStore>(JSONDefaultsStore::standardPath()),
              .hotKeyCenter = x11.hotKeyCenter,
              .workspace = x11.workspace,
              .accessibilityTrust = x11.accessibilityTrust,
              .keyStrokes = x11.keyStrokes,
              .eventMonitors = x11.eventMonitors,
              .screens = x11.screens,
              .mainQueue = queue,
              .clock = std::make_shared<SystemClock>(),
              .application = x11.application,
              .loginItem = std::make_shared<AutostartLoginItem>(AutostartLoginItem::standardSurroundings()),
              .makeUpdater = {},
          })
        , terminationSignals([application = x11.application] { application->terminate(); })
        , sessionEnd([application = x11.application] { application->terminate(); })
    {}

    AccessibilityStatus accessibilityStatus;
    DesktopAppearance appearance;
    std::shared_ptr<QtMainQueue> queue;
    std::shared_ptr<Digest> digest;
    std::shared_ptr<X11Pasteboard> pasteboard;
    X11Room x11;
    Platform platform;
    StatusNotifierItem notifierItem{{
        .bus = QDBusConnection::sessionBus(),
        .appearance = appearance,
        .pointOfPixel = X11Screens::pointOfPixel,
        .userDidAct = [userTime = x11.userTime] { userTime->noteStartupIdentifier({}); },
    }};
    StatusItemWithFallback statusItem{
        notifierItem, [this] { return std::make_unique<TrayStatusItem>(x11.connection, x11.userTime); },
        *queue};
    JSONDefaultsStore rememberedState{JSONDefaultsStore::statePath()};
    TerminationSignals terminationSignals;
    SessionEnd sessionEnd;
};

Backend::Backend(Rules rules)
    : parts_(std::make_unique<Parts>(std::move(rules)))
{}

Backend::~Backend() = default;

const Platform& Backend::platform() const
{
    return parts_->platform;
}

NativeWindows& Backend::nativeWindows()
{
    return *parts_->x11.nativeWindows;
}

Appearance& Backend::appearance()
{
    return parts_->appearance;
}

StatusItem& Backend::statusItem()
{
    return parts_->statusItem;
}

DefaultsStore& Backend::rememberedState()
{
    return parts_->rememberedState;
}

void Backend::noteStartupID(std::string_view startupID)
{
    parts_->x11.userTime->noteStartupIdentifier(startupID);
    completeStartup(*parts_->x11.connection, startupID);
}

bool Backend::isEnding() const
{
    return parts_->x11.application->isEnding();
}

LastDuty Backend::lastDuty() const
{
    return [pasteboard = parts_->pasteboard](std::function<void()> done) {
        pasteboard->handOn(std::move(done));
    };
}

std::unique_ptr<RemoteControl> makeRemoteControl()
{
    return std::make_unique<SessionBusControl>();
}

std::string takeStartupID()
{
    std::string startupID;
    for (const char* variable : startupIDVariables) {
        if (startupID.empty())
            startupID = qgetenv(variable).toStdString();
        qunsetenv(variable);
    }
    return startupID;
}

void keepMemoryToOurselves()
{
    forbidCoreDumps();
}

bool displayIsAvailable()
{
    // Whoever asks the toolkit to run without a window system gets what they ask for.
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return true;
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isConnected;
}

} // namespace tessel
