#include "OfferRecipes.h"
#include "OwnerCatalogue.h"
#include "SamplePictures.h"

namespace tessel::owners {

namespace {

using namespace std::string_literals;

Behaviour utf16Owner(std::string bytes)
{
    return ownerOf({offer("text/plain;charset=utf-8", std::move(bytes))});
}

} // namespace

const std::vector<NamedOwner>& textFormOwners()
{
    static const std::vector<NamedOwner> all = {
        {"latin1", Conduct::obeys, "2.6.2", "owns a text as STRING only, in ISO Latin-1",
         "asks for STRING where there is nothing better, and decodes it",
         [](const Options&) {
             return ownerOf({offer("STRING", "Gr\xFC\xDF"
                                             "e aus K\xF6ln")});
         }},
        {"text-target", Conduct::obeys, "2.6.2",
         "owns a text under the target TEXT only, and answers it as STRING in ISO Latin-1",
         "asks for TEXT, and goes by the type that comes",
         [](const Options&) {
             return ownerOf({typed("TEXT", "STRING", 8,
                                   "Gr\xFC\xDF"
                                   "e aus K\xF6ln")});
         }},
        {"compound-text", Conduct::obeys, "2.7.1",
         "owns a text with Greek letters as COMPOUND_TEXT only, as very old programs do",
         "decodes it, or treats it as no text",
         [](const Options&) {
             // ISO 2022: Latin-1 to begin with, then the right-hand part of ISO 8859-7.
             return ownerOf({offer("COMPOUND_TEXT", "Gr\xFC\xDF"
                                                    "e \x1B\x2D\x46\xE1\xE2\xE3")});
         }},
        {"invalid-utf8", Conduct::breaks, "2.6.2", "owns a text in UTF8_STRING with bytes that are not UTF-8",
         "repairs the text, and does not drop it",
         [](const Options&) { return ownerOf({utf8("good \xFF\xC3 and \xE4\xB8 good\n")}); }},
        {"utf16", Conduct::breaks, "2.6.2",
         "owns UTF-16, little-endian with a byte order mark, in text/plain;charset=utf-8",
         "decodes it or repairs it, and does not crash",
         [](const Options&) { return utf16Owner("\xFF\xFEG\0r\0\xFC\0n\0"s); }},
        {"utf16-big-endian", Conduct::breaks, "2.6.2", "like utf16, big-endian", "like utf16",
         [](const Options&) { return utf16Owner("\xFE\xFF\0G\0r\0\xFC\0n"s); }},
        {"utf16-unmarked", Conduct::breaks, "2.6.2", "like utf16, without a byte order mark",
         "takes the zero bytes as they are, or as UTF-16",
         [](const Options&) { return utf16Owner("G\0r\0\xFC\0n\0"s); }},
        {"utf16-big-endian-unmarked", Conduct::breaks, "2.6.2",
         "like utf16-big-endian, without a byte order mark", "like utf16-unmarked",
         [](const Options&) { return utf16Owner("\0G\0r\0\xFC\0n"s); }},
        {"jpeg-as-png", Conduct::breaks, "2.6.2", "owns a JPEG file under image/png",
         "decodes the picture by its bytes, or treats it as damaged",
         [](const Options&) { return ownerOf({offer("image/png", sampleJpeg())}); }},
        {"broken-png", Conduct::breaks, "2.6.2", "owns half a PNG file under image/png",
         "treats it as damaged, and goes on",
         [](const Options&) {
             const std::string whole = samplePng();
             return ownerOf({offer("image/png", whole.substr(0, whole.size() / 2))});
         }},
    };
    return all;
}

} // namespace tessel::owners
