#pragma once

#include <cstdint>
#include <string>

// What the system does of its own accord, for a test to make it happen.

namespace tessel::test {

/// A hot key is pressed: each installed handler gets the event, which carries this identifier. Returns the
/// status of the handler; -9874 (not handled) where there is none.
std::int32_t pressHotKey(std::uint32_t signature, std::uint32_t id);
/// The same without an event.
std::int32_t callHotKeyHandlerWithoutEvent();
/// The same without user data.
std::int32_t callHotKeyHandlerWithoutUserData();

/// A key-down event of that name reaches the application. False: a monitor has consumed it.
bool deliverKeyDown(const std::string& event);

/// Runs the oldest block on the main queue. Fails the test when there is none.
void runNextBlock();
/// How many blocks wait on the main queue.
std::size_t waitingBlocks();
/// The interval of a scheduled timer has passed. Fails the test when it is not scheduled.
void fireTimer(const std::string& timer);
/// The user chooses a row of the status item's menu. Fails the test when it cannot be chosen.
void chooseMenuItem(const std::string& title);
/// A notification comes for an observer. Fails the test when it does not observe.
void notify(const std::string& observer);

} // namespace tessel::test
