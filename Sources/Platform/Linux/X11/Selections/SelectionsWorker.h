#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "PlatformImage.h"
#include "SharedText.h"
#include "X11/Selections/ImagePreparation.h"
#include "X11/Selections/SelectionCoordinator.h"

namespace tessel {

class XcbSelectionConnection;

/// What the worker finds out about the clipboard, finished and immutable.
struct ClipboardReading {
    /// The last write of ours that the value comes after.
    WriteGeneration generation = 0;
    SharedText text;
    SharedImage image;
};

/// The thread that does everything that a value costs: receiving, decoding, hashing and serving. Its public
/// operations return at once and belong to the thread that made it.
class SelectionsWorker {
public:
    /// Runs on the worker thread, once for each new owner whose value was received or has failed.
    using ReadingHandler = std::function<void(ClipboardReading)>;

    /// Owners of the clipboard from now on are reported. Null: there is no display that can do that.
    static std::unique_ptr<SelectionsWorker> start(const std::string& displayName, FingerprintRule rule,
                                                   ReadingHandler onReading);
    /// Ends the thread: waits for the piece of work that it has in hand, which is short.
    ~SelectionsWorker();
    SelectionsWorker(const SelectionsWorker&) = delete;
    SelectionsWorker& operator=(const SelectionsWorker&) = delete;

    /// Puts a value of our own on the clipboard.
    void write(WriteGeneration generation, SelectionValue value);
    /// Owns PRIMARY with `text` until the next write.
    void offerPrimary(SharedText text);
    /// Runs `done` on the worker thread once the server has decided on everything written and offered before.
    void whenAvailable(std::function<void()> done);
    /// Runs `done` on the worker thread when what is ours on the clipboard has been handed on to a clipboard
    /// manager, or cannot be.
    void handOn(const HandoverPatience& patience, std::function<void()> done);

private:
    class Thread;
    explicit SelectionsWorker(std::unique_ptr<Thread> body);

    std::unique_ptr<Thread> body_;
    std::thread thread_;
};

} // namespace tessel
