#pragma once

#include <vector>

#include "SharedText.h"

namespace tessel {

/// The large texts that have been handed over and are still held by somebody, so that equal ones are one text
/// and all of them are marked as distinct. Holds none of them itself.
class LargeTexts {
public:
    /// The text that is there already and equals `text`. Null: there is none.
    SharedText equalTo(const std::string& text) const;
    /// `text`, which equals none of those that are there, marked.
    SharedText added(SharedText text);

private:
    std::vector<std::weak_ptr<const std::string>> texts_;
};

} // namespace tessel
