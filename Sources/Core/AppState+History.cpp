#include "AppState.h"

#include "History/DurationText.h"

namespace tessel {

History AppState::orderedHistory() const
{
    return tessel::orderedHistory(*history, *pinnedItemIDs);
}

void AppState::togglePinned(const ClipboardItem& item)
{
    pinnedItemIDs = toggling(item.id, *pinnedItemIDs);
}

void AppState::removeItem(const ClipboardItem& item)
{
    const UUID id = item.id; // The item may live in the history that is replaced here.
    history = removing(id, *history);
    pinnedItemIDs = removing(id, *pinnedItemIDs);
}

void AppState::clearHistory()
{
    history = {};
    pinnedItemIDs = {};
}

void AppState::pruneExpiredHistory()
{
    const auto age = maximumAge(*quickClearPolicy, *quickClearCustomSeconds);
    if (!age)
        return;
    History kept = keepingSince(platform_.clock->now() - *age, *history);
    if (kept.size() == history->size())
        return;
    PinnedItemIDs keptPins = intersecting(*pinnedItemIDs, kept);
    history = std::move(kept);
    pinnedItemIDs = std::move(keptPins);
}

std::string AppState::formattedDuration(double seconds)
{
    return durationText(seconds);
}

} // namespace tessel
