#import "AppKitWorkspace.h"

#import <AppKit/AppKit.h>

#import "Text.h"

namespace tessel {

namespace {

class AppKitRunningApplication final : public RunningApplication {
public:
    explicit AppKitRunningApplication(NSRunningApplication* application)
        : application_(application)
    {}

    bool activate(ActivationOptions options) override
    {
        return [application_ activateWithOptions:static_cast<NSApplicationActivationOptions>(options)];
    }

    ProcessIdentifier processIdentifier() const override
    {
        return ProcessIdentifier{application_.processIdentifier};
    }

private:
    NSRunningApplication* application_;
};

} // namespace

std::shared_ptr<RunningApplication> AppKitWorkspace::frontmostApplication()
{
    NSRunningApplication* const application = NSWorkspace.sharedWorkspace.frontmostApplication;
    return application != nil ? std::make_shared<AppKitRunningApplication>(application) : nullptr;
}

void AppKitWorkspace::openURL(std::string_view url)
{
    NSString* const address = makeString(url);
    if (address == nil)
        return;
    NSURL* const parsed = [NSURL URLWithString:address];
    if (parsed != nil)
        [NSWorkspace.sharedWorkspace openURL:parsed];
}

} // namespace tessel
