#pragma once

#include <deque>
#include <set>
#include <string>

#include "Support/Answer.h"

namespace tessel::test {

/// The calls that the system is to receive during a test, in their order, and what it answers. Whatever else
/// is called, and whatever is called in another order, fails the test; so does a call that never comes.
class CallScript {
public:
    /// The script of the test that is running. There is one at a time.
    static CallScript& current();

    CallScript();
    ~CallScript();
    CallScript(const CallScript&) = delete;
    CallScript& operator=(const CallScript&) = delete;

    /// `call` is written as the code would be, with the names of objects in place of variables:
    /// `[pasteboard setString:@"text" forType:@"public.utf8-plain-text"]`, `AXIsProcessTrusted()`.
    void announce(std::string call, Answer answer);

    /// A double has been called. One that was not announced is answered by `Unannounced`.
    Answer receive(const std::string& call);

    /// The system has been asked for something that has to be given back, such as the installation of a
    /// handler.
    void taken(const std::string& what);
    /// It has been given back.
    void givenBack(const std::string& what);

    /// Fails the test if a call is still to come.
    void expectAllReceived() const;
    /// Fails the test if something has not been given back.
    void expectAllGivenBack() const;

private:
    struct AnnouncedCall {
        std::string call;
        Answer answer;
    };

    std::deque<AnnouncedCall> announced_;
    std::multiset<std::string> taken_;
};

} // namespace tessel::test
