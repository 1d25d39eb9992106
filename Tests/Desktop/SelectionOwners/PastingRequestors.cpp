#include <algorithm>

#include "Requestor.h"
#include "RequestorCatalogue.h"

namespace tessel::owners {

namespace {

Observation paste(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    const Transfer& transfer = requestor.fetch(targetOf(options));
    Observation observation = judge(transfer);
    observation.value = transfer.state() == Transfer::State::delivered ? transfer.value().bytes : "";
    return observation;
}

Observation tenAtOnce(const Options& options)
{
    const auto deadline = deadlineOf(options);
    const std::size_t count = options.count.value_or(10);
    std::deque<Requestor> requestors;
    std::vector<XClient*> clients;
    std::vector<Transfer*> transfers;
    for (std::size_t index = 0; index < count; ++index)
        clients.push_back(&requestors.emplace_back(options, deadline).client());
    for (Requestor& requestor : requestors)
        transfers.push_back(&requestor.ask(targetOf(options)));
    const auto handle = [&](const xcb_generic_event_t& event) {
        for (Transfer* transfer : transfers)
            transfer->handle(event);
    };
    const auto allAreOver = [&] { return std::ranges::all_of(transfers, &Transfer::isOver); };
    pump(clients, handle, allAreOver, deadline);
    for (const Transfer* transfer : transfers) {
        const Observation one = judgeDelivery(*transfer);
        if (!one.isGood)
            return bad("one of " + std::to_string(count) + ": " + one.seen);
        if (transfer->value().bytes != transfers.front()->value().bytes)
            return bad("two of " + std::to_string(count) + " received different bytes (2.2)");
    }
    return good(std::to_string(count) + " times the same " + transfers.front()->description());
}

/// A list of targets is of what can be had (ICCCM section 2.6.2).
Observation everyTarget(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    const Transfer& targets = requestor.fetch("TARGETS");
    if (!judge(targets).isGood)
        return bad("TARGETS: " + judge(targets).seen);
    std::string seen;
    for (const std::string& name : valueTargets(requestor.client(), targets)) {
        const Observation one = judge(requestor.fetch(name));
        if (!one.isGood)
            return bad(name + " is listed: " + one.seen);
        seen += (seen.empty() ? "" : ", ") + name + ": " + one.seen;
    }
    return seen.empty() ? bad("nothing is listed that has a value") : good(seen);
}

/// What an owner does too much arrives before its answer to a later request.
Observation quietAfterwards(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    const Transfer& transfer = requestor.fetch(targetOf(options));
    if (!transfer.isOver())
        return bad(transfer.description());
    if (!requestor.fetch("TIMESTAMP").isOver())
        return bad("no answer to TIMESTAMP");
    if (transfer.answerCount() > 1)
        return bad("answered " + std::to_string(transfer.answerCount()) + " times");
    if (transfer.lateWriteCount() > 0)
        return bad("wrote the property after the end of the transfer");
    return good("one answer, and nothing after the end of it");
}

/// Requests that differ in nothing but the property are to be answered in their order (ICCCM section 2.2).
Observation inOrder(const Options& options)
{
    constexpr std::size_t count = 10;
    Requestor requestor(options, deadlineOf(options));
    XClient& client = requestor.client();
    const Transfer::Request request = requestor.request(targetOf(options));
    std::vector<xcb_atom_t> asked;
    for (std::size_t index = 0; index < count; ++index) {
        asked.push_back(client.atom("SELECTION_OWNERS_PART_" + std::to_string(index)));
        xcb_convert_selection(client.connection(), request.window, request.selection, request.target,
                              asked.back(), request.time);
    }
    std::vector<xcb_atom_t> answered;
    const auto handle = [&](const xcb_generic_event_t& event) {
        if (kindOf(event) == XCB_SELECTION_NOTIFY)
            answered.push_back(reinterpret_cast<const xcb_selection_notify_event_t&>(event).property);
    };
    if (!requestor.waitUntil([&] { return answered.size() >= count; }, handle))
        return bad(std::to_string(answered.size()) + " of " + std::to_string(count) + " requests answered");
    if (answered != asked)
        return bad("answered in another order, or not all of them alike");
    return good(std::to_string(count) + " requests answered in their order");
}

} // namespace

const std::vector<NamedRequestor>& pastingRequestors()
{
    static const std::vector<NamedRequestor> all = {
        {"paste", Conduct::obeys, "2.4", "2.6.2",
         "asks for --target (UTF8_STRING), in increments where it comes so, and writes the bytes to --output "
         "or "
         "to standard output",
         "delivers what it offers, under the type that the target names", &paste},
        {"every-target", Conduct::obeys, "2.4", "2.6.2",
         "asks for every target that is listed, at most 64, one after the other",
         "delivers every one of them", &everyTarget},
        {"quiet-afterwards", Conduct::obeys, "2.4", "2.2",
         "receives --target, and looks at what comes after the end",
         "answers once, and leaves the property alone after the end", &quietAfterwards},
        {"in-order", Conduct::obeys, "2.4", "2.2",
         "asks for --target ten times at once, with one window and ten properties",
         "answers in the order of the requests", &inOrder},
        {"ten-at-once", Conduct::obeys, "2.4", "2.2",
         "--count good clients (10) ask for --target at the same moment",
         "serves them all, side by side, with the same bytes", &tenAtOnce},
    };
    return all;
}

} // namespace tessel::owners
