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
#include "UpdateSource.h"
#include "WindowHost.h"

namespace tessel {

/// The whole macOS backend, as the composition root uses it. Needs the application object, which the view
/// toolkit makes.
class Backend {
public:
    /// What the backend has to be given from above.
    struct Rules {
        /// The content identity of an image.
        std::function<std::string(const PlatformImage&, const Digest&)> imageFingerprint;
        /// Not used: the system has a prompt of its own.
        std::function<void()> showTrustPrompt;
    };

    explicit Backend(Rules rules);
    ~Backend();
    Backend(const Backend&) = delete;
    Backend& operator=(const Backend&) = delete;

    const Platform& platform() const;
    NativeWindows& nativeWindows();
    /// The program's windows are of the system's own classes. Never null.
    WindowHost* windowHost();
    Appearance& appearance();
    StatusItem& statusItem();
    /// What the program remembers of its own doings from one run to the next, in a defaults domain of its
    /// own; none of it is a setting, and nothing of it was copied.
    DefaultsStore& rememberedState();

    /// Does nothing: the system knows of the user's actions by itself.
    void noteStartupID(std::string_view startupID);

    /// Never: nobody can ask the program for anything while it ends.
    bool isEnding() const { return false; }
    /// Nothing is left to do: the system keeps the pasteboard's value.
    LastDuty lastDuty() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

/// The system starts an application once, so each claim is granted. Other processes cannot reach it: there is
/// no channel.
std::unique_ptr<RemoteControl> makeRemoteControl();

/// Empty: the system hands out none.
std::string takeStartupID();

/// From now on a crash of this process leaves no image of its memory behind.
void keepMemoryToOurselves();

/// None: the updates are the business of `Platform::makeUpdater`.
UpdateSource installedUpdateSource();

/// True in a session with a window server.
bool displayIsAvailable();

} // namespace tessel
