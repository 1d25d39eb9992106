#pragma once

#import <AppKit/AppKit.h>

/// The window of the history panel: borderless, and yet able to take the keyboard focus. It never becomes the
/// main window.
@interface ClipboardPanelWindow : NSPanel
@end
