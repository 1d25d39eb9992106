#import "UserDefaultsStore.h"

#import "Text.h"

namespace tessel {

namespace {

/// The program's own keys, which are UTF-8.
NSString* keyString(std::string_view key)
{
    NSString* const string = makeString(key);
    return string != nil ? string : @"";
}

} // namespace

struct UserDefaultsStore::Native {
    NSUserDefaults* defaults;

    /// Nil: the key is missing or its value is of another class. (`stringForKey:` makes texts of numbers, and
    /// `doubleForKey:` numbers of texts.)
    id value(std::string_view key, Class cls) const
    {
        const id value = [defaults objectForKey:keyString(key)];
        return [value isKindOfClass:cls] ? value : nil;
    }
};

UserDefaultsStore::UserDefaultsStore()
    : native_(new Native{NSUserDefaults.standardUserDefaults})
{}

UserDefaultsStore::UserDefaultsStore(std::string_view domain)
    : native_(new Native{[[NSUserDefaults alloc] initWithSuiteName:keyString(domain)]})
{}

UserDefaultsStore::~UserDefaultsStore() = default;

std::optional<std::string> UserDefaultsStore::string(std::string_view key) const
{
    NSString* const value = native_->value(key, NSString.class);
    return value != nil ? std::optional(utf8Text(value)) : std::nullopt;
}

std::optional<double> UserDefaultsStore::number(std::string_view key) const
{
    NSNumber* const value = native_->value(key, NSNumber.class);
    return value != nil ? std::optional<double>(value.doubleValue) : std::nullopt;
}

void UserDefaultsStore::setString(std::string_view key, std::string_view value)
{
    [native_->defaults setObject:makeString(value) forKey:keyString(key)];
}

void UserDefaultsStore::setDouble(std::string_view key, double value)
{
    [native_->defaults setDouble:value forKey:keyString(key)];
}

} // namespace tessel
