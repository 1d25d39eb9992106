#pragma once

#include <cstdint>
#include <cstdlib>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

#include "Clock.h"
#include "Property.h"

namespace tessel::owners {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
/// What XCB returns from `malloc`.
template <class Value>
using Received = std::unique_ptr<Value, Free>;
using Event = Received<xcb_generic_event_t>;

/// The kind of an event, whether the server or another client sent it.
inline int kindOf(const xcb_generic_event_t& event)
{
    return event.response_type & 0x7F;
}

/// Whether a server time is earlier than another. They wrap around after 49.7 days: half of the circle is
/// earlier.
inline bool isBefore(xcb_timestamp_t one, xcb_timestamp_t other)
{
    return static_cast<std::int32_t>(one - other) < 0;
}

/// One client of the X server. Owners and requestors are each one or several of these.
class XClient {
public:
    /// Throws `NothingThere` when there is no display.
    XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    xcb_connection_t* connection() const { return connection_.get(); }
    bool isBroken() const { return xcb_connection_has_error(connection_.get()) != 0; }
    int descriptor() const { return xcb_get_file_descriptor(connection_.get()); }

    /// An unmapped window that hears of changes of its properties.
    xcb_window_t createWindow();
    void destroyWindow(xcb_window_t window);

    xcb_atom_t atom(const std::string& name);
    /// Many at once, in one round trip.
    std::vector<xcb_atom_t> atoms(const std::vector<std::string>& names);
    /// "an unknown atom (n)" when the server does not know it.
    std::string atomName(xcb_atom_t atom);

    /// The server's time, which clients are to use instead of CurrentTime (ICCCM section 2.1).
    xcb_timestamp_t currentTime();
    /// None: nobody owns it.
    xcb_window_t selectionOwner(const std::string& selection);

    /// How much of a property fits into one request of the size that the connection handshake allows;
    /// extensions may allow more, but ICCCM sections 2.5 and 2.7.2 go by that one.
    std::size_t mostBytesInRequest();
    /// Writes the property, in several requests where one would be too large.
    void writeProperty(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format,
                       std::string_view bytes);
    Property property(xcb_window_t window, xcb_atom_t property) { return read(window, property, false); }
    /// Reads and deletes it.
    Property takeProperty(xcb_window_t window, xcb_atom_t property) { return read(window, property, true); }

    void flush() { xcb_flush(connection_.get()); }
    /// Returns when the server has done everything that it was asked for.
    void roundTrip();
    /// The next event that is already here; null if there is none.
    Event nextEvent();

private:
    Property read(xcb_window_t window, xcb_atom_t property, bool deletes);

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t clockWindow_ = XCB_NONE;
    std::map<std::string, xcb_atom_t> atoms_;
    std::deque<Event> deferred_;
};

/// Waits until `isDone`, and gives every event of the clients to `handle` meanwhile. False: the deadline
/// passed first, or a connection broke.
bool pump(std::span<XClient* const> clients, const std::function<void(const xcb_generic_event_t&)>& handle,
          const std::function<bool()>& isDone, Clock::time_point deadline);

/// What is left until a deadline, for `poll`.
int millisecondsUntil(Clock::time_point deadline);

} // namespace tessel::owners
