#pragma once

#include <chrono>

namespace tessel {

/// How long a clipboard manager may take for a value that is handed on to it.
struct HandoverPatience {
    /// Without a sign of life.
    std::chrono::milliseconds silence{2'000};
    /// In all: somebody waits for the program to end.
    std::chrono::milliseconds whole{5'000};
};

} // namespace tessel
