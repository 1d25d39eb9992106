#include "X11/OpenCommand.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tessel {

namespace {

/// What may reach `xdg-open`, which starts whatever is registered for a scheme.
constexpr std::array<std::string_view, 4> openedSchemes = {"http", "https", "mailto", "file"};
constexpr std::string_view settingsScheme = "x-apple.systempreferences";

struct SettingsPage {
    std::string_view desktop;
    std::string_view program;
    std::string_view argument; ///< May be empty.
};

/// The page of each desktop where the user allows or forbids such things.
constexpr std::array<SettingsPage, 6> settingsPages = {{
    {"GNOME", "gnome-control-center", "universal-access"},
    {"Unity", "gnome-control-center", "universal-access"},
    {"KDE", "systemsettings", "kcm_access"},
    {"XFCE", "xfce4-accessibility-settings", ""},
    {"MATE", "mate-at-properties", ""},
    {"X-Cinnamon", "cinnamon-settings", "universal-access"},
}};

std::string lowercase(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return result;
}

std::optional<OpenCommand> settingsCommand(std::string_view desktop)
{
    const auto* page =
        std::find_if(settingsPages.begin(), settingsPages.end(),
                     [&](const SettingsPage& candidate) { return candidate.desktop == desktop; });
    if (page == settingsPages.end())
        return std::nullopt;
    OpenCommand command{std::string(page->program), {}};
    if (!page->argument.empty())
        command.arguments.emplace_back(page->argument);
    return command;
}

std::optional<OpenCommand> settingsCommandOfFirst(std::string_view desktops)
{
    while (!desktops.empty()) {
        const auto end = std::min(desktops.find(':'), desktops.size());
        if (auto command = settingsCommand(desktops.substr(0, end)))
            return command;
        desktops.remove_prefix(std::min(end + 1, desktops.size()));
    }
    return std::nullopt;
}

} // namespace

std::optional<OpenCommand> commandToOpen(std::string_view url, std::string_view desktops)
{
    const auto colon = url.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const std::string scheme = lowercase(url.substr(0, colon));
    if (scheme == settingsScheme)
        return settingsCommandOfFirst(desktops);
    if (std::find(openedSchemes.begin(), openedSchemes.end(), scheme) == openedSchemes.end())
        return std::nullopt;
    return OpenCommand{"xdg-open", {std::string(url)}};
}

} // namespace tessel
