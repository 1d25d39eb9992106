#include "OfferRecipes.h"
#include "OwnerCatalogue.h"

namespace tessel::owners {

namespace {

using namespace std::chrono_literals;

/// So many times the selection is taken in 2 seconds.
constexpr int takingsInARush = 200;
constexpr auto rushInterval = 10ms;
/// An owner has been noticed by then.
constexpr auto shortStay = 500ms;

} // namespace

const std::vector<NamedOwner>& restlessOwners()
{
    static const std::vector<NamedOwner> all = {
        {"flapping", Conduct::obeys, "2.1", "takes the selection anew every 10 ms",
         "does not fall behind, nor ask for every one of them",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.takesAgainEvery = 10ms;
             return behaviour;
         }},
        {"rush", Conduct::obeys, "2.1",
         "takes the selection 200 times in 2 seconds, with the text --text and a number from the second time "
         "on, "
         "prints \"finished\", and keeps the last",
         "has the last one in the end",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(options.text)});
             behaviour.takesAgainEvery = rushInterval;
             behaviour.takesAgainAtMost = takingsInARush - 1;
             return behaviour;
         }},
        {"crowd", Conduct::obeys, "2.1",
         "200 clients take the selection within 2 seconds, each with the text --text and its number, and "
         "each "
         "disconnects when the next has taken it; then prints \"finished\"",
         "has the last one in the end; an owner that is gone is no error",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(options.text)});
             behaviour.takesAgainEvery = rushInterval;
             behaviour.crowdSize = takingsInARush;
             return behaviour;
         }},
        {"takes-back", Conduct::obeys, "2.1", "takes the selection back whenever it loses it",
         "does not fight for the selection",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.takesBack = true;
             return behaviour;
         }},
        {"rival", Conduct::obeys, "2.6.1.3",
         "a rival clipboard manager: whenever somebody else has taken the selection, it copies the text from "
         "there "
         "and takes the selection with it (owns --text to begin with)",
         "does not fight for the selection, nor take the same text for a new one for ever",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(options.text)});
             behaviour.copiesOthers = true;
             return behaviour;
         }},
        {"clears", Conduct::obeys, "2.3.1",
         "gives the selection up on purpose half a second after a value has been taken",
         "takes it for a deliberate clear: brings nothing back",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.clearsAfter = shortStay;
             return behaviour;
         }},
        {"window-dies", Conduct::obeys, "2.3.1",
         "destroys its window half a second after a value has been taken, and keeps its connection",
         "treats it as an owner that is gone",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.destroysWindowAfter = shortStay;
             return behaviour;
         }},
        {"leaves", Conduct::obeys, "2.3.1", "disconnects after half a second",
         "treats it as an owner that is gone; a manager goes on offering its value",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.endsAfter = shortStay;
             return behaviour;
         }},
    };
    return all;
}

} // namespace tessel::owners
