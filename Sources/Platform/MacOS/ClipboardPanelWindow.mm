#import "ClipboardPanelWindow.h"

@implementation ClipboardPanelWindow

- (BOOL)canBecomeKeyWindow
{
    return YES;
}

- (BOOL)canBecomeMainWindow
{
    return NO;
}

@end
