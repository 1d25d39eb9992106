#pragma once

#include <memory>
#include <type_traits>

#include <CoreFoundation/CoreFoundation.h>

namespace tessel {

/// Calls `CFRelease`.
struct CoreFoundationRelease {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};

/// Owns what a Create function of Core Foundation has made, or nothing.
template <class Reference>
using CoreFoundationOwner = std::unique_ptr<std::remove_pointer_t<Reference>, CoreFoundationRelease>;

} // namespace tessel
