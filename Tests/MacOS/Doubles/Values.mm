#import "Doubles/Values.h"

#include <cstring>

#import "Doubles/Message.h"

namespace {

/// The length of the UTF-8 sequence at the start of the text, or 0 when there is none (RFC 3629).
std::size_t sequenceLength(std::string_view text)
{
    const auto byte = [text](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const auto isContinued = [&byte](std::size_t length) {
        for (std::size_t index = 1; index < length; ++index) {
            if ((byte(index) & 0xC0U) != 0x80U)
                return false;
        }
        return true;
    };
    const unsigned first = byte(0);
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first < 0xE0 && isContinued(2))
        return 2;
    if (first >= 0xE0 && first < 0xF0 && isContinued(3))
        return 3;
    if (first >= 0xF0 && first < 0xF5 && isContinued(4))
        return 4;
    return 0;
}

bool isUTF8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

/// What is no UTF-8 becomes a question mark.
std::string repaired(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        result += length == 0 ? "?" : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

} // namespace

/// A string with a text of its own.
@interface TextString : NSString {
@public
    std::string text_;
}
@end

@implementation TextString
@end

@interface NSConstantString ()
- (std::string)text;
@end

@interface NSNumber ()
- (std::string)description;
@end

@implementation NSString

- (instancetype)initWithBytes:(const void*)bytes length:(NSUInteger)length encoding:(NSStringEncoding)encoding
{
    const std::string text(static_cast<const char*>(bytes), length);
    if (encoding != NSUTF8StringEncoding || !isUTF8(text))
        return nil;
    return static_cast<id>(tessel::test::makeText(text));
}

- (NSData*)dataUsingEncoding:(NSStringEncoding)encoding allowLossyConversion:(BOOL)lossy
{
    const std::string text = tessel::test::textOf(self);
    if (encoding != NSUTF8StringEncoding || (!lossy && !isUTF8(text)))
        return nil;
    return tessel::test::makeBytes(repaired(text));
}

- (BOOL)isEqual:(id)object
{
    return
        [object isKindOfClass:[NSString class]] && tessel::test::textOf(self) == tessel::test::textOf(object);
}

@end

@implementation NSConstantString

- (std::string)text
{
    return {bytes_, length_};
}

@end

@implementation NSNumber {
@public
    double value_;
    bool isBoolean_;
}

+ (NSNumber*)numberWithBool:(BOOL)value
{
    NSNumber* number = [self numberWithDouble:value ? 1 : 0];
    number->isBoolean_ = true;
    return number;
}

+ (NSNumber*)numberWithDouble:(double)value
{
    NSNumber* number = [self alloc];
    number->value_ = value;
    return number;
}

- (double)doubleValue
{
    return value_;
}

- (std::string)description
{
    if (isBoolean_)
        return value_ != 0 ? "@YES" : "@NO";
    return "@" + tessel::test::describe(value_);
}

@end

@implementation NSArray {
    std::vector<id> elements_;
}

+ (instancetype)arrayWithObjects:(const id[])objects count:(NSUInteger)count
{
    NSArray* array = [self alloc];
    array->elements_.assign(objects, objects + count);
    return array;
}

- (NSUInteger)count
{
    return elements_.size();
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(__unsafe_unretained id[])buffer
                                    count:(NSUInteger)count
{
    NSUInteger copied = 0;
    while (copied < count && state->state < elements_.size())
        buffer[copied++] = elements_[state->state++];
    state->itemsPtr = buffer;
    state->mutationsPtr = &state->extra[0];
    return copied;
}

@end

@implementation NSDictionary {
@public
    std::vector<std::pair<id, id>> entries_;
}

+ (instancetype)dictionaryWithObjects:(const id[])objects
                              forKeys:(const id<NSCopying>[])keys
                                count:(NSUInteger)count
{
    NSDictionary* dictionary = [self alloc];
    for (NSUInteger index = 0; index < count; ++index)
        dictionary->entries_.emplace_back([keys[index] copy], objects[index]);
    return dictionary;
}

@end

@implementation NSData {
@public
    std::string bytes_;
}

- (NSUInteger)length
{
    return bytes_.size();
}

- (const void*)bytes
{
    return bytes_.data();
}

@end

namespace tessel::test {

std::string textOf(NSString* string)
{
    if ([string isKindOfClass:[NSConstantString class]])
        return [static_cast<NSConstantString*>(string) text];
    return static_cast<TextString*>(string)->text_;
}

NSString* makeText(const std::string& text)
{
    TextString* string = [TextString alloc];
    string->text_ = text;
    return string;
}

std::string bytesOf(NSData* data)
{
    return data->bytes_;
}

NSData* makeBytes(const std::string& bytes)
{
    NSData* data = [NSData alloc];
    data->bytes_ = bytes;
    return data;
}

std::string describeNumber(NSNumber* number)
{
    return [number description];
}

std::vector<std::pair<id, id>> entriesOf(NSDictionary* dictionary)
{
    return dictionary->entries_;
}

} // namespace tessel::test
