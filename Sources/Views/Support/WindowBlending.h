#pragma once

namespace tessel {

/// Can what is behind the window shine through it?
enum class WindowBlending { opaque, translucent };

} // namespace tessel
