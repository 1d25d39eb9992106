#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "MainQueue.h"
#include "StatusItem.h"
#include "Support/ObserverList.h"

namespace tessel {

/// One status item by two ways: another takes the place of the preferred one while no menu bar shows that.
/// They are never shown together.
class StatusItemWithFallback final : public StatusItem {
public:
    /// How long the preferred item may take to appear, from the start and when its menu bar is started anew,
    /// before the fallback does. In seconds.
    static constexpr double patience = 0.5;

    /// `preferred` and `queue` must outlive this object. A fallback is made when it is to be shown, and goes
    /// when it is not.
    StatusItemWithFallback(StatusItem& preferred, std::function<std::unique_ptr<StatusItem>()> makeFallback,
                           MainQueue& queue);

    void show(StatusItemDescription description) override;
    void setMenu(std::vector<StatusMenuRow> rows) override;
    bool isShown() const override;
    Token observe(std::function<void()> didChange) override;

private:
    void followPreferred();
    void waitForPreferred();
    void showFallback();
    void hideFallback();

    StatusItem& preferred_;
    std::function<std::unique_ptr<StatusItem>()> makeFallback_;
    MainQueue& queue_;
    StatusItemDescription description_;
    std::vector<StatusMenuRow> rows_;
    ObserverList<> observers_;
    Token preferredObservation_;
    Token waiting_;
    std::unique_ptr<StatusItem> fallback_;
    Token fallbackObservation_;
};

} // namespace tessel
