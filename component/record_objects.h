#pragma once

#include <fiscalon_component.h>

#include "component/collection_object.h"
#include "component/text_property.h"
#include "core/records/pc4_records.h"

/// The carriers of records as hosts hold them.
namespace fiscalon::component {

class Pc4Object final : public Carrier<Pc4Object, ::PC4, ::_PC4, PC4> {
 public:
  // clang-format off
  HRESULT STDMETHODCALLTYPE get_TheDate(BSTR* text) override { return Read(text, &PC4::TheDate); }
  HRESULT STDMETHODCALLTYPE put_TheDate(BSTR text) override { return Write(text, &PC4::TheDate); }
  HRESULT STDMETHODCALLTYPE get_Amount(BSTR* text) override { return Read(text, &PC4::Amount); }
  HRESULT STDMETHODCALLTYPE put_Amount(BSTR text) override { return Write(text, &PC4::Amount); }
  HRESULT STDMETHODCALLTYPE get_Description(BSTR* text) override { return Read(text, &PC4::Description); }
  HRESULT STDMETHODCALLTYPE put_Description(BSTR text) override { return Write(text, &PC4::Description); }
  // clang-format on

 private:
  friend Carrier;
  using Carrier::Carrier;

  HRESULT Read(BSTR* text, std::string (PC4::*get)() const) const {
    return ReadText(__uuidof(::_PC4), text, core(), get);
  }
  HRESULT Write(BSTR text, void (PC4::*let)(std::string)) const {
    return WriteText(__uuidof(::_PC4), text, core(), let);
  }
};

class Pc4sObject final : public CollectionObject<Pc4sObject, ::PC4s, ::_PC4s, PC4s, Pc4Object, ::_PC4> {
 public:
  HRESULT STDMETHODCALLTYPE Add(BSTR theDate, BSTR amount, BSTR description, BSTR sKey, ::_PC4** member) override {
    return Append(member, theDate, amount, description, sKey);
  }

 private:
  friend Carrier;
  using CollectionObject::CollectionObject;
};

class GovFormatObject final : public Carrier<GovFormatObject, ::clsPC4GovFormat, ::_clsPC4GovFormat, clsPC4GovFormat> {
 public:
  // clang-format off
  HRESULT STDMETHODCALLTYPE get_PeriodStartDate(BSTR* text) override { return Read(text, &clsPC4GovFormat::PeriodStartDate); }
  HRESULT STDMETHODCALLTYPE put_PeriodStartDate(BSTR text) override { return Write(text, &clsPC4GovFormat::PeriodStartDate); }
  HRESULT STDMETHODCALLTYPE get_PeriodEndDate(BSTR* text) override { return Read(text, &clsPC4GovFormat::PeriodEndDate); }
  HRESULT STDMETHODCALLTYPE put_PeriodEndDate(BSTR text) override { return Write(text, &clsPC4GovFormat::PeriodEndDate); }
  HRESULT STDMETHODCALLTYPE get_PeriodDueDate(BSTR* text) override { return Read(text, &clsPC4GovFormat::PeriodDueDate); }
  HRESULT STDMETHODCALLTYPE put_PeriodDueDate(BSTR text) override { return Write(text, &clsPC4GovFormat::PeriodDueDate); }
  HRESULT STDMETHODCALLTYPE get_Filler1(BSTR* text) override { return Read(text, &clsPC4GovFormat::Filler1); }
  HRESULT STDMETHODCALLTYPE put_Filler1(BSTR text) override { return Write(text, &clsPC4GovFormat::Filler1); }
  HRESULT STDMETHODCALLTYPE get_ContactName(BSTR* text) override { return Read(text, &clsPC4GovFormat::ContactName); }
  HRESULT STDMETHODCALLTYPE put_ContactName(BSTR text) override { return Write(text, &clsPC4GovFormat::ContactName); }
  HRESULT STDMETHODCALLTYPE get_ContactTitle(BSTR* text) override { return Read(text, &clsPC4GovFormat::ContactTitle); }
  HRESULT STDMETHODCALLTYPE put_ContactTitle(BSTR text) override { return Write(text, &clsPC4GovFormat::ContactTitle); }
  HRESULT STDMETHODCALLTYPE get_Filler2(BSTR* text) override { return Read(text, &clsPC4GovFormat::Filler2); }
  HRESULT STDMETHODCALLTYPE put_Filler2(BSTR text) override { return Write(text, &clsPC4GovFormat::Filler2); }
  // clang-format on

 private:
  friend Carrier;
  using Carrier::Carrier;

  HRESULT Read(BSTR* text, std::string (clsPC4GovFormat::*get)() const) const {
    return ReadText(__uuidof(::_clsPC4GovFormat), text, core(), get);
  }
  HRESULT Write(BSTR text, void (clsPC4GovFormat::*let)(std::string)) const {
    return WriteText(__uuidof(::_clsPC4GovFormat), text, core(), let);
  }
};

class GovFormatsObject final : public CollectionObject<GovFormatsObject, ::clsPC4GovFormats, ::_clsPC4GovFormats,
                                                       clsPC4GovFormats, GovFormatObject, ::_clsPC4GovFormat> {
 public:
  HRESULT STDMETHODCALLTYPE Add(BSTR periodStartDate, BSTR periodEndDate, BSTR periodDueDate, BSTR filler1,
                                BSTR contactName, BSTR contactTitle, BSTR filler2, BSTR sKey,
                                ::_clsPC4GovFormat** member) override {
    return Append(member, periodStartDate, periodEndDate, periodDueDate, filler1, contactName, contactTitle, filler2,
                  sKey);
  }

 private:
  friend Carrier;
  using CollectionObject::CollectionObject;
};

class FreeFormatObject final
    : public Carrier<FreeFormatObject, ::clsPC4FreeFormat, ::_clsPC4FreeFormat, clsPC4FreeFormat> {
 public:
  // clang-format off
  HRESULT STDMETHODCALLTYPE get_FieldNum(BSTR* text) override { return Read(text, &clsPC4FreeFormat::FieldNum); }
  HRESULT STDMETHODCALLTYPE put_FieldNum(BSTR text) override { return Write(text, &clsPC4FreeFormat::FieldNum); }
  HRESULT STDMETHODCALLTYPE get_FieldValue(BSTR* text) override { return Read(text, &clsPC4FreeFormat::FieldValue); }
  HRESULT STDMETHODCALLTYPE put_FieldValue(BSTR text) override { return Write(text, &clsPC4FreeFormat::FieldValue); }
  // clang-format on

 private:
  friend Carrier;
  using Carrier::Carrier;

  HRESULT Read(BSTR* text, std::string (clsPC4FreeFormat::*get)() const) const {
    return ReadText(__uuidof(::_clsPC4FreeFormat), text, core(), get);
  }
  HRESULT Write(BSTR text, void (clsPC4FreeFormat::*let)(std::string)) const {
    return WriteText(__uuidof(::_clsPC4FreeFormat), text, core(), let);
  }
};

class FreeFormatsObject final : public CollectionObject<FreeFormatsObject, ::clsPC4FreeFormats, ::_clsPC4FreeFormats,
                                                        clsPC4FreeFormats, FreeFormatObject, ::_clsPC4FreeFormat> {
 public:
  HRESULT STDMETHODCALLTYPE Add(BSTR fieldNum, BSTR fieldValue, BSTR sKey, ::_clsPC4FreeFormat** member) override {
    return Append(member, fieldNum, fieldValue, sKey);
  }

 private:
  friend Carrier;
  using CollectionObject::CollectionObject;
};

}  // namespace fiscalon::component
