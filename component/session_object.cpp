#include "component/session_object.h"

#include "component/forms_of_the_system.h"
#include "component/record_objects.h"
#include "core/host_setup.h"
#include "core/module_state.h"

namespace fiscalon::component {

namespace {

VARIANT_BOOL Truth(bool value) {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}

/// A host that has installed a front end of its own keeps it.
void InstallFrontEnd() {
  static std::shared_ptr<Toolkit> formsOfTheSystem;
  if (TheModule().toolkit != nullptr)
    return;
  if (!formsOfTheSystem)
    formsOfTheSystem = FormsOfTheSystem();
  UseToolkit(formsOfTheSystem.get());
}

}  // namespace

Reference<SessionObject> SessionObject::Make() {
  return Reference<SessionObject>::Adopt(new SessionObject);
}

HRESULT SessionObject::Read(BSTR* text, std::string (Levyra::*get)() const) const {
  return ReadText(__uuidof(::_Levyra), text, session_, get);
}

HRESULT SessionObject::Write(BSTR text, void (Levyra::*let)(std::string_view)) {
  return WriteText(__uuidof(::_Levyra), text, session_, let);
}

HRESULT SessionObject::get_APHoldFlg(unsigned char* flag) {
  return Answer(flag, [&] { return session_.APHoldFlg(); });
}

HRESULT SessionObject::put_APHoldFlg(unsigned char flag) {
  return Answer([&] { session_.APHoldFlg(flag); });
}

HRESULT SessionObject::get_ShowGST58(VARIANT_BOOL* shown) {
  return Answer(shown, [&] { return Truth(session_.ShowGST58()); });
}

HRESULT SessionObject::ShowLevyraScreen(BSTR TheScreenType, VARIANT_BOOL* chosen) {
  // A host may let go of the session while its form is up, in an answer to a message that the form's loop passes on.
  const Reference<SessionObject> self(this);
  return Answer(chosen, [&] {
    InstallFrontEnd();
    const ScreenTurn screen;
    return Truth(session_.ShowLevyraScreen(FromHost(TheScreenType)));
  });
}

HRESULT SessionObject::get_WriteFile(VARIANT_BOOL* flag) {
  return Answer(flag, [&] { return session_.WriteFile(); });
}

HRESULT SessionObject::put_WriteFile(VARIANT_BOOL flag) {
  return Answer([&] { session_.WriteFile(flag); });
}

HRESULT SessionObject::get_PC4Records(::_PC4s** records) {
  return Answer(records, [&] { return Pc4sObject::Of(session_.PC4Records()).Detach(); });
}

HRESULT SessionObject::putref_PC4Records(::_PC4s* records) {
  return Answer([&] { session_.PC4Records(Pc4sObject::CarriedBy(records)); });
}

HRESULT SessionObject::put_PlayByPlayEnabled(VARIANT_BOOL flag) {
  return Answer([&] { Levyra::PlayByPlayEnabled(flag); });
}

HRESULT SessionObject::put_MainPath(BSTR text) {
  return Answer([&] { Levyra::MainPath(FromHost(text)); });
}

HRESULT SessionObject::put_SessionNumber(double number) {
  return Answer([&] { Levyra::SessionNumber(number); });
}

}  // namespace fiscalon::component
