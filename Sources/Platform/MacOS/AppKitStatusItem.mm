#import "AppKitStatusItem.h"

#include <utility>

#import <AppKit/AppKit.h>

#import "Text.h"

/// What a row of the menu sends its action to.
@interface TesselMenuRow : NSObject
- (instancetype)initWithWork:(std::function<void()>)work;
- (void)choose:(id)sender;
@end

@implementation TesselMenuRow {
    std::function<void()> work_;
}

- (instancetype)initWithWork:(std::function<void()>)work
{
    self = [super init];
    if (self != nil)
        work_ = std::move(work);
    return self;
}

- (void)choose:(id)sender
{
    // The work may set another menu, which frees this row.
    const auto work = work_;
    work();
}

@end

namespace tessel {

namespace {

/// Our own texts, which are UTF-8.
NSString* title(const std::string& text)
{
    NSString* const string = makeString(text);
    return string != nil ? string : @"";
}

/// Two lines: the title as a headline, the caption smaller and dimmed.
NSAttributedString* headerText(const StatusMenuRow& row)
{
    NSFont* const headline = [NSFont preferredFontForTextStyle:NSFontTextStyleHeadline options:@{}];
    NSMutableAttributedString* const text =
        [[NSMutableAttributedString alloc] initWithString:title(row.title + "\n")
                                               attributes:@{NSFontAttributeName : headline}];
    NSFont* const caption = [NSFont preferredFontForTextStyle:NSFontTextStyleCaption1 options:@{}];
    NSDictionary* const dimmed =
        @{NSFontAttributeName : caption, NSForegroundColorAttributeName : NSColor.secondaryLabelColor};
    [text appendAttributedString:[[NSAttributedString alloc] initWithString:title(row.caption)
                                                                 attributes:dimmed]];
    return text;
}

NSMenuItem* makeItem(const StatusMenuRow& row, SEL action)
{
    return [[NSMenuItem alloc] initWithTitle:title(row.title) action:action keyEquivalent:@""];
}

NSMenuItem* makeHeader(const StatusMenuRow& row)
{
    NSMenuItem* const item = makeItem(row, nullptr);
    item.attributedTitle = headerText(row);
    item.enabled = NO;
    return item;
}

NSMenuItem* makeAction(const StatusMenuRow& row, TesselMenuRow* target)
{
    NSMenuItem* const item = makeItem(row, @selector(choose:));
    item.target = target;
    return item;
}

} // namespace

struct AppKitStatusItem::Native {
    NSMenu* menu;
    NSStatusItem* item;
    std::vector<TesselMenuRow*> targets; ///< Menu items do not own their targets.

    NSMenuItem* makeRow(StatusMenuRow& row)
    {
        switch (row.kind) {
        case StatusMenuRow::Kind::header:
            return makeHeader(row);
        case StatusMenuRow::Kind::separator:
            return [NSMenuItem separatorItem];
        case StatusMenuRow::Kind::action:
            break;
        }
        targets.push_back([[TesselMenuRow alloc] initWithWork:std::move(row.chosen)]);
        return makeAction(row, targets.back());
    }
};

AppKitStatusItem::AppKitStatusItem()
    : native_(new Native{[[NSMenu alloc] init], nil, {}})
{
    native_->menu.autoenablesItems = NO;
}

AppKitStatusItem::~AppKitStatusItem()
{
    if (native_->item != nil)
        [NSStatusBar.systemStatusBar removeStatusItem:native_->item];
}

void AppKitStatusItem::show(StatusItemDescription description)
{
    NSString* const name = title(description.title);
    native_->item = [NSStatusBar.systemStatusBar statusItemWithLength:NSVariableStatusItemLength];
    NSImage* const symbol = [NSImage imageWithSystemSymbolName:title(description.symbolName)
                                      accessibilityDescription:name];
    NSStatusBarButton* const button = native_->item.button;
    if (symbol != nil)
        button.image = symbol;
    else
        button.title = name;
    native_->item.menu = native_->menu;
}

void AppKitStatusItem::setMenu(std::vector<StatusMenuRow> rows)
{
    // Until the menu no longer has the items that point to them.
    const auto former = std::exchange(native_->targets, {});
    [native_->menu removeAllItems];
    for (StatusMenuRow& row : rows)
        [native_->menu addItem:native_->makeRow(row)];
}

bool AppKitStatusItem::isShown() const
{
    return native_->item.visible;
}

Token AppKitStatusItem::observe(std::function<void()>)
{
    return Token();
}

} // namespace tessel
