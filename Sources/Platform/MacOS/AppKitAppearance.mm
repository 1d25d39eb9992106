#import "AppKitAppearance.h"

#include <utility>

#import <AppKit/AppKit.h>

/// Tells of the application's effective appearance, which has no notification.
@interface TesselAppearanceObserver : NSObject
- (instancetype)initWithWork:(std::function<void()>)work;
@end

@implementation TesselAppearanceObserver {
    std::function<void()> work_;
}

- (instancetype)initWithWork:(std::function<void()>)work
{
    self = [super init];
    if (self != nil)
        work_ = std::move(work);
    return self;
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context
{
    work_();
}

@end

namespace tessel {

namespace {

NSString* const effectiveAppearanceKey = @"effectiveAppearance";

ColorScheme colorScheme()
{
    NSAppearance* const appearance = NSApplication.sharedApplication.effectiveAppearance;
    NSAppearanceName const name =
        [appearance bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
    return [name isEqual:NSAppearanceNameDarkAqua] ? ColorScheme::dark : ColorScheme::light;
}

std::optional<SystemColor> accentColor()
{
    NSColor* const color = [NSColor.controlAccentColor colorUsingColorSpace:NSColorSpace.sRGBColorSpace];
    if (color == nil)
        return std::nullopt;
    return SystemColor{color.redComponent, color.greenComponent, color.blueComponent};
}

AppearanceSettings readSettings()
{
    return {.colorScheme = colorScheme(),
            .accentColor = accentColor(),
            .reducesMotion =
                static_cast<bool>(NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion)};
}

/// `work` by value: a block would keep a reference as it is.
Token observe(NSNotificationCenter* center, NSNotificationName name, std::function<void()> work)
{
    const id observer = [center addObserverForName:name
                                            object:nil
                                             queue:nil
                                        usingBlock:^(NSNotification*) {
                                          work();
                                        }];
    return Token([center, observer] { [center removeObserver:observer]; });
}

Token observeEffectiveAppearance(std::function<void()> work)
{
    TesselAppearanceObserver* const observer =
        [[TesselAppearanceObserver alloc] initWithWork:std::move(work)];
    NSApplication* const application = NSApplication.sharedApplication;
    [application addObserver:observer forKeyPath:effectiveAppearanceKey options:0 context:nullptr];
    return Token(
        [application, observer] { [application removeObserver:observer forKeyPath:effectiveAppearanceKey]; });
}

} // namespace

struct AppKitAppearance::Native {
    Token effectiveAppearance;
    Token systemColors;
    Token displayOptions;
};

AppKitAppearance::AppKitAppearance()
    : settings_(readSettings())
{
    const auto readAgain = [this] { this->readAgain(); };
    native_.reset(new Native{
        observeEffectiveAppearance(readAgain),
        tessel::observe(NSNotificationCenter.defaultCenter, NSSystemColorsDidChangeNotification, readAgain),
        tessel::observe(NSWorkspace.sharedWorkspace.notificationCenter,
                        NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification, readAgain)});
}

AppKitAppearance::~AppKitAppearance() = default;

void AppKitAppearance::readAgain()
{
    const AppearanceSettings settings = readSettings();
    if (std::exchange(settings_, settings) != settings)
        observers_.tell();
}

} // namespace tessel
