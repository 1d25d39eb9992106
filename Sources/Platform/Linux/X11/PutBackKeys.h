#pragma once

#include <memory>
#include <vector>

#include "Token.h"
#include "X11/KeyboardDevices.h"
#include "X11/X11Connection.h"

namespace tessel {

/// Keys that were lifted for a chord and pressed again because the user still holds them. XTEST holds them
/// now as well, so they are watched until the user lets go, and then lifted: no key stays down on the server
/// that no finger is on.
class PutBackKeys {
public:
    explicit PutBackKeys(std::shared_ptr<X11Connection> connection);
    /// Lifts what is still watched.
    ~PutBackKeys();

    /// Watches these keys instead of those before, which the chord has lifted. `devices` tell what the user
    /// holds.
    void watch(const KeySet& keys, std::vector<KeyboardDevice> devices);
    bool isWatching() const { return keys_.any(); }

private:
    enum class StateEvents { wanted, unwanted };

    void follow(const xcb_generic_event_t& event);
    void check();
    void select(StateEvents events);

    std::shared_ptr<X11Connection> connection_;
    KeySet keys_;
    std::vector<KeyboardDevice> devices_;
    bool checking_ = false;
    bool changedMeanwhile_ = false;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
