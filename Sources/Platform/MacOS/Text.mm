#import "Text.h"

namespace tessel {

NSString* makeString(std::string_view text)
{
    return [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
}

std::string utf8Text(NSString* string)
{
    NSData* const data = [string dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
    return {static_cast<const char*>(data.bytes), data.length};
}

} // namespace tessel
