#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "Token.h"

namespace tessel {

/// Those who want to be told. An observer may come, go, or end the list's owner while it is being told.
template <class... Arguments>
class ObserverList {
public:
    using Observer = std::function<void(Arguments...)>;

    Token add(Observer observer)
    {
        const std::uint64_t id = ++entries_->lastId;
        entries_->list.emplace_back(id, std::move(observer));
        return Token([weak = std::weak_ptr(entries_), id] {
            if (const auto entries = weak.lock())
                std::erase_if(entries->list, [id](const auto& entry) { return entry.first == id; });
        });
    }

    /// Tells those who are in the list now and have not gone when their turn comes.
    void tell(Arguments... arguments) const
    {
        const std::weak_ptr<Entries> weak = entries_;
        std::vector<std::uint64_t> ids;
        for (const auto& entry : entries_->list)
            ids.push_back(entry.first);
        for (const std::uint64_t id : ids) {
            const auto entries = weak.lock();
            if (!entries)
                return;
            const auto found = std::find_if(entries->list.begin(), entries->list.end(),
                                            [id](const auto& entry) { return entry.first == id; });
            if (found == entries->list.end())
                continue;
            const Observer observer = found->second;
            observer(arguments...);
        }
    }

private:
    struct Entries {
        std::uint64_t lastId = 0;
        std::vector<std::pair<std::uint64_t, Observer>> list;
    };

    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

} // namespace tessel
