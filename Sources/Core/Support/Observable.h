#pragma once

#include <functional>
#include <memory>

#include "Token.h"

namespace tessel {

/// Something whose published values can be watched. Main thread only.
class Observable {
public:
    Observable();
    ~Observable();
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    /// `willChange` runs before any published value is replaced; drop the token to stop. The token may
    /// outlive the observed object. An observer may be added or dropped from inside `willChange`.
    [[nodiscard]] Token observe(std::function<void()> willChange);

    /// Tells every observer that a value is about to be replaced.
    void announceChange();

private:
    struct Observers;
    std::shared_ptr<Observers> observers_;
};

} // namespace tessel
