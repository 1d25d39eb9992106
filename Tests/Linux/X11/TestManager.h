#pragma once

#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace tessel {

/// A window manager that does only what a test tells it to.
class TestManager {
public:
    TestManager();
    /// The server forgets it.
    ~TestManager();
    TestManager(const TestManager&) = delete;
    TestManager& operator=(const TestManager&) = delete;

    /// From now on no window of another client is mapped unless `map` does it.
    void takeOver();
    void map(xcb_window_t window);
    /// Says that it is there (`_NET_SUPPORTING_WM_CHECK`, EWMH) and which hints it supports.
    void announce(const std::vector<std::string>& supported);
    /// Says to a window that it has got the focus, which is not so.
    void pretendFocus(xcb_window_t window);

private:
    xcb_atom_t atom(const std::string& name);
    void synchronize();

    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    xcb_window_t window_ = XCB_WINDOW_NONE;
};

} // namespace tessel
