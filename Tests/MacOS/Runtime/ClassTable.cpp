#include "Runtime/ClassTable.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <string_view>
#include <vector>

#include "Runtime/Runtime.h"

namespace tessel::objc {

namespace {

constexpr unsigned long metaclassFlag = 0x2;
constexpr unsigned long resolvedFlag = 0x100000;

// Modules are loaded before the first constructor has run, so the tables are made on their first use; they
// stay until the process ends.

std::map<std::string, Class*>& classes()
{
    static auto* table = new std::map<std::string, Class*>;
    return *table;
}

std::vector<Category*>& pendingCategories()
{
    static auto* categories = new std::vector<Category*>;
    return *categories;
}

void makeUnique(MethodList* methods)
{
    for (; methods != nullptr; methods = methods->next) {
        for (Method& method : *methods)
            method.name = uniqueSelector(method.name);
    }
}

void prepend(MethodList* methods, Class* cls)
{
    if (methods == nullptr)
        return;
    methods->next = cls->methods;
    cls->methods = methods;
}

void attachCategories(Class* cls)
{
    std::erase_if(pendingCategories(), [cls](const Category* category) {
        if (std::strcmp(category->className, cls->name) != 0)
            return false;
        prepend(category->instanceMethods, cls);
        prepend(category->classMethods, cls->isa);
        return true;
    });
}

/// In bytes, by the first letter of the type's encoding.
long alignment(const char* typeEncoding)
{
    const auto isOneOf = [typeEncoding](std::string_view letters) {
        return letters.find(*typeEncoding) != std::string_view::npos;
    };
    if (isOneOf("cCBb"))
        return 1;
    if (isOneOf("sS"))
        return 2;
    if (isOneOf("iIf"))
        return 4;
    return 8;
}

/// Where the class's own variables start: after the superclass's, with every one of them aligned.
long startOfVariables(const Class* cls, long superclassSize)
{
    const auto isAligned = [cls](long start) {
        return std::all_of(cls->instanceVariables->begin(), cls->instanceVariables->end(),
                           [start](const InstanceVariable& variable) {
                               return (start + variable.offset) % alignment(variable.typeEncoding) == 0;
                           });
    };
    long start = superclassSize;
    while (cls->instanceVariables != nullptr && !isAligned(start))
        ++start;
    return start;
}

void placeInstanceVariables(Class* cls)
{
    if (cls->instanceSize > 0)
        return;
    const long start = startOfVariables(cls, cls->superclass != nullptr ? cls->superclass->instanceSize : 0);
    const int count = cls->instanceVariables != nullptr ? cls->instanceVariables->count : 0;
    for (int index = 0; index < count; ++index) {
        InstanceVariable& variable = cls->instanceVariables->begin()[index];
        variable.offset += static_cast<int>(start);
        if (cls->offsetVariables != nullptr && cls->offsetVariables[index] != nullptr)
            *cls->offsetVariables[index] = variable.offset;
    }
    cls->instanceSize = start - cls->instanceSize;
}

void registerClass(Class* cls)
{
    if (!classes().emplace(cls->name, cls).second)
        fail(std::string("two classes are called ") + cls->name);
    cls->isa->flags |= metaclassFlag;
    makeUnique(cls->methods);
    makeUnique(cls->isa->methods);
}

void registerCategory(Category* category)
{
    // The compiler keeps protocols in a category of a class that does not exist.
    if (std::strcmp(category->className, "__ObjC_Protocol_Holder_Ugly_Hack") == 0)
        return;
    makeUnique(category->instanceMethods);
    makeUnique(category->classMethods);
    pendingCategories().push_back(category);
}

} // namespace

const char* uniqueSelector(const char* name)
{
    static auto* names = new std::set<std::string, std::less<>>;
    auto found = names->find(std::string_view(name));
    if (found == names->end())
        found = names->emplace(name).first;
    return found->c_str();
}

bool isMetaclass(const Class* cls)
{
    return (cls->flags & metaclassFlag) != 0;
}

Class* findClass(const std::string& name)
{
    const auto found = classes().find(name);
    if (found == classes().end())
        return nullptr;
    resolve(found->second);
    return found->second;
}

void resolve(Class* cls)
{
    if ((cls->flags & resolvedFlag) != 0)
        return;
    cls->flags |= resolvedFlag;
    cls->isa->flags |= resolvedFlag;

    Class* superclass = nullptr;
    if (cls->superclassName != nullptr) {
        superclass = findClass(cls->superclassName);
        if (superclass == nullptr)
            fail(std::string(cls->name) + " has an unknown superclass, " + cls->superclassName);
    }
    cls->superclass = superclass;
    // The metaclass of a root class inherits from the root class itself.
    cls->isa->superclass = superclass != nullptr ? superclass->isa : cls;
    placeInstanceVariables(cls);
    attachCategories(cls);
}

Implementation findMethod(Class* cls, const char* uniqueName)
{
    for (; cls != nullptr; cls = cls->superclass) {
        for (MethodList* methods = cls->methods; methods != nullptr; methods = methods->next) {
            for (const Method& method : *methods) {
                if (method.name == uniqueName)
                    return method.implementation;
            }
        }
    }
    return nullptr;
}

} // namespace tessel::objc

extern "C" {

/// Every module calls it from its constructor.
void __objc_exec_class(tessel::objc::Module* module)
{
    using namespace tessel::objc;
    SymbolTable& table = *module->symbolTable;
    for (unsigned long index = 0; index < table.selectorCount; ++index) {
        if (table.selectors[index].name != nullptr)
            table.selectors[index].name = uniqueSelector(table.selectors[index].name);
    }
    void** definition = table.definitions();
    for (unsigned short index = 0; index < table.classCount; ++index)
        registerClass(static_cast<Class*>(*definition++));
    for (unsigned short index = 0; index < table.categoryCount; ++index)
        registerCategory(static_cast<Category*>(*definition++));
}

/// What code that names a class calls.
void* objc_get_class(const char* name)
{
    tessel::objc::Class* cls = tessel::objc::findClass(name);
    if (cls == nullptr)
        tessel::objc::fail(std::string("no class is called ") + name);
    return cls;
}

void* objc_lookup_class(const char* name)
{
    return tessel::objc::findClass(name);
}
}
