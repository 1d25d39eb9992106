#include "Executables.h"

#include <unistd.h>

#include <cstdlib>
#include <sstream>

namespace tessel::desktop {

std::optional<std::filesystem::path> findExecutable(const std::string& name)
{
    const char* path = std::getenv("PATH");
    std::istringstream directories(path == nullptr ? "" : path);
    for (std::string directory; std::getline(directories, directory, ':');) {
        const auto candidate = std::filesystem::path(directory) / name;
        if (::access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return std::nullopt;
}

} // namespace tessel::desktop
