#include "component/setup_object.h"

#include "component/texts.h"
#include "core/host_setup.h"
#include "core/module_state.h"

namespace fiscalon::component {

Reference<SetupObject> SetupObject::Make() {
  return Reference<SetupObject>::Adopt(new SetupObject);
}

HRESULT SetupObject::get_Language(BSTR* name) {
  return Answer(name, [] { return ToHost(std::string(TheModule().language.name)); });
}

HRESULT SetupObject::put_Language(BSTR name) {
  return Answer([&] { UseLanguage(FromHost(name)); });
}

}  // namespace fiscalon::component
