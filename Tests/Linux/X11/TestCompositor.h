#pragma once

#include <string>

#include <xcb/xcb.h>

namespace tessel {

/// A compositing manager by name: it composites nothing, and says what a test tells it to.
class TestCompositor {
public:
    /// Owns `_NET_WM_CM_Sn` until this object is gone.
    TestCompositor();
    ~TestCompositor();
    TestCompositor(const TestCompositor&) = delete;
    TestCompositor& operator=(const TestCompositor&) = delete;

    /// Says on the root window that it blurs behind windows that ask for it. This stays when it ends, as when
    /// a real one crashes.
    void announceBlur();
    void withdrawBlur();

private:
    xcb_atom_t atom(const std::string& name);

    xcb_connection_t* connection_ = nullptr;
    int screenNumber_ = 0;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    xcb_atom_t blur_ = XCB_ATOM_NONE;
};

} // namespace tessel
