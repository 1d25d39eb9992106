#include "AppState.h"

#include <utility>

namespace tessel {

void AppState::startClipboardMonitoring()
{
    constexpr double pollInterval = 0.7; // Seconds.
    // The pass may drop the last owner of this object, so each step takes hold of it anew.
    pollTimer_ =
        platform_.mainQueue->repeat(pollInterval, [prune = weakly(&AppState::pruneExpiredHistory),
                                                   capture = weakly(&AppState::captureClipboardIfNeeded)] {
            prune();
            capture();
        });
}

std::optional<ClipboardItem> AppState::currentClipboardItem() const
{
    if (SharedText text = platform_.pasteboard->string(); text && !text->empty())
        return ClipboardItem{UUID::random(), std::move(text), platform_.clock->now()};
    if (SharedImage image = platform_.pasteboard->image())
        return ClipboardItem{UUID::random(), std::move(image), platform_.clock->now()};
    return std::nullopt;
}

void AppState::captureClipboardIfNeeded()
{
    if (platform_.pasteboard->changeCount() == lastChangeCount_)
        return;
    lastChangeCount_ = platform_.pasteboard->changeCount();

    const auto item = currentClipboardItem();
    if (!item)
        return; // The change is consumed all the same.

    const ContentIdentity identity = item->identity(*platform_.digest);
    // The marker is used up by the first value after it was set, whatever that is.
    const auto ownWrite = std::exchange(ignoredNextFingerprint_, std::nullopt);
    if (ownWrite == identity)
        return;
    if (!history->empty() && history->front().identity(*platform_.digest) == identity)
        return;

    history = inserting(*item, *history);
    if (history->size() > maxItems) {
        History kept = newest(maxItems, *history);
        pinnedItemIDs = intersecting(*pinnedItemIDs, kept);
        history = std::move(kept);
    }

    if (panelController && panelController->isWindowVisible()) {
        updatePanelSize();
        positionPanelNearCursor();
    }
}

} // namespace tessel
