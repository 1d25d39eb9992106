#pragma once

#include <functional>
#include <utility>

#include "Support/Observable.h"

namespace tessel {

/// A value of an observable object. `*property` reads it; `property = value` announces the change, replaces
/// the value and then runs the change handler, on every assignment, whether or not the value differs.
template <class Value>
class Published {
public:
    /// `didSet` does not run for the initial value. The owner must outlive this property.
    Published(Observable& owner, Value initial, std::function<void()> didSet = {})
        : owner_(owner)
        , value_(std::move(initial))
        , didSet_(std::move(didSet))
    {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const Value& operator*() const { return value_; }
    const Value* operator->() const { return &value_; }

    Published& operator=(Value next)
    {
        owner_.announceChange();
        value_ = std::move(next);
        if (didSet_)
            didSet_();
        return *this;
    }

private:
    Observable& owner_;
    Value value_;
    std::function<void()> didSet_;
};

} // namespace tessel
