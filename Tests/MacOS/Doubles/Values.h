#pragma once

#include <string>
#include <utility>
#include <vector>

#import <Foundation/Foundation.h>

// Foundation's values. They are not doubles: they do what they say, and no test has to announce that.

namespace tessel::test {

std::string textOf(NSString* string);
/// May hold what is no UTF-8.
NSString* makeText(const std::string& text);

std::string bytesOf(NSData* data);
NSData* makeBytes(const std::string& bytes);

/// `@YES`, `@0.5`.
std::string describeNumber(NSNumber* number);

/// In the order in which they were written.
std::vector<std::pair<id, id>> entriesOf(NSDictionary* dictionary);

} // namespace tessel::test
