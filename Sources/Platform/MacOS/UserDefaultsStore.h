#pragma once

#include <memory>

#include "DefaultsStore.h"

namespace tessel {

/// `NSUserDefaults.standardUserDefaults`.
class UserDefaultsStore final : public DefaultsStore {
public:
    UserDefaultsStore();
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
