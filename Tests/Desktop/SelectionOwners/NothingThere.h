#pragma once

#include <stdexcept>

namespace tessel::owners {

/// There is no display, or nobody owns the selection: nothing can be said about an owner.
class NothingThere : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessel::owners
