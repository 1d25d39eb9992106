#pragma once

#include <string>

namespace tessel {

/// A version of the application that somebody can get. All texts are UTF-8 and of bounded length.
struct UpdateItem {
    std::string version;              ///< What it is compared by. Not empty.
    std::string displayVersion;       ///< What its user reads. Not empty.
    std::string minimumSystemVersion; ///< The oldest system that it runs on. Empty: any.
    std::string channel;              ///< Only for who has asked for that channel. Empty: for everybody.
    std::string notes;                ///< What is new, as plain text. May be empty.
    std::string downloadPage;         ///< An `https` address. Empty: there is none.

    bool operator==(const UpdateItem&) const = default;
};

} // namespace tessel
