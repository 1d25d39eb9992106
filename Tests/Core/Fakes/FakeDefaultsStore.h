#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "DefaultsStore.h"
#include "Fakes/CallLog.h"

namespace tessel::test {

/// A store in memory that keeps strings and numbers apart and records every write.
class FakeDefaultsStore final : public DefaultsStore {
public:
    using StoredValue = std::variant<std::string, double>;

    explicit FakeDefaultsStore(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    /// What an earlier run has left. Not recorded as a write.
    void putStored(std::string_view key, std::string_view text)
    {
        values_[std::string(key)] = std::string(text);
    }
    void putStored(std::string_view key, double number) { values_[std::string(key)] = number; }

    /// Every write, oldest first.
    const std::vector<std::pair<std::string, StoredValue>>& writes() const { return writes_; }
    void forgetWrites() { writes_.clear(); }

    std::optional<std::string> string(std::string_view key) const override { return read<std::string>(key); }
    std::optional<double> number(std::string_view key) const override { return read<double>(key); }
    void setString(std::string_view key, std::string_view value) override { write(key, std::string(value)); }
    void setDouble(std::string_view key, double value) override { write(key, value); }

private:
    template <class Value>
    std::optional<Value> read(std::string_view key) const
    {
        log_->read("defaults.read " + std::string(key));
        const auto found = values_.find(key);
        if (found == values_.end() || !std::holds_alternative<Value>(found->second))
            return std::nullopt;
        return std::get<Value>(found->second);
    }
    void write(std::string_view key, StoredValue value)
    {
        log_->effect("defaults.write " + std::string(key));
        values_[std::string(key)] = value;
        writes_.emplace_back(key, std::move(value));
    }

    std::shared_ptr<CallLog> log_;
    std::map<std::string, StoredValue, std::less<>> values_;
    std::vector<std::pair<std::string, StoredValue>> writes_;
};

} // namespace tessel::test
