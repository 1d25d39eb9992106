#include "X11/X11KeyStrokes.h"

#include <utility>

#include <QtCore/QMetaObject>

namespace tessel {

X11KeyStrokes::X11KeyStrokes(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
                             std::shared_ptr<X11HotKeyCenter> hotKeys, std::function<bool()> offerPrimary,
                             std::function<void(std::function<void()>)> whenAvailable, PastePatience patience)
    : rooms_{connection,
             keyboard,
             std::make_shared<ChordPlayer>(connection, keyboard, std::move(hotKeys)),
             std::make_shared<HeldReturn>(connection, keyboard, patience.release),
             std::move(offerPrimary),
             std::move(whenAvailable),
             patience}
{}

void X11KeyStrokes::postKeyStroke(std::uint16_t keyCode, ModifierFlags flags,
                                  std::optional<ProcessIdentifier> process)
{
    if (!rooms_.connection->isAlive() || keyCode != VirtualKey::v || flags != ModifierFlags::command)
        return;
    std::optional<xcb_window_t> target;
    if (process)
        target = static_cast<xcb_window_t>(*process);
    if (target == noWindow)
        return; // It has been closed.
    waiting_.push_back(target);
    if (!current_)
        beginNext();
}

void X11KeyStrokes::targetWillGetFocus()
{
    rooms_.heldReturn->holdAtOnce();
}

void X11KeyStrokes::beginNext()
{
    if (waiting_.empty())
        return;
    current_ = std::make_unique<PasteStroke>(rooms_, waiting_.front());
    waiting_.pop_front();
    current_->begin([this] {
        // The stroke itself is calling; it goes on the next turn of the loop.
        QMetaObject::invokeMethod(
            &context_, [this] { currentDidEnd(); }, Qt::QueuedConnection);
    });
}

void X11KeyStrokes::currentDidEnd()
{
    current_.reset();
    beginNext();
}

} // namespace tessel
