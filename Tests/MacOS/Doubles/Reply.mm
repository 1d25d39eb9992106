#import "Doubles/Reply.h"

#include <utility>
#include <vector>

#include <gtest/gtest.h>

#import "Doubles/Values.h"
#include "Runtime/Runtime.h"
#include "Support/CallScript.h"

namespace tessel::test {

namespace {

id named(id object, const std::string& name)
{
    objc::setName((__bridge void*)object, name);
    return object;
}

} // namespace

Reply::Reply(std::string call)
    : call_(std::move(call))
    , answer_(CallScript::current().receive(call_))
{}

template <class Type>
std::optional<Type> Reply::as() const
{
    const auto* answer = std::get_if<Type>(&answer_);
    return answer != nullptr ? std::optional(*answer) : std::nullopt;
}

void Reply::complain(const char* promised) const
{
    if (!as<Unannounced>())
        ADD_FAILURE() << "The answer to  " << call_ << "  has to be " << promised;
}

void Reply::nothing() const
{
    if (!as<Nothing>())
        complain("nothing");
}

BOOL Reply::boolean() const
{
    if (const auto answer = as<bool>())
        return *answer;
    complain("true or false");
    return NO;
}

std::int64_t Reply::integer() const
{
    if (const auto answer = as<std::int64_t>())
        return *answer;
    complain("an integer");
    return 0;
}

double Reply::number() const
{
    if (const auto answer = as<double>())
        return *answer;
    complain("a number");
    return 0;
}

NSPoint Reply::point() const
{
    const auto answer = as<Numbers>();
    if (answer && answer->values.size() == 2)
        return {answer->values[0], answer->values[1]};
    complain("two numbers");
    return {};
}

NSSize Reply::size() const
{
    const NSPoint extent = point();
    return {extent.x, extent.y};
}

NSRect Reply::rectangle() const
{
    const auto answer = as<Numbers>();
    if (answer && answer->values.size() == 4)
        return {{answer->values[0], answer->values[1]}, {answer->values[2], answer->values[3]}};
    complain("four numbers");
    return {};
}

NSString* Reply::text() const
{
    if (const auto answer = as<std::string>())
        return makeText(*answer);
    if (!as<Nil>())
        complain("a text or nil");
    return nil;
}

NSData* Reply::bytes() const
{
    if (const auto answer = as<Bytes>())
        return makeBytes(answer->bytes);
    if (!as<Nil>())
        complain("bytes or nil");
    return nil;
}

id Reply::value() const
{
    if (const auto answer = as<double>())
        return [NSNumber numberWithDouble:*answer];
    return text();
}

id Reply::object(Class cls) const
{
    if (const auto answer = as<Object>())
        return named([cls alloc], answer -> name);
    if (!as<Nil>())
        complain("an object or nil");
    return nil;
}

NSArray* Reply::objects(Class cls) const
{
    const auto answer = as<Objects>();
    if (!answer)
        complain("a list of objects");
    std::vector<id> elements;
    for (const std::string& name : answer ? answer->names : std::vector<std::string>())
        elements.push_back(named([cls alloc], name));
    return [NSArray arrayWithObjects:elements.data() count:elements.size()];
}

id Reply::initialized(id object) const
{
    if (const auto answer = as<Object>())
        return named(object, answer->name);
    if (!as<Nil>())
        complain("an object or nil");
    return nil;
}

} // namespace tessel::test
