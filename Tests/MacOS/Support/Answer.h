#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tessel::test {

/// What a call without a result answers.
struct Nothing {};
/// No object.
struct Nil {};
/// An object of the class that the call promises. Records of calls call it by its name.
struct Object {
    std::string name;
};
/// A list of such objects.
struct Objects {
    std::vector<std::string> names;
};
/// Encoded bytes.
struct Bytes {
    std::string bytes;
};
/// A point, a size or a rectangle: x, y, width, height.
struct Numbers {
    std::vector<double> values;
};

/// There is no answer: nobody announced the call.
struct Unannounced {};

/// What a double answers to a call: a truth value, an integer or status, a number, a text, or one of the
/// above.
using Answer = std::variant<Nothing, Nil, bool, std::int64_t, double, std::string, Object, Objects, Bytes,
                            Numbers, Unannounced>;

} // namespace tessel::test
