#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/records/keyed_collection.h"

/// The carriers of additional-information records: whole records as screens hand them to the host, and
/// records cut into their fields. All texts are in Windows-1252 and keep their blanks.
namespace fiscalon {

class PC4s;

/// One record. For all kinds but the invoice rows the whole record stands in `Description`, without
/// quotes, and the other two are empty. Only `PC4s::Add` makes one.
class PC4 {
 public:
  /// The date of an invoice; else empty.
  std::string TheDate() const { return theDate_; }
  void TheDate(std::string text) { theDate_ = std::move(text); }
  /// The amount of an invoice, in cents; else empty.
  std::string Amount() const { return amount_; }
  void Amount(std::string text) { amount_ = std::move(text); }
  /// The whole record, or the number of an invoice.
  std::string Description() const { return description_; }
  void Description(std::string text) { description_ = std::move(text); }
  /// The description without a copy: it holds until the record changes or goes.
  std::string_view DescriptionView() const { return description_; }

 private:
  friend class PC4s;
  PC4() = default;

  std::string theDate_;
  std::string amount_;
  std::string description_;
};

/// The records of one payment, in order.
class PC4s : public KeyedCollection<PC4> {
 public:
  /// Appends a record and returns it. Error 457 where the key is taken.
  PC4& Add(std::string theDate = {}, std::string amount = {}, std::string description = {}, std::string_view key = {});
};

/// The fields of a "T" record, each at its width.
class clsPC4GovFormat {
 public:
  /// 8 columns: a date as the screen asked for it, with blanks behind a shorter one.
  std::string PeriodStartDate() const { return periodStartDate_; }
  void PeriodStartDate(std::string text) { periodStartDate_ = std::move(text); }
  /// 8 columns: the same.
  std::string PeriodEndDate() const { return periodEndDate_; }
  void PeriodEndDate(std::string text) { periodEndDate_ = std::move(text); }
  /// 8 columns: the same.
  std::string PeriodDueDate() const { return periodDueDate_; }
  void PeriodDueDate(std::string text) { periodDueDate_ = std::move(text); }
  /// 8 columns that no screen fills.
  std::string Filler1() const { return filler1_; }
  void Filler1(std::string text) { filler1_ = std::move(text); }
  /// 30 columns: the person who entered the payment.
  std::string ContactName() const { return contactName_; }
  void ContactName(std::string text) { contactName_ = std::move(text); }
  /// 20 columns: that person's title.
  std::string ContactTitle() const { return contactTitle_; }
  void ContactTitle(std::string text) { contactTitle_ = std::move(text); }
  /// 10 columns that no screen fills.
  std::string Filler2() const { return filler2_; }
  void Filler2(std::string text) { filler2_ = std::move(text); }

 private:
  std::string periodStartDate_;
  std::string periodEndDate_;
  std::string periodDueDate_;
  std::string filler1_;
  std::string contactName_;
  std::string contactTitle_;
  std::string filler2_;
};

/// "T" records that were cut into their fields, in order.
class clsPC4GovFormats : public KeyedCollection<clsPC4GovFormat> {
 public:
  /// Appends a member and returns it. Error 457 where the key is taken.
  clsPC4GovFormat& Add(std::string periodStartDate = {}, std::string periodEndDate = {}, std::string periodDueDate = {},
                       std::string filler1 = {}, std::string contactName = {}, std::string contactTitle = {},
                       std::string filler2 = {}, std::string_view key = {});
};

/// One slot of an "F" record: a number and a value, each at its width.
class clsPC4FreeFormat {
 public:
  /// 2 columns: the number of the field.
  std::string FieldNum() const { return fieldNum_; }
  void FieldNum(std::string text) { fieldNum_ = std::move(text); }
  /// 18 columns: its value, with blanks behind.
  std::string FieldValue() const { return fieldValue_; }
  void FieldValue(std::string text) { fieldValue_ = std::move(text); }

 private:
  std::string fieldNum_;
  std::string fieldValue_;
};

/// Slots of "F" records, in order.
class clsPC4FreeFormats : public KeyedCollection<clsPC4FreeFormat> {
 public:
  /// Appends a member and returns it. Error 457 where the key is taken.
  clsPC4FreeFormat& Add(std::string fieldNum = {}, std::string fieldValue = {}, std::string_view key = {});
};

}  // namespace fiscalon
