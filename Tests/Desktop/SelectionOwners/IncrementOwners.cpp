#include <limits>

#include "OfferRecipes.h"
#include "OwnerCatalogue.h"

namespace tessel::owners {

namespace {

constexpr std::uint32_t fourGigabytes = std::numeric_limits<std::uint32_t>::max();

} // namespace

const std::vector<NamedOwner>& incrementOwners()
{
    static const std::vector<NamedOwner> all = {
        {"liar-length", Conduct::breaks, "2.7.2",
         "announces 4 GB, sends the text --text and ends the transfer correctly (the size is to be a lower "
         "bound)",
         "reserves no memory by the announcement; keeps the text or drops it",
         [](const Options& options) {
             Behaviour behaviour = textInPieces(options, 4);
             behaviour.announcedBytes = fourGigabytes;
             return behaviour;
         }},
        {"liar-length-mute", Conduct::breaks, "2.7.2", "announces 4 GB and sends nothing",
         "reserves no memory by the announcement, and gives up after a silence",
         [](const Options& options) {
             Behaviour behaviour = textInPieces(options, 4);
             behaviour.announcedBytes = fourGigabytes;
             behaviour.silentAfterIncrements = 0;
             return behaviour;
         }},
        {"modest-length", Conduct::obeys, "2.7.2",
         "announces one byte, and sends a text of --size megabytes (1) (the size is a lower bound)",
         "gets all of it",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(longText(options, 1))});
             behaviour.announcedBytes = 1;
             return behaviour;
         }},
        {"no-length", Conduct::breaks, "2.7.2",
         "announces increments with an empty INCR property, and sends the text --text",
         "gets the text or refuses it, and reads no size that is not there",
         [](const Options& options) {
             Behaviour behaviour = textInPieces(options, 4);
             behaviour.announcesNothing = true;
             return behaviour;
         }},
        {"empty-incr", Conduct::obeys, "2.7.2",
         "announces increments and ends the transfer with the first one", "gets an empty text",
         [](const Options&) {
             Behaviour behaviour = ownerOf({utf8("")});
             behaviour.incrementBytes = 4;
             return behaviour;
         }},
        {"oversized", Conduct::breaks, "2.5",
         "sends a text of --size megabytes (32) in one property, although increments are for what is so "
         "large",
         "gets all of it, or refuses it by its size before it reads it",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(longText(options, 32))});
             behaviour.sendsWhole = true;
             return behaviour;
         }},
        {"writes-after-end", Conduct::breaks, "2.7.2",
         "sends the text --text in increments, and writes the property once more after the end",
         "ignores what comes after the end, also in the next transfer",
         [](const Options& options) {
             Behaviour behaviour = textInPieces(options, 4);
             behaviour.writesAfterEnd = true;
             return behaviour;
         }},
    };
    return all;
}

} // namespace tessel::owners
