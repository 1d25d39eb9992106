#pragma once

#include "UpdateSource.h"

namespace tessel {

/// Where updates come from, as this program is installed.
UpdateSource installedUpdateSource();

} // namespace tessel
