#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "X11/Selections/SelectionCoordinator.h"
#include "X11/Selections/SelectionWire.h"

namespace tessel {

/// Numbers for the atoms, as a server would hand them out.
SelectionAtoms fakeAtoms();

struct FakeProperty {
    AtomID type = noAtom;
    int format = 8;
    std::string bytes;

    bool operator==(const FakeProperty&) const = default;
};

/// How an owner sends one of its targets.
struct FakeTarget {
    FakeProperty value;
    /// Bytes of an increment. None: the value goes in one property.
    std::optional<std::size_t> incrementBytes = std::nullopt;
    /// Increments after which the owner falls silent. None: it sends them all.
    std::optional<std::size_t> silentAfter = std::nullopt;
    /// What the INCR property announces. None: the truth.
    std::optional<std::uint32_t> announced = std::nullopt;
    /// The whole INCR property. None: as the type demands.
    std::optional<FakeProperty> announcement = std::nullopt;
    /// Starts over when it has come to the end.
    bool isEndless = false;
    /// Says that the property is there, and has not written it.
    bool isMissing = false;
};

/// Somebody who owns the clipboard.
struct FakeOwner {
    std::map<AtomID, FakeTarget> targets;
    bool isMute = false;
};

/// Everything in an X server that the selections have to do with, in the same thread and without a clock:
/// what a state machine asks for takes effect in order, and comes back as events that wait until they are
/// delivered.
class FakeDisplay final : public SelectionWire {
public:
    FakeDisplay();

    const SelectionAtoms atoms = fakeAtoms();
    static constexpr WindowID ownWindow = 7;
    /// Bytes that one request can carry.
    static constexpr std::size_t requestBytes = 4096;

    /// Events go there. Must be set.
    SelectionCoordinator* coordinator = nullptr;
    Moment now{};

    /// Another client takes the clipboard.
    WindowID takeClipboard(FakeOwner owner);
    /// With a time of its own, which may be earlier than now.
    WindowID takeClipboard(FakeOwner owner, ServerTime time);
    /// The owner gives the clipboard up on purpose.
    void clearClipboard();
    /// The owner's connection ends.
    void killOwner();
    /// Somebody takes a selection that is none of the clipboard's, or dies with it.
    void takeByStranger(AtomID selection);
    void killStranger(AtomID selection);
    bool isOwnedByUs(AtomID selection) const;
    WindowID ownerOf(AtomID selection) const;
    /// The server's time of the last taking.
    ServerTime timeOfTaking(AtomID selection) const { return selections_.at(selection).time; }
    /// Another client's window, which asks for a selection.
    WindowID createForeignWindow();
    void destroyForeignWindow(WindowID window);
    /// False: the selection is not ours, and the server has answered itself.
    bool request(WindowID requestor, AtomID selection, AtomID target, AtomID property,
                 std::optional<ServerTime> time = std::nullopt);
    /// What a requestor finds, which takes it away as well.
    std::optional<FakeProperty> takeProperty(WindowID window, AtomID property);
    const FakeProperty* property(WindowID window, AtomID property) const;
    void setProperty(WindowID window, AtomID property, FakeProperty value);

    /// Drops what was to be delivered, as if we had not been there yet.
    void forgetEvents() { events_.clear(); }
    /// Whether events are read before the replies that are read with them, as the protocol library hands them
    /// out.
    bool eventsOvertakeReplies = false;
    /// Delivers the oldest event. False: there is none.
    bool deliverOne();
    /// Delivers until there is nothing left to deliver.
    void deliverAll();
    void passTime(std::chrono::milliseconds time);
    ServerTime time() const { return time_; }

    /// Answers to requestors, oldest first.
    std::vector<SelectionNotice> notices;
    std::set<WindowID> requestors;
    std::size_t createdRequestors = 0;
    std::set<WindowID> watched;
    std::size_t bytesRead = 0;
    std::size_t readCount = 0;
    /// What we have asked owners for.
    std::vector<AtomID> convertedTargets;
    /// How often an owner has met a window of ours that was gone.
    int writesToMissingWindows = 0;

    WindowID createRequestor() override;
    void destroyRequestor(WindowID window) override;
    void convertSelection(const SelectionRequest& conversion) override;
    void readProperty(WindowID window, AtomID property, std::size_t offset, std::size_t length,
                      AfterReading afterwards) override;
    WindowID ownerWindow() const override { return ownWindow; }
    void requestTimestamp() override;
    void setSelectionOwner(WindowID owner, AtomID selection, ServerTime time) override;
    void announceManager(AtomID, ServerTime) override {}
    void changeProperty(WindowID window, AtomID property, AtomID type, int format,
                        std::span<const std::byte> bytes) override;
    void notifyRequestor(const SelectionNotice& notice) override;
    void watchRequestor(WindowID window) override;
    void unwatchRequestor(WindowID window) override;
    std::size_t maximumRequestBytes() const override { return requestBytes; }

private:
    struct Selection {
        WindowID owner = noWindow;
        ServerTime time = currentTime;
    };
    /// An owner's value on its way in increments.
    struct Increments {
        WindowID owner;
        FakeTarget target;
        std::size_t offset = 0;
        std::size_t sent = 0;
        bool hasEnded = false;
    };
    using Place = std::pair<WindowID, AtomID>;

    bool windowExists(WindowID window) const;
    void setOwner(WindowID owner, AtomID selection, ServerTime time, OwnerChangeReason reason);
    void answer(WindowID ownerWindow, const SelectionRequest& conversion);
    void propertyDeleted(Place place);
    void continueIncrements(Place place);
    void put(Place place, FakeProperty value);
    struct Event {
        std::function<void()> deliver;
        bool isReply = false;
    };
    void post(std::function<void()> event) { events_.push_back({std::move(event), false}); }
    void postReply(std::function<void()> reply) { events_.push_back({std::move(reply), true}); }

    ServerTime time_ = 1000;
    WindowID nextWindow_ = 100;
    std::deque<Event> events_;
    std::map<AtomID, Selection> selections_;
    std::map<WindowID, FakeOwner> owners_;
    std::set<WindowID> foreignWindows_;
    std::map<Place, FakeProperty> properties_;
    std::map<Place, Increments> increments_;
};

/// Bytes of a list of atoms.
std::string atomBytes(const std::vector<AtomID>& atoms);
std::vector<AtomID> atomsOf(const std::string& bytes);

/// An owner of these targets, which lists them as it should.
FakeOwner ownerOf(const SelectionAtoms& atoms, std::map<AtomID, FakeTarget> targets);
/// A text as UTF8_STRING.
FakeTarget utf8Target(const SelectionAtoms& atoms, std::string text);

} // namespace tessel
