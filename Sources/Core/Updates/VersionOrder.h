#pragma once

#include <compare>
#include <string_view>

namespace tessel {

/// How versions follow each other, as appcasts write them: less is older.
///
/// A version is a row of numbers and words. They end where digits, letters and everything else meet: `1.0b3`
/// is 1, 0, b, 3. Numbers compare as numbers of any length, words byte by byte, and a word comes before any
/// number. What is missing counts as zero. So `1.0` is `1.0.0`, and a word at the end makes a version that
/// comes before the one without it: `1.0b3`, `1.0rc1`, `1.0`, `1.0.1`.
///
/// What stands between two of them tells nothing but this: the row goes on after a dot and inside `1.0b3`;
/// after a dash, a blank, a bracket or anything else another row begins, which counts only between versions
/// that are the same so far. So `1.0 (1234)` comes after `1.0 (99)` and before `1.0.1 (12)`, and `1.0-beta`
/// before `1.0`.
std::weak_ordering compareVersions(std::string_view first, std::string_view second);

} // namespace tessel
