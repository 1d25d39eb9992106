#include "OfferRecipes.h"
#include "OwnerCatalogue.h"

namespace tessel::owners {

namespace {

using namespace std::chrono_literals;

Behaviour dyingOwner(const Options& options, Death death)
{
    Behaviour behaviour = textInPieces(options, 4);
    behaviour.death = death;
    return behaviour;
}

} // namespace

const std::vector<NamedOwner>& silentOwners()
{
    static const std::vector<NamedOwner> all = {
        {"mute", Conduct::breaks, "2.2", "owns the selection and answers nobody",
         "gives up after a while, and is held up by nothing meanwhile",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.answers = Answers::none;
             return behaviour;
         }},
        {"mute-after-targets", Conduct::breaks, "2.2", "lists its targets and answers nothing else",
         "like mute",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.answers = Answers::onlyTargets;
             return behaviour;
         }},
        {"late", Conduct::obeys, "2.2", "answers everything correctly, after 3 seconds (no time is set)",
         "waits that long, without being held up, or gives up; the late answer harms no later transfer",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.answerDelay = 3s;
             return behaviour;
         }},
        {"drip", Conduct::obeys, "2.7.2", "sends one byte a second (no pace is set)",
         "goes on receiving or gives up, and takes the next owner at once",
         [](const Options& options) {
             Behaviour behaviour = textInPieces(options, 1);
             behaviour.incrementDelay = 1s;
             return behaviour;
         }},
        {"stalls", Conduct::breaks, "2.7.2", "sends two increments and then nothing",
         "gives up after a silence, and keeps no half of a text",
         [](const Options& options) {
             Behaviour behaviour = textInPieces(options, 4);
             behaviour.silentAfterIncrements = 2;
             return behaviour;
         }},
        {"endless", Conduct::breaks, "2.7.2",
         "sends increments for ever, a text of --size megabytes (8) again and again",
         "gives up at some size, without memory running out",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(longText(options, 8))});
             behaviour.incrementBytes = usualIncrementBytes;
             behaviour.isEndless = true;
             return behaviour;
         }},
        {"dies-before", Conduct::breaks, "2.2", "disconnects when its text is asked for, before it answers",
         "notices, or gives up after a while",
         [](const Options& options) { return dyingOwner(options, Death::whenAsked); }},
        {"dies-during", Conduct::breaks, "2.7.2", "disconnects after half of its increments",
         "keeps no half of a text",
         [](const Options& options) { return dyingOwner(options, Death::amidIncrements); }},
        {"dies-at-end", Conduct::breaks, "2.7.2",
         "disconnects with everything sent but the empty increment that ends the transfer",
         "treats the transfer as unfinished",
         [](const Options& options) { return dyingOwner(options, Death::beforeLastPiece); }},
    };
    return all;
}

} // namespace tessel::owners
