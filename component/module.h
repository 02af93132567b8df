#pragma once

#include <ole2.h>

#include <string>

#include "component/reference.h"

/// What the component knows of itself as a file: its place, its type library, and whether somebody still needs it.
namespace fiscalon::component {

/// Keeps the component loaded while it exists: part of every object that a host can hold.
class Needed {
 public:
  Needed();
  ~Needed();
  Needed(const Needed&) = delete;
  Needed& operator=(const Needed&) = delete;
};

/// A host's wish to keep the component loaded without an object, taken back as often as it was made.
enum class ModuleLock { More, Less };
void LockModule(ModuleLock change);

/// Whether no object and no lock is out.
bool NobodyNeedsTheModule();

/// The full path of the file that holds this code.
std::wstring ModulePath();

/// The type library in that file.
Reference<ITypeLib> TypeLibrary();
/// The description of an interface or a class in it.
Reference<ITypeInfo> TypeInformation(REFGUID id);

}  // namespace fiscalon::component
