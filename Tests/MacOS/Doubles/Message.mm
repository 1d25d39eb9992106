#import "Doubles/Message.h"

#include <array>
#include <charconv>
#include <cstdio>

#import "Doubles/Values.h"
#include "Runtime/Runtime.h"

namespace tessel::test {

namespace {

std::string joined(const std::vector<std::string>& parts)
{
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : ", ") + part;
    return text;
}

std::string describeElements(NSArray* array)
{
    std::vector<std::string> elements;
    for (id element in array)
        elements.push_back(describe(element));
    return "@[" + joined(elements) + "]";
}

std::string describeEntries(NSDictionary* dictionary)
{
    std::vector<std::string> entries;
    for (const auto& [key, value] : entriesOf(dictionary))
        entries.push_back(describe(key) + ": " + describe(value));
    return "@{" + joined(entries) + "}";
}

} // namespace

std::string describe(id object)
{
    void* const address = (__bridge void*)object;
    if (address == nullptr)
        return "nil";
    if (objc::isBlock(address))
        return "^";
    if ([object isKindOfClass:[NSString class]])
        return "@\"" + textOf(object) + "\"";
    if ([object isKindOfClass:[NSData class]])
        return "<" + bytesOf(object) + ">";
    if ([object isKindOfClass:[NSNumber class]])
        return describeNumber(object);
    if ([object isKindOfClass:[NSArray class]])
        return describeElements(object);
    if ([object isKindOfClass:[NSDictionary class]])
        return describeEntries(object);
    const std::string& name = objc::nameOf(address);
    return !name.empty() ? name : std::string("a nameless ") + objc::className(objc::classOf(address));
}

std::string describe(BOOL value)
{
    return value ? "YES" : "NO";
}

std::string describe(double value)
{
    // The shortest digits that only this number has, so that none that is close passes for it.
    std::array<char, 512> text{};
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed).ptr;
    return {text.begin(), end};
}

std::string describe(NSPoint point)
{
    return "{" + describe(point.x) + ", " + describe(point.y) + "}";
}

std::string describe(NSSize size)
{
    return "{" + describe(size.width) + ", " + describe(size.height) + "}";
}

std::string describe(NSRect rectangle)
{
    return "{" + describe(rectangle.origin) + ", " + describe(rectangle.size) + "}";
}

std::string describe(Mask mask)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "0x%llX", mask.bits);
    return text.data();
}

std::string describe(FourCharacterCode code)
{
    std::string text = "'";
    for (unsigned shift = 32; shift > 0; shift -= 8)
        text += static_cast<char>(code.code >> (shift - 8) & 0xFF);
    return text + "'";
}

} // namespace tessel::test
