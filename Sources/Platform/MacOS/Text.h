#pragma once

#include <string>
#include <string_view>

#import <Foundation/Foundation.h>

namespace tessel {

/// Nil: `text` is no UTF-8.
NSString* _Nullable makeString(std::string_view text);

/// In UTF-8, with zeros inside. What has no UTF-8, such as half of a surrogate pair, is replaced.
std::string utf8Text(NSString* _Nonnull string);

} // namespace tessel
