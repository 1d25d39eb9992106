#pragma once

#include <filesystem>
#include <string>

namespace tessel::desktop {

/// The executable of a client program of this build.
inline std::filesystem::path clientFile(const std::string& name)
{
    return std::filesystem::path(TESSEL_DESKTOP_CLIENTS) / name;
}

} // namespace tessel::desktop
