#pragma once

#include <optional>

#include "History/HistoryRules.h"
#include "Support/UUID.h"

namespace tessel {

/// The selection after a move by `step` places in the ordered history, clamped at both ends. Without a valid
/// selection the first entry is selected, whatever the step.
std::optional<UUID> movedSelection(const History& ordered, std::optional<UUID> selected, int step);

/// The selection if its entry is still there, else the first entry, else none.
std::optional<UUID> ensuredSelection(const History& ordered, std::optional<UUID> selected);

/// The selected entry. Null: nothing is selected, or its entry is gone. Valid as long as `ordered` is.
const ClipboardItem* selectedItem(const History& ordered, std::optional<UUID> selected);

} // namespace tessel
