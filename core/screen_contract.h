#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/boolean.h"
#include "core/forms/button.h"
#include "core/forms/form.h"
#include "core/forms/label.h"
#include "core/forms/list_control.h"
#include "core/forms/text_field.h"
#include "core/pc4_records.h"
#include "core/platform/files.h"

namespace fiscalon {

/// What all payment screens share: the properties that a launch sets, the collection of records, what the
/// host reads afterwards, and the frame of the output. Texts are in the code page.
class Screen : public Form {
 public:
  using Form::Form;

  /// Four characters that head each record, copied as they are.
  const std::string& SeqNumber() const { return Get(seqNumber_, "SeqNumber"); }
  void SeqNumber(std::string_view text) { Let(seqNumber_, text, "SeqNumber"); }
  /// Exactly True: records go to the file `GovFilename`. Anything else: to `PC4Records`.
  int16_t WriteFile() const { return Get(writeFile_, "WriteFile"); }
  void WriteFile(int16_t value) { Let(writeFile_, value, "WriteFile"); }
  /// The person entering; at most 30 characters fit a record.
  const std::string& EnterName() const { return Get(enterName_, "EnterName"); }
  void EnterName(std::string_view text) { Let(enterName_, text, "EnterName"); }
  /// That person's title; at most 20 characters fit a record.
  const std::string& EnterTitle() const { return Get(enterTitle_, "EnterTitle"); }
  void EnterTitle(std::string_view text) { Let(enterTitle_, text, "EnterTitle"); }
  const std::string& GovFilename() const { return Get(govFilename_, "GovFilename"); }
  void GovFilename(std::string_view text) { Let(govFilename_, text, "GovFilename"); }
  /// Biller name.
  const std::string& CompName() const { return Get(compName_, "CompName"); }
  void CompName(std::string_view text) { Let(compName_, text, "CompName"); }
  /// Amount of the payment in dollars, "." as the point.
  const std::string& PaidAmount() const { return Get(paidAmount_, "PaidAmount"); }
  void PaidAmount(std::string_view text) { Let(paidAmount_, text, "PaidAmount"); }
  /// Payment date, 8 digits: month, day, year.
  const std::string& PaidDate() const { return Get(paidDate_, "PaidDate"); }
  void PaidDate(std::string_view text) { Let(paidDate_, text, "PaidDate"); }
  /// 1: the payment is on hold and has no fixed date.
  uint8_t APHoldFlg() const { return Get(apHoldFlg_, "APHoldFlg"); }
  void APHoldFlg(uint8_t value) { Let(apHoldFlg_, value, "APHoldFlg"); }
  /// Biller code.
  const std::string& CompCode() const { return Get(compCode_, "CompCode"); }
  virtual void CompCode(std::string_view text) { Let(compCode_, text, "CompCode"); }

  /// The screen's own collection, made on first use. The next output of the screen empties it.
  std::shared_ptr<PC4s> PC4Records();
  /// True after OK, False after Cancel. Not reset when the form loads.
  int16_t Chosen() const { return Get(chosen_, "Chosen"); }

 protected:
  void Chosen(int16_t value) { chosen_ = value; }

  /// A property is read or written: `accessor` is "Get X" or "Let X".
  virtual void Accessed(std::string_view /*accessor*/, std::string_view /*property*/) const {}

  /// `PaidDate` as screens show it: characters 3-4, "/", 1-2, "/", 5-8, whatever is there of them.
  std::string ShownPaidDate() const;

  /// Whether the active control, inside a `LostFocus` the one that took the focus, bears that name.
  bool FocusIsOn(std::string_view name) const { return ActiveControl() != nullptr && ActiveControl()->Name() == name; }

  /// The reaction to a failed test: a critical box, then the focus. Always false, the result of the test.
  static bool Refuse(Control& control, std::string_view message);

  // The frame of the output: to the file, whose earlier content goes, or to the emptied collection.
  void BeginRecords();
  void SendRecord(const std::string& record);
  void EndRecords();

  /// A file that a failed output left open is the form's until it next writes or unloads.
  void Unloaded() override { output_.reset(); }

 private:
  template <class T>
  const T& Get(const T& field, std::string_view property) const {
    Accessed("Get", property);
    return field;
  }
  template <class T, class Value>
  void Let(T& field, Value value, std::string_view property) {
    Accessed("Let", property);
    field = value;
  }

  std::string seqNumber_;
  int16_t writeFile_ = kFalse;
  std::string enterName_;
  std::string enterTitle_;
  std::string govFilename_;
  std::string compName_;
  std::string paidAmount_;
  std::string paidDate_;
  uint8_t apHoldFlg_ = 0;
  std::string compCode_;
  std::shared_ptr<PC4s> pc4Records_;
  int16_t chosen_ = kFalse;
  std::unique_ptr<OutputFile> output_;
};

}  // namespace fiscalon
