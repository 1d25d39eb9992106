#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tessel::desktop {

/// Where `PATH` has a program; none if it is not installed.
std::optional<std::filesystem::path> findExecutable(const std::string& name);

} // namespace tessel::desktop
