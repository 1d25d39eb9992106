#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <utility>

#include "Updates/UpdateUserDriver.h"

namespace tessel::test {

/// A user who looks at what is shown, and answers when a test says so.
class FakeUpdateUserDriver final : public UpdateUserDriver {
public:
    std::optional<UpdateStatus> shown; ///< Now. None: nothing.
    UpdateOccasion occasion = UpdateOccasion::unasked;
    int timesShown = 0;
    int timesForward = 0;

    template <class Status>
    bool shows() const
    {
        return shown && std::holds_alternative<Status>(*shown);
    }
    template <class Status>
    const Status& status() const
    {
        return std::get<Status>(shown.value());
    }
    void answer(UpdateAnswer answer)
    {
        if (!answer_)
            throw std::logic_error("Nothing is shown that could be answered.");
        std::exchange(answer_, nullptr)(answer);
    }

    void show(const UpdateStatus& status, UpdateOccasion newOccasion,
              std::function<void(UpdateAnswer)> answer) override
    {
        shown = status;
        occasion = newOccasion;
        answer_ = std::move(answer);
        ++timesShown;
    }
    void bringForward() override { ++timesForward; }
    void close() override
    {
        shown.reset();
        answer_ = nullptr;
    }

private:
    std::function<void(UpdateAnswer)> answer_;
};

} // namespace tessel::test
