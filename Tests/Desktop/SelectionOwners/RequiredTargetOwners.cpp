#include "OfferRecipes.h"
#include "OwnerCatalogue.h"

namespace tessel::owners {

namespace {

Behaviour targetsOwner(const Options& options, RequiredTarget manner)
{
    Behaviour behaviour = textOwner(options);
    behaviour.targets = manner;
    return behaviour;
}

} // namespace

const std::vector<NamedOwner>& requiredTargetOwners()
{
    static const std::vector<NamedOwner> all = {
        {"no-targets", Conduct::breaks, "2.6.2", "answers UTF8_STRING and STRING, and refuses TARGETS",
         "asks for text all the same, or treats it as no value",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(options.text), offer("STRING", options.text)});
             behaviour.targets = RequiredTarget::refused;
             return behaviour;
         }},
        {"targets-type", Conduct::breaks, "2.6.2", "lists its targets under another type than ATOM",
         "reads the list all the same, or treats it as none",
         [](const Options& options) { return targetsOwner(options, RequiredTarget::wrongType); }},
        {"targets-format", Conduct::breaks, "2.6.2", "lists its targets with 8 bits to an item",
         "reads no atoms from it",
         [](const Options& options) { return targetsOwner(options, RequiredTarget::wrongFormat); }},
        {"many-targets", Conduct::breaks, "2.6.2",
         "offers --text and 100,000 invented targets that it refuses (the names stay in the X server until "
         "that "
         "ends)",
         "asks for what it knows, and not for 100,000 names one by one",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.inventedTargets = 100'000;
             return behaviour;
         }},
        {"no-timestamp", Conduct::breaks, "2.6.2", "refuses TIMESTAMP", "does without",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.timestamp = RequiredTarget::refused;
             return behaviour;
         }},
        {"no-multiple", Conduct::breaks, "2.6.2", "refuses MULTIPLE", "asks for one target after the other",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.multiple = RequiredTarget::refused;
             return behaviour;
         }},
        {"careless-multiple", Conduct::breaks, "2.6.2",
         "serves MULTIPLE, and does not say which of its targets it refused",
         "notices that the property is missing",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.multipleRefusals = MultipleRefusals::unmentioned;
             return behaviour;
         }},
    };
    return all;
}

} // namespace tessel::owners
