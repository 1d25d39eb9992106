#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>

#include <xcb/xcb.h>

#include "X11/Selections/SelectionAtoms.h"
#include "X11/Selections/SelectionWire.h"

namespace tessel {

class SelectionCoordinator;

/// A connection of its own to the X server, for selections only. Belongs to one thread at a time.
class XcbSelectionConnection final : public SelectionWire {
public:
    /// Connects, and reports owners of CLIPBOARD from then on. `displayName` empty: that of the environment.
    /// Null: there is no display, or it lacks XFixes.
    static std::unique_ptr<XcbSelectionConnection> open(const std::string& displayName);
    ~XcbSelectionConnection() override;

    const SelectionAtoms& atoms() const { return atoms_; }
    /// Readable when there is something to `dispatch`.
    int fileDescriptor() const;
    /// Whether the connection has broken; nothing comes from it any more.
    bool isLost() const;
    /// Whether somebody owned CLIPBOARD when the connection was made.
    bool isClipboardOwned() const { return isClipboardOwned_; }
    /// Whether nobody owned CLIPBOARD_MANAGER when the connection was made.
    bool isClipboardManagerFree() const { return isClipboardManagerFree_; }

    /// Whether `dispatch` has left something to dispatch.
    enum class Backlog { none, some };
    /// So many events are dispatched before other work gets its turn, however many come.
    static constexpr int mostEventsAtOnce = 64;

    /// Hands what has arrived to `coordinator`, and sends what it asks for. Does not wait for anything to
    /// arrive, except for properties in the server that have been asked for.
    Backlog dispatch(SelectionCoordinator& coordinator);
    /// Sends what has been asked for outside of `dispatch`.
    void flush();

    WindowID createRequestor() override;
    void destroyRequestor(WindowID window) override;
    void convertSelection(const SelectionRequest& conversion) override;
    void readProperty(WindowID window, AtomID property, std::size_t offset, std::size_t length,
                      AfterReading afterwards) override;
    WindowID ownerWindow() const override { return ownerWindow_; }
    void requestTimestamp() override;
    void setSelectionOwner(WindowID owner, AtomID selection, ServerTime time) override;
    void announceManager(AtomID selection, ServerTime time) override;
    void changeProperty(WindowID window, AtomID property, AtomID type, int format,
                        std::span<const std::byte> bytes) override;
    void notifyRequestor(const SelectionNotice& notice) override;
    void watchRequestor(WindowID window) override;
    void unwatchRequestor(WindowID window) override;
    std::size_t maximumRequestBytes() const override { return maximumRequestBytes_; }

private:
    struct PendingRead {
        xcb_get_property_cookie_t cookie;
        WindowID window;
        AtomID property;
    };

    explicit XcbSelectionConnection(xcb_connection_t* connection);
    bool prepare();
    bool prepareFixes();
    void internAtoms();
    std::optional<WindowID> ownerOf(AtomID selection) const;
    WindowID createWindow();
    void select(WindowID window, std::uint32_t eventMask);
    bool dispatchEvent(SelectionCoordinator& coordinator);
    void dispatchEvent(SelectionCoordinator& coordinator, const xcb_generic_event_t& event);
    void dispatchError(SelectionCoordinator& coordinator, const xcb_generic_error_t& error);
    bool dispatchProperty(SelectionCoordinator& coordinator);

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    SelectionAtoms atoms_;
    WindowID root_ = noWindow;
    WindowID ownerWindow_ = noWindow;
    std::uint8_t firstFixesEvent_ = 0;
    std::size_t maximumRequestBytes_ = 0;
    bool isClipboardOwned_ = false;
    bool isClipboardManagerFree_ = false;
    std::deque<PendingRead> pendingReads_;
};

} // namespace tessel
