#pragma once

#include <memory>

#include "DefaultsStore.h"

namespace tessel {

/// `NSUserDefaults`.
class UserDefaultsStore final : public DefaultsStore {
public:
    /// The application's own (`standardUserDefaults`).
    UserDefaultsStore();
    /// A domain beside them, by its name.
    explicit UserDefaultsStore(std::string_view domain);
    ~UserDefaultsStore() override;

    std::optional<std::string> string(std::string_view key) const override;
    std::optional<double> number(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    void setDouble(std::string_view key, double value) override;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace tessel
