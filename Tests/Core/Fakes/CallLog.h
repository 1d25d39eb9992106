#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tessel::test {

/// The calls that the fakes have received, in order. All fakes of one desktop share one log, so that the
/// order of calls to different facilities can be seen.
class CallLog {
public:
    /// Records a call that changes something.
    void effect(std::string call)
    {
        everything_.push_back(call);
        effects_.push_back(std::move(call));
    }
    /// Records a question.
    void read(std::string call) { everything_.push_back(std::move(call)); }

    /// The calls that changed something.
    const std::vector<std::string>& effects() const { return effects_; }
    /// Those and the questions.
    const std::vector<std::string>& everything() const { return everything_; }

    void forget()
    {
        everything_.clear();
        effects_.clear();
    }

private:
    std::vector<std::string> everything_;
    std::vector<std::string> effects_;
};

} // namespace tessel::test
