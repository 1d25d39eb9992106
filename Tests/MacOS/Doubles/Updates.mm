#import <Sparkle/Sparkle.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"

using namespace tessel::test;

@implementation SPUStandardUpdaterController

- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id<SPUUpdaterDelegate>)updaterDelegate
                     userDriverDelegate:(id<SPUStandardUserDriverDelegate>)userDriverDelegate
{
    return Reply(message("SPUStandardUpdaterController", "initWithStartingUpdater:", startUpdater,
                         "updaterDelegate:", static_cast<id>(updaterDelegate),
                         "userDriverDelegate:", static_cast<id>(userDriverDelegate)))
        .initialized(self);
}

- (void)checkForUpdates:(id)sender
{
    Reply(message(self, "checkForUpdates:", sender)).nothing();
}

@end
