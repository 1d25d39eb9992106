#include "StatusItemWithFallback.h"

#include <utility>

namespace tessel {

StatusItemWithFallback::StatusItemWithFallback(StatusItem& preferred,
                                               std::function<std::unique_ptr<StatusItem>()> makeFallback,
                                               MainQueue& queue)
    : preferred_(preferred)
    , makeFallback_(std::move(makeFallback))
    , queue_(queue)
{}

void StatusItemWithFallback::show(StatusItemDescription description)
{
    description_ = description;
    preferredObservation_ = preferred_.observe([this] { followPreferred(); });
    preferred_.show(std::move(description));
    if (!preferred_.isShown())
        waitForPreferred();
}

void StatusItemWithFallback::setMenu(std::vector<StatusMenuRow> rows)
{
    rows_ = rows;
    if (fallback_)
        fallback_->setMenu(rows);
    preferred_.setMenu(std::move(rows));
}

bool StatusItemWithFallback::isShown() const
{
    return preferred_.isShown() || (fallback_ && fallback_->isShown());
}

Token StatusItemWithFallback::observe(std::function<void()> didChange)
{
    return observers_.add(std::move(didChange));
}

void StatusItemWithFallback::followPreferred()
{
    waiting_.reset();
    if (preferred_.isShown())
        hideFallback();
    else
        waitForPreferred();
    observers_.tell();
}

void StatusItemWithFallback::waitForPreferred()
{
    waiting_ = queue_.repeat(patience, [this] { showFallback(); });
}

void StatusItemWithFallback::showFallback()
{
    waiting_.reset();
    if (fallback_)
        return;
    fallback_ = makeFallback_();
    fallbackObservation_ = fallback_->observe([this] { observers_.tell(); });
    fallback_->setMenu(rows_);
    fallback_->show(description_);
}

void StatusItemWithFallback::hideFallback()
{
    fallbackObservation_.reset();
    fallback_.reset();
}

} // namespace tessel
