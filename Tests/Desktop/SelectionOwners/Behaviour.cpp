#include "Behaviour.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tessel::owners {

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;

Offer utf8(std::string text)
{
    return {"UTF8_STRING", "UTF8_STRING", 8, std::move(text)};
}

Behaviour ownerOf(std::vector<Offer> offers)
{
    Behaviour behaviour;
    behaviour.offers = std::move(offers);
    return behaviour;
}

Behaviour textOwner(const Options& options)
{
    return ownerOf(
        {utf8(options.text), {"text/plain;charset=utf-8", "text/plain;charset=utf-8", 8, options.text}});
}

std::string contentsOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read the file '" + path + "' (give one with --file)");
    return {std::istreambuf_iterator<char>(file), {}};
}

Offer fileOffer(const Options& options)
{
    const std::string type = options.mime.empty() ? "application/octet-stream" : options.mime;
    return {type, type, 8, contentsOf(options.file)};
}

std::string numberedLines(std::size_t bytes)
{
    std::string text;
    text.reserve(bytes + 64);
    for (std::size_t line = 1; text.size() < bytes; ++line)
        text += "line " + std::to_string(line) + " of a text that comes in increments\n";
    text.resize(bytes);
    return text;
}

Behaviour incrementalOwner(const Options& options)
{
    constexpr std::size_t pieceBytes = std::size_t{256} << 10;
    Behaviour behaviour = ownerOf({utf8(numberedLines(options.megabytes << 20))});
    if (!options.file.empty())
        behaviour.offers = {fileOffer(options)};
    behaviour.incrementBytes = pieceBytes;
    return behaviour;
}

Behaviour shortIncrementalOwner(const Options& options, std::size_t pieceBytes)
{
    Behaviour behaviour = textOwner(options);
    behaviour.incrementBytes = pieceBytes;
    return behaviour;
}

Behaviour dyingOwner(const Options& options, Death death)
{
    Behaviour behaviour = shortIncrementalOwner(options, 4);
    behaviour.death = death;
    return behaviour;
}

} // namespace

const std::vector<NamedBehaviour>& catalogue()
{
    static const std::vector<NamedBehaviour> entries = {
        {"text", "a good owner of the text --text, in one property (obeys section 2)", &textOwner},
        {"file",
         "a good owner of the bytes of --file under the type --mime, in one property or, when they are "
         "large, in "
         "increments (obeys sections 2 and 2.7.2)",
         [](const Options& options) { return ownerOf({fileOffer(options)}); }},
        {"incr",
         "a good owner of a text of --size megabytes, or of --file, in increments of 256 KiB (obeys section "
         "2.7.2)",
         &incrementalOwner},
        {"mute",
         "owns the selection and answers nobody (breaks section 2.2: every request is to be answered)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.answers = Answers::none;
             return behaviour;
         }},
        {"mute-after-targets", "lists its targets and answers nothing else (breaks section 2.2)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.answers = Answers::onlyTargets;
             return behaviour;
         }},
        {"late", "answers everything correctly, after 3 seconds (obeys section 2.2, which sets no time)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.answerDelay = 3s;
             return behaviour;
         }},
        {"dies-before",
         "dies when its text is asked for, before it answers (sections 2.2 and 2.4 warn of it)",
         [](const Options& options) { return dyingOwner(options, Death::whenAsked); }},
        {"dies-during", "dies after half of its increments (section 2.7.2 leaves the requestor waiting)",
         [](const Options& options) { return dyingOwner(options, Death::amidIncrements); }},
        {"dies-at-end",
         "dies with everything sent but the empty increment that ends the transfer (section 2.7.2)",
         [](const Options& options) { return dyingOwner(options, Death::beforeLastPiece); }},
        {"secret",
         "a good owner of a text with x-kde-passwordManagerHint = secret in front of its other targets (a "
         "common "
         "convention, not in the ICCCM)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.offers.insert(behaviour.offers.begin(),
                                     {"x-kde-passwordManagerHint", "x-kde-passwordManagerHint", 8, "secret"});
             return behaviour;
         }},
        {"secret-last", "like secret, with the hint behind all other targets",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.offers.push_back(
                 {"x-kde-passwordManagerHint", "x-kde-passwordManagerHint", 8, "secret"});
             return behaviour;
         }},
        {"refuses",
         "offers text and pictures, and refuses each of them (obeys section 2.2 to the letter, not in "
         "spirit)",
         [](const Options&) {
             Behaviour behaviour;
             behaviour.emptyPromises = {
                 "UTF8_STRING", "text/plain;charset=utf-8", "STRING", "TEXT", "image/png", "image/jpeg",
                 "image/bmp"};
             return behaviour;
         }},
        {"empty-text-with-image",
         "an empty text beside the picture --file of the type --mime (obeys section 2)",
         [](const Options& options) {
             return ownerOf({utf8(""), fileOffer(options)});
         }},
        {"text-with-image", "the text --text beside the picture --file of the type --mime (obeys section 2)",
         [](const Options& options) {
             return ownerOf({utf8(options.text), fileOffer(options)});
         }},
        {"rich-text", "the text --text beside text/html, text/rtf and text/uri-list (obeys section 2)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.offers.push_back({"text/html", "text/html", 8, "<b>" + options.text + "</b>"});
             behaviour.offers.push_back({"text/rtf", "text/rtf", 8, "{\\rtf1 " + options.text + "}"});
             behaviour.offers.push_back({"text/uri-list", "text/uri-list", 8, "file:///tmp/one\r\n"});
             return behaviour;
         }},
        {"drip", "sends one byte a second (obeys section 2.7.2, which sets no pace)",
         [](const Options& options) {
             Behaviour behaviour = shortIncrementalOwner(options, 1);
             behaviour.incrementDelay = 1s;
             return behaviour;
         }},
        {"endless", "sends increments for ever (breaks section 2.7.2: an empty one is to end the transfer)",
         [](const Options& options) {
             Behaviour behaviour = incrementalOwner(options);
             behaviour.isEndless = true;
             return behaviour;
         }},
        {"stalls", "sends two increments and then nothing (breaks section 2.7.2)",
         [](const Options& options) {
             Behaviour behaviour = shortIncrementalOwner(options, 4);
             behaviour.silentAfterIncrements = 2;
             return behaviour;
         }},
        {"liar-type",
         "writes its text under the type INTEGER (breaks section 2.6.2: the target fixes the type)",
         [](const Options& options) {
             return ownerOf({{"UTF8_STRING", "INTEGER", 8, options.text}});
         }},
        {"liar-format", "writes its text with 32 bits to an item (breaks section 2.6.2)",
         [](const Options&) {
             return ownerOf({{"UTF8_STRING", "UTF8_STRING", 32, "four by four    "}});
         }},
        {"liar-length",
         "announces 4 GB and sends the text --text (breaks section 2.7.2: the size is to be a lower bound)",
         [](const Options& options) {
             Behaviour behaviour = shortIncrementalOwner(options, 4);
             behaviour.announcedBytes = 0xFFFFFFFF;
             return behaviour;
         }},
        {"flapping", "takes the selection anew every 10 ms (obeys section 2.1)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.takesAgainEvery = 10ms;
             return behaviour;
         }},
        {"rush",
         "takes the selection 200 times in 2 seconds with a text of its own each time, and keeps the last "
         "(obeys "
         "section 2.1)",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(options.text)});
             behaviour.takesAgainEvery = 10ms;
             behaviour.takesAgainAtMost = 199;
             return behaviour;
         }},
        {"takes-back", "takes the selection back whenever it loses it (allowed by section 2.1, and hostile)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.takesBack = true;
             return behaviour;
         }},
        {"clears", "gives the selection up on purpose after half a second (obeys section 2.3)",
         [](const Options& options) {
             Behaviour behaviour = textOwner(options);
             behaviour.clearsAfter = 500ms;
             return behaviour;
         }},
        {"invalid-utf8",
         "a text with bytes that are not UTF-8 in UTF8_STRING (breaks the definition of that type)",
         [](const Options&) { return ownerOf({utf8("good \xFF\xC3 and \xE4\xB8 good\n")}); }},
        {"latin1", "a text as STRING only, in ISO Latin-1 (obeys section 2.6.2)",
         [](const Options&) {
             return ownerOf({{"STRING", "STRING", 8,
                              "Gr\xFC\xDF"
                              "e aus K\xF6ln"}});
         }},
        {"utf16", "UTF-16 with a byte order mark in text/plain;charset=utf-8 (breaks the type that it names)",
         [](const Options&) {
             return ownerOf(
                 {{"text/plain;charset=utf-8", "text/plain;charset=utf-8", 8, "\xFF\xFEG\0r\0\xFC\0n\0"s}});
         }},
        {"no-targets", "answers UTF8_STRING and STRING, and refuses TARGETS (breaks section 2.6.2)",
         [](const Options& options) {
             Behaviour behaviour = ownerOf({utf8(options.text), {"STRING", "STRING", 8, options.text}});
             behaviour.offers.insert(behaviour.offers.begin(), {"TARGETS", "", 32, ""});
             return behaviour;
         }},
    };
    return entries;
}

} // namespace tessel::owners
