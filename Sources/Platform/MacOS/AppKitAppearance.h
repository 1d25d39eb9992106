#pragma once

#include <functional>
#include <memory>

#include "Appearance.h"
#include "ObserverList.h"

namespace tessel {

/// The application's effective appearance, the accent colour, and whether things may move. Follows their
/// changes for as long as it lives.
class AppKitAppearance final : public Appearance {
public:
    AppKitAppearance();
    ~AppKitAppearance() override;
    AppKitAppearance(const AppKitAppearance&) = delete;
    AppKitAppearance& operator=(const AppKitAppearance&) = delete;

    const AppearanceSettings& settings() const override { return settings_; }
    Token observe(std::function<void()> didChange) override { return observers_.add(std::move(didChange)); }

private:
    struct Native;

    void readAgain();

    AppearanceSettings settings_;
    ObserverList<> observers_;
    std::unique_ptr<Native> native_;
};

} // namespace tessel
