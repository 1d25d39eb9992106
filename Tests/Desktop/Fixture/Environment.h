#pragma once

#include <map>
#include <string>

namespace tessel::desktop {

/// The environment variables of a child process: these and no others, so that nothing of the surrounding
/// session reaches into the desktop under test.
using Environment = std::map<std::string, std::string>;

} // namespace tessel::desktop
