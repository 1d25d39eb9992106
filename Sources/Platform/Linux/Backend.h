#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "Appearance.h"
#include "LastDuty.h"
#include "NativeWindows.h"
#include "Platform.h"
#include "RemoteControl.h"
#include "StatusItem.h"
#include "Updates/InstalledUpdateSource.h"

namespace tessel {

class WindowHost;

/// The whole Linux backend, as the composition root uses it. Needs a `QApplication` that exists before and
/// after it.
class Backend {
public:
    /// What the backend has to be given from above.
    struct Rules {
        /// The content identity of an image. Runs on the backend's worker thread.
        std::function<std::string(const PlatformImage&, const Digest&)> imageFingerprint;
        /// Tells the user, without waiting for an answer, that synthetic keys cannot reach other
        /// applications.
        std::function<void()> showTrustPrompt;
    };

    explicit Backend(Rules rules);
    ~Backend();
    Backend(const Backend&) = delete;
    Backend& operator=(const Backend&) = delete;

    const Platform& platform() const;
    NativeWindows& nativeWindows();
    /// The program's windows are the view toolkit's. Always null.
    WindowHost* windowHost() { return nullptr; }
    Appearance& appearance();
    /// The application's item in a menu bar that takes it over the session bus, else in a system tray of X11.
    StatusItem& statusItem();
    /// What the program remembers of its own doings from one run to the next; none of it is a setting, and
    /// nothing of it was copied.
    DefaultsStore& rememberedState();

    /// Takes note of the user's action that led to a request from outside, and tells the desktop that it was
    /// heard; see `RemoteRequest::startupID`.
    void noteStartupID(std::string_view startupID);

    /// Whether the program has been asked to end, by whomever: it obeys nobody any more.
    bool isEnding() const;
    /// Hands the clipboard's value on, where it is ours and somebody takes it.
    LastDuty lastDuty() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

/// How processes of this program reach each other. Works without a display.
std::unique_ptr<RemoteControl> makeRemoteControl();

/// The token of the user's action that started this process, or an empty text. It is taken out of the
/// environment, so that no child process uses it again.
std::string takeStartupID();

/// From now on a crash of this process leaves no image of its memory behind.
void keepMemoryToOurselves();

/// True when there is a window system to connect to.
bool displayIsAvailable();

} // namespace tessel
