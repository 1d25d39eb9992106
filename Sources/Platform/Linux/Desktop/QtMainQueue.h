#pragma once

#include <QtCore/QObject>

#include "MainQueue.h"

namespace tessel {

/// The toolkit's event loop as the main queue. Work that is still waiting when the queue goes is dropped.
class QtMainQueue final : public MainQueue {
public:
    void async(std::function<void()> work) override;
    void asyncAfter(double seconds, std::function<void()> work) override;
    Token repeat(double seconds, std::function<void()> work) override;

    /// Like `async`, callable from any thread while this object exists.
    void post(std::function<void()> work) { async(std::move(work)); }

private:
    QObject context_;
};

} // namespace tessel
