#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <xcb/xcb.h>

#include "Behaviour.h"

namespace tessel::owners {

/// A client that owns CLIPBOARD and behaves as it was told.
class SelectionOwner {
public:
    /// Throws when there is no display.
    explicit SelectionOwner(Behaviour behaviour);
    ~SelectionOwner();
    SelectionOwner(const SelectionOwner&) = delete;
    SelectionOwner& operator=(const SelectionOwner&) = delete;

    /// Serves until `end`, or until `stopDescriptor` becomes readable, or for ever. `onOwned` runs once, when
    /// the selection is owned. Returns early when the connection breaks.
    void run(std::optional<std::chrono::steady_clock::time_point> end, int stopDescriptor,
             const std::function<void()>& onOwned);

private:
    using Clock = std::chrono::steady_clock;
    using Place = std::pair<xcb_window_t, xcb_atom_t>;
    struct Increments {
        const Offer* offer;
        std::size_t offset = 0;
        std::size_t sent = 0;
    };

    xcb_atom_t intern(const std::string& name);
    xcb_timestamp_t currentServerTime();
    void take();
    void takeAgain();
    void after(std::chrono::milliseconds delay, std::function<void()> action);
    void runDueActions();
    int millisecondsUntilNext(std::optional<Clock::time_point> end) const;
    void handle(const xcb_generic_event_t& event);
    void handleRequest(const xcb_selection_request_event_t& request);
    void answer(const xcb_selection_request_event_t& request);
    bool writeTarget(const xcb_selection_request_event_t& request);
    bool writeTargets(const xcb_selection_request_event_t& request);
    bool writeOffer(const xcb_selection_request_event_t& request, const Offer& offer);
    void continueIncrements(Place place);
    void sendIncrement(Place place);
    const Offer* offerFor(xcb_atom_t target);

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    Behaviour behaviour_;
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t window_ = XCB_NONE;
    std::map<std::string, xcb_atom_t> atoms_;
    std::multimap<Clock::time_point, std::function<void()>> actions_;
    std::map<Place, Increments> increments_;
    std::vector<std::unique_ptr<xcb_generic_event_t, void (*)(void*)>> deferred_;
    int takings_ = 0;
    std::string firstText_;
};

} // namespace tessel::owners
