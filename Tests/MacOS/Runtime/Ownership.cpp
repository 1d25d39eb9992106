// The entry points that the compiler calls for automatic reference counting, as its documentation lists them.

#include <map>
#include <set>
#include <string>
#include <vector>

#include <Block.h>

#include "Runtime/ModuleABI.h"
#include "Runtime/ObjectMemory.h"
#include "Runtime/Runtime.h"

namespace {

using namespace tessel::objc;

/// Where weak references to an object are.
std::map<void*, std::set<void**>>& weakReferences()
{
    static auto* table = new std::map<void*, std::set<void**>>;
    return *table;
}

std::vector<void*>& autoreleased()
{
    static auto* objects = new std::vector<void*>;
    return *objects;
}

void clearWeakReferences(void* object)
{
    const auto found = weakReferences().find(object);
    if (found == weakReferences().end())
        return;
    for (void** reference : found->second)
        *reference = nullptr;
    weakReferences().erase(found);
}

void destroy(void* object)
{
    // An object that is retained and released while it goes must not go twice.
    constexpr long countWhileGoing = 1L << 40;
    clearWeakReferences(object);
    ownerCount(object) = countWhileGoing;
    send(object, "dealloc", nullptr);
}

} // namespace

extern "C" {

void* objc_retain(void* object)
{
    if (object == nullptr)
        return nullptr;
    if (isBlock(object))
        return _Block_copy(object);
    if (!livesForever(object))
        ++ownerCount(object);
    return object;
}

void objc_release(void* object)
{
    if (object == nullptr)
        return;
    if (isBlock(object)) {
        _Block_release(object);
        return;
    }
    if (livesForever(object))
        return;
    if (--ownerCount(object) < 0)
        fail(std::string("released once too often: ") + className(classOf(object)));
    if (ownerCount(object) == 0)
        destroy(object);
}

void* objc_autorelease(void* object)
{
    if (object != nullptr)
        autoreleased().push_back(object);
    return object;
}

void* objc_autoreleasePoolPush()
{
    // Never null, and the number of objects that the pools before it hold.
    return reinterpret_cast<void*>(autoreleased().size() + 1);
}

void objc_autoreleasePoolPop(void* pool)
{
    const std::size_t remaining = reinterpret_cast<std::size_t>(pool) - 1;
    while (autoreleased().size() > remaining) {
        void* object = autoreleased().back();
        autoreleased().pop_back();
        objc_release(object);
    }
}

void* objc_autoreleaseReturnValue(void* object)
{
    return objc_autorelease(object);
}

void* objc_retainAutorelease(void* object)
{
    return objc_autorelease(objc_retain(object));
}

void* objc_retainAutoreleaseReturnValue(void* object)
{
    return objc_retainAutorelease(object);
}

void* objc_retainAutoreleasedReturnValue(void* object)
{
    return objc_retain(object);
}

void* objc_unsafeClaimAutoreleasedReturnValue(void* object)
{
    return object;
}

void* objc_retainBlock(void* block)
{
    return block != nullptr ? _Block_copy(block) : nullptr;
}

void objc_storeStrong(void** place, void* object)
{
    void* before = *place;
    *place = objc_retain(object);
    objc_release(before);
}

void* objc_initWeak(void** place, void* object)
{
    *place = object;
    if (object != nullptr && !isBlock(object) && !livesForever(object))
        weakReferences()[object].insert(place);
    return object;
}

void objc_destroyWeak(void** place)
{
    const auto found = weakReferences().find(*place);
    if (found != weakReferences().end())
        found->second.erase(place);
    *place = nullptr;
}

void* objc_storeWeak(void** place, void* object)
{
    objc_destroyWeak(place);
    return objc_initWeak(place, object);
}

void* objc_loadWeakRetained(void** place)
{
    return objc_retain(*place);
}

void* objc_loadWeak(void** place)
{
    return objc_autorelease(objc_loadWeakRetained(place));
}

void objc_copyWeak(void** to, void** from)
{
    objc_initWeak(to, *from);
}

void objc_moveWeak(void** to, void** from)
{
    objc_copyWeak(to, from);
    objc_destroyWeak(from);
}

void* objc_getProperty(void* object, Selector*, long offset, bool)
{
    return objc_retainAutorelease(*reinterpret_cast<void**>(static_cast<char*>(object) + offset));
}

/// Copying is retaining: blocks are copied then, and no other object that the backend keeps is mutable.
void objc_setProperty(void* object, Selector*, long offset, void* value, bool, bool)
{
    objc_storeStrong(reinterpret_cast<void**>(static_cast<char*>(object) + offset), value);
}
}

namespace tessel::objc {

AutoreleasePool::AutoreleasePool()
    : pool_(objc_autoreleasePoolPush())
{}

AutoreleasePool::~AutoreleasePool()
{
    objc_autoreleasePoolPop(pool_);
}

} // namespace tessel::objc
