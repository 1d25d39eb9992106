#include "Windows/TrayNotice.h"

#include <utility>

namespace tessel {

TrayNotice::TrayNotice(Needs needs)
    : needs_(std::move(needs))
{
    if (!needs_.remembered.number(shownKey))
        timer_ = needs_.queue->repeat(patience, [this] { decide(); });
}

void TrayNotice::decide()
{
    if (!needs_.isItemShown() && needs_.isAnotherWindowOpen())
        return; // Until the next time.
    // Once in a run, even if it cannot be remembered.
    timer_.reset();
    if (needs_.isItemShown())
        return;
    needs_.remembered.setDouble(shownKey, 1);
    itemObservation_ = needs_.observeItem([this] { itemDidChange(); });
    needs_.show();
}

void TrayNotice::itemDidChange()
{
    if (needs_.isItemShown())
        needs_.hide();
}

} // namespace tessel
