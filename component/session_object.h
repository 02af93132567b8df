#pragma once

#include <fiscalon_component.h>

#include "component/automation.h"
#include "component/text_property.h"
#include "core/session.h"

namespace fiscalon::component {

/// A payment session as hosts hold it.
class SessionObject final : public Automation<::Levyra, ::_Levyra> {
 public:
  static Reference<SessionObject> Make();

  // clang-format off
  HRESULT STDMETHODCALLTYPE get_ZelmorNumber(BSTR* text) override { return Read(text, &Levyra::ZelmorNumber); }
  HRESULT STDMETHODCALLTYPE put_ZelmorNumber(BSTR text) override { return Write(text, &Levyra::ZelmorNumber); }
  HRESULT STDMETHODCALLTYPE get_CompCode(BSTR* text) override { return Read(text, &Levyra::CompCode); }
  HRESULT STDMETHODCALLTYPE put_CompCode(BSTR text) override { return Write(text, &Levyra::CompCode); }
  HRESULT STDMETHODCALLTYPE get_CompName(BSTR* text) override { return Read(text, &Levyra::CompName); }
  HRESULT STDMETHODCALLTYPE put_CompName(BSTR text) override { return Write(text, &Levyra::CompName); }
  HRESULT STDMETHODCALLTYPE get_AccountNumber(BSTR* text) override { return Read(text, &Levyra::AccountNumber); }
  HRESULT STDMETHODCALLTYPE put_AccountNumber(BSTR text) override { return Write(text, &Levyra::AccountNumber); }
  HRESULT STDMETHODCALLTYPE get_PaidAmount(BSTR* text) override { return Read(text, &Levyra::PaidAmount); }
  HRESULT STDMETHODCALLTYPE put_PaidAmount(BSTR text) override { return Write(text, &Levyra::PaidAmount); }
  HRESULT STDMETHODCALLTYPE get_PaidDate(BSTR* text) override { return Read(text, &Levyra::PaidDate); }
  HRESULT STDMETHODCALLTYPE put_PaidDate(BSTR text) override { return Write(text, &Levyra::PaidDate); }
  HRESULT STDMETHODCALLTYPE get_NumberOfInfoCollect(BSTR* text) override { return Read(text, &Levyra::NumberOfInfoCollect); }
  HRESULT STDMETHODCALLTYPE put_NumberOfInfoCollect(BSTR text) override { return Write(text, &Levyra::NumberOfInfoCollect); }
  HRESULT STDMETHODCALLTYPE get_GovFilename(BSTR* text) override { return Read(text, &Levyra::GovFilename); }
  HRESULT STDMETHODCALLTYPE put_GovFilename(BSTR text) override { return Write(text, &Levyra::GovFilename); }
  HRESULT STDMETHODCALLTYPE get_EnterName(BSTR* text) override { return Read(text, &Levyra::EnterName); }
  HRESULT STDMETHODCALLTYPE put_EnterName(BSTR text) override { return Write(text, &Levyra::EnterName); }
  HRESULT STDMETHODCALLTYPE get_EnterTitle(BSTR* text) override { return Read(text, &Levyra::EnterTitle); }
  HRESULT STDMETHODCALLTYPE put_EnterTitle(BSTR text) override { return Write(text, &Levyra::EnterTitle); }
  HRESULT STDMETHODCALLTYPE get_APHoldFlg(unsigned char* flag) override;
  HRESULT STDMETHODCALLTYPE put_APHoldFlg(unsigned char flag) override;
  HRESULT STDMETHODCALLTYPE get_SeqNumber(BSTR* text) override { return Read(text, &Levyra::SeqNumber); }
  HRESULT STDMETHODCALLTYPE put_SeqNumber(BSTR text) override { return Write(text, &Levyra::SeqNumber); }
  HRESULT STDMETHODCALLTYPE get_ShowGST58(VARIANT_BOOL* shown) override;
  HRESULT STDMETHODCALLTYPE get_BusinessName(BSTR* text) override { return Read(text, &Levyra::BusinessName); }
  HRESULT STDMETHODCALLTYPE put_BusinessName(BSTR text) override { return Write(text, &Levyra::BusinessName); }
  HRESULT STDMETHODCALLTYPE ShowLevyraScreen(BSTR TheScreenType, VARIANT_BOOL* chosen) override;
  HRESULT STDMETHODCALLTYPE get_WriteFile(VARIANT_BOOL* flag) override;
  HRESULT STDMETHODCALLTYPE put_WriteFile(VARIANT_BOOL flag) override;
  HRESULT STDMETHODCALLTYPE get_PC4Records(::_PC4s** records) override;
  HRESULT STDMETHODCALLTYPE putref_PC4Records(::_PC4s* records) override;
  HRESULT STDMETHODCALLTYPE put_PlayByPlayEnabled(VARIANT_BOOL flag) override;
  HRESULT STDMETHODCALLTYPE put_MainPath(BSTR text) override;
  HRESULT STDMETHODCALLTYPE put_SessionNumber(double number) override;
  // clang-format on

 private:
  HRESULT Read(BSTR* text, std::string (Levyra::*get)() const) const;
  HRESULT Write(BSTR text, void (Levyra::*let)(std::string_view));

  Levyra session_;
};

}  // namespace fiscalon::component
