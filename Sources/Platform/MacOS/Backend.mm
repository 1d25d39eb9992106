#import "Backend.h"

#include <sys/resource.h>

#include <cstdlib>
#include <utility>

#include <CoreGraphics/CoreGraphics.h>

#include "AppKitAppearance.h"
#include "AppKitNativeWindows.h"
#include "AppKitStatusItem.h"
#include "AppKitWindowHost.h"
#include "CoreFoundationOwner.h"
#include "SoleInstance.h"
#include "SystemPlatform.h"
#include "UserDefaultsStore.h"

namespace tessel {

namespace {

constexpr std::string_view rememberedStateDomain = "org.tesselclipboard.TesselClipboard.state";

} // namespace

/// Declared in the order in which they are made.
struct Backend::Parts {
    explicit Parts(Rules rules)
        : platform(makeSystemPlatform(std::move(rules.imageFingerprint)))
    {}

    Platform platform;
    AppKitAppearance appearance;
    AppKitNativeWindows nativeWindows;
    AppKitWindowHost windowHost;
    AppKitStatusItem statusItem;
    UserDefaultsStore rememberedState{rememberedStateDomain};
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
    return parts_->nativeWindows;
}

WindowHost* Backend::windowHost()
{
    return &parts_->windowHost;
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

void Backend::noteStartupID(std::string_view) {}

LastDuty Backend::lastDuty() const
{
    return
        [queue = parts_->platform.mainQueue](std::function<void()> done) { queue->async(std::move(done)); };
}

std::unique_ptr<RemoteControl> makeRemoteControl()
{
    return std::make_unique<SoleInstance>();
}

std::string takeStartupID()
{
    return {};
}

void keepMemoryToOurselves()
{
    rlimit limit = {};
    if (getrlimit(RLIMIT_CORE, &limit) != 0)
        return;
    limit.rlim_cur = 0;
    setrlimit(RLIMIT_CORE, &limit);
}

UpdateSource installedUpdateSource()
{
    return {};
}

bool displayIsAvailable()
{
    // Whoever asks the toolkit to run without a window system gets what they ask for.
    if (std::getenv("QT_QPA_PLATFORM") != nullptr)
        return true;
    return CoreFoundationOwner<CFDictionaryRef>(CGSessionCopyCurrentDictionary()).get() != nullptr;
}

} // namespace tessel
