#pragma once

namespace tessel {

/// The library behind the toolkit's TIFF decoder.
namespace TIFFLibrary {

/// Keeps the library from writing to standard error about every broken picture, which it does by itself and
/// past the toolkit. Loads it, so this is for the moment in which the first TIFF is decoded. Does nothing
/// when called again. May be used on any thread.
void silence();

} // namespace TIFFLibrary

} // namespace tessel
