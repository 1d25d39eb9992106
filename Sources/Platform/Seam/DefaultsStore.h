#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessel {

/// The per-user key-value store (`NSUserDefaults.standardUserDefaults`). Writing never fails visibly: a store
/// that cannot write keeps the value for the life of the process.
class DefaultsStore {
public:
    virtual ~DefaultsStore() = default;

    /// None: the key is missing or its value is not a string.
    virtual std::optional<std::string> string(std::string_view key) const = 0;
    /// None: the key is missing or its value is not a number.
    virtual std::optional<double> number(std::string_view key) const = 0;

    virtual void setString(std::string_view key, std::string_view value) = 0;
    virtual void setDouble(std::string_view key, double value) = 0;
};

} // namespace tessel
