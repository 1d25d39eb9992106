#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "RemoteControl.h"

namespace tessel {

/// What the program was started for.
struct CommandLine {
    enum class Purpose {
        run,     ///< Start the program, or reach the running one.
        version, ///< Print the version and end.
        help,    ///< Print the options and end.
        invalid, ///< The arguments make no sense.
    };

    Purpose purpose = Purpose::run;
    /// What an option asks of the program. None: it was started plainly.
    std::optional<RemoteCommand> command;
    /// The argument that makes no sense, when the purpose is `invalid`.
    std::string offender;
};

/// Reads the arguments that follow the program's name. At most one option is understood.
CommandLine parseCommandLine(std::span<const char* const> arguments);

/// The text that `--help` prints.
std::string_view helpText();

} // namespace tessel
