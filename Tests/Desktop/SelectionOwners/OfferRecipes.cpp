#include "OfferRecipes.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "SamplePictures.h"

namespace tessel::owners {

namespace {

std::string contentsOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::invalid_argument("cannot read the file '" + path + "' (give one with --file)");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

Offer utf8(std::string text)
{
    return offer("UTF8_STRING", std::move(text));
}

Offer typed(const std::string& target, const std::string& type, int format, std::string bytes)
{
    return {target, type, format, std::make_shared<const std::string>(std::move(bytes))};
}

Offer secretHint()
{
    return offer("x-kde-passwordManagerHint", "secret");
}

Offer picture(const Options& options)
{
    return options.file.empty() ? offer("image/png", samplePng()) : fileContents(options);
}

Offer fileContents(const Options& options)
{
    return offer(options.mime.empty() ? "application/octet-stream" : options.mime, contentsOf(options.file));
}

Behaviour ownerOf(std::vector<Offer> offers)
{
    Behaviour behaviour;
    behaviour.offers = std::move(offers);
    return behaviour;
}

Behaviour textOwner(const Options& options)
{
    return ownerOf({utf8(options.text), offer("text/plain;charset=utf-8", options.text)});
}

Behaviour textInPieces(const Options& options, std::size_t pieceBytes)
{
    Behaviour behaviour = textOwner(options);
    behaviour.incrementBytes = pieceBytes;
    return behaviour;
}

std::string longText(const Options& options, std::size_t usualMegabytes)
{
    const std::size_t bytes = options.megabytes.value_or(usualMegabytes) << 20;
    std::string text;
    text.reserve(bytes + 64);
    for (std::size_t line = 1; text.size() < bytes; ++line)
        text += "line " + std::to_string(line) + " of a text that comes in increments\n";
    text.resize(bytes);
    return text;
}

} // namespace tessel::owners
