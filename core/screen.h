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
#include "core/platform/files.h"
#include "core/records/pc4_records.h"
#include "core/records/record_composer.h"

namespace fiscalon {

/// The payment that a launch has set on a screen. Texts are in the code page.
struct GivenPayment {
  /// Whether the payment is on hold, and has no fixed date.
  bool IsHeld() const { return apHoldFlg == 1; }
  /// The date as screens show it: characters 3-4, "/", 1-2, "/", 5-8, whatever is there of them.
  std::string ShownDate() const;

  std::string seqNumber = {};
  Boolean writeFile = {};
  std::string enterName = {};
  std::string enterTitle = {};
  std::string govFilename = {};
  std::string compName = {};
  std::string paidAmount = {};
  std::string paidDate = {};
  uint8_t apHoldFlg = 0;
  std::string compCode = {};
};

/// What all payment screens share: the properties that a launch sets, the collection of records, what the
/// host reads afterwards, and the frame of the output. What they have in common beyond that are parts
/// (screens/parts), members of their tables of controls.
class Screen : public Form {
 public:
  using Form::Form;

  /// Four characters that head each record, copied as they are.
  const std::string& SeqNumber() const { return Get(given_.seqNumber, "SeqNumber"); }
  void SeqNumber(std::string_view text) { Let(given_.seqNumber, text, "SeqNumber"); }
  /// Exactly True: records go to the file `GovFilename`. Anything else: to `PC4Records`.
  Boolean WriteFile() const { return Get(given_.writeFile, "WriteFile"); }
  void WriteFile(Boolean value) { Let(given_.writeFile, value, "WriteFile"); }
  /// The person entering; a name that is longer than a record's `ContactName` fails the output.
  const std::string& EnterName() const { return Get(given_.enterName, "EnterName"); }
  void EnterName(std::string_view text) { Let(given_.enterName, text, "EnterName"); }
  /// That person's title; the same holds for `ContactTitle`.
  const std::string& EnterTitle() const { return Get(given_.enterTitle, "EnterTitle"); }
  void EnterTitle(std::string_view text) { Let(given_.enterTitle, text, "EnterTitle"); }
  const std::string& GovFilename() const { return Get(given_.govFilename, "GovFilename"); }
  void GovFilename(std::string_view text) { Let(given_.govFilename, text, "GovFilename"); }
  /// Biller name.
  const std::string& CompName() const { return Get(given_.compName, "CompName"); }
  void CompName(std::string_view text) { Let(given_.compName, text, "CompName"); }
  /// Amount of the payment in dollars, "." as the point.
  const std::string& PaidAmount() const { return Get(given_.paidAmount, "PaidAmount"); }
  void PaidAmount(std::string_view text) { Let(given_.paidAmount, text, "PaidAmount"); }
  /// Payment date, 8 digits: month, day, year.
  const std::string& PaidDate() const { return Get(given_.paidDate, "PaidDate"); }
  void PaidDate(std::string_view text) { Let(given_.paidDate, text, "PaidDate"); }
  /// 1: the payment is on hold and has no fixed date.
  uint8_t APHoldFlg() const { return Get(given_.apHoldFlg, "APHoldFlg"); }
  void APHoldFlg(uint8_t value) { Let(given_.apHoldFlg, value, "APHoldFlg"); }
  /// Biller code.
  const std::string& CompCode() const { return Get(given_.compCode, "CompCode"); }
  virtual void CompCode(std::string_view text) { Let(given_.compCode, text, "CompCode"); }

  /// The screen's own collection, made on first use. The next output of the screen empties it.
  std::shared_ptr<PC4s> PC4Records();
  /// True after OK, False after Cancel. Not reset when the form loads.
  Boolean Chosen() const { return Get(chosen_, "Chosen"); }

  // For the parts that the form is made of.
  using Form::DoEvents;
  using Form::SendKeys;

 protected:
  /// What the launch has set. The form's own code reads it here: only the properties are accesses from outside.
  const GivenPayment& Payment() const { return given_; }

  void Chosen(Boolean value) { chosen_ = value; }

  /// A property is read ("Get") or written ("Let").
  virtual void Accessed(std::string_view /*access*/, std::string_view /*property*/) const {}

  /// The end of OK: the host gets True, and the form hides.
  void Accepted();
  /// The end of Cancel, and of closing by the window, the system or the task manager.
  void Cancelled();
  /// What most screens do when the window closes: the close box, the end of the system and the task manager cancel,
  /// other reasons do nothing. Whether it was one of those three.
  bool CancelOnClosing(CloseReason reason);

  /// OK of a form that one routine judges as a whole: where that answers true, the other writes the records, and the
  /// form is accepted. What fails leaves the handler.
  template <class F>
  Handler OnOk(bool (F::*isValid)(), void (F::*write)()) {
    return [this, form = static_cast<F*>(this), isValid, write] {
      if (!(form->*isValid)())
        return;
      (form->*write)();
      Accepted();
    };
  }

  // The frame of the output: to the file, whose earlier content goes, or to the emptied collection.
  void BeginRecords();
  /// Records go to that file, whatever the payment says.
  void BeginFile(std::string_view path);
  void SendRecord(const std::string& record);
  void EndRecords();

  /// The "T" record with the payment's sequence and contact; fields left out are blank.
  std::string GovernmentRecord(GovernmentFields fields = {}) const;
  /// An "F" record with the payment's sequence.
  std::string FreeRecord(std::initializer_list<FreeFormatSlot> slots) const;

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

  GivenPayment given_;
  std::shared_ptr<PC4s> pc4Records_;
  Boolean chosen_;
  std::unique_ptr<OutputFile> output_;
};

}  // namespace fiscalon
