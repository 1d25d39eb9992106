#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "XClient.h"

namespace tessel::owners {

/// One request for one target, on the requestor's side, from the request to the last piece (ICCCM
/// sections 2.4 and 2.7.2). It notes everything in which the owner departs from the ICCCM. Answers are told
/// apart by their window: every transfer has one of its own.
class Transfer {
public:
    struct Request {
        xcb_window_t window;
        xcb_atom_t selection;
        xcb_atom_t target;
        xcb_atom_t property; ///< None: as an obsolete client asks (ICCCM section 2.2).
        xcb_timestamp_t time;
    };
    enum class State { asked, receiving, delivered, refused };
    /// Whether what arrives is taken at once, which lets the owner go on, or when the caller calls
    /// `takePiece`.
    enum class Taking { atOnce, byHand };

    Transfer(XClient& client, Request request, Taking taking = Taking::atOnce);

    void ask();
    /// One pair of a MULTIPLE request is answered with the whole of it.
    void beginReceiving();
    void refuse() { state_ = State::refused; }
    /// Events that are not its own are ignored.
    void handle(const xcb_generic_event_t& event);

    const Request& request() const { return request_; }
    State state() const { return state_; }
    bool isOver() const { return state_ == State::delivered || state_ == State::refused; }
    /// Answered, with whatever.
    bool isAnswered() const { return state_ != State::asked; }

    /// With `Taking::byHand`: the announcement of an incremental transfer, or a piece, or the whole.
    bool hasPieceWaiting() const { return hasPieceWaiting_; }
    void takePiece();

    /// What was received so far; its type is that of the value, never INCR.
    const Property& value() const { return value_; }
    bool isIncremental() const { return announcedBytes_.has_value(); }
    std::size_t pieceCount() const { return pieceCount_; }
    /// How often it was answered.
    std::size_t answerCount() const { return answerCount_; }
    /// How often the property was written after the end.
    std::size_t lateWriteCount() const { return lateWriteCount_; }

    /// What the owner did that it must not do, each with the section that says so; empty: nothing.
    std::vector<std::string> complaints() const;
    /// In what state it is and what it has received, for messages.
    std::string description() const;

private:
    void handleAnswer(const xcb_selection_notify_event_t& answer);
    void takeAnnouncement(const Property& announcement);
    void addPiece(const Property& piece);
    void complainAboutAnswer(const xcb_selection_notify_event_t& answer);

    XClient& client_;
    Request request_;
    Taking taking_;
    State state_ = State::asked;
    bool hasPieceWaiting_ = false;
    Property value_;
    std::optional<std::uint32_t> announcedBytes_;
    std::size_t pieceCount_ = 0;
    std::size_t answerCount_ = 0;
    std::size_t lateWriteCount_ = 0;
    std::vector<std::string> complaints_;
};

} // namespace tessel::owners
