#pragma once

#include <cstdint>
#include <string>

#include "NativeWindows.h"

// What the system does of its own accord, for a test to make it happen.

namespace tessel::test {

/// A hot key is pressed: the handler that is installed for such events gets one, which carries this
/// identifier. Returns the status of the handler; -9874 (not handled) where there is none.
std::int32_t pressHotKey(std::uint32_t signature, std::uint32_t id);
/// The same without an event.
std::int32_t callHotKeyHandlerWithoutEvent();
/// The same without user data.
std::int32_t callHotKeyHandlerWithoutUserData();

/// A key-down event of that name reaches the application. False: a monitor has consumed it.
bool deliverKeyDown(const std::string& event);

/// Runs the block on the main queue whose turn is next: the oldest, and those that were delayed after the
/// others, by the times that the test has answered. Fails the test when there is none.
void runNextBlock();
/// How many blocks wait on the main queue.
std::size_t waitingBlocks();
/// The interval of a scheduled timer has passed. Fails the test when it is not scheduled.
void fireTimer(const std::string& timer);
/// The user chooses a row of the status item's menu. Fails the test when it cannot be chosen.
void chooseMenuItem(const std::string& title);
/// A window's class lets it have the keyboard, or be the main window. Fails the test when there is no such
/// window.
bool canBecomeKey(const std::string& window);
bool canBecomeMain(const std::string& window);
/// The value under a key path changes for its observer. Fails the test when nobody observes it.
void changeObservedValue(const std::string& keyPath);
/// A notification comes for an observer. Fails the test when it does not observe.
void notify(const std::string& observer);

/// A native view that the view toolkit has made.
class ToolkitView {
public:
    explicit ToolkitView(const std::string& name);
    ~ToolkitView();
    ToolkitView(const ToolkitView&) = delete;
    ToolkitView& operator=(const ToolkitView&) = delete;

    NativeWindowHandle handle() const { return NativeWindowHandle{reinterpret_cast<std::uintptr_t>(view_)}; }

private:
    void* view_;
};

} // namespace tessel::test
