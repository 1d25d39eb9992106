#include "XClient.h"

#include <algorithm>
#include <limits>

#include <poll.h>

#include "NothingThere.h"

namespace tessel::owners {

namespace {

/// What a ChangeProperty request needs beside the value, generously.
constexpr std::size_t requestHeaderBytes = 64;

} // namespace

XClient::XClient()
    : connection_(xcb_connect(nullptr, nullptr))
{
    if (isBroken())
        throw NothingThere("cannot connect to the X display");
    clockWindow_ = createWindow();
}

xcb_window_t XClient::createWindow()
{
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    const xcb_window_t window = xcb_generate_id(connection_.get());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_.get(), 0, window, screen->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return window;
}

void XClient::destroyWindow(xcb_window_t window)
{
    xcb_destroy_window(connection_.get(), window);
}

xcb_atom_t XClient::atom(const std::string& name)
{
    const auto known = atoms_.find(name);
    return known != atoms_.end() ? known->second : atoms({name}).front();
}

std::vector<xcb_atom_t> XClient::atoms(const std::vector<std::string>& names)
{
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (const std::string& name : names)
        cookies.push_back(
            xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
    std::vector<xcb_atom_t> atoms;
    for (std::size_t index = 0; index < names.size(); ++index) {
        const Received<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection_.get(), cookies[index], nullptr));
        atoms.push_back(reply ? reply->atom : static_cast<xcb_atom_t>(XCB_NONE));
        atoms_[names[index]] = atoms.back();
    }
    return atoms;
}

std::string XClient::atomName(xcb_atom_t atom)
{
    if (atom == XCB_NONE)
        return "None";
    const auto cookie = xcb_get_atom_name(connection_.get(), atom);
    const Received<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return "an unknown atom (" + std::to_string(atom) + ")";
    return {xcb_get_atom_name_name(reply.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

/// The time comes with the notification of an append of nothing (ICCCM section 2.1).
xcb_timestamp_t XClient::currentTime()
{
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, clockWindow_, XCB_ATOM_INTEGER,
                        XCB_ATOM_INTEGER, 32, 0, nullptr);
    flush();
    while (Event event{xcb_wait_for_event(connection_.get())}) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if (kindOf(*event) == XCB_PROPERTY_NOTIFY && change.window == clockWindow_)
            return change.time;
        deferred_.push_back(std::move(event));
    }
    throw NothingThere("the connection to the X display is broken");
}

xcb_window_t XClient::selectionOwner(const std::string& selection)
{
    const auto cookie = xcb_get_selection_owner(connection_.get(), atom(selection));
    const Received<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

std::size_t XClient::mostBytesInRequest()
{
    return std::size_t{4} * xcb_get_setup(connection_.get())->maximum_request_length - requestHeaderBytes;
}

void XClient::writeProperty(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format,
                            std::string_view bytes)
{
    const std::size_t most = mostBytesInRequest();
    auto mode = XCB_PROP_MODE_REPLACE;
    do {
        const std::string_view part = bytes.substr(0, most);
        const auto items = part.size() * 8 / static_cast<std::size_t>(format);
        xcb_change_property(connection_.get(), static_cast<std::uint8_t>(mode), window, property, type,
                            static_cast<std::uint8_t>(format), static_cast<std::uint32_t>(items),
                            part.data());
        bytes.remove_prefix(part.size());
        mode = XCB_PROP_MODE_APPEND;
    } while (!bytes.empty());
}

Property XClient::read(xcb_window_t window, xcb_atom_t property, bool deletes)
{
    // In units of four bytes; nothing larger fits into a reply.
    constexpr std::uint32_t everything = std::numeric_limits<std::uint32_t>::max() / 4;
    const auto cookie =
        xcb_get_property(connection_.get(), deletes, window, property, XCB_ATOM_ANY, 0, everything);
    const Received<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return {};
    return {reply->type,
            reply->format,
            {static_cast<const char*>(xcb_get_property_value(reply.get())),
             static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))}};
}

void XClient::roundTrip()
{
    const auto cookie = xcb_get_input_focus(connection_.get());
    Received<xcb_get_input_focus_reply_t>(xcb_get_input_focus_reply(connection_.get(), cookie, nullptr));
}

Event XClient::nextEvent()
{
    if (deferred_.empty())
        return Event(xcb_poll_for_event(connection_.get()));
    Event event = std::move(deferred_.front());
    deferred_.pop_front();
    return event;
}

bool pump(std::span<XClient* const> clients, const std::function<void(const xcb_generic_event_t&)>& handle,
          const std::function<bool()>& isDone, Clock::time_point deadline)
{
    while (true) {
        std::vector<pollfd> sources;
        bool isQuiet = true;
        for (XClient* client : clients) {
            client->flush(); // This may bring events in, too; hence before the look for them.
            while (const Event event = client->nextEvent()) {
                handle(*event);
                isQuiet = false;
            }
            sources.push_back({client->descriptor(), POLLIN, 0});
            if (client->isBroken())
                return isDone();
        }
        if (isDone())
            return true;
        if (Clock::now() >= deadline)
            return false;
        // What was handled may have brought new events from the connection into the queue.
        if (isQuiet)
            poll(sources.data(), sources.size(), millisecondsUntil(deadline));
    }
}

int millisecondsUntil(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(
        std::clamp<std::chrono::milliseconds::rep>(left, 0, std::numeric_limits<int>::max()));
}

} // namespace tessel::owners
