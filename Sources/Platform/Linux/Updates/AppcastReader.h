#pragma once

#include <QtCore/QByteArray>

#include <optional>
#include <vector>

#include "UpdateItem.h"

namespace tessel {

/// The items of an appcast: an RSS 2.0 feed whose items name a version, with elements of a namespace of its
/// own
/// (`sparkle:version` and others).
///
/// None: it is no such feed. A document type is an error, and with it all entities but those of XML itself;
/// so is more nesting, or are more items, than any feed has. An item that cannot be understood, or is for
/// another system, is left out.
std::optional<std::vector<UpdateItem>> readAppcast(const QByteArray& feed);

} // namespace tessel
