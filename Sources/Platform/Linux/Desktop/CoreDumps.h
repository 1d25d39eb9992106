#pragma once

namespace tessel {

/// From now on a crash of this process leaves no image of its memory, which has the history in it: neither a
/// file nor one that a collector of the system gets. The same goes for programs that it starts, unless they
/// raise their limit; but for collectors only where this process may have a limit of one byte.
void forbidCoreDumps();

} // namespace tessel
