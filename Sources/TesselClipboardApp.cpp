// The composition root: the only place that knows which backend and which views are used.

#include <QtCore/QEventLoop>
#include <QtCore/QLocale>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "AppState.h"
#include "Backend.h"
#include "CommandLine.h"
#include "History/ImageFingerprint.h"
#include "MenuBar/MenuBarExtra.h"
#include "Panel/PanelFactory.h"
#include "Support/Translations.h"
#include "Updates/FeedUpdaterController.h"
#include "Updates/UpdateWindowDriver.h"
#include "Windows/SecondaryWindows.h"
#include "Windows/TrayNotice.h"
#include "Windows/TrayNoticeView.h"
#include "Windows/TrustPrompt.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

int complain(std::string_view text)
{
    std::fprintf(stderr, "Tessel Clipboard %.*s\n", static_cast<int>(text.size()), text.data());
    return EXIT_FAILURE;
}

/// The program's entry: owns the one `AppState` for the life of the process.
class TesselClipboardApp {
public:
    explicit TesselClipboardApp(std::string_view startupID)
        : backend_({.imageFingerprint = imageFingerprint, .showTrustPrompt = trustPrompt()})
        , windowTheme_(backend_.appearance())
        , updateDriver_({windowTheme_, backend_.nativeWindows(), *backend_.platform().screens,
                         *backend_.platform().application})
    {
        backend_.noteStartupID(startupID);
        Platform platform = backend_.platform();
        if (!platform.makeUpdater)
            platform.makeUpdater = [this] { return makeUpdater(); };
        appState_ = AppState::create(std::move(platform), windowFactory());
        menuBarExtra_.emplace(*appState_, backend_.statusItem(), windowTheme_, *backend_.platform().screens);
        trayNotice_.emplace(trayNoticeNeeds());
    }

    Obedience obey(const RemoteRequest& request)
    {
        if (backend_.isEnding())
            return request.command == RemoteCommand::quit ? Obedience::obeyed : Obedience::isEnding;
        backend_.noteStartupID(request.startupID);
        switch (request.command) {
        case RemoteCommand::openHistory:
            appState_->showPanel();
            break;
        case RemoteCommand::toggleHistory:
            appState_->togglePanel();
            break;
        case RemoteCommand::clearHistory:
            appState_->clearHistory();
            break;
        case RemoteCommand::settings:
            appState_->showSettingsWindow();
            break;
        case RemoteCommand::about:
            appState_->showAboutWindow();
            break;
        case RemoteCommand::checkForUpdates:
            appState_->checkForUpdates();
            break;
        case RemoteCommand::quit:
            appState_->terminate();
            break;
        }
        return Obedience::obeyed;
    }

    LastDuty lastDuty() const { return backend_.lastDuty(); }

private:
    std::unique_ptr<UpdaterController> makeUpdater()
    {
        const Platform& platform = backend_.platform();
        return std::make_unique<FeedUpdaterController>(
            FeedUpdaterController::Needs{updateDriver_, backend_.rememberedState(), *platform.mainQueue,
                                         *platform.clock, *platform.workspace},
            installedUpdateSource(), TESSEL_VERSION);
    }

    WindowFactory windowFactory()
    {
        const Platform& platform = backend_.platform();
        WindowHost* const host = backend_.windowHost();
        const SecondaryWindowNeeds needs = {windowTheme_, backend_.nativeWindows(), *platform.screens,
                                            *platform.workspace, host};
        return {.panel = host != nullptr ? hostedPanelFactory(*host)
                                         : panelFactory(backend_.nativeWindows(), *platform.application),
                .settings = settingsFactory(needs),
                .about = aboutFactory(needs),
                .onboarding = onboardingFactory(needs)};
    }

    TrayNotice::Needs trayNoticeNeeds()
    {
        const TrayNoticeWindow window =
            trayNoticeWindow(windowTheme_, [this] { appState_->showSettingsWindow(); });
        return {.queue = backend_.platform().mainQueue,
                .remembered = backend_.rememberedState(),
                .isItemShown = [this] { return backend_.statusItem().isShown(); },
                .isAnotherWindowOpen =
                    [this] { return appState_->onboardingController || appState_->panelController; },
                .observeItem =
                    [this](std::function<void()> didChange) {
                        return backend_.statusItem().observe(std::move(didChange));
                    },
                .show = [this, show = window.show] { show(*appState_->hotKeyPreset); },
                .hide = window.hide};
    }

    Backend backend_;
    WindowTheme windowTheme_;
    UpdateWindowDriver updateDriver_;
    std::shared_ptr<AppState> appState_;
    std::optional<MenuBarExtra> menuBarExtra_;
    std::optional<TrayNotice> trayNotice_;
};

/// Asks the running program for what the command line wants. None: there is no running program, and this
/// process may go on to be it. Where nobody can tell, a second process would only be in the way of the first.
std::optional<int> passOn(RemoteControl& remote, const RemoteRequest& request)
{
    const Delivery delivery = remote.send(request);
    if (delivery == Delivery::delivered)
        return EXIT_SUCCESS;
    if (delivery == Delivery::noChannel)
        return complain("cannot be reached: there is no session bus (DBUS_SESSION_BUS_ADDRESS).");
    if (delivery == Delivery::noAnswer)
        return complain("is running, but does not answer.");
    const bool isForARunningOne =
        request.command == RemoteCommand::quit || request.command == RemoteCommand::clearHistory;
    if (isForARunningOne)
        return complain("is not running.");
    return std::nullopt;
}

/// Claims to be the one running program, or passes the request on to it. None: this process is the one.
std::optional<int> claimOrPassOn(RemoteControl& remote, const RemoteRequest& request,
                                 const RemoteControl::Handler& handler)
{
    // The other one may end between the claim and the request. A third time is no coincidence.
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const Claim claim = remote.claim(handler);
        if (claim == Claim::noChannel)
            complain("has no session bus: a second start and the options cannot reach this process.");
        if (claim != Claim::takenByAnother)
            return std::nullopt;
        if (const auto status = passOn(remote, request))
            return status;
    }
    return complain("cannot be started: it runs already, and cannot be reached.");
}

/// The clipboard's value is handed on when nothing of the program is in the way of another start any more:
/// neither its windows and grabs, nor its name. The main loop has ended; this one is no nested one.
void end(std::optional<TesselClipboardApp>& app, std::unique_ptr<RemoteControl>& remote)
{
    const LastDuty lastDuty = app->lastDuty();
    app.reset();
    remote.reset();
    QEventLoop loop;
    lastDuty([&loop] { loop.quit(); });
    loop.exec();
}

int run(int& argumentCount, char** arguments, const CommandLine& line)
{
    keepMemoryToOurselves();
    std::unique_ptr<RemoteControl> remote = makeRemoteControl();
    const RemoteRequest request = {line.command.value_or(RemoteCommand::openHistory), takeStartupID()};
    if (line.command) {
        // Reaching the running program needs no display, and is quicker without one.
        const QCoreApplication client(argumentCount, arguments);
        if (const auto status = passOn(*remote, request))
            return *status;
    }

    if (!displayIsAvailable())
        return complain("needs a desktop: there is no X server at DISPLAY.");
    QApplication::setQuitOnLastWindowClosed(false);
    const QApplication application(argumentCount, arguments);
    QApplication::setApplicationName(QStringLiteral("tessel-clipboard"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.tesselclipboard.TesselClipboard"));
    QApplication::setApplicationVersion(QStringLiteral(TESSEL_VERSION));

    const Translations translations(QLocale::system().uiLanguages());

    std::optional<TesselClipboardApp> app;
    const auto obey = [&app](const RemoteRequest& received) {
        return app ? app->obey(received) : Obedience::isEnding;
    };
    if (const auto status = claimOrPassOn(*remote, request, obey))
        return *status;

    app.emplace(request.startupID);
    if (line.command)
        app->obey(request);
    const int status = QApplication::exec();
    end(app, remote);
    return status;
}

int start(int argumentCount, char** arguments)
{
    const CommandLine line = parseCommandLine(
        {arguments + 1, static_cast<std::size_t>(argumentCount > 0 ? argumentCount - 1 : 0)});
    switch (line.purpose) {
    case CommandLine::Purpose::version:
        std::puts("Tessel Clipboard " TESSEL_VERSION);
        return EXIT_SUCCESS;
    case CommandLine::Purpose::help:
        std::fputs(helpText().data(), stdout);
        return EXIT_SUCCESS;
    case CommandLine::Purpose::invalid:
        std::fprintf(stderr, "Tessel Clipboard does not know \"%s\". Try --help.\n", line.offender.c_str());
        return EXIT_FAILURE;
    case CommandLine::Purpose::run:
        break;
    }
    return run(argumentCount, arguments, line);
}

} // namespace

} // namespace tessel

int main(int argumentCount, char** arguments)
{
    return tessel::start(argumentCount, arguments);
}
