#include "Fakes/FakeHotKeyCenter.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include <gtest/gtest.h>

namespace tessel::test {

namespace {

std::string combinationText(std::uint32_t keyCode, std::uint32_t modifiers)
{
    std::ostringstream text;
    text << keyCode << " 0x" << std::hex << std::setw(4) << std::setfill('0') << modifiers;
    return text.str();
}

} // namespace

std::vector<FakeHotKeyCenter::Registration> FakeHotKeyCenter::registrations() const
{
    std::vector<Registration> standing;
    for (const auto& [reference, registration] : registrations_)
        standing.push_back(registration);
    return standing;
}

std::optional<std::int32_t> FakeHotKeyCenter::press(std::uint32_t keyCode, std::uint32_t modifiers)
{
    const auto found = std::find_if(registrations_.begin(), registrations_.end(), [&](const auto& entry) {
        return entry.second.keyCode == keyCode && entry.second.modifiers == modifiers;
    });
    if (found == registrations_.end())
        return std::nullopt;
    return deliver(found->second.identifier);
}

std::optional<std::int32_t> FakeHotKeyCenter::deliver(std::optional<EventHotKeyID> directObject)
{
    std::optional<std::int32_t> status;
    const auto handlers = handlers_; // A handler may be removed while it runs.
    for (const auto& [reference, handler] : handlers)
        status = handler(directObject);
    return status;
}

std::optional<HotKeyHandlerRef> FakeHotKeyCenter::installEventHandler(Handler handler)
{
    log_->effect("hotKey.installHandler");
    if (refusesHandlers)
        return std::nullopt;
    const HotKeyHandlerRef reference{nextReference_++};
    handlers_.emplace(reference, std::move(handler));
    return reference;
}

void FakeHotKeyCenter::removeEventHandler(HotKeyHandlerRef handler)
{
    log_->effect("hotKey.removeHandler");
    EXPECT_EQ(handlers_.erase(handler), 1U) << "A handler that is not installed was removed.";
}

std::optional<HotKeyRef> FakeHotKeyCenter::registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                               EventHotKeyID identifier)
{
    log_->effect("hotKey.register " + combinationText(keyCode, modifiers));
    if (refusesRegistrations)
        return std::nullopt;
    const HotKeyRef reference{nextReference_++};
    registrations_.emplace(reference, Registration{keyCode, modifiers, identifier});
    return reference;
}

void FakeHotKeyCenter::unregisterEventHotKey(HotKeyRef hotKey)
{
    const auto found = registrations_.find(hotKey);
    ASSERT_NE(found, registrations_.end()) << "A combination that is not registered was unregistered.";
    log_->effect("hotKey.unregister " + combinationText(found->second.keyCode, found->second.modifiers));
    registrations_.erase(found);
}

} // namespace tessel::test
