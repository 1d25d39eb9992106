#pragma once

#include <condition_variable>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include <xcb/xcb.h>

namespace tessel {

/// Another clipboard manager, on a thread and a connection of its own.
class RivalManager {
public:
    enum class Greed {
        watches,         ///< Only counts.
        takesDead,       ///< Takes over what an owner leaves behind.
        takesEverything, ///< Takes whatever anybody owns, as soon as it has read it.
    };

    RivalManager(const std::string& display, Greed greed);
    ~RivalManager();
    RivalManager(const RivalManager&) = delete;
    RivalManager& operator=(const RivalManager&) = delete;

    xcb_window_t window() const { return window_; }
    /// How often CLIPBOARD has had another owner since the beginning until this call; a death counts as well.
    /// Waits until everything that the server has announced is counted.
    int ownershipChanges() const;
    std::string text() const;

private:
    struct Free {
        void operator()(void* memory) const { std::free(memory); }
    };
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    xcb_atom_t intern(const std::string& name);
    void tellOurselves(xcb_atom_t message) const;
    void run();
    void handle(const xcb_generic_event_t& event);
    void ownerChanged(xcb_window_t owner, std::uint8_t kind);
    void received(xcb_atom_t property);
    void serve(const xcb_selection_request_event_t& request);
    void take();

    Greed greed_;
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t window_ = XCB_NONE;
    std::uint8_t firstFixesEvent_ = 0;
    xcb_atom_t clipboard_ = XCB_NONE;
    xcb_atom_t utf8String_ = XCB_NONE;
    xcb_atom_t targets_ = XCB_NONE;
    xcb_atom_t property_ = XCB_NONE;
    xcb_atom_t mark_ = XCB_NONE;
    xcb_atom_t stop_ = XCB_NONE;
    mutable std::mutex mutex_;
    std::string text_;
    int changes_ = 0;
    mutable int marksSent_ = 0; ///< Messages to ourselves.
    int marksSeen_ = 0;
    mutable std::condition_variable markSeen_;
    std::thread thread_;
};

} // namespace tessel
