#include "OfferRecipes.h"
#include "OwnerCatalogue.h"

namespace tessel::owners {

const std::vector<NamedOwner>& goodOwners()
{
    static const std::vector<NamedOwner> all = {
        {"text", Conduct::obeys, "2.2", "owns the text --text, in one property", "gets the text", &textOwner},
        {"file", Conduct::obeys, "2.7.2",
         "owns the bytes of --file under the type --mime, in one property or, when they are large, in "
         "increments",
         "gets the bytes", [](const Options& options) { return ownerOf({fileContents(options)}); }},
        {"incr", Conduct::obeys, "2.7.2",
         "owns a text of --size megabytes (8), or the bytes of --file, in increments of 128 KiB",
         "gets all of it, also 100 MB, without holding anything else up",
         [](const Options& options) {
             Behaviour behaviour = options.file.empty() ? ownerOf({utf8(longText(options, 8))})
                                                        : ownerOf({fileContents(options)});
             behaviour.incrementBytes = usualIncrementBytes;
             return behaviour;
         }},
        {"rich-text", Conduct::obeys, "2.6.2", "owns --text beside text/html, text/rtf and text/uri-list",
         "takes the form that suits it, and makes nothing poorer that it passes on",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.offers.push_back(offer("text/html", "<b>" + options.text + "</b>"));
             behaviour.offers.push_back(offer("text/rtf", "{\\rtf1 " + options.text + "}"));
             behaviour.offers.push_back(offer("text/uri-list", "file:///tmp/one\r\n"));
             return behaviour;
         }},
        {"text-with-image", Conduct::obeys, "2.6.2",
         "owns --text beside the picture --file of the type --mime (a small PNG)", "may take either",
         [](const Options& options) {
             return ownerOf({utf8(options.text), picture(options)});
         }},
        {"empty-text-with-image", Conduct::obeys, "2.6.2",
         "owns an empty text beside the picture --file of the type --mime (a small PNG)",
         "does not take the empty text for the whole value",
         [](const Options& options) {
             return ownerOf({utf8(""), picture(options)});
         }},
        {"secret", Conduct::obeys, "2.6.2",
         "owns --text with x-kde-passwordManagerHint = secret in front of its other targets (a common "
         "convention, "
         "not in the ICCCM)",
         "pastes it, and does not record it",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.offers.insert(behaviour.offers.begin(), secretHint());
             return behaviour;
         }},
        {"secret-last", Conduct::obeys, "2.6.2", "like secret, with the hint behind all other targets",
         "looks for the hint before it looks at the text",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.offers.push_back(secretHint());
             return behaviour;
         }},
        {"secret-fast", Conduct::obeys, "2.3.1", "like secret, and disconnects after 100 ms",
         "records nothing, and does not keep the secret alive",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.offers.insert(behaviour.offers.begin(), secretHint());
             behaviour.endsAfter = std::chrono::milliseconds{100};
             return behaviour;
         }},
    };
    return all;
}

} // namespace tessel::owners
