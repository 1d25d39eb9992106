#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

/// A program and its arguments.
struct OpenCommand {
    std::string program;
    std::vector<std::string> arguments;

    friend bool operator==(const OpenCommand&, const OpenCommand&) = default;
};

/// What opens an address on this desktop. `desktops` is `XDG_CURRENT_DESKTOP`: names separated by colons
/// (freedesktop.org Desktop Entry, `OnlyShowIn`). None: nothing here opens it.
std::optional<OpenCommand> commandToOpen(std::string_view url, std::string_view desktops);

} // namespace tessel
