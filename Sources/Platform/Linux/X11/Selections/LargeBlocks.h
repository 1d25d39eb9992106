#pragma once

#include <cstddef>

namespace tessel {

/// The size from which a value counts as large, in bytes: its memory is better freed on the worker thread,
/// because handing many pages back to the system takes milliseconds.
constexpr std::size_t largeValueBytes = std::size_t{128} << 10;

/// Gives every large value pages of its own, which go back to the system with it. Left to itself the
/// allocator puts the next large value where the last one was, and keeps the room. A setting of the whole
/// process, made once.
///
/// A program that uses this also frees with an `operator delete` of ours. The kernel lets nobody else in the
/// process map memory while it unmaps a block, and of some hundred megabytes that is several frames; so their
/// pages go back in slices before.
void keepLargeBlocksApart();

/// Gives the pages within a block back to the system, in slices. What was in the block is lost; it is to be
/// freed next. For blocks of more than some megabytes that do not come from `operator new`; does nothing with
/// smaller ones.
void giveBackPages(const void* block, std::size_t bytes);

} // namespace tessel
