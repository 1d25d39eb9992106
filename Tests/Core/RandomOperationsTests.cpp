#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>
#include <random>
#include <sstream>

#include <gmock/gmock.h>

#include "DesktopModel.h"
#include "Fakes/FakeDesktop.h"
#include "Panel/PanelSelection.h"

namespace tessel::test {
namespace {

/// A number from the environment, or none.
std::optional<std::uint64_t> environmentNumber(const char* name)
{
    const char* text = std::getenv(name);
    return text ? std::optional(std::strtoull(text, nullptr, 10)) : std::nullopt;
}

/// The program on a desktop of fakes and the model beside it; both see the same random events, and are
/// compared after each.
class RandomRun {
public:
    explicit RandomRun(std::uint64_t seed);

    void step();
    /// The events so far, one on each line, the last ones only.
    std::string journal() const;

private:
    using Value = DesktopModel::Value;
    using QuickClear = DesktopModel::QuickClear;
    struct Operation {
        const char* name;
        unsigned weight;
        void (RandomRun::*run)();
    };

    static const std::vector<Operation>& operations();

    // Choices.
    unsigned below(unsigned count) { return static_cast<unsigned>(random_() % count); }
    bool oneIn(unsigned count) { return below(count) == 0; }
    double between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(below(10'001)) / 10'000;
    }
    const DesktopModel::Entry* anyEntry();
    ClipboardItem itemOf(int serial) const;

    // Events.
    void copy(const Value& value);
    void copyNewText() { copy({"text " + std::to_string(below(1'000'000)), std::nullopt}); }
    void copyOldText() { copy({std::string(1, static_cast<char>('a' + below(4))), std::nullopt}); }
    void copyImage() { copy({std::nullopt, below(static_cast<unsigned>(images_.size()))}); }
    void copyTextWithImage();
    void copyUnreadable() { copy({}); }
    void copyMany();
    void letAMomentPass() { passTime(below(2'500)); }
    void letAMinutePass() { passTime(below(60'000)); }
    void passTime(std::int64_t milliseconds);
    void writeEntry();
    void pasteEntry();
    void pasteSelected();
    void togglePin();
    void toggleSelectedPin();
    void remove();
    void removeSelected();
    void clear();
    void choosePolicy();
    void chooseSeconds();
    void setWallClock() { desktop_.clock->jump(between(-100'000, 100'000)); }
    void setWallClockToAnExpiry();
    void pressHotKey();
    void showPanel();
    void hidePanel();
    void pressEscape();
    void moveSelection();
    void movePointer();
    void movePointerTo(Point location);
    void movePointerToAnEdge();
    void changeScreens();
    void changeFrontApplication();
    void changeTrust();

    // The view, as far as the rules go.
    void updateView();

    // Comparisons.
    void check();
    void checkHistory();
    void checkPanel();
    void checkSelection();
    void checkInvariants();
    void checkStrokes();

    std::mt19937_64 random_;
    std::vector<SharedImage> images_;
    FakeDesktop desktop_;
    AppState& state_;
    DesktopModel model_;
    std::int64_t now_ = 0; ///< Milliseconds since the start.
    std::map<int, UUID> identities_;
    std::optional<UUID> selected_;
    std::vector<std::string> events_;
};

constexpr std::int64_t tickInterval = 700; // Milliseconds.

/// Images of the kinds 0 to 3: two with the same encoding, two that fail and have the same size.
const std::vector<int> imageKinds = {0, 0, 1, 2, 2, 3};

std::vector<SharedImage> makeImages()
{
    return {
        FakeImage::withPNG("pixels", {10, 10}),
        FakeImage::withPNG("pixels", {20, 20}),
        FakeImage::withPNG("other pixels", {10, 10}),
        FakeImage::failing(ImageEncoding::hasNoTIFF, {16.2, 16.9}),
        FakeImage::failing(ImageEncoding::bitmapFailsAfterSomeOutput, {16.9, 16.2}),
        FakeImage::prepared("image:prepared"),
    };
}

RandomRun::RandomRun(std::uint64_t seed)
    : random_(seed)
    , images_(makeImages())
    , state_(desktop_.launch())
    , model_(imageKinds)
{
    model_.pointer = desktop_.screens->pointer;
    model_.screens = desktop_.screens->all;
    model_.mainScreen = desktop_.screens->main;
    model_.frontProcess = 1001;
}

const std::vector<RandomRun::Operation>& RandomRun::operations()
{
    static const std::vector<Operation> all = {
        {"copy a new text", 12, &RandomRun::copyNewText},
        {"copy an old text", 12, &RandomRun::copyOldText},
        {"copy an image", 8, &RandomRun::copyImage},
        {"copy text with image", 3, &RandomRun::copyTextWithImage},
        {"copy something unreadable", 3, &RandomRun::copyUnreadable},
        {"copy many", 1, &RandomRun::copyMany},
        {"let a moment pass", 25, &RandomRun::letAMomentPass},
        {"let a minute pass", 4, &RandomRun::letAMinutePass},
        {"write an entry", 5, &RandomRun::writeEntry},
        {"paste an entry", 4, &RandomRun::pasteEntry},
        {"paste the selected entry", 4, &RandomRun::pasteSelected},
        {"toggle a pin", 8, &RandomRun::togglePin},
        {"toggle the selected pin", 4, &RandomRun::toggleSelectedPin},
        {"remove an entry", 3, &RandomRun::remove},
        {"remove the selected entry", 3, &RandomRun::removeSelected},
        {"clear", 1, &RandomRun::clear},
        {"choose a policy", 3, &RandomRun::choosePolicy},
        {"choose the seconds", 3, &RandomRun::chooseSeconds},
        {"set the wall clock", 1, &RandomRun::setWallClock},
        {"set the wall clock to an expiry", 3, &RandomRun::setWallClockToAnExpiry},
        {"press the hot key", 8, &RandomRun::pressHotKey},
        {"show the panel", 4, &RandomRun::showPanel},
        {"hide the panel", 3, &RandomRun::hidePanel},
        {"press Escape", 3, &RandomRun::pressEscape},
        {"move the selection", 10, &RandomRun::moveSelection},
        {"move the pointer", 6, &RandomRun::movePointer},
        {"move the pointer to an edge", 4, &RandomRun::movePointerToAnEdge},
        {"change the screens", 2, &RandomRun::changeScreens},
        {"change the front application", 3, &RandomRun::changeFrontApplication},
        {"change the trust", 1, &RandomRun::changeTrust},
    };
    return all;
}

void RandomRun::step()
{
    unsigned total = 0;
    for (const Operation& operation : operations())
        total += operation.weight;
    unsigned choice = below(total);
    for (const Operation& operation : operations()) {
        if (choice < operation.weight) {
            events_.emplace_back(operation.name);
            (this->*operation.run)();
            break;
        }
        choice -= operation.weight;
    }
    updateView();
    check();
}

std::string RandomRun::journal() const
{
    constexpr std::size_t shown = 25;
    std::ostringstream text;
    text << events_.size() << " events, the last ones:\n";
    for (std::size_t index = events_.size() < shown ? 0 : events_.size() - shown; index < events_.size();
         ++index)
        text << "  " << events_[index] << '\n';
    return text.str();
}

// Choices.

const DesktopModel::Entry* RandomRun::anyEntry()
{
    if (model_.entries.empty())
        return nullptr;
    return &model_.entries[below(static_cast<unsigned>(model_.entries.size()))];
}

ClipboardItem RandomRun::itemOf(int serial) const
{
    const UUID id = identities_.at(serial);
    for (const ClipboardItem& item : *state_.history) {
        if (item.id == id)
            return item;
    }
    throw std::logic_error("The history lacks an entry of the model.");
}

// Events.

void RandomRun::copy(const Value& value)
{
    model_.copiedFromElsewhere(value);
    if (value.text && value.image)
        desktop_.pasteboard->copyFromElsewhere(*value.text, images_.at(*value.image));
    else if (value.text)
        desktop_.pasteboard->copyFromElsewhere(*value.text);
    else if (value.image)
        desktop_.pasteboard->copyFromElsewhere(images_.at(*value.image));
    else
        desktop_.pasteboard->copyUnreadableFromElsewhere();
    if (oneIn(2))
        passTime(tickInterval);
}

void RandomRun::copyTextWithImage()
{
    copy({oneIn(2) ? "" : "caption", below(static_cast<unsigned>(images_.size()))});
}

void RandomRun::copyMany()
{
    const unsigned count = 20 + below(80);
    for (unsigned number = 0; number < count; ++number) {
        copyNewText();
        passTime(tickInterval);
    }
}

void RandomRun::passTime(std::int64_t milliseconds)
{
    const std::int64_t end = now_ + milliseconds;
    while (now_ < end) {
        const std::int64_t nextTick = (now_ / tickInterval + 1) * tickInterval;
        const std::int64_t next = std::min(end, nextTick);
        desktop_.queue->advance(static_cast<double>(next - now_) / 1000);
        now_ = next;
        if (next == nextTick)
            model_.ticked(desktop_.clock->now());
    }
}

void RandomRun::writeEntry()
{
    if (const auto* entry = anyEntry()) {
        state_.copyToClipboard(itemOf(entry->serial));
        model_.wrote(entry->serial);
    }
}

void RandomRun::pasteEntry()
{
    if (const auto* entry = anyEntry()) {
        const int serial = entry->serial;
        state_.copyAndPaste(itemOf(serial));
        model_.pasted(serial, now_);
    }
}

void RandomRun::pasteSelected()
{
    const History ordered = state_.orderedHistory();
    const ClipboardItem* item = selectedItem(ordered, selected_);
    if (item)
        state_.copyAndPaste(*item);
    if (model_.selected)
        model_.pasted(*model_.selected, now_);
}

void RandomRun::togglePin()
{
    if (const auto* entry = anyEntry()) {
        state_.togglePinned(itemOf(entry->serial));
        model_.pinToggled(entry->serial);
    }
}

void RandomRun::toggleSelectedPin()
{
    const History ordered = state_.orderedHistory();
    if (const ClipboardItem* item = selectedItem(ordered, selected_))
        state_.togglePinned(*item);
    if (model_.selected)
        model_.pinToggled(*model_.selected);
}

void RandomRun::remove()
{
    if (const auto* entry = anyEntry()) {
        const int serial = entry->serial;
        state_.removeItem(itemOf(serial));
        model_.removed(serial);
    }
}

void RandomRun::removeSelected()
{
    const History ordered = state_.orderedHistory();
    if (const ClipboardItem* item = selectedItem(ordered, selected_))
        state_.removeItem(*item);
    if (model_.selected)
        model_.removed(*model_.selected);
}

void RandomRun::clear()
{
    state_.clearHistory();
    model_.cleared();
}

void RandomRun::choosePolicy()
{
    constexpr std::array policies = {QuickClearPolicy::custom, QuickClearPolicy::oneDay,
                                     QuickClearPolicy::never};
    constexpr std::array modelPolicies = {QuickClear::custom, QuickClear::oneDay, QuickClear::never};
    const unsigned choice = below(3);
    state_.quickClearPolicy = policies.at(choice);
    model_.policyChosen(modelPolicies.at(choice), desktop_.clock->now());
}

void RandomRun::chooseSeconds()
{
    const double seconds = oneIn(3) ? between(-100, 30'000) : between(20, 200);
    state_.quickClearCustomSeconds = seconds;
    model_.secondsChosen(seconds, desktop_.clock->now());
}

void RandomRun::setWallClockToAnExpiry()
{
    const auto* entry = anyEntry();
    if (!entry)
        return;
    const double limit = model_.policy == QuickClear::custom ? model_.seconds : 86'400;
    desktop_.clock->set(entry->date + limit);
    state_.quickClearCustomSeconds = model_.seconds; // A pass at exactly that time.
    model_.secondsChosen(model_.seconds, desktop_.clock->now());
}

void RandomRun::pressHotKey()
{
    desktop_.pressHotKey();
    model_.panelToggled();
}

void RandomRun::showPanel()
{
    state_.showPanel();
    model_.panelShown();
}

void RandomRun::hidePanel()
{
    if (desktop_.panel())
        desktop_.panel()->hide();
    model_.panelHiddenBySystem();
}

void RandomRun::pressEscape()
{
    const bool wasVisible = model_.panel == DesktopModel::PanelState::visible;
    EXPECT_EQ(desktop_.eventMonitors->press(VirtualKey::escape),
              wasVisible ? EventOutcome::consumed : EventOutcome::passOn);
    model_.escapePressed();
}

void RandomRun::moveSelection()
{
    if (model_.panel == DesktopModel::PanelState::absent)
        return;
    const int step = oneIn(2) ? 1 : -1;
    selected_ = movedSelection(state_.orderedHistory(), selected_, step);
    model_.selectionMoved(step);
}

void RandomRun::movePointer()
{
    movePointerTo({between(-300, 3'800), between(-300, 1'500)});
}

void RandomRun::movePointerTo(Point location)
{
    // In eighths of a point sums are exact, whatever their order.
    const auto inEighths = [](double coordinate) { return std::round(coordinate * 8) / 8; };
    model_.pointer = {inEighths(location.x), inEighths(location.y)};
    desktop_.screens->pointer = model_.pointer;
}

void RandomRun::movePointerToAnEdge()
{
    if (model_.screens.empty())
        return;
    const Screen& screen = model_.screens[below(static_cast<unsigned>(model_.screens.size()))];
    const Rect& rect = oneIn(2) ? screen.frame : screen.visibleFrame;
    const std::array xs = {rect.minX(), rect.maxX(), between(rect.minX(), rect.maxX())};
    const std::array ys = {rect.minY(), rect.maxY(), between(rect.minY(), rect.maxY())};
    movePointerTo({xs.at(below(3)) + between(-1, 1) * below(2), ys.at(below(3)) + between(-1, 1) * below(2)});
}

void RandomRun::changeScreens()
{
    static const Screen laptop = {{{0, 0}, {1440, 900}}, {{0, 70}, {1440, 805}}};
    static const Screen tall = {{{1440, -300}, {1080, 1920}}, {{1440, -300}, {1080, 1895}}};
    static const Screen tiny = {{{0, 0}, {320, 240}}, {{0, 20}, {320, 200}}};
    static const std::vector<std::vector<Screen>> arrangements = {
        {laptop}, {laptop, tall}, {tall, laptop}, {tiny}, {tiny, tall}, {laptop, laptop}, {}};
    model_.screens = arrangements[below(static_cast<unsigned>(arrangements.size()))];
    model_.mainScreen =
        model_.screens.empty() || oneIn(8) ? std::nullopt : std::optional(model_.screens.back());
    desktop_.screens->all = model_.screens;
    desktop_.screens->main = model_.mainScreen;
}

void RandomRun::changeFrontApplication()
{
    switch (below(3)) {
    case 0:
        desktop_.workspace->frontmost = desktop_.editor;
        model_.frontProcess = 1001;
        break;
    case 1:
        desktop_.workspace->frontmost = desktop_.browser;
        model_.frontProcess = 1002;
        break;
    default:
        desktop_.workspace->frontmost = nullptr;
        model_.frontProcess.reset();
    }
}

void RandomRun::changeTrust()
{
    model_.isTrusted = oneIn(3) ? !model_.isTrusted : true;
    desktop_.trust->isTrusted = model_.isTrusted;
}

void RandomRun::updateView()
{
    if (!desktop_.panel())
        selected_.reset();
    else
        selected_ = ensuredSelection(state_.orderedHistory(), selected_);
    model_.viewUpdated();
}

// Comparisons.

void RandomRun::check()
{
    checkInvariants();
    checkHistory();
    if (testing::Test::HasFailure())
        return; // The rest would only repeat it.
    checkPanel();
    checkSelection();
    checkStrokes();
}

void RandomRun::checkInvariants()
{
    EXPECT_LE(state_.history->size(), 100U);
    for (const UUID id : *state_.pinnedItemIDs) {
        EXPECT_EQ(std::count_if(state_.history->begin(), state_.history->end(),
                                [id](const ClipboardItem& item) { return item.id == id; }),
                  1);
    }

    std::vector<UUID> pinnedThenRecent;
    for (const bool pinned : {true, false}) {
        for (const ClipboardItem& item : *state_.history) {
            if (state_.pinnedItemIDs->contains(item.id) == pinned)
                pinnedThenRecent.push_back(item.id);
        }
    }
    std::vector<UUID> ordered;
    for (const ClipboardItem& item : state_.orderedHistory())
        ordered.push_back(item.id);
    EXPECT_TRUE(ordered == pinnedThenRecent);

    EXPECT_TRUE(!selected_ || std::find(ordered.begin(), ordered.end(), *selected_) != ordered.end());
}

void RandomRun::checkHistory()
{
    const History& history = *state_.history;
    ASSERT_EQ(history.size(), model_.entries.size());
    for (std::size_t index = 0; index < history.size(); ++index) {
        const ClipboardItem& item = history[index];
        const DesktopModel::Entry& entry = model_.entries[index];
        EXPECT_EQ(item.date, entry.date);
        EXPECT_EQ(state_.pinnedItemIDs->contains(item.id), entry.isPinned);
        ASSERT_EQ(item.isImage(), entry.image.has_value());
        if (entry.image)
            EXPECT_EQ(std::get<SharedImage>(item.content), images_.at(*entry.image));
        else
            EXPECT_EQ(*std::get<SharedText>(item.content), entry.text);
        // Once given, an identity stays.
        EXPECT_TRUE(identities_.emplace(entry.serial, item.id).first->second == item.id);
    }
    EXPECT_EQ(*state_.quickClearCustomSeconds, model_.seconds);
}

void RandomRun::checkPanel()
{
    const auto made =
        std::count(desktop_.log->effects().begin(), desktop_.log->effects().end(), "panel.make");
    model_.panelsMade -= static_cast<int>(made);
    EXPECT_EQ(model_.panelsMade, 0);
    desktop_.log->forget();

    const FakePanelController* panel = desktop_.panel();
    ASSERT_EQ(panel != nullptr, model_.panel != DesktopModel::PanelState::absent);
    if (!panel)
        return;
    EXPECT_EQ(panel->isWindowVisible(), model_.panel == DesktopModel::PanelState::visible);
    EXPECT_EQ(panel->frame().size, model_.panelFrame.size);
    EXPECT_EQ(panel->frame().origin, model_.panelFrame.origin);
}

void RandomRun::checkSelection()
{
    ASSERT_EQ(selected_.has_value(), model_.selected.has_value());
    EXPECT_TRUE(!selected_ || *selected_ == identities_.at(*model_.selected));
}

void RandomRun::checkStrokes()
{
    std::vector<std::optional<ProcessIdentifier>> due;
    for (const DesktopModel::Stroke& stroke : model_.strokes) {
        if (stroke.due <= now_)
            due.push_back(stroke.process ? std::optional(ProcessIdentifier{*stroke.process}) : std::nullopt);
    }
    std::vector<std::optional<ProcessIdentifier>> posted;
    for (const FakeKeyStrokes::Stroke& stroke : desktop_.keyStrokes->strokes())
        posted.push_back(stroke.process);
    EXPECT_TRUE(posted == due);
    EXPECT_EQ(desktop_.workspace->openedURLs().size(), static_cast<std::size_t>(model_.prompts));
}

/// TESSEL_SEED repeats the one run of that seed; TESSEL_RUNS says how many seeds are tried, from 1 on.
TEST(RandomOperations, LeaveTheProgramAsThePlainModelSays)
{
    constexpr std::uint64_t defaultRuns = 100;
    constexpr int eventsInARun = 400;

    const auto onlySeed = environmentNumber("TESSEL_SEED");
    const std::uint64_t first = onlySeed.value_or(1);
    const std::uint64_t runs = onlySeed ? 1 : environmentNumber("TESSEL_RUNS").value_or(defaultRuns);
    for (std::uint64_t seed = first; seed < first + runs; ++seed) {
        RandomRun run(seed);
        for (int event = 0; event < eventsInARun; ++event) {
            run.step();
            if (HasFailure())
                FAIL() << "Replay with TESSEL_SEED=" << seed << ". " << run.journal();
        }
    }
}

} // namespace
} // namespace tessel::test
