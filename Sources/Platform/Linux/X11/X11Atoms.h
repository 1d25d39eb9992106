#pragma once

#include <cstdint>

#include <xcb/xcb.h>

namespace tessel {

/// The atoms of this room, interned once for a connection. An atom has the same number on every connection to
/// a server.
struct X11Atoms {
    xcb_atom_t netActiveWindow = XCB_ATOM_NONE;
    xcb_atom_t netClientList = XCB_ATOM_NONE;
    xcb_atom_t netSupported = XCB_ATOM_NONE;
    xcb_atom_t netSupportingWindowManagerCheck = XCB_ATOM_NONE;
    xcb_atom_t netWorkArea = XCB_ATOM_NONE;
    xcb_atom_t netStartupInfo = XCB_ATOM_NONE;
    xcb_atom_t netStartupInfoBegin = XCB_ATOM_NONE;
    xcb_atom_t netWindowDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWindowProcess = XCB_ATOM_NONE;
    xcb_atom_t netWindowState = XCB_ATOM_NONE;
    xcb_atom_t netWindowStateAbove = XCB_ATOM_NONE;
    xcb_atom_t netWindowStateSkipPager = XCB_ATOM_NONE;
    xcb_atom_t netWindowStateSkipTaskbar = XCB_ATOM_NONE;
    xcb_atom_t netWindowStateSticky = XCB_ATOM_NONE;
    xcb_atom_t netWindowStrut = XCB_ATOM_NONE;
    xcb_atom_t netWindowStrutPartial = XCB_ATOM_NONE;
    xcb_atom_t netWindowType = XCB_ATOM_NONE;
    xcb_atom_t netWindowTypeDock = XCB_ATOM_NONE;
    xcb_atom_t netWindowTypeUtility = XCB_ATOM_NONE;
    xcb_atom_t netWindowUserTime = XCB_ATOM_NONE;
    xcb_atom_t compositorShadow = XCB_ATOM_NONE;
    /// On the root window: the compositing manager blurs. On a window: where.
    xcb_atom_t blurBehindRegion = XCB_ATOM_NONE;
    xcb_atom_t motifWindowHints = XCB_ATOM_NONE;
    xcb_atom_t windowState = XCB_ATOM_NONE;
    xcb_atom_t timestampProbe = XCB_ATOM_NONE;
    /// @name The system tray (freedesktop.org System Tray Protocol) and what is embedded in it (XEmbed)
    /// @{
    xcb_atom_t manager = XCB_ATOM_NONE;
    xcb_atom_t trayOpcode = XCB_ATOM_NONE;
    xcb_atom_t trayVisual = XCB_ATOM_NONE;
    xcb_atom_t trayColors = XCB_ATOM_NONE;
    xcb_atom_t embeddingInfo = XCB_ATOM_NONE;
    /// `_NET_SYSTEM_TRAY_Sn` of the connection's screen: the selection that a tray owns.
    xcb_atom_t tray = XCB_ATOM_NONE;
    /// @}
    xcb_atom_t netWindowName = XCB_ATOM_NONE;
    xcb_atom_t utf8String = XCB_ATOM_NONE;
    /// `_NET_WM_CM_Sn` of the connection's screen: the selection that a compositing manager owns.
    xcb_atom_t compositingManager = XCB_ATOM_NONE;
};

/// Interns them all in one round trip. `screenNumber` is the number of the connection's screen.
X11Atoms internAtoms(xcb_connection_t* connection, int screenNumber);

} // namespace tessel
