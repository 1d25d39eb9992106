#include "ScrollWatch.h"

#include "Damage.h"
#include "ProcessFigures.h"

namespace tessel::bench {

namespace {

using namespace std::chrono_literals;
using desktop::Deadline;
using desktop::PointerButton;
using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int turnsEachWay = 80;
constexpr auto turnInterval = 25ms;
/// What is painted within this time belongs to one frame.
constexpr auto oneFrame = 3ms;
/// A longer interval is a rest, not a frame that came late.
constexpr auto rest = 200ms;

/// Collects the moments at which frames are painted.
class FrameWatch {
public:
    explicit FrameWatch(desktop::XConnection& connection)
        : connection_(connection)
    {
        announceDamage(connection_);
    }

    void watchFor(std::chrono::milliseconds span)
    {
        const Deadline end(span);
        while (connection_.nextEvent(end)) {
            const auto now = steady_clock::now();
            if (frames_.empty() || now - frames_.back() > oneFrame)
                frames_.push_back(now);
        }
    }

    std::size_t frameCount() const { return frames_.size(); }

    std::vector<microseconds> intervals() const
    {
        std::vector<microseconds> intervals;
        for (std::size_t frame = 1; frame < frames_.size(); ++frame) {
            const auto interval = frames_[frame] - frames_[frame - 1];
            if (interval < rest)
                intervals.push_back(std::chrono::duration_cast<microseconds>(interval));
        }
        return intervals;
    }

private:
    desktop::XConnection& connection_;
    std::vector<steady_clock::time_point> frames_;
};

} // namespace

Scrolling measureScrolling(desktop::Desktop& desktop, desktop::Program& program)
{
    const auto frame = program.openPanel().frame;
    desktop.pointer().moveTo({frame.x + frame.width / 2, frame.y + frame.height / 2});
    desktop.connection().synchronize();
    desktop::XConnection connection(desktop.displayName());
    FrameWatch watch(connection);
    const auto before = desktop::usage(program.process().pid());
    for (const auto direction : {PointerButton::wheelDown, PointerButton::wheelUp}) {
        for (int turn = 0; turn < turnsEachWay; ++turn) {
            desktop.pointer().click(direction);
            watch.watchFor(turnInterval);
        }
    }
    const auto used = desktop::usage(program.process().pid()) - before;
    program.closePanel();
    if (watch.frameCount() < turnsEachWay)
        throw desktop::DesktopFailure("the list did not move under the wheel");
    return {watch.intervals(),
            std::chrono::duration_cast<microseconds>(used.processorTime / watch.frameCount())};
}

} // namespace tessel::bench
