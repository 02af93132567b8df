#pragma once

#include <fiscalon_component.h>

#include "component/automation.h"
#include "component/text_property.h"
#include "validation/validate_add_info.h"

namespace fiscalon::component {

/// A check of records as hosts hold it.
class ValidatorObject final : public Automation<::clsValidateAddInfo, ::_clsValidateAddInfo> {
 public:
  static Reference<ValidatorObject> Make();

  // clang-format off
  HRESULT STDMETHODCALLTYPE get_ScreenCode(BSTR* text) override { return Read(text, &clsValidateAddInfo::ScreenCode); }
  HRESULT STDMETHODCALLTYPE put_ScreenCode(BSTR text) override { return Write(text, &clsValidateAddInfo::ScreenCode); }
  HRESULT STDMETHODCALLTYPE get_NumberOfFields(BSTR* text) override { return Read(text, &clsValidateAddInfo::NumberOfFields); }
  HRESULT STDMETHODCALLTYPE put_NumberOfFields(BSTR text) override { return Write(text, &clsValidateAddInfo::NumberOfFields); }
  HRESULT STDMETHODCALLTYPE get_BillerCode(BSTR* text) override { return Read(text, &clsValidateAddInfo::BillerCode); }
  HRESULT STDMETHODCALLTYPE put_BillerCode(BSTR text) override { return Write(text, &clsValidateAddInfo::BillerCode); }
  HRESULT STDMETHODCALLTYPE get_BillerName(BSTR* text) override { return Read(text, &clsValidateAddInfo::BillerName); }
  HRESULT STDMETHODCALLTYPE put_BillerName(BSTR text) override { return Write(text, &clsValidateAddInfo::BillerName); }
  HRESULT STDMETHODCALLTYPE get_PaymentDate(BSTR* text) override { return Read(text, &clsValidateAddInfo::PaymentDate); }
  HRESULT STDMETHODCALLTYPE put_PaymentDate(BSTR text) override { return Write(text, &clsValidateAddInfo::PaymentDate); }
  HRESULT STDMETHODCALLTYPE get_PaymentAmount(BSTR* text) override { return Read(text, &clsValidateAddInfo::PaymentAmount); }
  HRESULT STDMETHODCALLTYPE put_PaymentAmount(BSTR text) override { return Write(text, &clsValidateAddInfo::PaymentAmount); }
  HRESULT STDMETHODCALLTYPE get_PC4Records(::_PC4s** records) override;
  HRESULT STDMETHODCALLTYPE putref_PC4Records(::_PC4s* records) override;
  HRESULT STDMETHODCALLTYPE put_PlayByPlayEnabled(VARIANT_BOOL flag) override;
  HRESULT STDMETHODCALLTYPE get_InvalidReason(BSTR* text) override { return Read(text, &clsValidateAddInfo::InvalidReason); }
  HRESULT STDMETHODCALLTYPE put_InvalidReason(BSTR text) override { return Write(text, &clsValidateAddInfo::InvalidReason); }
  HRESULT STDMETHODCALLTYPE get_PC4GovFormatRecords(::_clsPC4GovFormats** records) override;
  HRESULT STDMETHODCALLTYPE putref_PC4GovFormatRecords(::_clsPC4GovFormats* records) override;
  HRESULT STDMETHODCALLTYPE get_PC4FreeFormatRecords(::_clsPC4FreeFormats** records) override;
  HRESULT STDMETHODCALLTYPE putref_PC4FreeFormatRecords(::_clsPC4FreeFormats* records) override;
  HRESULT STDMETHODCALLTYPE IsInfoValid(VARIANT_BOOL* valid) override;
  // clang-format on

 private:
  HRESULT Read(BSTR* text, std::string (clsValidateAddInfo::*get)() const) const;
  HRESULT Write(BSTR text, void (clsValidateAddInfo::*let)(std::string_view));

  clsValidateAddInfo check_;
};

}  // namespace fiscalon::component
