#pragma once

namespace tessel::objc {

/// How many owners an object has. Neither a block nor an object that lives for ever has a count.
long& ownerCount(void* object);
/// Classes and constant strings.
bool livesForever(void* object);

} // namespace tessel::objc
