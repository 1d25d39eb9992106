#include "Requestor.h"

#include <algorithm>
#include <array>

#include "NothingThere.h"

namespace tessel::owners {

namespace {

/// An owner may list far more than anybody can ask for.
constexpr std::size_t mostTargetsLookedAt = 64;

} // namespace

Requestor::Requestor(const Options& options, Clock::time_point deadline)
    : selection_(options.selection)
    , deadline_(deadline)
{
    if (client_.selectionOwner(selection_) == XCB_NONE)
        throw NothingThere("nobody owns " + selection_);
}

Transfer::Request Requestor::request(const std::string& target)
{
    return {client_.createWindow(), client_.atom(selection_), client_.atom(target),
            client_.atom("SELECTION_OWNERS_VALUE"), client_.currentTime()};
}

Transfer& Requestor::ask(const std::string& target, Taking taking)
{
    return ask(request(target), taking);
}

Transfer& Requestor::ask(const Transfer::Request& request, Taking taking)
{
    Transfer& transfer = transfers_.emplace_back(client_, request, taking);
    transfer.ask();
    client_.flush();
    return transfer;
}

Transfer& Requestor::fetch(const std::string& target)
{
    Transfer& transfer = ask(target);
    waitUntil([&] { return transfer.isOver(); });
    return transfer;
}

bool Requestor::pumpUntil(const std::function<bool()>& isDone, const Handler& alsoHandle,
                          Clock::time_point deadline)
{
    XClient* const clients[] = {&client_};
    const auto handle = [&](const xcb_generic_event_t& event) {
        for (Transfer& transfer : transfers_)
            transfer.handle(event);
        if (alsoHandle)
            alsoHandle(event);
    };
    return pump(clients, handle, isDone, deadline);
}

bool Requestor::waitUntil(const std::function<bool()>& isDone, const Handler& alsoHandle)
{
    return pumpUntil(isDone, alsoHandle, deadline_);
}

bool Requestor::waitUntilAllAreOver()
{
    return waitUntil([this] { return std::ranges::all_of(transfers_, &Transfer::isOver); });
}

bool Requestor::waitUntilAnswered(const Transfer& transfer)
{
    return waitUntil([&] { return transfer.isAnswered(); });
}

bool Requestor::waitForPiece(const Transfer& transfer)
{
    return waitUntil([&] { return transfer.hasPieceWaiting() || transfer.isOver(); });
}

void Requestor::linger(std::chrono::milliseconds duration)
{
    pumpUntil([] { return false; }, {}, Clock::now() + duration);
}

std::vector<std::string> valueTargets(XClient& client, const Transfer& targets)
{
    static constexpr std::array notValues = {"TARGETS",      "TIMESTAMP",        "MULTIPLE",       "DELETE",
                                             "SAVE_TARGETS", "INSERT_SELECTION", "INSERT_PROPERTY"};
    std::vector<std::string> names;
    for (const xcb_atom_t target : targets.value().items()) {
        if (names.size() == mostTargetsLookedAt)
            break;
        const std::string name = client.atomName(target);
        if (std::ranges::find(notValues, name) == notValues.end())
            names.push_back(name);
    }
    return names;
}

Observation judgeDelivery(const Transfer& transfer)
{
    const bool isThere = transfer.state() == Transfer::State::delivered && transfer.value().exists();
    return {isThere, transfer.description()};
}

Observation judge(const Transfer& transfer)
{
    Observation observation = judgeDelivery(transfer);
    for (const std::string& complaint : transfer.complaints()) {
        observation.isGood = false;
        observation.seen += "; " + complaint;
    }
    return observation;
}

std::string targetOf(const Options& options)
{
    return options.target.value_or("UTF8_STRING");
}

Clock::time_point deadlineOf(const Options& options)
{
    return Clock::now() + options.patience;
}

} // namespace tessel::owners
