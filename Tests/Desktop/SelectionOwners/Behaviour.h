#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Offer.h"

namespace tessel::owners {

/// When an owner ends its connection, without a word.
enum class Death {
    never,
    whenAsked,       ///< At the first request for anything but TARGETS.
    amidIncrements,  ///< After half of the increments.
    beforeLastPiece, ///< When everything has been sent except for the empty piece that ends it.
};

/// Which requests are answered.
enum class Answers { all, none, onlyTargets };

/// What is sent for a target that every owner has to support (ICCCM section 2.6.2).
enum class RequiredTarget { good, refused, wrongType, wrongFormat };

/// What becomes of a MULTIPLE request in which not everything can be converted.
enum class MultipleRefusals {
    marked, ///< The target is replaced by None in the list (ICCCM section 2.6.2).
    unmentioned,
};

/// What of an answer differs from the request.
enum class AnswerError { none, otherSelection, otherTarget, otherProperty };

/// Everything in which one owner can differ from another. The values here are those of a good one (ICCCM
/// section 2).
struct Behaviour {
    std::vector<Offer> offers;
    /// Offered in TARGETS, and refused when asked for.
    std::vector<std::string> emptyPromises;
    /// So many invented targets are offered beside the others, and refused when asked for.
    std::size_t inventedTargets = 0;
    RequiredTarget targets = RequiredTarget::good;
    RequiredTarget timestamp = RequiredTarget::good;
    RequiredTarget multiple = RequiredTarget::good;
    MultipleRefusals multipleRefusals = MultipleRefusals::marked;

    Answers answers = Answers::all;
    std::chrono::milliseconds answerDelay{0};
    AnswerError answerError = AnswerError::none;
    bool answersTwice = false;
    /// Refuses requests from before it had the selection (ICCCM section 2.2).
    bool heedsTime = true;
    /// Answers requests without a property (ICCCM section 2.2).
    bool servesObsoleteClients = true;

    /// Bytes of an increment (ICCCM section 2.7.2). None: large values go in increments of a usual size.
    std::optional<std::size_t> incrementBytes;
    std::chrono::milliseconds incrementDelay{0};
    /// Sends also what is large in one property.
    bool sendsWhole = false;
    /// After so many increments nothing comes any more.
    std::optional<std::size_t> silentAfterIncrements;
    /// Begins again when everything has been sent.
    bool isEndless = false;
    /// Writes once more when everything has been sent, and taken.
    bool writesAfterEnd = false;
    /// The size that the INCR property announces. None: the truth.
    std::optional<std::uint32_t> announcedBytes;
    /// The INCR property is empty.
    bool announcesNothing = false;

    Death death = Death::never;
    /// Ends its connection after this time.
    std::optional<std::chrono::milliseconds> endsAfter;
    /// Destroys its window, and keeps its connection, this long after a value has been taken from it.
    std::optional<std::chrono::milliseconds> destroysWindowAfter;
    /// Gives the selection up, as a deliberate clear, this long after a value has been taken from it.
    std::optional<std::chrono::milliseconds> clearsAfter;

    /// Takes the selection again and again at this interval.
    std::optional<std::chrono::milliseconds> takesAgainEvery;
    /// How often at most; none: until it ends. Each time the first text gets the number behind it.
    std::optional<int> takesAgainAtMost;
    /// Takes the selection back whenever somebody else has taken it.
    bool takesBack = false;
    /// Whenever somebody else has taken the selection, copies the text from there and takes it.
    bool copiesOthers = false;
    /// So many clients take the selection, one after the other at the interval `takesAgainEvery`, each with
    /// the first text and its number, and each ends when the next one has taken it.
    int crowdSize = 1;
};

} // namespace tessel::owners
