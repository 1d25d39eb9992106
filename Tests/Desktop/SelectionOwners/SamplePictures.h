#pragma once

#include <string>

namespace tessel::owners {

/// A whole PNG file of 2 x 2 pixels.
std::string samplePng();
/// A whole JPEG file of 8 x 8 pixels.
std::string sampleJpeg();

} // namespace tessel::owners
