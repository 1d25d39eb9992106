#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <QtCore/QObject>
#include <xcb/xcb.h>

#include "Support/ObserverList.h"
#include "Token.h"
#include "X11/NoWindow.h"
#include "X11/X11Atoms.h"
#include "X11/X11Reply.h"

class QSocketNotifier;

namespace tessel {

/// The extensions that this room uses, as far as the server has them.
struct X11Extensions {
    bool test = false;    ///< XTEST 2.2: synthetic keys.
    bool input = false;   ///< XInput 2: the keyboards behind the core keyboard.
    bool xkb = false;     ///< XKB 1.0.
    bool fixes = false;   ///< XFixes 1: selection owner notifications.
    bool render = false;  ///< RENDER 0.6: pictures with filters.
    bool shape = false;   ///< SHAPE: windows that are no rectangles.
    bool wayland = false; ///< `XWAYLAND`: this server shows its windows on a Wayland compositor.
    std::uint8_t xkbFirstEvent = 0;
    std::uint8_t fixesFirstEvent = 0;
};

/// This room's own connection to the X server. It is read on the main thread whenever the server has sent
/// something, and costs nothing in between. Without a display, and once the connection is lost, everything
/// here stays inert: requests go nowhere, replies are null, and no event comes.
class X11Connection {
public:
    /// Connects to `displayName`, or to the display that `DISPLAY` names when it is empty.
    explicit X11Connection(const std::string& displayName = {});
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    bool isAlive() const { return alive_; }
    /// Never null, but of no use while `isAlive` is false.
    xcb_connection_t* raw() const { return connection_; }
    const X11Atoms& atoms() const { return atoms_; }
    const X11Extensions& extensions() const { return extensions_; }
    xcb_window_t root() const { return root_; }
    xcb_visualid_t rootVisual() const { return rootVisual_; }
    /// The extent of the root window when the connection was made, in pixels, kept up to date.
    std::uint16_t rootWidth() const { return rootWidth_; }
    std::uint16_t rootHeight() const { return rootHeight_; }

    /// Sends what has been requested so far.
    void flush();

    /// Runs `handler` for every event of this connection, in the order of their arrival.
    Token observeEvents(std::function<void(const xcb_generic_event_t&)> handler);

    /// Asks for the events of `mask` on a window, which may be another client's, in addition to what others
    /// in this room asked for. The server keeps one mask for each client and window, so every selection has
    /// to go through here.
    Token selectEvents(xcb_window_t window, std::uint32_t mask);

    /// Waits for a reply: one round trip. Null: an error, or a lost connection.
    template <class Reply, class Cookie>
    X11Reply<Reply> wait(Reply* (*receive)(xcb_connection_t*, Cookie, xcb_generic_error_t**), Cookie cookie)
    {
        xcb_generic_error_t* error = nullptr;
        X11Reply<Reply> reply(receive(connection_, cookie, &error));
        std::free(error);
        return reply;
    }

    /// Runs `handler` with the reply once it is there, or with null for an error or a lost connection.
    /// Replies and events are handed over in the order in which the server sent them. Nothing runs once
    /// `owner` is gone.
    template <class Reply, class Cookie>
    void whenReplied(Cookie cookie, std::weak_ptr<const void> owner,
                     std::function<void(const Reply*)> handler)
    {
        awaitReply(cookie.sequence, std::move(owner), [handler = std::move(handler)](const void* reply) {
            handler(static_cast<const Reply*>(reply));
        });
    }

    /// The server's time now, in milliseconds since an arbitrary moment: one round trip. None: no connection.
    std::optional<xcb_timestamp_t> currentServerTime();

private:
    struct AwaitedReply {
        unsigned int sequence = 0;
        std::weak_ptr<const void> owner;
        std::function<void(const void*)> handler;
    };
    /// Where events are taken from: what the server has sent, or only what has been read already.
    enum class Source { socket, queue };
    using Selections = std::map<std::uint64_t, std::uint32_t>;

    void queryExtensions();
    void createHelperWindow();
    void installNotifier();
    void awaitReply(unsigned int sequence, std::weak_ptr<const void> owner,
                    std::function<void(const void*)> handler);
    void dispatch(Source source);
    /// False: there was nothing.
    bool deliverAll(Source source);
    bool deliverNext(Source source);
    /// Hands over the reply that is next, if it was sent before `event`; without an event, if it is there.
    /// False: it was not.
    bool deliverReplyBefore(const xcb_generic_event_t* event);
    void deliver(const xcb_generic_event_t& event);
    void follow(const xcb_generic_event_t& event);
    void applySelection(xcb_window_t window);
    void lose();

    xcb_connection_t* connection_ = nullptr;
    bool alive_ = false;
    X11Atoms atoms_;
    X11Extensions extensions_;
    xcb_window_t root_ = noWindow;
    xcb_visualid_t rootVisual_ = 0;
    xcb_window_t helperWindow_ = noWindow;
    std::uint16_t rootWidth_ = 0;
    std::uint16_t rootHeight_ = 0;

    std::uint64_t nextId_ = 1;
    ObserverList<const xcb_generic_event_t&> listeners_;
    std::map<xcb_window_t, Selections> selections_;
    std::deque<AwaitedReply> awaitedReplies_;
    /// Events that have been read and not handed over yet.
    std::deque<X11Reply<xcb_generic_event_t>> setAside_;
    bool dispatching_ = false;

    /// Receives the signals of the loop; the connections to them end with it.
    QObject context_;
    std::unique_ptr<QSocketNotifier> notifier_;
    /// Tokens may outlive the connection.
    std::shared_ptr<X11Connection*> self_ = std::make_shared<X11Connection*>(this);
};

/// The kind of an event, without the mark of events that another client sent.
inline std::uint8_t eventKind(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t sentBit = 0x80;
    return static_cast<std::uint8_t>(event.response_type & ~sentBit);
}

/// An event seen as the structure of its kind.
template <class Event>
const Event& eventAs(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&>(event);
}

} // namespace tessel
