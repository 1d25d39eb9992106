#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

#include <vector>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#include "Runtime/Runtime.h"
#include "Support/System.h"

using namespace tessel;
using namespace tessel::test;

CALayerCornerCurve const kCACornerCurveContinuous = @"continuous";

@interface NSView () {
@public
    std::vector<NSView*> subviews_;
    NSWindow* window_; ///< Outlives the view.
}
@end

@interface NSViewController () {
@public
    NSView* view_;
}
@end

@implementation NSResponder
@end

@implementation NSView

@dynamic frame, autoresizingMask, wantsLayer;

- (instancetype)initWithFrame:(NSRect)frame
{
    self = [super init];
    return Reply(message(objc::className(objc::classOf((__bridge void*)self)), "initWithFrame:", frame))
        .initialized(self);
}

- (NSWindow*)window
{
    window_ = Reply(message(self, "window")).object([NSWindow class]);
    return window_;
}

- (void)setFrame:(NSRect)frame
{
    Reply(message(self, "setFrame:", frame)).nothing();
}

- (void)setAutoresizingMask:(NSAutoresizingMaskOptions)mask
{
    Reply(message(self, "setAutoresizingMask:", mask)).nothing();
}

- (void)addSubview:(NSView*)view
{
    Reply(message(self, "addSubview:", view)).nothing();
    subviews_.push_back(view);
}

- (void)setWantsLayer:(BOOL)wantsLayer
{
    Reply(message(self, "setWantsLayer:", wantsLayer)).nothing();
}

- (CALayer*)layer
{
    return Reply(message(self, "layer")).object([CALayer class]);
}

- (void)setLayer:(CALayer*)layer
{
    Reply(message(self, "setLayer:", layer)).nothing();
}

@end

@implementation CALayer

@dynamic cornerRadius, cornerCurve, masksToBounds;

- (void)setCornerRadius:(CGFloat)radius
{
    Reply(message(self, "setCornerRadius:", radius)).nothing();
}

- (void)setCornerCurve:(CALayerCornerCurve)curve
{
    Reply(message(self, "setCornerCurve:", curve)).nothing();
}

- (void)setMasksToBounds:(BOOL)masks
{
    Reply(message(self, "setMasksToBounds:", masks)).nothing();
}

@end

@implementation NSVisualEffectView

@dynamic material, blendingMode, state;

- (void)setMaterial:(NSVisualEffectMaterial)material
{
    Reply(message(self, "setMaterial:", static_cast<NSInteger>(material))).nothing();
}

- (void)setBlendingMode:(NSVisualEffectBlendingMode)blendingMode
{
    Reply(message(self, "setBlendingMode:", static_cast<NSInteger>(blendingMode))).nothing();
}

- (void)setState:(NSVisualEffectState)state
{
    Reply(message(self, "setState:", static_cast<NSInteger>(state))).nothing();
}

@end

@implementation NSViewController

@dynamic view;

- (instancetype)init
{
    return Reply(message("NSViewController", "init")).initialized([super init]);
}

- (void)setView:(NSView*)view
{
    Reply(message(self, "setView:", view)).nothing();
    view_ = view;
}

@end

namespace tessel::test {

ToolkitView::ToolkitView(const std::string& name)
    : view_((__bridge_retained void*)[NSView alloc])
{
    objc::setName(view_, name);
}

ToolkitView::~ToolkitView()
{
    objc_release(view_);
}

} // namespace tessel::test
