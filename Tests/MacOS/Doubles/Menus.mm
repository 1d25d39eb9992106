#import <AppKit/AppKit.h>

#include <vector>

#include <gtest/gtest.h>

#import "Doubles/Message.h"
#import "Doubles/Reply.h"
#import "Doubles/Values.h"
#include "Runtime/Runtime.h"
#include "Support/System.h"

using namespace tessel;
using namespace tessel::test;

NSFontTextStyle const NSFontTextStyleHeadline = @"NSFontTextStyleHeadline";
NSFontTextStyle const NSFontTextStyleCaption1 = @"NSFontTextStyleCaption1";
NSAttributedStringKey const NSFontAttributeName = @"NSFont";
NSAttributedStringKey const NSForegroundColorAttributeName = @"NSColor";

@interface NSMenuItem () {
@public
    std::string title_;
    SEL action_;
    __weak id target_;
}
@end

@interface NSMenu () {
@public
    std::vector<NSMenuItem*> items_;
}
@end

@interface NSStatusItem () {
@public
    NSMenu* menu_;
}
@end

namespace {

/// The menu bar keeps its items until they are removed.
std::vector<NSStatusItem*>& statusItems()
{
    static auto* shown = new std::vector<NSStatusItem*>;
    return *shown;
}

NSMenuItem* findMenuItem(const std::string& title)
{
    for (NSStatusItem* statusItem : statusItems()) {
        for (NSMenuItem* item : statusItem->menu_->items_) {
            if (item->title_ == title)
                return item;
        }
    }
    return nil;
}

} // namespace

@implementation NSFont

+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style
                             options:(NSDictionary<NSFontTextStyleOptionKey, id>*)options
{
    return Reply(message("NSFont", "preferredFontForTextStyle:", style, "options:", options)).object(self);
}

@end

@implementation NSAttributedString

- (instancetype)initWithString:(NSString*)string
                    attributes:(NSDictionary<NSAttributedStringKey, id>*)attributes
{
    return Reply(message(objc::className(objc::classOf((__bridge void*)self)), "initWithString:", string,
                         "attributes:", attributes))
        .initialized(self);
}

@end

@implementation NSMutableAttributedString

- (void)appendAttributedString:(NSAttributedString*)string
{
    Reply(message(self, "appendAttributedString:", string)).nothing();
}

@end

@implementation NSMenuItem

@dynamic attributedTitle, enabled, target;

+ (NSMenuItem*)separatorItem
{
    return Reply(message("NSMenuItem", "separatorItem")).object(self);
}

- (instancetype)initWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)keyEquivalent
{
    title_ = textOf(title);
    action_ = action;
    const Word selector = {action != nullptr ? objc::selectorName(action) : "NULL"};
    return Reply(message("NSMenuItem", "initWithTitle:", title, "action:", selector,
                         "keyEquivalent:", keyEquivalent))
        .initialized(self);
}

- (void)setAttributedTitle:(NSAttributedString*)title
{
    Reply(message(self, "setAttributedTitle:", title)).nothing();
}

- (void)setEnabled:(BOOL)enabled
{
    Reply(message(self, "setEnabled:", enabled)).nothing();
}

- (void)setTarget:(id)target
{
    Reply(message(self, "setTarget:", Word{target != nil ? "target" : "nil"})).nothing();
    target_ = target;
}

@end

@implementation NSMenu

@dynamic autoenablesItems;

- (instancetype)init
{
    return Reply(message("NSMenu", "init")).initialized([super init]);
}

- (void)setAutoenablesItems:(BOOL)enables
{
    Reply(message(self, "setAutoenablesItems:", enables)).nothing();
}

- (void)addItem:(NSMenuItem*)item
{
    Reply(message(self, "addItem:", item)).nothing();
    items_.push_back(item);
}

- (void)removeAllItems
{
    Reply(message(self, "removeAllItems")).nothing();
    items_.clear();
}

@end

@implementation NSStatusBarButton

@dynamic image, title;

- (void)setImage:(NSImage*)image
{
    Reply(message(self, "setImage:", image)).nothing();
}

- (void)setTitle:(NSString*)title
{
    Reply(message(self, "setTitle:", title)).nothing();
}

@end

@implementation NSStatusItem

@dynamic menu, visible;

- (NSStatusBarButton*)button
{
    return Reply(message(self, "button")).object([NSStatusBarButton class]);
}

- (void)setMenu:(NSMenu*)menu
{
    Reply(message(self, "setMenu:", menu)).nothing();
    menu_ = menu;
}

- (BOOL)isVisible
{
    return Reply(message(self, "isVisible")).boolean();
}

@end

@implementation NSStatusBar

+ (NSStatusBar*)systemStatusBar
{
    return Reply(message("NSStatusBar", "systemStatusBar")).object(self);
}

- (NSStatusItem*)statusItemWithLength:(CGFloat)length
{
    NSStatusItem* item = Reply(message(self, "statusItemWithLength:", length)).object([NSStatusItem class]);
    if (item != nil)
        statusItems().push_back(item);
    return item;
}

- (void)removeStatusItem:(NSStatusItem*)item
{
    Reply(message(self, "removeStatusItem:", item)).nothing();
    if (std::erase(statusItems(), item) != 1)
        ADD_FAILURE() << "Removed was an item that is not in the menu bar";
}

@end

namespace tessel::test {

void chooseMenuItem(const std::string& title)
{
    const objc::AutoreleasePool turn;
    NSMenuItem* item = findMenuItem(title);
    if (item == nil || item->target_ == nil) {
        ADD_FAILURE() << "Nothing in the menu can be chosen that is called " << title;
        return;
    }
    // Nobody keeps the target for the length of the message.
    void* const target = (__bridge void*)item->target_;
    objc::send(target, objc::selectorName(item->action_), (__bridge void*)item);
}

} // namespace tessel::test
