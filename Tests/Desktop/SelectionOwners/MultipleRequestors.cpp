#include <algorithm>
#include <deque>

#include "Requestor.h"
#include "RequestorCatalogue.h"

namespace tessel::owners {

namespace {

/// A MULTIPLE request (ICCCM section 2.6.2) with its parts, all on one window.
class MultipleRequest {
public:
    MultipleRequest(Requestor& requestor, const std::vector<std::string>& targets)
        : requestor_(requestor)
        , request_(requestor.request("MULTIPLE"))
    {
        XClient& client = requestor.client();
        for (const std::string& target : targets) {
            Transfer::Request part = request_;
            part.target = client.atom(target);
            part.property = client.atom("SELECTION_OWNERS_PART_" + std::to_string(parts_.size()));
            parts_.emplace_back(client, part);
        }
    }

    /// Asks, and receives what is granted. None: everything went well so far.
    std::optional<std::string> run()
    {
        writePairs();
        Transfer& whole = requestor_.ask(request_);
        if (!requestor_.waitUntilAnswered(whole))
            return "no answer";
        if (whole.state() != Transfer::State::delivered)
            return whole.description();
        if (!whole.complaints().empty())
            return whole.complaints().front();
        const auto pairs = whole.value().items();
        if (pairs.size() != parts_.size() * 2)
            return "the list of pairs came back with another length";
        for (std::size_t index = 0; index < parts_.size(); ++index) {
            const bool isRefused = pairs[2 * index] == XCB_NONE || pairs[2 * index + 1] == XCB_NONE;
            isRefused ? parts_[index].refuse() : parts_[index].beginReceiving();
        }
        requestor_.waitUntil([&] { return std::ranges::all_of(parts_, &Transfer::isOver); },
                             [&](const xcb_generic_event_t& event) { handle(event); });
        return std::nullopt;
    }

    const std::deque<Transfer>& parts() const { return parts_; }

private:
    void writePairs()
    {
        std::string pairs;
        for (const Transfer& part : parts_) {
            const std::uint32_t pair[] = {part.request().target, part.request().property};
            pairs.append(reinterpret_cast<const char*>(pair), sizeof pair);
        }
        requestor_.client().writeProperty(request_.window, request_.property,
                                          requestor_.client().atom("ATOM_PAIR"), 32, pairs);
    }

    /// The parts hear of their properties; the answer is to all of them.
    void handle(const xcb_generic_event_t& event)
    {
        if (kindOf(event) != XCB_PROPERTY_NOTIFY)
            return;
        for (Transfer& part : parts_)
            part.handle(event);
    }

    Requestor& requestor_;
    Transfer::Request request_;
    std::deque<Transfer> parts_;
};

Observation multiple(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    MultipleRequest request(requestor, {targetOf(options), "TARGETS", "TIMESTAMP"});
    if (const auto failure = request.run())
        return bad(*failure);
    std::string seen;
    for (const Transfer& part : request.parts()) {
        const std::string name = requestor.client().atomName(part.request().target);
        const Observation one = judgeDelivery(part);
        if (!one.isGood)
            return bad(name + ": " + one.seen);
        seen += (seen.empty() ? "" : ", ") + name + ": " + one.seen;
    }
    return good(seen);
}

Observation multipleMixed(const Options& options)
{
    Requestor requestor(options, deadlineOf(options));
    MultipleRequest request(requestor, {unheardOfTarget, targetOf(options)});
    if (const auto failure = request.run())
        return bad(*failure);
    if (request.parts().front().state() != Transfer::State::refused)
        return bad("does not replace the target that it refused by None in the list (2.6.2)");
    const Observation observation = judgeDelivery(request.parts().back());
    return {observation.isGood, "one refused, the other " + observation.seen};
}

} // namespace

const std::vector<NamedRequestor>& multipleRequestors()
{
    static const std::vector<NamedRequestor> all = {
        {"multiple", Conduct::obeys, "2.6.2", "2.6.2",
         "asks for --target, TARGETS and TIMESTAMP in one MULTIPLE request",
         "converts all three, the large ones in increments", &multiple},
        {"multiple-mixed", Conduct::obeys, "2.6.2", "2.6.2",
         "asks for a target that nobody has and for --target in one MULTIPLE request",
         "replaces the first by None in the list, and converts the second", &multipleMixed},
    };
    return all;
}

} // namespace tessel::owners
