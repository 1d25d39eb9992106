#include "Support/Observable.h"

#include <cstdint>
#include <map>
#include <utility>

namespace tessel {

struct Observable::Observers {
    std::map<std::uint64_t, std::function<void()>> callbacks;
    std::uint64_t next = 0;
};

Observable::Observable()
    : observers_(std::make_shared<Observers>())
{}

Observable::~Observable() = default;

Token Observable::observe(std::function<void()> willChange)
{
    const std::uint64_t key = observers_->next++;
    observers_->callbacks.emplace(key, std::move(willChange));
    return Token([weak = std::weak_ptr(observers_), key] {
        if (const auto observers = weak.lock())
            observers->callbacks.erase(key);
    });
}

void Observable::announceChange()
{
    const auto observers = observers_;
    // An observer may drop itself or another one: walk by key, and call a copy. One that is added meanwhile
    // is told of the next change: else an observer that renews itself would be told of this one for ever.
    const std::uint64_t end = observers->next;
    for (auto entry = observers->callbacks.begin();
         entry != observers->callbacks.end() && entry->first < end;) {
        const std::uint64_t key = entry->first;
        const auto callback = entry->second;
        callback();
        entry = observers->callbacks.upper_bound(key);
    }
}

} // namespace tessel
