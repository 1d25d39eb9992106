#pragma once

#include <filesystem>

#include "Surroundings.h"

namespace tessel::desktop {

/// Takes a picture of the settings, about and onboarding window each, light and dark, on a desktop with a
/// photograph. Nothing moves in them.
void takeWindowPictures(const Surroundings& surroundings, const std::filesystem::path& directory);

} // namespace tessel::desktop
