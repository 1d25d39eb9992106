#include "OfferRecipes.h"
#include "OwnerCatalogue.h"

namespace tessel::owners {

namespace {

const std::vector<std::string>& usualTargets()
{
    static const std::vector<std::string> targets = {"UTF8_STRING", "text/plain;charset=utf-8",
                                                     "text/plain",  "STRING",
                                                     "TEXT",        "COMPOUND_TEXT",
                                                     "text/html",   "text/rtf",
                                                     "image/png",   "image/jpeg",
                                                     "image/bmp",   "image/tiff",
                                                     "image/gif",   "text/uri-list"};
    return targets;
}

Behaviour withAnswerError(const Options& options, AnswerError error)
{
    Behaviour behaviour = textOwner(options);
    behaviour.answerError = error;
    return behaviour;
}

} // namespace

const std::vector<NamedOwner>& lyingOwners()
{
    static const std::vector<NamedOwner> all = {
        {"liar-type", Conduct::breaks, "2.6.2",
         "writes its text under the type INTEGER (the target fixes the type)",
         "does not read what is of another type, or reads it as bytes",
         [](const Options& options) { return ownerOf({typed("UTF8_STRING", "INTEGER", 8, options.text)}); }},
        {"liar-format", Conduct::breaks, "2.6.2", "writes its text with 32 bits to an item",
         "looks at the format before it counts bytes",
         [](const Options&) {
             return ownerOf({typed("UTF8_STRING", "UTF8_STRING", 32, "four by four    ")});
         }},
        {"refuses", Conduct::breaks, "2.6.2",
         "offers every usual form of text and picture, and refuses each of them (the list is of what "
         "succeeds)",
         "treats it as no value, at once",
         [](const Options&) {
             Behaviour behaviour;
             behaviour.emptyPromises = usualTargets();
             return behaviour;
         }},
        {"refuses-everything", Conduct::breaks, "2.6.2",
         "answers every request with the property None, TARGETS too", "treats it as no value, at once",
         [](const Options&) {
             Behaviour behaviour;
             behaviour.targets = RequiredTarget::refused;
             behaviour.timestamp = RequiredTarget::refused;
             behaviour.multiple = RequiredTarget::refused;
             return behaviour;
         }},
        {"delivers-empty", Conduct::breaks, "2.6.2",
         "offers every usual form of text and picture, and delivers each with no bytes (an empty text is "
         "one, an "
         "empty picture is none)",
         "treats it as no value, and takes no empty picture",
         [](const Options&) {
             Behaviour behaviour;
             for (const std::string& target : usualTargets())
                 behaviour.offers.push_back(target == "TEXT" ? typed(target, "STRING", 8, "")
                                                             : offer(target, ""));
             return behaviour;
         }},
        {"answers-twice", Conduct::breaks, "2.2", "answers every request twice",
         "ignores the second answer, also in the next transfer",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.answersTwice = true;
             return behaviour;
         }},
        {"answers-other-selection", Conduct::breaks, "2.2", "answers as if SECONDARY had been asked for",
         "ignores the answer, and goes on",
         [](const Options& options) { return withAnswerError(options, AnswerError::otherSelection); }},
        {"answers-other-target", Conduct::breaks, "2.2", "answers as if DRAWABLE had been asked for",
         "ignores the answer, or goes by the property's type",
         [](const Options& options) { return withAnswerError(options, AnswerError::otherTarget); }},
        {"answers-other-property", Conduct::breaks, "2.2",
         "names another property than the one that it wrote", "treats it as no value",
         [](const Options& options) { return withAnswerError(options, AnswerError::otherProperty); }},
        {"ignores-time", Conduct::breaks, "2.2", "serves also requests from before it had the selection",
         "asks with a time of its own, as always",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.heedsTime = false;
             return behaviour;
         }},
        {"ignores-obsolete", Conduct::breaks, "2.2", "does not answer requests without a property",
         "asks with a property, as always",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.servesObsoleteClients = false;
             return behaviour;
         }},
    };
    return all;
}

} // namespace tessel::owners
