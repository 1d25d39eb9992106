#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "X11/Selections/SelectionWire.h"

namespace tessel {

/// Every atom that this room speaks of, interned once for a connection.
struct SelectionAtoms {
    // Selections (ICCCM section 2.6.1; freedesktop.org clipboard manager).
    AtomID clipboard = noAtom;
    AtomID primary = noAtom;
    AtomID clipboardManager = noAtom;
    // Protocol (ICCCM sections 2.2, 2.6.2, 2.7.2).
    AtomID targets = noAtom;
    AtomID timestamp = noAtom;
    AtomID multiple = noAtom;
    AtomID atomPair = noAtom;
    AtomID saveTargets = noAtom;
    AtomID incr = noAtom;
    AtomID null = noAtom;
    AtomID atom = noAtom;
    AtomID integer = noAtom;
    // Text.
    AtomID utf8String = noAtom;
    AtomID plainTextUTF8 = noAtom;
    AtomID plainTextUTF8Capital = noAtom;
    AtomID plainText = noAtom;
    AtomID string = noAtom;
    AtomID text = noAtom;
    AtomID compoundText = noAtom;
    AtomID cString = noAtom;
    // Pictures, in the order in which they are asked for.
    AtomID png = noAtom;
    AtomID tiff = noAtom;
    AtomID bmp = noAtom;
    AtomID bmpVendor = noAtom;
    AtomID bmpMicrosoft = noAtom;
    AtomID pixmap = noAtom;
    AtomID graymap = noAtom;
    AtomID bitmap = noAtom;
    AtomID webp = noAtom;
    AtomID xpm = noAtom;
    AtomID icon = noAtom;
    AtomID iconShort = noAtom;
    AtomID gif = noAtom;
    AtomID jpeg = noAtom;
    AtomID jpegShort = noAtom;
    // Companions of a value that are kept when their owner goes.
    AtomID html = noAtom;
    AtomID uriList = noAtom;
    AtomID rtfText = noAtom;
    AtomID rtfApplication = noAtom;
    AtomID copiedFiles = noAtom;
    // The mark of a secret.
    AtomID passwordManagerHint = noAtom;
    // Properties of our own windows. One for each conversion from an owner, so that a late answer cannot be
    // taken for another.
    AtomID ownTimestamp = noAtom;
    static constexpr std::size_t transferSlotCount = 32;
    std::array<AtomID, transferSlotCount> transferSlots = {};

    struct Name {
        AtomID SelectionAtoms::*member;
        std::string_view name;
    };
    /// The single atoms with their names; the transfer slots are named by `transferSlotName`.
    static std::span<const Name> names();
    /// The name of slot `index`, from 0 to `transferSlotCount` - 1.
    static std::string_view transferSlotName(std::size_t index);

    static constexpr std::size_t pictureTargetCount = 15;
    /// The picture targets in the order of preference: without loss and common first (a WebP may have lost
    /// something, but keeps every colour), then those of few colours, and JPEG last.
    std::array<AtomID, pictureTargetCount> pictureTargets() const;
    /// The MIME type of a picture target. None: it is not one.
    std::optional<std::string_view> pictureType(AtomID target) const;
    /// The target of a MIME type; none where we do not know it.
    AtomID pictureTarget(std::string_view mimeType) const;

    static constexpr std::size_t companionTargetCount = 5;
    std::array<AtomID, companionTargetCount> companionTargets() const;
};

} // namespace tessel
