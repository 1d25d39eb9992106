#pragma once

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "Clock.h"
#include "History/ClipboardItem.h"
#include "Support/UUID.h"

namespace tessel {

/// Entries, newest first.
using History = std::vector<ClipboardItem>;
/// Ids of pinned entries.
using PinnedItemIDs = std::unordered_set<UUID>;

/// The display order: the pinned entries in history order, then the others in history order.
History orderedHistory(const History& history, const PinnedItemIDs& pinned);

/// The history with `item` in front.
History inserting(const ClipboardItem& item, const History& history);
/// The newest `count` entries, or all where there are fewer.
History newest(std::size_t count, const History& history);
/// The history without every entry of that id.
History removing(UUID id, const History& history);
/// The entries captured at or after the cutoff.
History keepingSince(Date cutoff, const History& history);

/// The pins that are ids of entries.
PinnedItemIDs intersecting(const PinnedItemIDs& pinned, const History& history);
/// The pins with `id` added if it was missing, and without it if it was there.
PinnedItemIDs toggling(UUID id, const PinnedItemIDs& pinned);
/// The pins without `id`.
PinnedItemIDs removing(UUID id, const PinnedItemIDs& pinned);

} // namespace tessel
