#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Behaviour.h"
#include "Transfer.h"
#include "XClient.h"

namespace tessel::owners {

/// A client that owns a selection and behaves as it was told.
class SelectionOwner {
public:
    /// Throws `NothingThere` when there is no display.
    SelectionOwner(Behaviour behaviour, std::string selection);

    XClient& client() { return client_; }

    /// Takes the selection for the first time. Throws when it is not given.
    void begin();
    /// Does everything that is due or was asked for.
    void work();
    /// What `work` does with each event of the client, for callers with a loop of their own.
    void handle(const xcb_generic_event_t& event);
    /// When `work` is to be called at the latest; none: when something comes.
    std::optional<Clock::time_point> nextAction() const;
    /// Has no more to do.
    bool isOver() const { return isOver_ || client_.isBroken(); }
    /// Somebody else has the selection, and nobody is being sent increments.
    bool isDispensable() const { return !ownedSince_ && increments_.empty() && actions_.empty(); }
    /// Has taken the selection as often as it was to.
    bool hasTakenAll() const
    {
        return behaviour_.takesAgainAtMost && takings_ > *behaviour_.takesAgainAtMost;
    }

private:
    using Place = std::pair<xcb_window_t, xcb_atom_t>;
    using Request = xcb_selection_request_event_t;
    struct Increments {
        Offer offer;
        std::size_t offset = 0;
        std::size_t sent = 0;
        bool isComplete = false;
    };

    void take();
    /// False: it was not given.
    bool takeSurely();
    void takeAgain();
    void after(std::chrono::milliseconds delay, std::function<void()> action);
    void runDueActions();
    /// The first value that somebody takes begins the time after which it goes.
    void beginToGo();

    void handleClear(const xcb_selection_clear_event_t& clear);
    void handleRequest(const Request& request);
    void answer(const Request& request);
    bool mayBeServed(const Request& request);
    void sendAnswer(const Request& request, bool isGranted);

    bool writeTarget(const Request& request);
    bool writeTargets(const Request& request);
    bool writeTimestamp(const Request& request);
    bool writeMultiple(const Request& request);
    bool writeOffer(const Request& request, const Offer& offer);
    /// As the item of a required target is to be written, or otherwise.
    bool writeRequired(const Request& request, RequiredTarget manner, xcb_atom_t type,
                       const std::vector<std::uint32_t>& items);
    const Offer* offerFor(xcb_atom_t target);

    void watchWindow(xcb_window_t window);
    void beginIncrements(const Request& request, const Offer& offer);
    void continueIncrements(Place place);
    void sendIncrement(Place place);
    void forgetWindow(xcb_window_t window);

    void watchOthers();
    void handleOtherOwner(xcb_window_t owner, xcb_timestamp_t time);
    void adoptCopy();

    Behaviour behaviour_;
    XClient client_;
    xcb_atom_t selection_;
    xcb_window_t window_;
    /// The beginning of the time for which it has owned the selection without a break; none: it does not own
    /// it.
    std::optional<xcb_timestamp_t> ownedSince_;
    xcb_timestamp_t lastTaken_ = XCB_CURRENT_TIME;
    int takings_ = 0;
    bool isOver_ = false;
    /// Where a value was put that has not been taken yet.
    std::optional<Place> untakenValue_;
    std::string firstText_;
    std::vector<xcb_atom_t> inventedTargets_;
    std::multimap<Clock::time_point, std::function<void()>> actions_;
    std::map<Place, Increments> increments_;
    std::optional<Transfer> copying_;
    /// The event by which changes of the owner are announced; none: they are not watched.
    std::optional<int> ownerChangeEvent_;
};

} // namespace tessel::owners
