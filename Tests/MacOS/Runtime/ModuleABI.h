#pragma once

// What the compiler leaves in a module with `-fobjc-runtime=objfw-0.8`: the module structures of the GNU
// family, with instance variables that are placed at run time. Their layout is the compiler's.

struct objc_object;

namespace tessel::objc {

struct Class;
struct Selector;

/// A method's function, to be cast to its real type before it is called.
using Implementation = objc_object* (*)(objc_object*, Selector*, ...);

struct Selector {
    const char* name;
    const char* types;
};

struct Method {
    const char* name;
    const char* types;
    Implementation implementation;
};

/// The methods follow the structure.
struct MethodList {
    MethodList* next;
    int count;

    Method* begin() { return reinterpret_cast<Method*>(this + 1); }
    Method* end() { return begin() + count; }
};

struct InstanceVariable {
    const char* name;
    const char* typeEncoding;
    int offset; ///< From the end of what the superclass was compiled with, until the class is resolved.
};

/// The variables follow the structure.
struct alignas(8) InstanceVariableList {
    int count;

    InstanceVariable* begin() { return reinterpret_cast<InstanceVariable*>(this + 1); }
    InstanceVariable* end() { return begin() + count; }
};

struct Class {
    Class* isa; ///< The metaclass.
    /// The superclass's name as compiled, the superclass itself once the class is resolved.
    union {
        const char* superclassName;
        Class* superclass;
    };
    const char* name;
    long version;
    unsigned long flags;
    long instanceSize; ///< Negative as compiled: the size of the class's own variables.
    InstanceVariableList* instanceVariables;
    MethodList* methods;
    void* dispatchTable;
    void* firstSubclass;
    void* nextSibling;
    void* protocols;
    void* collectorInformation;
    long abiVersion;
    int** offsetVariables; ///< Where code reads the offset of each instance variable.
    void* properties;
    long strongVariables;
    long weakVariables;
};

struct Category {
    const char* name;
    const char* className;
    MethodList* instanceMethods;
    MethodList* classMethods;
    void* protocols;
};

/// Classes and then categories follow the structure.
struct SymbolTable {
    unsigned long selectorCount;
    Selector* selectors;
    unsigned short classCount;
    unsigned short categoryCount;

    void** definitions() { return reinterpret_cast<void**>(this + 1); }
};

struct Module {
    unsigned long version;
    unsigned long size;
    const char* name;
    SymbolTable* symbolTable;
    int collectorMode;
};

/// The receiver of a message to `super`.
struct SuperReceiver {
    objc_object* self;
    Class* enclosingClass;
};

} // namespace tessel::objc
