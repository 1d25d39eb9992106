#include "CountedCopies.h"

#include <algorithm>

namespace tessel::desktop {

namespace {

constexpr std::size_t mostEntries = 100;

/// Two places of which neither is inside the panel that opens beside the other.
constexpr Place firstPlace{100, 100};
constexpr Place secondPlace{90, 110};

} // namespace

CountedCopies::CountedCopies(Desktop& desktop, Program& program, std::size_t entryCount)
    : desktop_(desktop)
    , program_(program)
    , owner_(desktop.displayName())
    , entryCount_(entryCount)
    , pointer_(desktop.pointer().location())
{}

void CountedCopies::copyText(const std::string& text)
{
    movePointer();
    owner_.copyText(text);
    awaitEntry();
}

void CountedCopies::copyPng(const std::string& bytes)
{
    movePointer();
    owner_.copyPng(bytes);
    awaitEntry();
}

void CountedCopies::movePointer()
{
    pointer_ = pointer_ == firstPlace ? secondPlace : firstPlace;
    desktop_.pointer().moveTo(pointer_);
}

void CountedCopies::awaitEntry()
{
    entryCount_ = std::min(entryCount_ + 1, mostEntries);
    program_.panel().waitForFrame(Panel::frameBeside(pointer_, entryCount_, desktop_.screen()));
}

} // namespace tessel::desktop
