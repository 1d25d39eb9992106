#include "X11/X11Atoms.h"

#include <array>
#include <string>
#include <utility>

#include "X11/X11Reply.h"

namespace tessel {

X11Atoms internAtoms(xcb_connection_t* connection, int screenNumber)
{
    X11Atoms atoms;
    const auto names = std::to_array<std::pair<xcb_atom_t*, std::string>>({
        {&atoms.netActiveWindow, "_NET_ACTIVE_WINDOW"},
        {&atoms.netClientList, "_NET_CLIENT_LIST"},
        {&atoms.netSupported, "_NET_SUPPORTED"},
        {&atoms.netSupportingWindowManagerCheck, "_NET_SUPPORTING_WM_CHECK"},
        {&atoms.netWorkArea, "_NET_WORKAREA"},
        {&atoms.netStartupInfo, "_NET_STARTUP_INFO"},
        {&atoms.netStartupInfoBegin, "_NET_STARTUP_INFO_BEGIN"},
        {&atoms.netWindowDesktop, "_NET_WM_DESKTOP"},
        {&atoms.netWindowProcess, "_NET_WM_PID"},
        {&atoms.netWindowState, "_NET_WM_STATE"},
        {&atoms.netWindowStateAbove, "_NET_WM_STATE_ABOVE"},
        {&atoms.netWindowStateSkipPager, "_NET_WM_STATE_SKIP_PAGER"},
        {&atoms.netWindowStateSkipTaskbar, "_NET_WM_STATE_SKIP_TASKBAR"},
        {&atoms.netWindowStateSticky, "_NET_WM_STATE_STICKY"},
        {&atoms.netWindowStrut, "_NET_WM_STRUT"},
        {&atoms.netWindowStrutPartial, "_NET_WM_STRUT_PARTIAL"},
        {&atoms.netWindowType, "_NET_WM_WINDOW_TYPE"},
        {&atoms.netWindowTypeDock, "_NET_WM_WINDOW_TYPE_DOCK"},
        {&atoms.netWindowTypeUtility, "_NET_WM_WINDOW_TYPE_UTILITY"},
        {&atoms.netWindowUserTime, "_NET_WM_USER_TIME"},
        {&atoms.compositorShadow, "_COMPTON_SHADOW"},
        {&atoms.blurBehindRegion, "_KDE_NET_WM_BLUR_BEHIND_REGION"},
        {&atoms.motifWindowHints, "_MOTIF_WM_HINTS"},
        {&atoms.windowState, "WM_STATE"},
        {&atoms.timestampProbe, "TESSEL_TIMESTAMP"},
        {&atoms.manager, "MANAGER"},
        {&atoms.trayOpcode, "_NET_SYSTEM_TRAY_OPCODE"},
        {&atoms.trayVisual, "_NET_SYSTEM_TRAY_VISUAL"},
        {&atoms.trayColors, "_NET_SYSTEM_TRAY_COLORS"},
        {&atoms.embeddingInfo, "_XEMBED_INFO"},
        {&atoms.tray, "_NET_SYSTEM_TRAY_S" + std::to_string(screenNumber)},
        {&atoms.netWindowName, "_NET_WM_NAME"},
        {&atoms.utf8String, "UTF8_STRING"},
        {&atoms.compositingManager, "_NET_WM_CM_S" + std::to_string(screenNumber)},
    });
    std::array<xcb_intern_atom_cookie_t, names.size()> cookies{};
    for (std::size_t index = 0; index < names.size(); ++index) {
        const std::string& name = names.at(index).second;
        cookies.at(index) =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    }
    for (std::size_t index = 0; index < names.size(); ++index) {
        const X11Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies.at(index), nullptr));
        if (reply)
            *names.at(index).first = reply->atom;
    }
    return atoms;
}

} // namespace tessel
