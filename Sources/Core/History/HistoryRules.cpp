#include "History/HistoryRules.h"

#include <algorithm>
#include <iterator>

namespace tessel {

namespace {

template <class Predicate>
History keeping(const History& history, Predicate isKept)
{
    History kept;
    kept.reserve(history.size());
    std::copy_if(history.begin(), history.end(), std::back_inserter(kept), isKept);
    return kept;
}

} // namespace

History orderedHistory(const History& history, const PinnedItemIDs& pinned)
{
    History ordered = history;
    std::stable_partition(ordered.begin(), ordered.end(),
                          [&pinned](const ClipboardItem& item) { return pinned.contains(item.id); });
    return ordered;
}

History inserting(const ClipboardItem& item, const History& history)
{
    History inserted;
    inserted.reserve(history.size() + 1);
    inserted.push_back(item);
    inserted.insert(inserted.end(), history.begin(), history.end());
    return inserted;
}

History newest(std::size_t count, const History& history)
{
    const auto kept = static_cast<std::ptrdiff_t>(std::min(count, history.size()));
    return {history.begin(), history.begin() + kept};
}

History removing(UUID id, const History& history)
{
    return keeping(history, [id](const ClipboardItem& item) { return item.id != id; });
}

History keepingSince(Date cutoff, const History& history)
{
    return keeping(history, [cutoff](const ClipboardItem& item) { return item.date >= cutoff; });
}

PinnedItemIDs intersecting(const PinnedItemIDs& pinned, const History& history)
{
    PinnedItemIDs kept;
    for (const ClipboardItem& item : history) {
        if (pinned.contains(item.id))
            kept.insert(item.id);
    }
    return kept;
}

PinnedItemIDs toggling(UUID id, const PinnedItemIDs& pinned)
{
    PinnedItemIDs toggled = pinned;
    if (toggled.erase(id) == 0)
        toggled.insert(id);
    return toggled;
}

PinnedItemIDs removing(UUID id, const PinnedItemIDs& pinned)
{
    PinnedItemIDs rest = pinned;
    rest.erase(id);
    return rest;
}

} // namespace tessel
