#include <algorithm>

#include "Requestor.h"
#include "RequestorCatalogue.h"

namespace tessel::owners {

namespace {

using namespace std::chrono_literals;
using Taking = Transfer::Taking;

/// How long a hostile requestor keeps up what it does, unless it was told.
constexpr auto usualDuration = 1s;
/// Between two pieces of the lazy one, unless it was told.
constexpr auto usualInterval = 100ms;
/// How many pieces are taken by a requestor that does not take all.
constexpr std::size_t fewPieces = 2;

Observation noAnswer(const Options& options)
{
    return bad("no answer to " + targetOf(options));
}

/// The owner has to have survived: another, good requestor gets the value. It connects before the first one
/// is gone, for the server would give it the same window numbers again, and what comes late for the first
/// one.
Observation fetchAfterwards(Requestor& other, const Options& options, const std::string& done)
{
    Observation observation = judgeDelivery(other.fetch(targetOf(options)));
    observation.seen = done + "; then a good requestor: " + observation.seen;
    return observation;
}

/// False: they did not come in time.
bool takeSomePieces(Requestor& requestor, Transfer& transfer)
{
    while (transfer.pieceCount() < fewPieces && !transfer.isOver()) {
        if (!requestor.waitForPiece(transfer))
            return false;
        if (transfer.hasPieceWaiting())
            transfer.takePiece();
    }
    return true;
}

Observation vanishBefore(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    {
        Requestor requestor(options, deadline);
        requestor.ask(targetOf(options));
        requestor.client().roundTrip(); // The request has reached the server, at least.
    }
    return fetchAfterwards(other, options, "disconnected without waiting for the answer");
}

Observation vanish(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    std::string done;
    {
        Requestor requestor(options, deadline);
        Transfer& transfer = requestor.ask(targetOf(options), Taking::byHand);
        if (!takeSomePieces(requestor, transfer))
            return bad(transfer.description());
        done = "disconnected, " + transfer.description();
    }
    return fetchAfterwards(other, options, done);
}

Observation neverDelete(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    Requestor requestor(options, deadline);
    Transfer& transfer = requestor.ask(targetOf(options), Taking::byHand);
    if (!requestor.waitUntilAnswered(transfer))
        return noAnswer(options);
    const Observation meanwhile = fetchAfterwards(other, options, "took nothing of what was announced");
    requestor.linger(options.duration.value_or(usualDuration));
    return meanwhile;
}

/// Takes two increments and no more.
Observation stopDeleting(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    Requestor requestor(options, deadline);
    Transfer& transfer = requestor.ask(targetOf(options), Taking::byHand);
    if (!takeSomePieces(requestor, transfer))
        return bad(transfer.description());
    const Observation meanwhile = fetchAfterwards(other, options, "took no more, " + transfer.description());
    requestor.linger(options.duration.value_or(usualDuration));
    return meanwhile;
}

/// What comes must go on coming, however slowly it is taken.
Observation beLazy(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor requestor(options, deadline);
    Transfer& transfer = requestor.ask(targetOf(options), Taking::byHand);
    while (!transfer.isOver()) {
        if (!requestor.waitForPiece(transfer))
            return bad(transfer.description());
        requestor.linger(options.interval.value_or(usualInterval));
        if (Clock::now() >= deadline)
            return good("the time was over while it came as slowly as it was taken: " +
                        transfer.description());
        if (transfer.hasPieceWaiting())
            transfer.takePiece();
    }
    return judgeDelivery(transfer);
}

Observation destroyWindow(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    Requestor requestor(options, deadline);
    const Transfer& transfer = requestor.ask(targetOf(options));
    requestor.client().destroyWindow(transfer.request().window);
    return fetchAfterwards(other, options, "destroyed the window that it asked with");
}

/// Owners are encouraged to use the target as the property, and may refuse (ICCCM section 2.2).
Observation nameNoProperty(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    Requestor requestor(options, deadline);
    Transfer::Request request = requestor.request(targetOf(options));
    request.property = XCB_NONE;
    const Transfer& transfer = requestor.ask(request);
    if (!requestor.waitUntil([&] { return transfer.isOver(); }))
        return bad(transfer.description());
    const bool isServed = judgeDelivery(transfer).isGood;
    if (!isServed && transfer.state() == Transfer::State::delivered)
        return bad("answered, with " + transfer.description());
    return fetchAfterwards(other, options, isServed ? "served" : "refused, which is allowed");
}

Observation useSamePropertyTwice(const Options& options)
{
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    Requestor requestor(options, deadline);
    Transfer& transfer = requestor.ask(targetOf(options), Taking::byHand);
    transfer.ask();
    if (!requestor.waitUntil([&] { return transfer.answerCount() >= 2; }))
        return bad(std::to_string(transfer.answerCount()) + " of 2 requests answered");
    return fetchAfterwards(other, options, "both requests answered");
}

Observation storm(const Options& options)
{
    const std::size_t count = options.count.value_or(1000);
    const auto deadline = deadlineOf(options);
    Requestor other(options, deadline);
    Requestor requestor(options, deadline);
    Transfer::Request request = requestor.request("TARGETS");
    for (std::size_t index = 0; index < count; ++index) {
        request.window = requestor.client().createWindow();
        requestor.ask(request);
    }
    if (requestor.waitUntilAllAreOver())
        return fetchAfterwards(other, options, std::to_string(count) + " requests at once, all answered");
    const auto answered = std::ranges::count_if(requestor.transfers(), &Transfer::isOver);
    return bad(std::to_string(answered) + " of " + std::to_string(count) + " requests answered");
}

} // namespace

const std::vector<NamedRequestor>& hostileRequestors()
{
    static const std::vector<NamedRequestor> all = {
        {"same-property-twice", Conduct::breaks, "2.4", "2.2",
         "asks twice for --target with the same window and the same property", "answers, or refuses, both",
         &useSamePropertyTwice},
        {"dead-window", Conduct::breaks, "2.4", "2.2",
         "destroys the window that it asks with at once, and keeps its connection",
         "ignores the errors, and goes on serving", &destroyWindow},
        {"vanishes-before", Conduct::breaks, "2.4", "2.2", "asks, and disconnects before the answer",
         "ignores the errors, and goes on serving", &vanishBefore},
        {"vanishes", Conduct::breaks, "2.7.2", "2.2",
         "disconnects after two increments, or as soon as it has a value that comes whole",
         "forgets the transfer, and goes on serving", &vanish},
        {"never-deletes", Conduct::breaks, "2.4", "2.2",
         "never deletes the property that it is answered with, and stays for --for (1 s); meanwhile it asks "
         "as "
         "another client",
         "serves the others at once, and gives the transfer up after a while", &neverDelete},
        {"stops-deleting", Conduct::breaks, "2.7.2", "2.2",
         "like never-deletes, but takes two increments first", "like never-deletes", &stopDeleting},
        {"lazy", Conduct::obeys, "2.7.2", "2.7.2", "takes a piece every --every milliseconds (100)",
         "sends the next piece whenever the last was taken", &beLazy},
        {"storm", Conduct::obeys, "2.4", "2.2", "asks --count times (1000) for TARGETS, as fast as it can",
         "answers every one of them", &storm},
        {"no-property", Conduct::breaks, "2.4", "2.2",
         "asks for --target without a property, as obsolete clients do",
         "uses the target as the property, or refuses; never the property None", &nameNoProperty},
    };
    return all;
}

} // namespace tessel::owners
