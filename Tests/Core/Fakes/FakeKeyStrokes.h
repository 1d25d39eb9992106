#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "Fakes/CallLog.h"
#include "KeyStrokes.h"

namespace tessel::test {

/// Records the key strokes that would be posted.
class FakeKeyStrokes final : public KeyStrokes {
public:
    struct Stroke {
        std::uint16_t keyCode = 0;
        ModifierFlags flags = ModifierFlags::none;
        std::optional<ProcessIdentifier> process;

        friend bool operator==(const Stroke&, const Stroke&) = default;
    };

    explicit FakeKeyStrokes(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    const std::vector<Stroke>& strokes() const { return strokes_; }

    void postKeyStroke(std::uint16_t keyCode, ModifierFlags flags,
                       std::optional<ProcessIdentifier> process) override
    {
        log_->effect("keyStrokes.post");
        strokes_.push_back({keyCode, flags, process});
    }

private:
    std::shared_ptr<CallLog> log_;
    std::vector<Stroke> strokes_;
};

} // namespace tessel::test
