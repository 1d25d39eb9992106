#pragma once

#include <string>

#include "ModuleABI.h"

namespace tessel::objc {

/// The class, resolved. Null: there is none of that name.
Class* findClass(const std::string& name);

/// Makes a class usable: its superclass found, its instance variables placed, its categories attached. Every
/// class is resolved on its first use, when all modules have been loaded.
void resolve(Class* cls);

bool isMetaclass(const Class* cls);

/// One address for every spelling of a selector.
const char* uniqueSelector(const char* name);

/// Searches the class and its superclasses. Null: the method is missing.
Implementation findMethod(Class* cls, const char* uniqueName);

} // namespace tessel::objc
