// Prints what the component writes into the registry, for whoever makes an installer: list_registered_keys FILE FOLDER
// WORDSIZE. FILE and FOLDER are printed for the component's own place, whatever they mean to the installer; WORDSIZE is
// win64 or win32. A value on each line: whose key it is, "one" word size's or "both", the key below Software\Classes,
// the value's name, its text, with tabs between them.

#include <iostream>
#include <string>

#include "component/failure.h"
#include "component/registered_keys.h"
#include "core/platform/windows/wide_text.h"

int wmain(int count, wchar_t** arguments) {
  if (count != 4) {
    std::cerr << "list_registered_keys FILE FOLDER WORDSIZE\n";
    return 2;
  }
  using fiscalon::FromWide;
  using namespace fiscalon::component;
  try {
    const RegisteredKeys registered =
        KeysOfTheComponent({.file = arguments[1], .folder = arguments[2], .wordSize = arguments[3]});
    for (const RegisteredKey& key : registered.keys)
      for (const RegisteredValue& value : key.values)
        std::cout << (key.owner == KeyOwner::OneWordSize ? "one" : "both") << '\t' << FromWide(key.path + value.below)
                  << '\t' << FromWide(value.name) << '\t' << FromWide(value.text) << '\n';
  } catch (const ComponentError& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
