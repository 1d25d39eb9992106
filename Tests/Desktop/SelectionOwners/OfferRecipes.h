#pragma once

#include <string>
#include <vector>

#include "Behaviour.h"
#include "Options.h"

namespace tessel::owners {

// What the catalogues of owners are made from.

/// Less than what every server takes in one request, as increments are to be (ICCCM section 2.7.2).
constexpr std::size_t usualIncrementBytes = std::size_t{128} << 10;

Offer utf8(std::string text);
/// The bytes under this target and type.
Offer typed(const std::string& target, const std::string& type, int format, std::string bytes);
/// The hint by which password managers mark a secret.
Offer secretHint();
/// The bytes of --file under the type --mime; without a file a small PNG. Throws when it cannot be read.
Offer picture(const Options& options);
/// The same without the PNG.
Offer fileContents(const Options& options);

Behaviour ownerOf(std::vector<Offer> offers);
/// The text --text as UTF8_STRING and as text/plain;charset=utf-8.
Behaviour textOwner(const Options& options);
/// That text in pieces of so many bytes.
Behaviour textInPieces(const Options& options, std::size_t pieceBytes);
/// A text of --size megabytes, numbered line by line.
std::string longText(const Options& options, std::size_t usualMegabytes);

} // namespace tessel::owners
