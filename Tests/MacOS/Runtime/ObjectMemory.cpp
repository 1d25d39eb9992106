#include "Runtime/ObjectMemory.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>
#include <vector>

#include "Runtime/ClassTable.h"
#include "Runtime/Runtime.h"

extern "C" {
extern void* _NSConcreteStackBlock[32];
extern void* _NSConcreteGlobalBlock[32];
extern void* _NSConcreteMallocBlock[32];
}

namespace tessel::objc {

namespace {

/// What stands before each object in memory.
struct alignas(16) Header {
    long ownerCount;
};

Header* headerOf(void* object)
{
    return static_cast<Header*>(object) - 1;
}

/// The objects that are alive, with their names.
std::map<void*, std::string>& objects()
{
    static auto* table = new std::map<void*, std::string>;
    return *table;
}

/// Calls the method of each class in the chain that has one of its own.
void callEach(const std::vector<Class*>& chain, void* object, const char* selector)
{
    const char* name = uniqueSelector(selector);
    for (Class* cls : chain) {
        for (MethodList* methods = cls->methods; methods != nullptr; methods = methods->next) {
            for (const Method& method : *methods) {
                if (method.name == name)
                    method.implementation(static_cast<id>(object), nullptr);
            }
        }
    }
}

std::vector<Class*> chainFrom(Class* cls)
{
    std::vector<Class*> chain;
    for (; cls != nullptr; cls = cls->superclass)
        chain.push_back(cls);
    return chain;
}

} // namespace

void fail(const std::string& complaint)
{
    std::fprintf(stderr, "Objective-C: %s\n", complaint.c_str());
    std::abort();
}

void* allocate(void* cls)
{
    auto* resolved = static_cast<Class*>(cls);
    resolve(resolved);
    auto* header = static_cast<Header*>(
        std::calloc(1, sizeof(Header) + static_cast<std::size_t>(resolved->instanceSize)));
    header->ownerCount = 1;
    void* object = header + 1;
    std::memcpy(object, &resolved, sizeof resolved);
    objects().emplace(object, std::string());

    const std::vector<Class*> chain = chainFrom(resolved);
    callEach({chain.rbegin(), chain.rend()}, object, ".cxx_construct");
    return object;
}

void deallocate(void* object)
{
    callEach(chainFrom(*static_cast<Class**>(object)), object, ".cxx_destruct");
    objects().erase(object);
    std::free(headerOf(object));
}

void setName(void* object, const std::string& name)
{
    objects().at(object) = name;
}

const std::string& nameOf(void* object)
{
    static const std::string none;
    const auto found = objects().find(object);
    return found != objects().end() ? found->second : none;
}

std::vector<std::string> liveObjects()
{
    std::vector<std::string> descriptions;
    for (const auto& [object, name] : objects())
        descriptions.push_back(std::string((*static_cast<Class**>(object))->name) + " " + name);
    return descriptions;
}

bool isBlock(const void* object)
{
    const void* cls = *static_cast<void* const*>(object);
    return cls == _NSConcreteStackBlock || cls == _NSConcreteGlobalBlock || cls == _NSConcreteMallocBlock;
}

bool livesForever(void* object)
{
    const auto* cls = *static_cast<Class**>(object);
    return isMetaclass(cls) || std::strcmp(cls->name, "NSConstantString") == 0;
}

long& ownerCount(void* object)
{
    return headerOf(object)->ownerCount;
}

} // namespace tessel::objc
