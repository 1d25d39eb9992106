#include "Fakes/FakeDesktop.h"

#include <stdexcept>

namespace tessel::test {

namespace {

template <class Fake, class Controller>
Fake* fake(const std::unique_ptr<Controller>& controller)
{
    return static_cast<Fake*>(controller.get());
}

} // namespace

FakeDesktop::FakeDesktop()
{
    const Screen screen = {{{0, 0}, {1440, 900}}, {{0, 70}, {1440, 805}}};
    screens->all = {screen};
    screens->main = screen;
    screens->pointer = {400, 600};
    workspace->frontmost = editor;
}

AppState& FakeDesktop::launch()
{
    launchWithoutTurn();
    queue->runPending();
    return *state;
}

AppState& FakeDesktop::launchWithoutTurn()
{
    quit();
    state = AppState::create(platform(), windowFactory());
    return *state;
}

Platform FakeDesktop::platform() const
{
    return {
        .pasteboard = pasteboard,
        .digest = digest,
        .defaults = defaults,
        .hotKeyCenter = hotKeyCenter,
        .workspace = workspace,
        .accessibilityTrust = trust,
        .keyStrokes = keyStrokes,
        .eventMonitors = eventMonitors,
        .screens = screens,
        .mainQueue = queue,
        .clock = clock,
        .application = application,
        .loginItem = loginItem,
        .makeUpdater =
            [log = log] {
                log->effect("updater.make");
                return std::make_unique<FakeUpdaterController>(log);
            },
    };
}

WindowFactory FakeDesktop::windowFactory() const
{
    const auto window = [log = log](std::string name) {
        return [log, name](AppState&) {
            log->effect(name + ".make");
            return std::make_unique<FakeWindowController>(log, name);
        };
    };
    return {
        .panel =
            [log = log](AppState&, const PanelDescription& description) {
                log->effect("panel.make");
                return std::make_unique<FakePanelController>(log, description);
            },
        .settings = window("settings"),
        .about = window("about"),
        .onboarding = window("onboarding"),
    };
}

void FakeDesktop::copy(std::string_view text)
{
    pasteboard->copyFromElsewhere(std::string(text));
    tick();
}

void FakeDesktop::copy(SharedImage image)
{
    pasteboard->copyFromElsewhere(std::move(image));
    tick();
}

void FakeDesktop::pressHotKey(HotKeyPreset preset)
{
    hotKeyCenter->press(VirtualKey::v, carbonModifiers(preset));
    queue->runPending();
}

std::vector<std::string> FakeDesktop::texts() const
{
    std::vector<std::string> texts;
    for (const ClipboardItem& item : *state->history)
        texts.push_back(item.isImage() ? "[image]" : *std::get<SharedText>(item.content));
    return texts;
}

ClipboardItem FakeDesktop::item(std::string_view text) const
{
    for (const ClipboardItem& item : *state->history) {
        if (!item.isImage() && *std::get<SharedText>(item.content) == text)
            return item;
    }
    throw std::logic_error("No entry has that text.");
}

FakePanelController* FakeDesktop::panel() const
{
    return fake<FakePanelController>(state->panelController);
}

FakeWindowController* FakeDesktop::settings() const
{
    return fake<FakeWindowController>(state->settingsController);
}

FakeWindowController* FakeDesktop::about() const
{
    return fake<FakeWindowController>(state->aboutController);
}

FakeWindowController* FakeDesktop::onboarding() const
{
    return fake<FakeWindowController>(state->onboardingController);
}

} // namespace tessel::test
