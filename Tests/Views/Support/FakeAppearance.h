#pragma once

#include <functional>
#include <map>

#include "Appearance.h"

namespace tessel::test {

/// The user's taste, as a test says it.
class FakeAppearance final : public Appearance {
public:
    const AppearanceSettings& settings() const override { return settings_; }
    Token observe(std::function<void()> didChange) override
    {
        const int number = ++latest_;
        observers_[number] = std::move(didChange);
        return Token([this, number] { observers_.erase(number); });
    }

    void change(const AppearanceSettings& settings)
    {
        settings_ = settings;
        for (const auto& [number, didChange] : observers_)
            didChange();
    }

private:
    AppearanceSettings settings_;
    int latest_ = 0;
    std::map<int, std::function<void()>> observers_;
};

} // namespace tessel::test
