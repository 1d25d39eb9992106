#pragma once

#include "Picture.h"

namespace tessel::desktop {

/// A picture like those that people have on their desktops: mountains at dusk, above a lake. The same for the
/// same size.
Picture makeLandscape(int width, int height);

} // namespace tessel::desktop
