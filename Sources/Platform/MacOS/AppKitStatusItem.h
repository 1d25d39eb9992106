#pragma once

#include <memory>

#include "StatusItem.h"

namespace tessel {

/// An `NSStatusItem` with a native menu, whose rows have no keyboard shortcuts. The menu bar is always there,
/// so the item is shown as long as the user does not take it away.
class AppKitStatusItem final : public StatusItem {
public:
    AppKitStatusItem();
    ~AppKitStatusItem() override;

    /// Shows the system's symbol, or the title where the system does not know the symbol.
    void show(StatusItemDescription description) override;
    void setMenu(std::vector<StatusMenuRow> rows) override;
    bool isShown() const override;
    /// Nothing changes by itself.
    Token observe(std::function<void()> didChange) override;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace tessel
