#pragma once

#include <cstdint>
#include <optional>
#include <string>

#import <Foundation/Foundation.h>

#include "Support/Answer.h"

namespace tessel::test {

/// A double's part in a call: tells the script of it, and gives back what the script answers as the type that
/// the call promises. An answer of another type fails the test.
class Reply {
public:
    explicit Reply(std::string call);

    /// For a call without a result.
    void nothing() const;
    BOOL boolean() const;
    std::int64_t integer() const;
    double number() const;
    NSPoint point() const;
    NSSize size() const;
    NSRect rectangle() const;
    NSString* text() const;
    NSData* bytes() const;
    /// A text, a number, or nil: what a property list may hold.
    id value() const;
    /// A new object of the class, with the name that the script gives it, or nil.
    id object(Class cls) const;
    NSArray* objects(Class cls) const;
    /// For an initializer: the object itself, with its name, or nil.
    id initialized(id object) const;

private:
    template <class Type>
    std::optional<Type> as() const;
    void complain(const char* promised) const;

    std::string call_;
    Answer answer_;
};

} // namespace tessel::test
