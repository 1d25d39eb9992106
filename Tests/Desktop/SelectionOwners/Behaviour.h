#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::owners {

/// One target with what is sent for it.
struct Offer {
    std::string target;
    std::string type; ///< As written into the property; a liar's differs from the target.
    int format = 8;   ///< 8, 16 or 32 bits to an item.
    std::string bytes;
};

/// When an owner ends its connection, without a word.
enum class Death {
    never,
    whenAsked,       ///< At the first request for anything but TARGETS.
    amidIncrements,  ///< After half of the increments.
    beforeLastPiece, ///< When everything has been sent except for the empty piece that ends it.
};

/// Which requests are answered.
enum class Answers { all, none, onlyTargets };

/// Everything in which one owner can differ from another. The values here are those of a good one (ICCCM
/// section 2).
struct Behaviour {
    std::vector<Offer> offers;
    /// Offered in TARGETS, and refused when asked for.
    std::vector<std::string> emptyPromises;
    Answers answers = Answers::all;
    std::chrono::milliseconds answerDelay{0};

    /// Bytes of an increment (ICCCM section 2.7.2). None: everything in one property.
    std::optional<std::size_t> incrementBytes;
    std::chrono::milliseconds incrementDelay{0};
    /// After so many increments nothing comes any more.
    std::optional<std::size_t> silentAfterIncrements;
    /// Begins again when everything has been sent.
    bool isEndless = false;
    /// The size that the INCR property announces. None: the truth.
    std::optional<std::uint32_t> announcedBytes;

    Death death = Death::never;
    /// Takes the selection again and again at this interval.
    std::optional<std::chrono::milliseconds> takesAgainEvery;
    /// How often at most; none: until it ends. Each time the first text gets the number behind it.
    std::optional<int> takesAgainAtMost;
    /// Takes the selection back whenever somebody else has taken it.
    bool takesBack = false;
    /// Gives the selection up, as a deliberate clear, after this time.
    std::optional<std::chrono::milliseconds> clearsAfter;
};

/// What the caller has asked for.
struct Options {
    std::string text = "text of selection-owners";
    std::string file;
    std::string mime;
    std::size_t megabytes = 8;
};

/// One owner in the catalogue.
struct NamedBehaviour {
    std::string_view name;
    /// What it does, and the section of the ICCCM that it obeys or breaks.
    std::string_view description;
    Behaviour (*make)(const Options& options);
};

/// All of them, in the order in which they are listed.
const std::vector<NamedBehaviour>& catalogue();

} // namespace tessel::owners
