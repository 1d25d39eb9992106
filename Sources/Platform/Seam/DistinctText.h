#pragma once

#include <utility>

#include "SharedText.h"

namespace tessel {

/// The mark of texts that have been compared already: of those that a backend marks with the same pool and
/// that are there at the same time, no two are equal. So the address tells them apart, and the main thread
/// need not read 100 MB twice (20 ms) to see that a text is another one.
struct DistinctText {
    SharedText text;
    const void* pool;

    /// Frees the text (as a deleter of `std::shared_ptr`).
    void operator()(const std::string*) noexcept { text.reset(); }

    static SharedText marked(SharedText text, const void* pool)
    {
        const std::string* bytes = text.get();
        return {bytes, DistinctText{std::move(text), pool}};
    }

    /// Neither may be null. Both are read only where marks do not decide.
    static bool areEqual(const SharedText& left, const SharedText& right)
    {
        if (left == right)
            return true;
        const auto* leftMark = std::get_deleter<DistinctText>(left);
        const auto* rightMark = std::get_deleter<DistinctText>(right);
        const bool isCompared = leftMark && rightMark && leftMark->pool == rightMark->pool;
        return !isCompared && *left == *right;
    }
};

} // namespace tessel
