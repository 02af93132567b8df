#include "component/validator_object.h"

#include "component/record_objects.h"

namespace fiscalon::component {

Reference<ValidatorObject> ValidatorObject::Make() {
  return Reference<ValidatorObject>::Adopt(new ValidatorObject);
}

HRESULT ValidatorObject::Read(BSTR* text, std::string (clsValidateAddInfo::*get)() const) const {
  return ReadText(__uuidof(::_clsValidateAddInfo), text, check_, get);
}

HRESULT ValidatorObject::Write(BSTR text, void (clsValidateAddInfo::*let)(std::string_view)) {
  return WriteText(__uuidof(::_clsValidateAddInfo), text, check_, let);
}

HRESULT ValidatorObject::get_PC4Records(::_PC4s** records) {
  return Answer(records, [&] { return Pc4sObject::Of(check_.PC4Records()).Detach(); });
}

HRESULT ValidatorObject::putref_PC4Records(::_PC4s* records) {
  return Answer([&] { check_.PC4Records(Pc4sObject::CarriedBy(records)); });
}

HRESULT ValidatorObject::put_PlayByPlayEnabled(VARIANT_BOOL flag) {
  return Answer([&] { clsValidateAddInfo::PlayByPlayEnabled(flag); });
}

HRESULT ValidatorObject::get_PC4GovFormatRecords(::_clsPC4GovFormats** records) {
  return Answer(records, [&] { return GovFormatsObject::Of(check_.PC4GovFormatRecords()).Detach(); });
}

HRESULT ValidatorObject::putref_PC4GovFormatRecords(::_clsPC4GovFormats* records) {
  return Answer([&] { check_.PC4GovFormatRecords(GovFormatsObject::CarriedBy(records)); });
}

HRESULT ValidatorObject::get_PC4FreeFormatRecords(::_clsPC4FreeFormats** records) {
  return Answer(records, [&] { return FreeFormatsObject::Of(check_.PC4FreeFormatRecords()).Detach(); });
}

HRESULT ValidatorObject::putref_PC4FreeFormatRecords(::_clsPC4FreeFormats* records) {
  return Answer([&] { check_.PC4FreeFormatRecords(FreeFormatsObject::CarriedBy(records)); });
}

HRESULT ValidatorObject::IsInfoValid(VARIANT_BOOL* valid) {
  return Answer(valid, [&] { return check_.IsInfoValid() ? VARIANT_TRUE : VARIANT_FALSE; });
}

}  // namespace fiscalon::component
