#include "Check.h"

#include <algorithm>
#include <array>
#include <ostream>

#include "NothingThere.h"
#include "Report.h"
#include "Requestor.h"
#include "RequestorCatalogue.h"

namespace tessel::owners {

namespace {

/// What to ask for: text where there is text, else the first thing that there is.
std::string bestTarget(const Options& options)
{
    static constexpr std::array preferred = {"UTF8_STRING", "text/plain;charset=utf-8", "STRING"};
    Requestor requestor(options, deadlineOf(options));
    const auto listed = valueTargets(requestor.client(), requestor.fetch("TARGETS"));
    for (const auto* target : preferred) {
        if (std::ranges::find(listed, target) != listed.end())
            return target;
    }
    return listed.empty() ? preferred.front() : listed.front();
}

Observation observe(const NamedRequestor& requestor, const Options& options)
{
    try {
        return requestor.run(options);
    } catch (const NothingThere& failure) {
        return bad(failure.what());
    }
}

} // namespace

bool check(Options options, std::ostream& output)
{
    using namespace std::chrono_literals;
    XClient client;
    const xcb_window_t owner = client.selectionOwner(options.selection);
    if (!options.target)
        options.target = bestTarget(options);
    // Long enough to be noticed; there are many requestors.
    options.duration = options.duration.value_or(200ms);
    options.interval = options.interval.value_or(10ms);
    bool isGood = true;
    for (const RequestorGroup& group : requestorGroups()) {
        for (const NamedRequestor& requestor : group.entries) {
            if (!requestor.isPartOfCheck)
                continue;
            const Observation observation = observe(requestor, options);
            report(output, requestor, observation);
            isGood = isGood && observation.isGood;
        }
    }
    if (client.selectionOwner(options.selection) != owner)
        output << "note: the owner of " << options.selection << " changed meanwhile\n";
    return isGood;
}

} // namespace tessel::owners
