#pragma once

#include <xcb/xcb.h>

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "Deadline.h"
#include "XConnection.h"

namespace tessel::desktop {

/// A well-behaved owner of the CLIPBOARD selection (ICCCM section 2) inside this process, for quick copies.
/// It serves from a thread of its own, so that a test may wait for anything else meanwhile.
class ClipboardOwner {
public:
    /// The bytes of each target, by its name.
    using Contents = std::map<std::string, std::string>;

    explicit ClipboardOwner(const std::string& displayName);
    ~ClipboardOwner();
    ClipboardOwner(const ClipboardOwner&) = delete;
    ClipboardOwner& operator=(const ClipboardOwner&) = delete;

    /// Each copy takes the selection anew, and returns when the server has announced the new owner.
    void copyText(const std::string& text);
    void copyPng(const std::string& bytes);
    void copy(Contents contents);

    /// How often a target's value has been asked for since the last copy.
    int requestCount(const std::string& target);
    /// Waits until somebody has asked for a target's value since the last copy.
    void waitForRequest(const std::string& target, Deadline deadline = Deadline());
    /// Waits until somebody has got the whole of a value that was sent in pieces.
    void waitForCompletion(const std::string& target, Deadline deadline = Deadline());
    /// Lets go of the selection, deliberately.
    void clear();

private:
    /// A value on its way in pieces (ICCCM section 2.7.2).
    struct IncrementalTransfer {
        xcb_atom_t type;
        std::string bytes;
        std::size_t sent = 0;
        bool isComplete = false;
    };
    using TransferKey = std::pair<xcb_window_t, xcb_atom_t>;

    void serve();
    bool isOwnEnd(const xcb_generic_event_t& event) const;
    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& event);
    void answer(const xcb_selection_request_event_t& request);
    bool provide(const xcb_selection_request_event_t& request, xcb_atom_t property);
    void provideTargets(const xcb_selection_request_event_t& request, xcb_atom_t property);
    void provideBytes(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, const std::string& bytes);
    void continueTransfer(TransferKey key);
    xcb_timestamp_t serverTime();
    void own(xcb_window_t owner, xcb_timestamp_t time);

    XConnection connection_;
    xcb_window_t window_;

    std::mutex mutex_;
    std::condition_variable changed_;
    Contents contents_;
    std::map<std::string, int> requests_;
    std::map<xcb_atom_t, int> completions_;
    xcb_timestamp_t latestTime_ = 0;
    std::uint64_t timeAnswers_ = 0;
    std::uint64_t ownerChanges_ = 0;
    xcb_timestamp_t ownedSince_ = 0;
    std::map<TransferKey, IncrementalTransfer> transfers_;

    std::thread thread_;
};

} // namespace tessel::desktop
