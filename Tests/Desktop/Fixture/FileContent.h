#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace tessel::desktop {

/// The whole content of a file; empty where it cannot be read.
inline std::string contentOf(const std::filesystem::path& file)
{
    std::ostringstream content;
    content << std::ifstream(file).rdbuf();
    return content.str();
}

} // namespace tessel::desktop
