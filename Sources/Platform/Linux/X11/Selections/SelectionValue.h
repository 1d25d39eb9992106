#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "PlatformImage.h"
#include "SharedText.h"
#include "X11/Selections/SelectionWire.h"

namespace tessel {

/// Bytes that nobody changes any more. The same type as a text's, so that a text is one object from the wire
/// to the paste.
using SharedBytes = std::shared_ptr<const std::string>;

/// A picture as it is on the wire.
struct EncodedPicture {
    SharedBytes bytes;    ///< Null: there is no picture.
    std::string mimeType; ///< Of the bytes, for instance "image/png".
};

/// What a selection holds, as a whole and immutable.
struct SelectionValue {
    SharedText text; ///< Null: no text.
    EncodedPicture picture;
    /// An image that does not come from the wire: it can only be offered as the PNG that it encodes itself
    /// to.
    SharedImage foreignImage;
    /// Further targets, byte for byte with the type in which they came. Their formats are all 8.
    struct Companion {
        AtomID target = noAtom;
        AtomID type = noAtom;
        SharedBytes bytes;
    };
    std::vector<Companion> companions;

    bool isEmpty() const { return !text && !picture.bytes && !foreignImage && companions.empty(); }
};

using SharedSelectionValue = std::shared_ptr<const SelectionValue>;

} // namespace tessel
