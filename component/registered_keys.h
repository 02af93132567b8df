#pragma once

#include <string>
#include <vector>

/// What stands in the registry of the component, as data: the DLL writes it itself, and installers bring it along. All
/// of it comes from the type library, so a new class is a row there and nothing here.
namespace fiscalon::component {

/// Where the component lies, or is going to.
struct ComponentPlace {
  /// The full path of its file.
  std::wstring file = {};
  /// That of the folder, with a backslash at its end.
  std::wstring folder = {};
  /// Whose code it is, as type libraries name it: "win64" or "win32".
  std::wstring wordSize = {};
};

struct RegisteredValue {
  /// A key below that which holds the value, with a backslash before it; empty for that key itself.
  std::wstring below = {};
  /// Empty for the key's default value.
  std::wstring name = {};
  std::wstring text = {};
};

/// Names and type library are one for the components of both word sizes, which may be registered side by side.
enum class KeyOwner { OneWordSize, BothWordSizes };

/// A key that is the component's with all below it.
struct RegisteredKey {
  /// Below a root's Software\Classes.
  std::wstring path = {};
  KeyOwner owner = KeyOwner::OneWordSize;
  std::vector<RegisteredValue> values = {};
};

struct RegisteredKeys {
  /// In the order of writing them.
  std::vector<RegisteredKey> keys = {};
  /// That of the type library, whose other versions are others'.
  std::wstring library = {};
  std::wstring libraryVersion = {};

  /// The key that is there where the component of that word size is registered.
  std::wstring OfWordSize(const std::wstring& wordSize) const;
};

/// Throws ComponentError where the type library cannot be read.
RegisteredKeys KeysOfTheComponent(const ComponentPlace& place);

}  // namespace fiscalon::component
