#pragma once

#include <string>

#include "ClipboardOwner.h"
#include "Desktop.h"
#include "Program.h"

namespace tessel::desktop {

/// Copies values while the history panel is open, and knows when each of them has become an entry: the panel
/// then moves to where the pointer has gone, in the height for the new number of entries. To be used on a
/// screen without docks that has room for the panel beside its top left corner.
class CountedCopies {
public:
    /// The panel is open and holds `entryCount` entries.
    CountedCopies(Desktop& desktop, Program& program, std::size_t entryCount = 0);

    /// Copies, and returns when the value has become one more entry. The history holds at most 100.
    void copyText(const std::string& text);
    void copyPng(const std::string& bytes);

    std::size_t entryCount() const { return entryCount_; }
    /// For copies that are not expected to become entries.
    ClipboardOwner& owner() { return owner_; }

private:
    void movePointer();
    void awaitEntry();

    Desktop& desktop_;
    Program& program_;
    ClipboardOwner owner_;
    std::size_t entryCount_;
    Place pointer_;
};

} // namespace tessel::desktop
