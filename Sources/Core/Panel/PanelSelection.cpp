#include "Panel/PanelSelection.h"

#include <algorithm>

namespace tessel {

const ClipboardItem* selectedItem(const History& ordered, std::optional<UUID> selected)
{
    if (!selected)
        return nullptr;
    const auto found = std::find_if(ordered.begin(), ordered.end(),
                                    [selected](const ClipboardItem& item) { return item.id == *selected; });
    return found != ordered.end() ? &*found : nullptr;
}

std::optional<UUID> movedSelection(const History& ordered, std::optional<UUID> selected, int step)
{
    if (ordered.empty())
        return selected;
    const ClipboardItem* current = selectedItem(ordered, selected);
    if (!current)
        return ordered.front().id;
    const std::ptrdiff_t last = std::ssize(ordered) - 1;
    const std::ptrdiff_t position = current - ordered.data();
    return ordered[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(position + step, 0, last))].id;
}

std::optional<UUID> ensuredSelection(const History& ordered, std::optional<UUID> selected)
{
    if (ordered.empty())
        return std::nullopt;
    return selectedItem(ordered, selected) ? selected : ordered.front().id;
}

} // namespace tessel
