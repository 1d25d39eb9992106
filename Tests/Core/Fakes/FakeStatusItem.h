#pragma once

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "StatusItem.h"

namespace tessel::test {

/// A menu bar that shows the item when a test says so.
class FakeStatusItem final : public StatusItem {
public:
    /// None: it has not been shown yet.
    std::optional<StatusItemDescription> description;
    std::vector<StatusMenuRow> rows;
    int menusSet = 0;

    void show(StatusItemDescription shown) override { description = std::move(shown); }
    void setMenu(std::vector<StatusMenuRow> menu) override
    {
        rows = std::move(menu);
        ++menusSet;
    }
    bool isShown() const override { return isShown_; }
    Token observe(std::function<void()> didChange) override
    {
        const int number = ++latest_;
        observers_[number] = std::move(didChange);
        return Token([this, number] { observers_.erase(number); });
    }

    /// A menu bar comes or goes.
    void setShown(bool isShown)
    {
        isShown_ = isShown;
        for (const auto& [number, didChange] : observers_)
            didChange();
    }
    /// The user chooses a row. Throws where no row that can be chosen has that title.
    void choose(std::string_view title) const
    {
        for (const StatusMenuRow& row : rows) {
            if (row.kind == StatusMenuRow::Kind::action && row.title == title)
                return row.chosen();
        }
        throw std::logic_error("There is no such row.");
    }

private:
    bool isShown_ = false;
    int latest_ = 0;
    std::map<int, std::function<void()>> observers_;
};

} // namespace tessel::test
