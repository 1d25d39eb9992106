#pragma once

#include <functional>
#include <string>

namespace tessel {

/// What another process may ask of the running program. Nothing of the history can be read that way.
enum class RemoteCommand {
    openHistory,     ///< Shows the history panel.
    toggleHistory,   ///< Shows the history panel, or closes it when it is visible.
    clearHistory,    ///< Removes every entry and every pin, at once.
    settings,        ///< Shows the settings window.
    about,           ///< Shows the about window.
    checkForUpdates, ///< Looks for updates, and shows what comes of it.
    quit,            ///< Ends the program.
};

/// A command with the token by which the desktop knows the user's action that led to it, or an empty text
/// (`DESKTOP_STARTUP_ID` of the Startup Notification protocol).
struct RemoteRequest {
    RemoteCommand command = RemoteCommand::openHistory;
    std::string startupID;
};

/// What became of a command.
enum class Delivery {
    delivered,
    nobodyListens, ///< The program is not running.
    noAnswer,      ///< The program is running, but hung.
    noChannel,     ///< There is no way to reach another process: no session bus.
};

/// What became of the claim to be the one running program of the session.
enum class Claim {
    granted,
    takenByAnother, ///< The program runs already.
    noChannel,      ///< Nobody can tell: there is no session bus.
};

/// Whether the running program does what it is asked.
enum class Obedience {
    obeyed,
    isEnding, ///< It has begun to end, and does nothing any more.
};

/// The one running program of a session, and how another process reaches it.
class RemoteControl {
public:
    using Handler = std::function<Obedience(const RemoteRequest&)>;

    /// Gives up what was claimed.
    virtual ~RemoteControl() = default;

    /// Sends a request to the running program and waits for the answer, a few seconds at most. One that is
    /// ending is waited for as long, until nobody listens. For a process that does nothing else.
    virtual Delivery send(const RemoteRequest& request) = 0;

    /// Claims to be the one running program. Once granted, `handler` runs on the main thread for each
    /// request, for the life of this object.
    virtual Claim claim(Handler handler) = 0;
};

} // namespace tessel
