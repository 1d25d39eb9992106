#include "Transfer.h"

#include "ValueRules.h"

namespace tessel::owners {

Transfer::Transfer(XClient& client, Request request, Taking taking)
    : client_(client)
    , request_(request)
    , taking_(taking)
{}

void Transfer::ask()
{
    xcb_convert_selection(client_.connection(), request_.window, request_.selection, request_.target,
                          request_.property, request_.time);
}

void Transfer::handle(const xcb_generic_event_t& event)
{
    if (kindOf(event) == XCB_SELECTION_NOTIFY) {
        const auto& answer = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
        return answer.requestor == request_.window ? handleAnswer(answer) : void();
    }
    if (kindOf(event) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window != request_.window || change.atom != request_.property ||
        change.state != XCB_PROPERTY_NEW_VALUE)
        return;
    if (isOver())
        ++lateWriteCount_;
    if (state_ != State::receiving || !isIncremental())
        return;
    hasPieceWaiting_ = true;
    if (taking_ == Taking::atOnce)
        takePiece();
}

void Transfer::handleAnswer(const xcb_selection_notify_event_t& answer)
{
    // The server gives the window numbers of a client that is gone to the next one, and with them what comes
    // late.
    if (answer.time != XCB_CURRENT_TIME && isBefore(answer.time, request_.time))
        return;
    ++answerCount_;
    if (state_ != State::asked)
        return;
    complainAboutAnswer(answer);
    if (answer.property == XCB_NONE)
        return refuse();
    request_.property = answer.property;
    beginReceiving();
}

void Transfer::complainAboutAnswer(const xcb_selection_notify_event_t& answer)
{
    const xcb_atom_t expected = request_.property == XCB_NONE ? request_.target : request_.property;
    if (answer.property != XCB_NONE && answer.property != expected)
        complaints_.push_back("answers with the property " + client_.atomName(answer.property) +
                              ", which was not asked for (2.2)");
    if (answer.selection != request_.selection)
        complaints_.push_back("answers for the selection " + client_.atomName(answer.selection) + " (2.2)");
    if (answer.target != request_.target)
        complaints_.push_back("answers for the target " + client_.atomName(answer.target) + " (2.2)");
    if (answer.time != request_.time)
        complaints_.push_back("answers with another time than that of the request (2.2)");
}

void Transfer::beginReceiving()
{
    state_ = State::receiving;
    hasPieceWaiting_ = true;
    if (taking_ == Taking::atOnce)
        takePiece();
}

void Transfer::takePiece()
{
    hasPieceWaiting_ = false;
    const Property piece = client_.takeProperty(request_.window, request_.property);
    if (isIncremental())
        return addPiece(piece);
    if (piece.type == client_.atom("INCR"))
        return takeAnnouncement(piece);
    value_ = piece;
    state_ = State::delivered;
    if (piece.bytes.size() > client_.mostBytesInRequest())
        complaints_.push_back("sends " + std::to_string(piece.bytes.size()) + " bytes in one property (2.5)");
    if (!piece.exists())
        complaints_.push_back("says that it answered, and left no property (2.2)");
}

void Transfer::takeAnnouncement(const Property& announcement)
{
    const auto sizes = announcement.items();
    announcedBytes_ = sizes.empty() ? 0 : sizes.front();
    if (sizes.size() != 1)
        complaints_.push_back("announces increments without one size of 32 bits (2.7.2)");
}

void Transfer::addPiece(const Property& piece)
{
    if (!piece.exists())
        return; // The news of a property that is gone already.
    if (value_.exists() && (piece.type != value_.type || piece.format != value_.format))
        complaints_.push_back("changes the type or the format between increments (2.7.2)");
    if (piece.bytes.size() > client_.mostBytesInRequest() && value_.bytes.empty())
        complaints_.push_back("sends increments of " + std::to_string(piece.bytes.size()) +
                              " bytes, more than a request may have (2.7.2)");
    value_.type = piece.type;
    value_.format = piece.format;
    value_.bytes += piece.bytes;
    if (!piece.bytes.empty()) {
        ++pieceCount_;
        return;
    }
    state_ = State::delivered;
    if (value_.bytes.size() < *announcedBytes_)
        complaints_.push_back("announces " + std::to_string(*announcedBytes_) + " bytes and sends " +
                              std::to_string(value_.bytes.size()) + " (2.7.2)");
}

std::vector<std::string> Transfer::complaints() const
{
    std::vector<std::string> all = complaints_;
    if (state_ == State::delivered && value_.exists()) {
        const auto complaint =
            complaintAbout(client_.atomName(request_.target), client_.atomName(value_.type), value_);
        if (complaint)
            all.push_back(*complaint);
    }
    return all;
}

std::string Transfer::description() const
{
    switch (state_) {
    case State::asked:
        return "no answer";
    case State::refused:
        return "refused";
    case State::receiving:
        return "unfinished: " + std::to_string(value_.bytes.size()) + " bytes in " +
               std::to_string(pieceCount_) + " increments";
    case State::delivered:
        break;
    }
    if (!value_.exists())
        return "no property";
    return std::to_string(value_.bytes.size()) + " bytes of " + client_.atomName(value_.type) +
           (isIncremental() ? " in " + std::to_string(pieceCount_) + " increments" : " in one property");
}

} // namespace tessel::owners
