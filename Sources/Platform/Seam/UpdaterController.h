#pragma once

namespace tessel {

/// Software updates, with their own dialogs (`SPUStandardUpdaterController`).
class UpdaterController {
public:
    virtual ~UpdaterController() = default;

    /// Starts the updater; when it looks for updates on its own is its configuration.
    virtual void start() = 0;
    /// Looks for an update now, at the user's request.
    virtual void checkForUpdates() = 0;
};

} // namespace tessel
