#pragma once

#include <cstdint>

#include "PlatformImage.h"
#include "SharedText.h"

namespace tessel {

/// The system's general pasteboard (`NSPasteboard.generalPasteboard`; the CLIPBOARD selection of ICCCM
/// section 2.6.1). Every operation returns at once: a value is read only when it is already here.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// Grows with every change of the contents by any process, this one included. Never a round trip.
    virtual std::int64_t changeCount() const = 0;

    /// The plain string of the current value. Null: it has none, cannot be read, or is marked secret.
    virtual SharedText string() const = 0;

    /// An image made from the current value. Null: it holds none, cannot be read, or is marked secret.
    virtual SharedImage image() const = 0;

    /// Empties the pasteboard and takes it over for writing.
    virtual void clearContents() = 0;

    /// Writes `text` with the plain-string type. Call `clearContents` first.
    virtual void setString(SharedText text) = 0;

    /// Writes the one image object, in every form that the image offers. Call `clearContents` first.
    virtual void writeObjects(SharedImage image) = 0;
};

} // namespace tessel
