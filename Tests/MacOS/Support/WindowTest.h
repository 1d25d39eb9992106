#pragma once

#include <memory>
#include <string>

#include "Support/MacOSTest.h"
#include "Support/System.h"
#include "WindowController.h"

namespace tessel::test {

/// What every window of the program's own has in common.
class WindowTest : public MacOSTest {
protected:
    /// The content fills a view of that size, as `{460, 420}`, which follows the window's width and height
    /// (2 + 16) and belongs to a view controller.
    void expectContentViewController(const std::string& size)
    {
        expectContainer(size);
        expectFilledBy("content", size);
        expectViewController();
    }

    void expectContainer(const std::string& size)
    {
        expectCall("[NSView initWithFrame:{{0, 0}, " + size + "}]", Object{"container"});
    }

    void expectFilledBy(const std::string& view, const std::string& size)
    {
        expectCall("[" + view + " setFrame:{{0, 0}, " + size + "}]");
        expectCall("[" + view + " setAutoresizingMask:18]");
        expectCall("[container addSubview:" + view + "]");
    }

    void expectViewController()
    {
        expectCall("[NSViewController init]", Object{"hosting"});
        expectCall("[hosting setView:container]");
    }

    /// A borderless window of 460 by 420 points, buffered and not deferred, and its configuration in the one
    /// order: floating, level 3, on every space and beside full-screen windows (0x1 + 0x100), with a shadow,
    /// moved by its background, not opaque, of no colour, without a shadow, and with its content.
    void expectPanel()
    {
        expectCall("[ClipboardPanelWindow initWithContentRect:{{0, 0}, {460, 420}} styleMask:0 backing:2 "
                   "defer:NO]",
                   Object{"panel"});
        expectCall("[panel setFloatingPanel:YES]");
        expectCall("[panel setLevel:3]");
        expectCall("[panel setCollectionBehavior:0x101]");
        expectCall("[panel setHasShadow:YES]");
        expectCall("[panel setMovableByWindowBackground:YES]");
        expectCall("[panel setOpaque:NO]");
        expectCall("[NSColor clearColor]", Object{"clear"});
        expectCall("[panel setBackgroundColor:clear]");
        expectCall("[panel setHasShadow:NO]");
        expectCall("[panel setContentViewController:hosting]");
        expectCall("[NSWindowController initWithWindow:panel]", Object{"controller"});
    }

    /// Nothing but a full-size content view (32768), buffered and not deferred.
    void expectChromelessWindow(const std::string& size)
    {
        expectCall("[NSWindow initWithContentRect:{{0, 0}, " + size + "} styleMask:32768 backing:2 defer:NO]",
                   Object{"window"});
        expectCall("[window setTitleVisibility:1]"); // Hidden.
        expectCall("[window setTitlebarAppearsTransparent:YES]");
        expectCall("[window setMovableByWindowBackground:YES]");
        expectCall("[window setOpaque:NO]");
        expectCall("[NSColor clearColor]", Object{"clear"});
        expectCall("[window setBackgroundColor:clear]");
        expectCall("[window setHasShadow:YES]");
        expectCall("[window setReleasedWhenClosed:NO]");
        expectCall("[window center]");
        expectContentViewController(size);
        expectCall("[window setContentViewController:hosting]");
        expectCall("[NSWindowController initWithWindow:window]", Object{"controller"});
    }

    /// A title bar and a close button (1 + 2), buffered and not deferred.
    void expectTitledWindow(const std::string& title)
    {
        expectContentViewController("{430, 250}");
        expectCall("[NSWindow initWithContentRect:{{0, 0}, {430, 250}} styleMask:3 backing:2 defer:NO]",
                   Object{"window"});
        expectCall("[window setTitle:@\"" + title + "\"]");
        expectCall("[window setReleasedWhenClosed:NO]");
        expectCall("[window center]");
        expectCall("[window setContentViewController:hosting]");
        expectCall("[NSWindowController initWithWindow:window]", Object{"controller"});
    }

    void expectClose()
    {
        expectCall("[controller close]");
        expectCall("content.windowDidClose()");
    }

    /// The controller goes, and on the next turn its window with the content.
    template <class Controller>
    void retire(std::unique_ptr<Controller>& controller)
    {
        expectCall("dispatch_async(main queue, ^)");
        controller.reset();
        endTurn();
        expectNoMore();
        expectCall("content.end()");
        runNextBlock();
        expectNoMore();
    }
};

} // namespace tessel::test
