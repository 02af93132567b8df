#include "component/class_factory.h"

#include "component/record_objects.h"
#include "component/session_object.h"
#include "component/setup_object.h"
#include "component/validator_object.h"

namespace fiscalon::component {

namespace {

using Make = Reference<IUnknown> (*)();

template <typename Object>
Reference<IUnknown> MakeObject() {
  return Reference<IUnknown>::Adopt(static_cast<IDispatch*>(Object::Make().Detach()));
}

struct CreatableClass {
  const CLSID& id;
  Make make = nullptr;
};

const CreatableClass kClasses[] = {
    {__uuidof(::Levyra), MakeObject<SessionObject>},
    {__uuidof(::PC4s), MakeObject<Pc4sObject>},
    {__uuidof(::clsValidateAddInfo), MakeObject<ValidatorObject>},
    {__uuidof(::clsPC4GovFormat), MakeObject<GovFormatObject>},
    {__uuidof(::clsPC4GovFormats), MakeObject<GovFormatsObject>},
    {__uuidof(::clsPC4FreeFormat), MakeObject<FreeFormatObject>},
    {__uuidof(::clsPC4FreeFormats), MakeObject<FreeFormatsObject>},
    {__uuidof(::Setup), MakeObject<SetupObject>},
};

class ClassFactory final : public Counted<IClassFactory> {
 public:
  explicit ClassFactory(Make make) : make_(make) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID interfaceId, void** object) override {
    HRESULT found = E_NOINTERFACE;
    const HRESULT made = Answer(IID_IClassFactory, object, [&]() -> void* {
      if (outer != nullptr)
        throw ComponentError(CLASS_E_NOAGGREGATION, "The component's objects cannot be part of another object.");
      void* wanted = nullptr;
      found = make_()->QueryInterface(interfaceId, &wanted);
      return wanted;
    });
    return FAILED(made) ? made : found;
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    LockModule(lock != FALSE ? ModuleLock::More : ModuleLock::Less);
    return S_OK;
  }

 private:
  const Make make_;
};

}  // namespace

HRESULT FindClassFactory(REFCLSID classId, REFIID interfaceId, void** factory) {
  HRESULT found = CLASS_E_CLASSNOTAVAILABLE;
  const HRESULT made = Answer(IID_IClassFactory, factory, [&] {
    void* wanted = nullptr;
    for (const CreatableClass& each : kClasses)
      if (each.id == classId)
        found = Reference<ClassFactory>::Adopt(new ClassFactory(each.make))->QueryInterface(interfaceId, &wanted);
    return wanted;
  });
  return FAILED(made) ? made : found;
}

}  // namespace fiscalon::component
