#include "X11/Selections/X11Pasteboard.h"

#include <utility>

#include "X11/Selections/EncodedImage.h"
#include "X11/Selections/PictureDecoder.h"
#include "X11/Selections/SelectionsWorker.h"

namespace tessel {

struct X11Pasteboard::State {
    std::function<void(std::function<void()>)> postToMain;
    HandoverPatience handoverPatience;
    std::unique_ptr<SelectionsWorker> worker; ///< Null: there is no display.
    std::int64_t changeCount = 0;
    WriteGeneration generation = 0;
    bool isClearUnwritten = false; ///< Cleared, and nothing written since.
    SharedText text;
    SharedImage image;

    void take(ClipboardReading reading)
    {
        // It was on the clipboard before our own last write took its place.
        if (reading.generation != generation)
            return;
        ++changeCount;
        text = std::move(reading.text);
        image = std::move(reading.image);
    }

    void write(SelectionValue value)
    {
        isClearUnwritten = false;
        if (worker)
            worker->write(generation, std::move(value));
    }
};

X11Pasteboard::X11Pasteboard(SelectionsEnvironment environment)
    : state_(std::make_shared<State>())
{
    PictureDecoder::prepareToolkit();
    state_->postToMain = environment.postToMain;
    state_->handoverPatience = environment.handoverPatience;
    auto toMain = [post = environment.postToMain,
                   weakState = std::weak_ptr(state_)](ClipboardReading reading) {
        post([weakState, reading = std::move(reading)]() mutable {
            if (const auto state = weakState.lock())
                state->take(std::move(reading));
        });
    };
    state_->worker = SelectionsWorker::start(environment.displayName, std::move(environment.fingerprintImage),
                                             std::move(toMain));
}

X11Pasteboard::~X11Pasteboard() = default;

std::int64_t X11Pasteboard::changeCount() const
{
    return state_->changeCount;
}

SharedText X11Pasteboard::string() const
{
    return state_->text;
}

SharedImage X11Pasteboard::image() const
{
    return state_->image;
}

void X11Pasteboard::clearContents()
{
    ++state_->changeCount;
    ++state_->generation;
    state_->text = nullptr;
    state_->image = nullptr;
    state_->isClearUnwritten = true;
    // Others are to see the value that follows at once, and not an empty clipboard in between.
    state_->postToMain([weakState = std::weak_ptr(state_), generation = state_->generation] {
        const auto state = weakState.lock();
        if (state && state->isClearUnwritten && state->generation == generation)
            state->write({});
    });
}

void X11Pasteboard::setString(SharedText text)
{
    state_->text = text;
    SelectionValue value;
    value.text = std::move(text);
    state_->write(std::move(value));
}

void X11Pasteboard::writeObjects(SharedImage image)
{
    state_->image = image;
    SelectionValue value;
    if (const auto* encoded = dynamic_cast<const EncodedImage*>(image.get()))
        value.picture = encoded->picture();
    else
        value.foreignImage = std::move(image);
    state_->write(std::move(value));
}

bool X11Pasteboard::offerPrimary()
{
    if (!state_->worker || !state_->text)
        return false;
    state_->worker->offerPrimary(state_->text);
    return true;
}

void X11Pasteboard::whenAvailable(std::function<void()> done)
{
    if (!state_->worker)
        return state_->postToMain(std::move(done));
    state_->worker->whenAvailable(
        [post = state_->postToMain, done = std::move(done)]() mutable { post(std::move(done)); });
}

void X11Pasteboard::handOn(std::function<void()> done)
{
    if (!state_->worker)
        return state_->postToMain(std::move(done));
    state_->worker->handOn(
        state_->handoverPatience,
        [post = state_->postToMain, done = std::move(done)]() mutable { post(std::move(done)); });
}

} // namespace tessel
