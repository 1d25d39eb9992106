#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "Fakes/CallLog.h"
#include "HotKeyCenter.h"

namespace tessel::test {

/// A hot key service whose keys the test presses. Dropping what was never given out fails the test.
class FakeHotKeyCenter final : public HotKeyCenter {
public:
    struct Registration {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        EventHotKeyID identifier;

        friend bool operator==(const Registration&, const Registration&) = default;
    };

    explicit FakeHotKeyCenter(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    /// As if another application owned every combination.
    bool refusesRegistrations = false;
    bool refusesHandlers = false;

    /// The registrations that stand, in the order in which they were made.
    std::vector<Registration> registrations() const;
    std::size_t handlerCount() const { return handlers_.size(); }

    /// The user presses a combination. None: nobody has registered it, or nobody handles it; it goes to the
    /// focused application. Else the handler's status.
    std::optional<std::int32_t> press(std::uint32_t keyCode, std::uint32_t modifiers);
    /// An event with any direct object, or none, reaches the installed handlers.
    std::optional<std::int32_t> deliver(std::optional<EventHotKeyID> directObject);

    std::optional<HotKeyHandlerRef> installEventHandler(Handler handler) override;
    void removeEventHandler(HotKeyHandlerRef handler) override;
    std::optional<HotKeyRef> registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 EventHotKeyID identifier) override;
    void unregisterEventHotKey(HotKeyRef hotKey) override;

private:
    std::shared_ptr<CallLog> log_;
    std::map<HotKeyRef, Registration> registrations_;
    std::map<HotKeyHandlerRef, Handler> handlers_;
    std::uint64_t nextReference_ = 1;
};

} // namespace tessel::test
