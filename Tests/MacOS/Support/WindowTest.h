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
