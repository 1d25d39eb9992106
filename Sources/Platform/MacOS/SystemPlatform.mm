#import "SystemPlatform.h"

#include <memory>
#include <utility>

#include "AXAccessibilityTrust.h"
#include "AppKitApplication.h"
#include "AppKitEventMonitors.h"
#include "AppKitPasteboard.h"
#include "AppKitScreens.h"
#include "AppKitWorkspace.h"
#include "CarbonHotKeyCenter.h"
#include "CommonCryptoDigest.h"
#include "CoreGraphicsKeyStrokes.h"
#include "DispatchMainQueue.h"
#include "FoundationClock.h"
#include "ServiceManagementLoginItem.h"
#include "SystemUpdater.h"
#include "UserDefaultsStore.h"

namespace tessel {

Platform makeSystemPlatform(std::function<std::string(const PlatformImage&, const Digest&)> imageFingerprint)
{
    const auto digest = std::make_shared<CommonCryptoDigest>();
    return {
        .pasteboard = std::make_shared<AppKitPasteboard>(
            [digest, fingerprint = std::move(imageFingerprint)](const PlatformImage& image) {
                return fingerprint(image, *digest);
            }),
        .digest = digest,
        .defaults = std::make_shared<UserDefaultsStore>(),
        .hotKeyCenter = std::make_shared<CarbonHotKeyCenter>(),
        .workspace = std::make_shared<AppKitWorkspace>(),
        .accessibilityTrust = std::make_shared<AXAccessibilityTrust>(),
        .keyStrokes = std::make_shared<CoreGraphicsKeyStrokes>(),
        .eventMonitors = std::make_shared<AppKitEventMonitors>(),
        .screens = std::make_shared<AppKitScreens>(),
        .mainQueue = std::make_shared<DispatchMainQueue>(),
        .clock = std::make_shared<FoundationClock>(),
        .application = std::make_shared<AppKitApplication>(),
        .loginItem = std::make_shared<ServiceManagementLoginItem>(),
        .makeUpdater = makeSystemUpdater,
    };
}

} // namespace tessel
