#pragma once

namespace tessel::desktop {

/// Whether the tests, and the program with them, are built with a sanitizer of the memory.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif

} // namespace tessel::desktop
