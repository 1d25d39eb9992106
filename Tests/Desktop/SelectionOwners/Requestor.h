#pragma once

#include <deque>
#include <functional>
#include <string>

#include "Observation.h"
#include "Options.h"
#include "Transfer.h"

namespace tessel::owners {

/// A target that nobody has.
constexpr auto unheardOfTarget = "SELECTION_OWNERS_UNHEARD_OF";

/// A client that asks the owner of a selection for its value, and waits until a deadline at most. Left alone
/// it is a good one (ICCCM section 2.4).
class Requestor {
public:
    using Taking = Transfer::Taking;
    using Handler = std::function<void(const xcb_generic_event_t&)>;

    /// Throws `NothingThere` when nobody owns the selection.
    Requestor(const Options& options, Clock::time_point deadline);

    XClient& client() { return client_; }

    /// Asks, with a window, a property and the server's time of its own.
    Transfer& ask(const std::string& target, Taking taking = Taking::atOnce);
    /// Asks exactly so.
    Transfer& ask(const Transfer::Request& request, Taking taking = Taking::atOnce);
    /// A request as `ask` makes it, not yet sent.
    Transfer::Request request(const std::string& target);
    /// Asks, and waits for the end.
    Transfer& fetch(const std::string& target);

    /// False: the deadline passed first. `alsoHandle` gets the events as well.
    bool waitUntil(const std::function<bool()>& isDone, const Handler& alsoHandle = {});
    bool waitUntilAllAreOver();
    bool waitUntilAnswered(const Transfer& transfer);
    /// For what is taken by hand: until there is a piece to take, or none will come any more.
    bool waitForPiece(const Transfer& transfer);
    /// Lets the time pass, while everything that is to be taken at once is taken.
    void linger(std::chrono::milliseconds duration);

    /// Every request so far.
    const std::deque<Transfer>& transfers() const { return transfers_; }

private:
    bool pumpUntil(const std::function<bool()>& isDone, const Handler& alsoHandle,
                   Clock::time_point deadline);

    XClient client_;
    std::string selection_;
    Clock::time_point deadline_;
    std::deque<Transfer> transfers_; ///< They stay where they are.
};

/// The targets that an owner lists, less those that every owner supports or that would change something
/// (ICCCM sections 2.6.2 and 2.6.3).
std::vector<std::string> valueTargets(XClient& client, const Transfer& targets);

/// Whether the value arrived.
Observation judgeDelivery(const Transfer& transfer);
/// Whether it arrived as it has to, and is what it has to be.
Observation judge(const Transfer& transfer);

/// What to ask for when the caller has not said it.
std::string targetOf(const Options& options);
/// The end of the caller's patience.
Clock::time_point deadlineOf(const Options& options);

} // namespace tessel::owners
