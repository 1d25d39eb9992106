#include "Desktop/SystemClock.h"

#include <chrono>

namespace tessel {

Date SystemClock::now() const
{
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

} // namespace tessel
