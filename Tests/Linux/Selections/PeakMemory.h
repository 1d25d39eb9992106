#pragma once

#include <cstddef>
#include <fstream>
#include <string>

namespace tessel {

/// The most memory that this process has had at any time since the object was made.
class PeakMemory {
public:
    PeakMemory()
    {
        std::ofstream("/proc/self/clear_refs") << "5"; // The peak becomes the present (proc(5)).
        before_ = bytes("VmRSS:");
    }

    /// In bytes. 0 under AddressSanitizer, which keeps what has been freed.
    std::size_t growth() const
    {
#ifdef __SANITIZE_ADDRESS__
        return 0;
#else
        const std::size_t peak = bytes("VmHWM:");
        return peak > before_ ? peak - before_ : 0;
#endif
    }

private:
    static std::size_t bytes(const std::string& field)
    {
        std::ifstream status("/proc/self/status");
        std::string word;
        std::size_t kilobytes = 0;
        while (status >> word) {
            if (word == field && status >> kilobytes)
                return kilobytes << 10;
        }
        return 0;
    }

    std::size_t before_ = 0;
};

} // namespace tessel
