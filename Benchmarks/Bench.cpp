// Measures the running program against its budgets, on a desktop of its own.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "ClientFiles.h"
#include "ClipboardOwner.h"
#include "ClipboardReader.h"
#include "Desktop.h"
#include "HoldUpWatch.h"
#include "OpenWindows.h"
#include "OpeningWatch.h"
#include "PeakMemory.h"
#include "PollCost.h"
#include "ProcessFigures.h"
#include "Program.h"
#include "Report.h"
#include "ScrollWatch.h"
#include "SelectionWatch.h"

namespace tessel::bench {

namespace {

using desktop::anonymousMegabytes;
using desktop::ChildProcess;
using desktop::ClipboardOwner;
using desktop::Desktop;
using desktop::DesktopFailure;
using desktop::HoldUp;
using desktop::HoldUpWatch;
using desktop::Program;
using desktop::usage;
using namespace std::chrono_literals;

/// The program looks at the clipboard every 0.7 seconds: what is copied this much apart is captured each
/// time.
constexpr auto captureInterval = 800ms;
constexpr int openingCount = 60;
constexpr int firstOpeningCount = 5;
constexpr auto idleSpan = 20s;
constexpr double secondsPerMinute = 60;
constexpr double bytesPerMegabyte = 1024 * 1024;
constexpr std::size_t largeText = 100 * 1024 * 1024;

double milliseconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

double seconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double>(time).count();
}

/// What the processor does for the copies alone.
struct CopyCost {
    double millisecondsPerCopy;
    HoldUp holdUp;
};

class Bench {
public:
    Report run()
    {
        std::fprintf(stderr, "Measuring; this takes about four minutes.\n");
        section({"a bare Qt window"}, [this] { measureBareWindow(); });
        section({"first opening after the start"}, [this] { measureFirstOpenings(); });
        section({"start to first value"}, [this] { measureStart(); });
        section({"hot key to panel, 0 entries"}, [this] { measureEmptyOpenings(); });
        section({"the program"}, [this] { startProgram(); });
        if (!program_)
            return report_;
        section({"anonymous memory, idle", "processor time per idle minute", "wake-ups"},
                [this] { measureIdle(); });
        section({"100 texts"}, [this] { copyHundredTexts(); });
        section({"hot key to panel, 100 entries"}, [this] { measureFullOpenings(); });
        section({"scrolling"}, [this] { measureScrolling(); });
        section({"1 kB of text"}, [this] { measureTextCopies(); });
        section({"a 1920 x 1080 PNG"}, [this] { measurePictureCopies(); });
        section({"20 pictures"}, [this] { measurePictureMemory(); });
        section({"exactly 100 entries"}, [this] { checkEntries(); });
        section({"the end"}, [this] { quit(); });
        section({"both windows open"}, [this] { measureOpenWindows(); });
        section({"100 MB of text"}, [this] { measureLargeText(); });
        section({"a 7680 x 4320 PNG"}, [this] { measureLargePicture(); });
        section({"a poll"}, [this] { measurePolls(); });
        return report_;
    }

private:
    void section(const std::vector<std::string>& lines, const std::function<void()>& measure)
    {
        try {
            measure();
        } catch (const std::exception& failure) {
            report_.addFailure(lines, failure.what());
        }
    }

    void measureBareWindow()
    {
        ChildProcess bare({desktop::clientFile("qt-bare-window").string()}, desktop_.environment());
        bare.waitForLine("ready");
        std::this_thread::sleep_for(1s);
        bareIdle_ = anonymousMegabytes(bare.pid());
        OpeningWatch watch(desktop_, OpeningWatch::Painted::anything);
        std::vector<std::chrono::microseconds> openings;
        for (int opening = 0; opening < openingCount; ++opening) {
            openings.push_back(watch.measureOpening());
            desktop_.windows().waitFor("the bare window", desktop::isViewableWithTitle("qt-bare-window"));
            desktop_.keyboard().chord({XKB_KEY_Super_L, XKB_KEY_Shift_L}, XKB_KEY_v);
            desktop_.windows().waitUntilNone("the bare window to close",
                                             desktop::isViewableWithTitle("qt-bare-window"));
        }
        bareFirstOpening_ = figures({openings.front()}).median;
        bareOpening_ = figures(openings);
        bareAfterOpenings_ = anonymousMegabytes(bare.pid());
    }

    void measureFirstOpenings()
    {
        std::vector<std::chrono::microseconds> openings;
        for (int start = 0; start < firstOpeningCount; ++start) {
            Program program(desktop_);
            OpeningWatch watch(desktop_, OpeningWatch::Painted::title);
            openings.push_back(watch.measureOpening());
            program.panel().waitUntilOpen();
            program.closePanel();
            program.quit();
        }
        report_.add({"first opening after the start, median of " + std::to_string(firstOpeningCount), "ms",
                     figures(openings).median, bareFirstOpening_, 30, ""});
    }

    /// Something is copied again and again while the program starts, until it asks for a value.
    void measureStart()
    {
        std::vector<std::chrono::microseconds> starts;
        for (int start = 0; start < firstOpeningCount; ++start) {
            owner_.copyText("before");
            const auto started = std::chrono::steady_clock::now();
            ChildProcess process({Program::executable().string()}, desktop_.environment());
            for (int number = 0; owner_.requestCount("UTF8_STRING") == 0; ++number) {
                if (std::chrono::steady_clock::now() - started > 10s)
                    throw DesktopFailure("the program did not ask for any value");
                owner_.copyText(std::to_string(number));
                std::this_thread::sleep_for(1ms);
            }
            starts.push_back(std::chrono::duration_cast<std::chrono::microseconds>(
                std::chrono::steady_clock::now() - started));
        }
        report_.add({"start to first value asked for, median of " + std::to_string(firstOpeningCount),
                     "ms",
                     figures(starts).median,
                     {},
                     60,
                     ""});
    }

    void startProgram() { program_ = std::make_unique<Program>(desktop_); }

    pid_t process() { return program_->process().pid(); }

    void measureIdle()
    {
        std::this_thread::sleep_for(2s);
        report_.add({"anonymous memory, idle", "MB", anonymousMegabytes(process()), bareIdle_, 4, ""});
        const auto before = usage(process());
        std::this_thread::sleep_for(idleSpan);
        const auto used = usage(process()) - before;
        idleProcessorShare_ = seconds(used.processorTime) / seconds(idleSpan);
        report_.add({"processor time per idle minute",
                     "ms",
                     milliseconds(used.processorTime) / seconds(idleSpan) * secondsPerMinute,
                     {},
                     10,
                     ""});
        report_.add({"wake-ups per idle second, all threads",
                     "",
                     static_cast<double>(used.wakeUps) / seconds(idleSpan),
                     {},
                     2,
                     ""});
    }

    void measureEmptyOpenings()
    {
        Program program(desktop_);
        measureOpenings(program, "0 entries", OpeningWatch::Painted::title, 9);
        program.quit();
    }

    void measureFullOpenings()
    {
        measureOpenings(*program_, "100 entries", OpeningWatch::Painted::titleAndRow, 12);
        report_.add({"anonymous memory, after " + std::to_string(openingCount) + " openings with 100 texts",
                     "MB", anonymousMegabytes(process()), bareAfterOpenings_, 6, ""});
    }

    void measureOpenings(Program& program, const std::string& entries, OpeningWatch::Painted painted,
                         double medianBudget)
    {
        OpeningWatch watch(desktop_, painted);
        std::vector<std::chrono::microseconds> openings;
        for (int opening = 0; opening < openingCount; ++opening) {
            openings.push_back(watch.measureOpening());
            program.panel().waitUntilOpen();
            program.closePanel();
        }
        const auto opened = figures(openings);
        const auto name = "hot key to painted panel, " + entries;
        report_.add({name + ", median", "ms", opened.median, bareOpening_.median, medianBudget, ""});
        report_.add({name + ", median, beside a bare window + 5 ms", "ms", opened.median, bareOpening_.median,
                     bareOpening_.median + 5, ""});
        report_.add(
            {name + ", 99th percentile", "ms", opened.percentile99, bareOpening_.percentile99, 16.7, ""});
    }

    void measureScrolling()
    {
        constexpr double frame = 16.7; // At 60 frames a second.
        const auto scrolling = bench::measureScrolling(desktop_, *program_);
        const auto intervals = figures(scrolling.frameIntervals);
        const auto count = std::to_string(scrolling.frameIntervals.size()) + " frames";
        report_.add(
            {"wheel over 100 entries: frame to frame, median", "ms", intervals.median, {}, frame, count});
        report_.add({"wheel over 100 entries: frame to frame, 99th percentile, one late frame",
                     "ms",
                     intervals.percentile99,
                     {},
                     2 * frame,
                     ""});
        report_.add({"wheel over 100 entries: processor time of a frame",
                     "ms",
                     milliseconds(scrolling.processorTimePerFrame),
                     {},
                     frame,
                     ""});
    }

    void copyHundredTexts()
    {
        for (int number = 1; number <= 100; ++number)
            copyText("value " + std::to_string(number) + " of a history");
        report_.add({"anonymous memory, after 100 texts", "MB", anonymousMegabytes(process()), {}, 5, ""});
    }

    /// Copies a text with the panel closed, and leaves the program the time to capture it.
    void copyText(const std::string& text)
    {
        owner_.copyText(text);
        owner_.waitForRequest("UTF8_STRING");
        std::this_thread::sleep_for(captureInterval);
    }

    CopyCost measureCopies(int count, const std::function<void(int)>& copy)
    {
        const auto before = usage(process());
        const auto started = std::chrono::steady_clock::now();
        for (int number = 0; number < count; ++number)
            copy(number);
        const auto span = std::chrono::steady_clock::now() - started;
        const auto used = milliseconds((usage(process()) - before).processorTime);
        const auto idleShare = idleProcessorShare_ * milliseconds(span);

        // Once more under a heartbeat, which costs the program time of its own.
        const auto holdUp = measureHoldUp(process(), [&] {
            for (int number = count; number < 2 * count; ++number)
                copy(number);
        });
        return {(used - idleShare) / count, holdUp};
    }

    HoldUp measureHoldUp(pid_t program, const std::function<void()>& work)
    {
        HoldUpWatch watch(desktop_, program);
        work();
        return watch.finish();
    }

    void reportHoldUp(const std::string& what, HoldUp holdUp)
    {
        // One frame more than an idle process.
        constexpr double frame = 16;
        const auto idle = milliseconds(holdUp.idle);
        report_.add(
            {"main thread held up by " + what, "ms", milliseconds(holdUp.program), idle, idle + frame, ""});
    }

    void measureTextCopies()
    {
        const auto cost = measureCopies(10, [this](int number) {
            std::string text = std::to_string(number) + " ";
            text.resize(1000, 'x');
            copyText(text);
        });
        report_.add({"processor time of a copy of 1 kB of text, 100 entries",
                     "ms",
                     cost.millisecondsPerCopy,
                     {},
                     1,
                     ""});
        reportHoldUp("1 kB of text", cost.holdUp);
    }

    void measurePictureCopies()
    {
        constexpr int count = 4;
        std::vector<std::string> pictures;
        for (std::uint32_t seed = 0; seed < 2 * count; ++seed)
            pictures.push_back(encodePng(desktop::makeTestPicture(1920, 1080, seed)));
        const auto cost = measureCopies(
            count, [&](int number) { copyPicture(pictures[static_cast<std::size_t>(number)]); });
        pictureCount_ = 2 * count;
        report_.add({"processor time of a copy of a 1920 x 1080 PNG",
                     "ms",
                     cost.millisecondsPerCopy,
                     {},
                     60,
                     std::to_string(pictures.front().size() / 1024) + " kB each"});
        reportHoldUp("a 1920 x 1080 PNG", cost.holdUp);
    }

    void measurePictureMemory()
    {
        constexpr int count = 20;
        const auto before = anonymousMegabytes(process());
        double encoded = 0;
        for (std::uint32_t seed = 100; seed < 100 + count; ++seed) {
            const auto picture = encodePng(desktop::makeTestPicture(1920, 1080, seed));
            encoded += static_cast<double>(picture.size()) / bytesPerMegabyte;
            copyPicture(picture);
        }
        pictureCount_ += count;
        report_.add({"anonymous memory for 20 pictures of 1920 x 1080, beyond their PNGs",
                     "MB",
                     anonymousMegabytes(process()) - before - encoded,
                     {},
                     2,
                     "the PNGs are " + std::to_string(static_cast<int>(encoded)) + " MB"});
    }

    void copyPicture(const std::string& bytes)
    {
        owner_.copyPng(bytes);
        owner_.waitForRequest("image/png");
        std::this_thread::sleep_for(captureInterval);
    }

    void measureLargeText()
    {
        Program program(desktop_);
        const auto process = program.process().pid();
        std::this_thread::sleep_for(1s);
        const auto idle = anonymousMegabytes(process);
        std::string text;
        text.reserve(largeText);
        while (text.size() < largeText)
            text += "line " + std::to_string(text.size()) + " of a very large text\n";
        text.resize(largeText);

        PeakMemory memory(process);
        std::chrono::nanoseconds receiving{};
        const auto holdUp = measureHoldUp(process, [&] {
            const auto started = std::chrono::steady_clock::now();
            owner_.copyText(text);
            owner_.waitForCompletion("UTF8_STRING", desktop::Deadline(60s));
            receiving = std::chrono::steady_clock::now() - started;
            std::this_thread::sleep_for(2 * captureInterval);
        });
        const double peak = memory.finish();

        desktop::SelectionWatch clipboard(desktop_.displayName());
        program.openPanel();
        desktop_.keyboard().tap(XKB_KEY_Return);
        program.panel().waitUntilClosed();
        clipboard.waitForMoreThan(0);
        const auto kept = desktop::ClipboardReader(desktop_.displayName()).readText(desktop::Deadline(60s));
        if (kept != text)
            throw DesktopFailure("100 MB of text did not come back whole");
        program.openPanel();
        desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_BackSpace);
        owner_.copyText("small");
        std::this_thread::sleep_for(2 * captureInterval);
        program.closePanel();
        report_.add(
            {"100 MB of text: peak of anonymous memory",
             "MB",
             peak,
             {},
             230,
             "received in " + std::to_string(static_cast<int>(milliseconds(receiving))) + " ms, kept whole"});
        report_.add({"100 MB of text: anonymous memory beyond idle, once removed",
                     "MB",
                     anonymousMegabytes(process) - idle,
                     {},
                     2,
                     "the panel was opened twice since"});
        reportHoldUp("100 MB of text", holdUp);
        program.quit();
    }

    void measureLargePicture()
    {
        const auto picture = encodePng(desktop::makeTestPicture(7680, 4320, 1));
        Program program(desktop_);
        const auto process = program.process().pid();
        program.openPanel();
        program.closePanel();
        const auto idle = anonymousMegabytes(process);
        PeakMemory memory(process);
        std::chrono::nanoseconds capturing{};
        const auto holdUp = measureHoldUp(process, [&] {
            program.openPanel();
            const auto before = program.panel().picture();
            const auto started = std::chrono::steady_clock::now();
            owner_.copyPng(picture);
            program.panel().waitUntilItDiffersFrom(before, desktop::Deadline(60s));
            capturing = std::chrono::steady_clock::now() - started;
            program.closePanel();
        });
        const auto encoded = static_cast<double>(picture.size()) / bytesPerMegabyte;
        report_.add({"a 7680 x 4320 PNG: peak of anonymous memory beyond idle and its encoded size",
                     "MB",
                     memory.finish() - idle - encoded,
                     {},
                     40,
                     std::to_string(static_cast<int>(encoded)) + " MB, an entry after " +
                         std::to_string(static_cast<int>(milliseconds(capturing))) + " ms"});
        reportHoldUp("a 7680 x 4320 PNG", holdUp);
        program.quit();
    }

    void measureOpenWindows()
    {
        for (const double scale : {1.0, 2.0})
            report_.add(
                {"settings and about window open, at a scale of " + std::to_string(static_cast<int>(scale)),
                 "%",
                 100 * shareOfOpenWindows(scale),
                 {},
                 3,
                 "of one core"});
    }

    void measurePolls()
    {
        const auto cost = measurePoll(desktop_.displayName());
        report_.add({"a poll when nothing changed, 100 entries", "us", cost.poll, cost.idle, 20, ""});
    }

    /// The figures count only if every copy became an entry: the last entry has to be the right one.
    void checkEntries()
    {
        constexpr int texts = 100 + 2 * 10;
        const int dropped = texts + pictureCount_ - 100;
        const auto expected = "value " + std::to_string(dropped + 1) + " of a history";
        desktop::SelectionWatch clipboard(desktop_.displayName());
        program_->openPanel();
        for (int press = 0; press < 110; ++press)
            desktop_.keyboard().tap(XKB_KEY_Down);
        desktop_.keyboard().tap(XKB_KEY_Return);
        program_->panel().waitUntilClosed();
        clipboard.waitForMoreThan(0);
        const auto pasted = desktop::ClipboardReader(desktop_.displayName()).readText().value_or("nothing");
        if (pasted != expected)
            throw DesktopFailure(
                "the oldest entry is \"" + pasted + "\" and should be \"" + expected +
                "\": not every copy became an entry, and the figures above are not to be trusted");
    }

    void quit()
    {
        const auto status = program_->quit();
        if (!status.succeeded())
            throw DesktopFailure("the program ended badly: " + status.description());
    }

    Report report_;
    Desktop desktop_;
    ClipboardOwner owner_{desktop_.displayName()};
    std::unique_ptr<Program> program_;
    OpeningFigures bareOpening_;
    std::optional<double> bareFirstOpening_;
    std::optional<double> bareIdle_;
    std::optional<double> bareAfterOpenings_;
    double idleProcessorShare_ = 0;
    int pictureCount_ = 0;
};

} // namespace

} // namespace tessel::bench

int main(int argumentCount, char** arguments)
{
    const bool isStrict = argumentCount == 2 && std::strcmp(arguments[1], "--strict") == 0;
    if (argumentCount > 1 && !isStrict) {
        std::fputs("Usage: tessel-bench [--strict]\nFails if a figure cannot be measured; with --strict also "
                   "if one is over "
                   "its budget.\n",
                   stderr);
        return EXIT_FAILURE;
    }
    try {
        const auto report = tessel::bench::Bench().run();
        report.print();
        return report.isComplete() && (!isStrict || report.isWithinBudgets()) ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "The benchmark cannot run: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}
