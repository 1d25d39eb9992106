#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tessel {

/// Names of the X protocol (X11R7 protocol, "Common types"): 29-bit identifiers that the server hands out.
using AtomID = std::uint32_t;
using WindowID = std::uint32_t;
/// The server's clock in milliseconds, wrapping after 49.7 days.
using ServerTime = std::uint32_t;
/// Our own clock; the state machines are told the time and never ask for it.
using Moment = std::chrono::steady_clock::time_point;

/// "None" and "CurrentTime" of the protocol.
constexpr std::uint32_t noAtom = 0;
constexpr std::uint32_t noWindow = 0;
constexpr ServerTime currentTime = 0;

/// Whether server time `a` is before `b`, by an hour at most. The clock wraps after 49 days: somebody who has
/// owned a selection for weeks cannot tell a request of now from one of long ago, and the former is what
/// comes.
constexpr bool isBefore(ServerTime a, ServerTime b)
{
    constexpr ServerTime oneHour = 3'600'000;
    return a != b && b - a < oneHour;
}

/// Why a selection has another owner than before (XFixes, selection notification).
enum class OwnerChangeReason {
    ownerSet,        ///< Somebody took it, or gave it up on purpose when the new owner is none.
    windowDestroyed, ///< The owner's window is gone.
    clientClosed,    ///< The owner's connection is gone.
};

struct OwnerChange {
    AtomID selection = noAtom;
    WindowID owner = noWindow; ///< None: nobody owns it now.
    OwnerChangeReason reason = OwnerChangeReason::ownerSet;
    /// When the owner was set. Of one that is gone, when it had taken the selection: with this time the
    /// selection can be taken in its place, and not from anybody who has taken it since.
    ServerTime time = currentTime;
};

/// `SelectionNotify`: an owner's answer to a conversion (ICCCM section 2.2).
struct SelectionNotice {
    WindowID requestor = noWindow;
    AtomID selection = noAtom;
    AtomID target = noAtom;
    AtomID property = noAtom; ///< None: refused.
    ServerTime time = currentTime;
};

/// `SelectionRequest`: somebody asks us to convert a selection (ICCCM section 2.2).
struct SelectionRequest {
    WindowID owner = noWindow;
    WindowID requestor = noWindow;
    AtomID selection = noAtom;
    AtomID target = noAtom;
    AtomID property = noAtom; ///< None: an obsolete client, for which the target stands in.
    ServerTime time = currentTime;
};

enum class PropertyChangeKind { newValue, deleted };

struct PropertyChange {
    WindowID window = noWindow;
    AtomID property = noAtom;
    PropertyChangeKind kind = PropertyChangeKind::newValue;
    ServerTime time = currentTime;
};

/// A piece of a property, or the news that there is no such property or window (`type` is none then).
struct PropertySlice {
    WindowID window = noWindow;
    AtomID property = noAtom;
    AtomID type = noAtom;
    int format = 0;                        ///< 8, 16 or 32 bits to an item; 0 without a type.
    std::size_t bytesAfter = 0;            ///< What remains of the property behind this piece.
    std::span<const std::byte> bytes = {}; ///< Valid during the call only.
};

enum class AfterReading { keep, deleteWhenComplete };

/// What the state machines ask of the X server. No request waits for its outcome: that comes back as an
/// event.
class SelectionWire {
public:
    virtual ~SelectionWire() = default;

    /// A new unmapped window that reports its property changes, for the values of one owner.
    virtual WindowID createRequestor() = 0;
    virtual void destroyRequestor(WindowID window) = 0;

    /// ICCCM section 2.4.
    virtual void convertSelection(const SelectionRequest& conversion) = 0;
    /// Answered by exactly one `PropertySlice`, of at most `length` bytes. `offset` and `length` are
    /// multiples of 4.
    virtual void readProperty(WindowID window, AtomID property, std::size_t offset, std::size_t length,
                              AfterReading afterwards) = 0;

    /// The window that owns our selections.
    virtual WindowID ownerWindow() const = 0;
    /// Appends nothing to the `timestamp` property of the owner window, whose notification brings the
    /// server's time (ICCCM section 2.1).
    virtual void requestTimestamp() = 0;
    /// None as `owner` gives the selection up. The server ignores a time before the last change of owner.
    virtual void setSelectionOwner(WindowID owner, AtomID selection, ServerTime time) = 0;
    /// Tells the root window's watchers that a manager selection is ours (ICCCM section 2.8).
    virtual void announceManager(AtomID selection, ServerTime time) = 0;

    virtual void changeProperty(WindowID window, AtomID property, AtomID type, int format,
                                std::span<const std::byte> bytes) = 0;
    virtual void notifyRequestor(const SelectionNotice& notice) = 0;
    /// Reports deletions of the requestor's properties and its death from now on.
    virtual void watchRequestor(WindowID window) = 0;
    virtual void unwatchRequestor(WindowID window) = 0;
    /// The most bytes that one request can carry by the handshake of the connection. Larger requests, which
    /// an extension allows, are not what ICCCM section 2.5 reckons with.
    virtual std::size_t maximumRequestBytes() const = 0;
};

} // namespace tessel
