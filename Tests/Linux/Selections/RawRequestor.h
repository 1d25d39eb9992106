#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <xcb/xcb.h>

namespace tessel {

/// A client that asks for selections step by step, so that a test can stop between the steps. Waits for the X
/// server and for the owner. It vanishes, as a client that crashes, with this object.
class RawRequestor {
public:
    explicit RawRequestor(const std::string& display);

    /// Asks for `target` (ICCCM section 2.4) and waits for the answer. False: refused.
    bool ask(const std::string& selection, const std::string& target);
    /// Asks for `target` without waiting.
    void request(const std::string& selection, const std::string& target);
    /// Whether the value comes in increments; leaves the property where it is.
    bool comesInIncrements();
    /// Takes the property away, which asks for the next increment (ICCCM section 2.7.2).
    std::string takePiece();
    /// Takes the whole value.
    std::string takeAll();
    /// The window that owns the selection now; none when nobody does.
    xcb_window_t ownerOf(const std::string& selection);
    /// Takes the selection with this window, and answers nobody.
    void own(const std::string& selection);
    /// Waits until somebody asks this window for the selection.
    void waitForRequest(const std::string& selection);
    /// Has the server cut the connection of the selection's owner.
    void disconnectOwnerOf(const std::string& selection);

private:
    xcb_atom_t intern(const std::string& name);
    bool waitForNotice();
    void waitForNewValue();

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t window_ = XCB_NONE;
    xcb_atom_t property_ = XCB_NONE;
};

} // namespace tessel
