#include <thread>

#include "NothingThere.h"
#include "OfferRecipes.h"
#include "Requestor.h"
#include "RequestorCatalogue.h"
#include "SelectionOwner.h"

namespace tessel::owners {

namespace {

using namespace std::chrono_literals;

constexpr auto managerSelection = "CLIPBOARD_MANAGER";

/// An owner that asks the clipboard manager to keep its value. It is gone with this object.
class LeavingOwner {
public:
    explicit LeavingOwner(const Options& options)
        : owner_(textOwner(options), options.selection)
    {
        if (client_.selectionOwner(managerSelection) == XCB_NONE)
            throw NothingThere("there is no clipboard manager: nobody owns CLIPBOARD_MANAGER");
        owner_.begin();
    }

    /// What the manager said to SAVE_TARGETS.
    Transfer::State save(Clock::time_point deadline)
    {
        const Transfer::Request request = {client_.createWindow(), client_.atom(managerSelection),
                                           client_.atom("SAVE_TARGETS"),
                                           client_.atom("SELECTION_OWNERS_VALUE"), client_.currentTime()};
        const std::uint32_t targets[] = {client_.atom("UTF8_STRING")};
        client_.writeProperty(request.window, request.property, XCB_ATOM_ATOM, 32,
                              {reinterpret_cast<const char*>(targets), sizeof targets});
        Transfer transfer(client_, request);
        transfer.ask();
        XClient* const clients[] = {&client_, &owner_.client()};
        const auto handle = [&](const xcb_generic_event_t& event) {
            owner_.handle(event);
            transfer.handle(event);
        };
        pump(
            clients, handle, [&] { return transfer.isOver(); }, deadline);
        return transfer.state();
    }

private:
    SelectionOwner owner_;
    XClient client_;
};

/// False: nobody took the selection in time.
bool awaitOwner(const Options& options, Clock::time_point deadline)
{
    XClient client;
    while (client.selectionOwner(options.selection) == XCB_NONE) {
        if (Clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(10ms); // Of a change alone XFIXES tells, and not every server has it.
    }
    return true;
}

Observation saveTargets(const Options& options)
{
    const auto deadline = deadlineOf(options);
    const Transfer::State answer = LeavingOwner(options).save(deadline);
    if (answer == Transfer::State::asked)
        return bad("no answer to SAVE_TARGETS");
    if (answer == Transfer::State::refused)
        return bad("SAVE_TARGETS was refused");
    if (!awaitOwner(options, deadline))
        return bad("saved, but nobody owns the selection after its owner has left");
    Requestor requestor(options, deadline);
    const Transfer& transfer = requestor.fetch("UTF8_STRING");
    Observation observation = judge(transfer);
    if (observation.isGood && transfer.value().bytes != options.text)
        return bad("saved, but another text came back: " + observation.seen);
    observation.seen = "saved; after the owner had left: " + observation.seen;
    return observation;
}

/// An owner that loses the selection goes on with the transfers that are under way (ICCCM section 2.2).
Observation takeOver(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    Transfer& transfer = requestor.ask(targetOf(options), Transfer::Taking::byHand);
    if (!requestor.waitUntilAnswered(transfer))
        return bad(transfer.description());
    SelectionOwner successor(textOwner(options), options.selection);
    successor.begin();
    while (!transfer.isOver() && requestor.waitForPiece(transfer)) {
        if (transfer.hasPieceWaiting())
            transfer.takePiece();
    }
    return judgeDelivery(transfer);
}

} // namespace

const std::vector<NamedRequestor>& ownershipRequestors()
{
    static const std::vector<NamedRequestor> all = {
        {"takes-over", Conduct::obeys, "2.1", "2.2",
         "asks for --target, takes the selection itself when the answer comes, and receives the rest",
         "goes on sending what it has begun, although it has lost the selection", &takeOver, false},
        {"save-targets", Conduct::obeys, "2.6.3", "2.6.3",
         "takes the selection with --text, asks the owner of CLIPBOARD_MANAGER for SAVE_TARGETS, "
         "disconnects, and "
         "asks for the text (a side effect target of freedesktop.org's clipboard manager convention)",
         "has taken the value before it answers, and owns the selection once its owner is gone", &saveTargets,
         false},
    };
    return all;
}

} // namespace tessel::owners
