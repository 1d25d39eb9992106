#include "Support/CallScript.h"

#include <cstdlib>
#include <utility>

#include <gtest/gtest.h>

namespace tessel::test {

namespace {

CallScript* currentScript = nullptr;

} // namespace

CallScript& CallScript::current()
{
    if (currentScript == nullptr)
        std::abort(); // The system was called outside of a test.
    return *currentScript;
}

CallScript::CallScript()
{
    currentScript = this;
}

CallScript::~CallScript()
{
    currentScript = nullptr;
}

void CallScript::announce(std::string call, Answer answer)
{
    announced_.push_back({std::move(call), std::move(answer)});
}

Answer CallScript::receive(const std::string& call)
{
    if (announced_.empty()) {
        ADD_FAILURE() << "Nobody announced the call  " << call;
        return Unannounced{};
    }
    if (announced_.front().call != call) {
        ADD_FAILURE() << "Announced was the call  " << announced_.front().call << "\n     what came was  "
                      << call;
        return Unannounced{};
    }
    Answer answer = std::move(announced_.front().answer);
    announced_.pop_front();
    return answer;
}

void CallScript::taken(const std::string& what)
{
    taken_.insert(what);
}

void CallScript::givenBack(const std::string& what)
{
    const auto found = taken_.find(what);
    if (found == taken_.end())
        ADD_FAILURE() << "Given back though nobody had it: " << what;
    else
        taken_.erase(found);
}

void CallScript::expectAllReceived() const
{
    for (const AnnouncedCall& missing : announced_)
        ADD_FAILURE() << "Announced, and never came: the call  " << missing.call;
}

void CallScript::expectAllGivenBack() const
{
    for (const std::string& what : taken_)
        ADD_FAILURE() << "Never given back: " << what;
}

} // namespace tessel::test
