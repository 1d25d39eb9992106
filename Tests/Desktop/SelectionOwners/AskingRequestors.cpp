#include <algorithm>
#include <array>

#include "Requestor.h"
#include "RequestorCatalogue.h"

namespace tessel::owners {

namespace {

/// So long before the owner took the selection.
constexpr xcb_timestamp_t staleMilliseconds = 1000;

Observation targets(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    XClient& client = requestor.client();
    const Transfer& transfer = requestor.fetch("TARGETS");
    Observation observation = judge(transfer);
    observation.value = "";
    if (!observation.isGood)
        return observation;
    const auto listed = transfer.value().items();
    observation.seen += "; " + std::to_string(listed.size()) + " targets";
    for (const auto* required : {"TARGETS", "TIMESTAMP", "MULTIPLE"}) {
        if (std::ranges::find(listed, client.atom(required)) != listed.end())
            continue;
        observation.isGood = false;
        observation.seen += "; " + std::string(required) + " is missing (2.6.2)";
    }
    for (const std::string& name : valueTargets(client, transfer))
        *observation.value += name + "\n";
    return observation;
}

Observation timestamp(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    const Transfer& transfer = requestor.fetch("TIMESTAMP");
    const Observation observation = judge(transfer);
    if (!observation.isGood)
        return observation;
    const auto times = transfer.value().items();
    if (times.size() != 1)
        return bad(std::to_string(times.size()) + " times instead of one (2.6.2)");
    if (times.front() == XCB_CURRENT_TIME)
        return bad("took the selection with CurrentTime (2.1)");
    const auto age = static_cast<std::int32_t>(requestor.client().currentTime() - times.front());
    if (age < 0)
        return bad("took the selection at a time that has yet to come (2.1)");
    return good("took the selection " + std::to_string(age) + " ms ago");
}

Observation unknownTarget(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    const Transfer& transfer = requestor.fetch(unheardOfTarget);
    const Observation observation = judge(transfer);
    const bool isRefused = transfer.state() == Transfer::State::refused && transfer.complaints().empty();
    return {isRefused, observation.seen};
}

Observation staleTime(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    const Transfer& ownedSince = requestor.fetch("TIMESTAMP");
    const auto times = ownedSince.value().items();
    if (!judge(ownedSince).isGood || times.size() != 1)
        return bad("no telling when it took the selection: TIMESTAMP: " + judge(ownedSince).seen);
    Transfer::Request request = requestor.request(targetOf(options));
    request.time = times.front() - staleMilliseconds;
    const Transfer& transfer = requestor.ask(request);
    requestor.waitUntil([&] { return transfer.isOver(); });
    if (transfer.state() == Transfer::State::refused)
        return {transfer.complaints().empty(), judge(transfer).seen};
    return bad("served a request from before it had the selection: " + transfer.description());
}

} // namespace

const std::vector<NamedRequestor>& askingRequestors()
{
    static const std::vector<NamedRequestor> all = {
        {"targets", Conduct::obeys, "2.6.2", "2.6.2",
         "asks for TARGETS, and writes the first 64 of them to --output or to standard output",
         "lists what it has as ATOM, with TARGETS, TIMESTAMP and MULTIPLE among them", &targets},
        {"timestamp", Conduct::obeys, "2.6.2", "2.6.2", "asks for TIMESTAMP",
         "gives the time with which it took the selection, which is not CurrentTime", &timestamp},
        {"unknown-target", Conduct::obeys, "2.4", "2.2", "asks for a target that nobody has",
         "refuses with the property None", &unknownTarget},
        {"stale-time", Conduct::breaks, "2.4", "2.2",
         "asks for --target with a time of one second before the owner had the selection", "refuses",
         &staleTime},
    };
    return all;
}

} // namespace tessel::owners
