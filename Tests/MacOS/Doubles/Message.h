#pragma once

#include <concepts>
#include <string>

#import <Foundation/Foundation.h>

namespace tessel::test {

/// What stands behind a reference of Core Foundation's kind.
inline id objectOf(const void* reference)
{
    return (__bridge id)reference;
}

/// A reference to the object that its receiver owns.
template <class Reference>
Reference created(id object)
{
    return static_cast<Reference>((__bridge_retained void*)object);
}

/// How records of calls write a value: `nil`, `@"text"`, `@[first, second]`, `@{key: value}`, `<bytes>`, `^`
/// for a block, an object by its name.
std::string describe(id object);
std::string describe(BOOL value);
std::string describe(double value);
std::string describe(NSPoint point);
std::string describe(NSSize size);
std::string describe(NSRect rectangle);

template <std::integral Integer>
requires(!std::same_as<Integer, BOOL>) std::string describe(Integer value)
{
    return std::to_string(value);
}

/// A piece of a selector, as it stands.
inline std::string describe(const char* selectorPart)
{
    return std::string(" ") + selectorPart;
}

/// A name in a record of calls, as it stands.
struct Word {
    std::string text;
};
inline std::string describe(const Word& word)
{
    return word.text;
}

/// A set of bits, in hexadecimal digits.
struct Mask {
    unsigned long long bits;
};
std::string describe(Mask mask);

/// Four letters in one number.
struct FourCharacterCode {
    unsigned code;
};
std::string describe(FourCharacterCode code);

/// `[receiver selectorPart:argument selectorPart:argument]`
template <class... Parts>
std::string message(id receiver, const Parts&... parts)
{
    return "[" + describe(receiver) + (describe(parts) + ...) + "]";
}

/// The same, sent to a class or to an object that has no name yet.
template <class... Parts>
std::string message(const char* className, const Parts&... parts)
{
    return std::string("[") + className + (describe(parts) + ...) + "]";
}

/// `function(argument, argument)`
template <class... Arguments>
std::string call(const char* function, const Arguments&... arguments)
{
    std::string text;
    ((text += (text.empty() ? "" : ", ") + describe(arguments)), ...);
    return std::string(function) + "(" + text + ")";
}

} // namespace tessel::test
