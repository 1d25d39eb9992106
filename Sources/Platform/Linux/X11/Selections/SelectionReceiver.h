#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "X11/Selections/IncomingConversion.h"
#include "X11/Selections/SelectionValue.h"

namespace tessel {

/// What an owner turned out to have.
enum class Readability {
    readable,   ///< Text, a picture, or neither when it offers none.
    secret,     ///< Marked by a password manager: neither read nor kept.
    unreadable, ///< The owner was silent, died, or sent what cannot be read.
};

struct ReceivedValue {
    Readability readability = Readability::unreadable;
    SelectionValue value; ///< Empty unless readable.
};

/// Receives the values of one selection's owners, the latest only: a new owner ends the transfer from the one
/// before, and destroys its requestor window. A state machine without input or output of its own and without
/// a clock.
///
/// For every owner whose value is received, or fails, `onValue` runs exactly once. Afterwards the companions
/// of the value are collected in the background, for the case that the owner goes away.
class SelectionReceiver {
public:
    /// The most bytes of one text or of one encoded picture. Larger ones are skipped: nobody pastes them by
    /// hand, and an owner that never finishes must not fill the memory.
    static constexpr std::size_t mostValueBytes = std::size_t{256} << 20;
    /// The most bytes of one companion and of all together. They are held for the current value only.
    static constexpr std::size_t mostCompanionBytes = std::size_t{4} << 20;
    static constexpr std::size_t mostCompanionBytesTogether = std::size_t{8} << 20;
    /// The most targets that are looked at. Office programs offer around 60.
    static constexpr std::size_t mostTargets = 4096;
    /// A retired window is destroyed after this time: by then an owner that has not answered counts as silent
    /// anyway.
    static constexpr std::chrono::seconds retirement = IncomingConversion::longestSilence;
    /// The most retired windows; the oldest goes first. Only somebody who takes the selection again and again
    /// has more.
    static constexpr std::size_t mostRetiredWindows = 32;
    /// A password manager's hint is one word.
    static constexpr std::size_t mostHintBytes = 256;

    SelectionReceiver(SelectionWire& wire, const SelectionAtoms& atoms, AtomID selection);
    ~SelectionReceiver();
    SelectionReceiver(const SelectionReceiver&) = delete;
    SelectionReceiver& operator=(const SelectionReceiver&) = delete;

    /// A value was received or has failed. Must be set before the first event.
    std::function<void(ReceivedValue)> onValue;
    /// Takes the place of a received text where it is there already. Need not be set.
    std::function<SharedText(SharedText)> shareText;
    /// Everything wanted of the owner has come or was given up: nothing is under way any more. Runs after
    /// `onValue`.
    std::function<void()> onIdle;

    /// Starts to receive from the new owner; `time` is when it took the selection.
    void receive(ServerTime time, Moment now);
    /// Forgets the transfer and whatever it has brought.
    void abandon(Moment now);
    /// The owner is gone for good: what has not come will not come. What stands in our window already is read
    /// still.
    void ownerGone();

    bool isIdle() const { return !conversion_; }
    /// The main value and the companions that have come so far; empty before the value, after a failure and
    /// for a secret.
    const SelectionValue& kept() const { return kept_; }

    void selectionNotified(const SelectionNotice& notice, Moment now);
    void propertyChanged(const PropertyChange& change, Moment now);
    void propertyArrived(const PropertySlice& slice, Moment now);
    void timePassed(Moment now);
    /// When `timePassed` must be called. None: nothing is awaited.
    std::optional<Moment> deadline() const;

private:
    enum class OwnerState { done, mayStillWrite };
    struct RetiredWindow {
        WindowID window;
        Moment end;
    };
    enum class Step { targets, secretHint, text, picture, companions };

    void endWithOwner();
    void begin(Step step, AtomID target, std::size_t mostBytes, Moment now);
    void afterProgress(IncomingConversion::Progress progress, Moment now);
    void conversionComplete(Moment now);
    void conversionRefused(Moment now);

    void readTargets(const std::string& bytes, Moment now);
    void planWithoutTargets(Moment now);
    bool offers(AtomID target) const;
    void nextText(Moment now);
    void nextPicture(Moment now);
    void nextCompanion(Moment now);
    void textComplete(Moment now);
    void pictureComplete(Moment now);
    void companionComplete(Moment now);
    void giveUp(Moment now);
    void deliver(Readability readability);
    void end(OwnerState state, Moment now);
    void noteIncrements();
    void destroyOldestRetiredWindow();

    SelectionWire& wire_;
    const SelectionAtoms& atoms_;
    const AtomID selection_;

    WindowID window_ = noWindow;
    ServerTime time_ = currentTime;
    bool ownerIsGone_ = false;
    Step step_ = Step::targets;
    std::optional<IncomingConversion> conversion_;
    std::size_t conversionCount_ = 0;
    bool isDelivered_ = false;
    std::vector<AtomID> offered_;
    std::vector<AtomID> candidates_; ///< Of the current step, the next one last.
    SelectionValue kept_;
    std::size_t companionBytes_ = 0;
    bool hasUsedIncrements_ = false;
    std::deque<RetiredWindow> retired_; ///< The oldest first.
};

} // namespace tessel
