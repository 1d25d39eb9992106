#include "DesktopModel.h"

#include <algorithm>

namespace tessel::test {

void DesktopModel::copiedFromElsewhere(const Value& value)
{
    onBoard_ = value;
    hasUnseenChange_ = true;
}

void DesktopModel::ticked(Date now)
{
    prune(now);
    if (hasUnseenChange_)
        capture(now);
    hasUnseenChange_ = false;
}

void DesktopModel::prune(Date now)
{
    if (policy == QuickClear::never)
        return;
    const double age = policy == QuickClear::oneDay ? 24.0 * 60 * 60 : seconds;
    std::erase_if(entries, [&](const Entry& entry) { return entry.date < now - age; });
}

void DesktopModel::capture(Date now)
{
    Entry entry;
    entry.date = now;
    if (onBoard_.text && !onBoard_.text->empty())
        entry.text = *onBoard_.text;
    else if (onBoard_.image)
        entry.image = onBoard_.image;
    else
        return;

    const bool isOurs = marker_ && isSameContent(*marker_, entry);
    marker_.reset();
    const bool isRepetition = !entries.empty() && isSameContent(entries[0], entry);
    if (isOurs || isRepetition)
        return;

    entry.serial = nextSerial_++;
    entries.insert(entries.begin(), entry);
    while (entries.size() > 100)
        entries.pop_back();
    if (panel == PanelState::visible)
        fitAndPlacePanel();
}

bool DesktopModel::isSameContent(const Entry& left, const Entry& right) const
{
    if (left.image.has_value() != right.image.has_value())
        return false;
    return left.image ? imageKinds_.at(*left.image) == imageKinds_.at(*right.image) : left.text == right.text;
}

void DesktopModel::wrote(int serial)
{
    const Entry* entry = find(serial);
    if (!entry)
        return;
    marker_ = *entry;
    if (entry->image)
        copiedFromElsewhere({std::nullopt, entry->image});
    else
        copiedFromElsewhere({entry->text, std::nullopt});
}

void DesktopModel::pasted(int serial, std::int64_t now)
{
    constexpr std::int64_t delay = 120;
    wrote(serial);
    closePanel();
    if (isTrusted)
        strokes.push_back({now + delay, target_});
    else
        ++prompts;
}

void DesktopModel::pinToggled(int serial)
{
    for (Entry& entry : entries) {
        if (entry.serial == serial)
            entry.isPinned = !entry.isPinned;
    }
}

void DesktopModel::removed(int serial)
{
    std::erase_if(entries, [serial](const Entry& entry) { return entry.serial == serial; });
}

void DesktopModel::cleared()
{
    entries.clear();
}

void DesktopModel::policyChosen(QuickClear chosen, Date now)
{
    policy = chosen;
    prune(now);
}

void DesktopModel::secondsChosen(double chosen, Date now)
{
    seconds = chosen < 30 ? 30 : chosen > 21600 ? 21600 : chosen;
    prune(now);
}

void DesktopModel::panelToggled()
{
    if (panel == PanelState::visible)
        closePanel();
    else
        panelShown();
}

void DesktopModel::panelShown()
{
    target_ = frontProcess;
    if (panel == PanelState::absent) {
        panelFrame = {{0, 0}, {460, 420}};
        ++panelsMade;
    }
    panel = PanelState::visible;
    fitAndPlacePanel();
}

void DesktopModel::panelHiddenBySystem()
{
    if (panel == PanelState::visible)
        panel = PanelState::hidden;
}

void DesktopModel::escapePressed()
{
    if (panel == PanelState::visible)
        closePanel();
}

void DesktopModel::closePanel()
{
    panel = PanelState::absent;
    selected.reset();
}

void DesktopModel::fitAndPlacePanel()
{
    const std::vector<double> heights = {220, 220, 262, 334, 406, 478, 550};
    panelFrame.size = {460, heights.at(std::min<std::size_t>(entries.size(), 6))};

    const auto under = std::find_if(screens.begin(), screens.end(), [this](const Screen& screen) {
        const double right = pointer.x - screen.frame.origin.x;
        const double up = pointer.y - screen.frame.origin.y;
        return 0 <= right && right < screen.frame.size.width && 0 < up && up <= screen.frame.size.height;
    });
    const std::optional<Screen> screen = under == screens.end() ? mainScreen : *under;
    if (!screen)
        return;

    // In each direction: where it wants to be, but not beyond the near end, and above all not beyond the far
    // end.
    const auto place = [](double wanted, double length, double near, double extent) {
        const double last = near + extent - length;
        const double first = std::min(near, last);
        return wanted < first ? first : wanted > last ? last : wanted;
    };
    const Rect& room = screen->visibleFrame;
    panelFrame.origin.x = place(pointer.x + 12, panelFrame.size.width, room.origin.x, room.size.width);
    panelFrame.origin.y = place(pointer.y - 12 - panelFrame.size.height, panelFrame.size.height,
                                room.origin.y, room.size.height);
}

void DesktopModel::selectionMoved(int step)
{
    const std::vector<Entry> list = shown();
    if (list.empty())
        return;
    int place = 0;
    for (int index = 0; index < static_cast<int>(list.size()); ++index) {
        if (selected == list[static_cast<std::size_t>(index)].serial)
            place = std::max(0, std::min(static_cast<int>(list.size()) - 1, index + step));
    }
    selected = list[static_cast<std::size_t>(place)].serial;
}

void DesktopModel::viewUpdated()
{
    if (panel == PanelState::absent || (selected && find(*selected)))
        return;
    const std::vector<Entry> list = shown();
    selected = list.empty() ? std::nullopt : std::optional(list[0].serial);
}

std::vector<DesktopModel::Entry> DesktopModel::shown() const
{
    std::vector<Entry> list;
    for (const bool pinned : {true, false}) {
        for (const Entry& entry : entries) {
            if (entry.isPinned == pinned)
                list.push_back(entry);
        }
    }
    return list;
}

const DesktopModel::Entry* DesktopModel::find(int serial) const
{
    for (const Entry& entry : entries) {
        if (entry.serial == serial)
            return &entry;
    }
    return nullptr;
}

} // namespace tessel::test
