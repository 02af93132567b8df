#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "core/boolean.h"
#include "core/platform/runtime_error.h"
#include "core/records/pc4_records.h"

namespace fiscalon {

struct LaunchRow;

/// The host's front door: the context of one payment, and the call that asks the user for the rest. A host may
/// reuse an object with changed properties. All texts are in Windows-1252; convert with `FromUtf8`/`ToUtf8`.
class Levyra {
 public:
  /// Asks the user's locale for its decimal separator, which decides for all objects of the process whether a
  /// typed amount means cents.
  Levyra();

  /// The host's customer number. The error log names it from then on.
  std::string ZelmorNumber() const { return zelmorNumber_; }
  void ZelmorNumber(std::string_view text);
  /// Biller code, such as "001052".
  std::string CompCode() const { return compCode_; }
  void CompCode(std::string_view text) { compCode_ = text; }
  /// Biller name, shown on the screens.
  std::string CompName() const { return compName_; }
  void CompName(std::string_view text) { compName_ = text; }
  /// Kept for the host; no screen receives it.
  std::string AccountNumber() const { return accountNumber_; }
  void AccountNumber(std::string_view text) { accountNumber_ = text; }
  /// The amount of the payment. Written in cents ("12345"), read back in dollars ("123.45", ".05", "12"). A text
  /// that begins with no number is 0. Error 6 for a number beyond all floats.
  std::string PaidAmount() const { return paidAmount_; }
  void PaidAmount(std::string_view cents);
  /// Payment date, 8 digits: month, day, year.
  std::string PaidDate() const { return paidDate_; }
  void PaidDate(std::string_view text) { paidDate_ = text; }
  /// How many items the generic remittance screen collects, 1 to 12.
  std::string NumberOfInfoCollect() const { return numberOfInfoCollect_; }
  void NumberOfInfoCollect(std::string_view text) { numberOfInfoCollect_ = text; }
  /// Full path of the record file.
  std::string GovFilename() const { return govFilename_; }
  void GovFilename(std::string_view text) { govFilename_ = text; }
  /// The person entering. A name that is longer than a record's `ContactName` (record_layout.h) fails the output.
  std::string EnterName() const { return enterName_; }
  void EnterName(std::string_view text) { enterName_ = text; }
  /// That person's title; the same holds for `ContactTitle`.
  std::string EnterTitle() const { return enterTitle_; }
  void EnterTitle(std::string_view text) { enterTitle_ = text; }
  /// 1: the payment is on hold and has no fixed date.
  uint8_t APHoldFlg() const { return apHoldFlg_; }
  /// Error 6 for a number that 8 bits do not hold.
  template <std::integral Number>
  void APHoldFlg(Number value) {
    if (!std::in_range<uint8_t>(+value))
      Raise(error_number::kOverflow);
    apHoldFlg_ = static_cast<uint8_t>(value);
  }
  /// Four characters that head each record of the payment.
  std::string SeqNumber() const { return seqNumber_; }
  void SeqNumber(std::string_view text) { seqNumber_ = text; }
  /// Read only, and always false: no screen asks for it.
  bool ShowGST58() const;
  /// Name offered on the donation screen.
  std::string BusinessName() const { return businessName_; }
  void BusinessName(std::string_view text) { businessName_ = text; }

  /// Shows the screen of a two-digit code and waits for the user. True: OK was chosen, and the records are in the
  /// file `GovFilename` or, with `WriteFile` not exactly True, in `PC4Records`. False: nothing was written.
  /// Raises with source "Fiscalon.ShowLevyraScreen": 0x80040001 "Invalid Screen Type" for an unknown code, 91
  /// without a forms toolkit, and whatever left the form.
  bool ShowLevyraScreen(std::string_view screenCode);

  /// True, and nothing else: records go to the file `GovFilename`. At first False.
  Boolean WriteFile() const { return writeFile_; }
  void WriteFile(Boolean value) { writeFile_ = value; }
  /// The records of the last screen that ended with OK and without a file. It is the screen's own collection:
  /// its next output empties it. Null where there was none.
  std::shared_ptr<PC4s> PC4Records() const { return pc4Records_; }
  void PC4Records(std::shared_ptr<PC4s> records) { pc4Records_ = std::move(records); }

  /// Turns the play-by-play log on (any value but 0) or off, for the whole process.
  static void PlayByPlayEnabled(Boolean value);
  /// The folder of the logs, for the whole process.
  static void MainPath(std::string_view text);
  /// The host's session number; its last three digits stand in lines of the error log. Error 6 beyond 32 bits.
  static void SessionNumber(double number);

 private:
  bool Launch(const LaunchRow& row);

  std::string zelmorNumber_;
  std::string compCode_;
  std::string compName_;
  std::string accountNumber_;
  std::string paidAmount_;
  std::string paidDate_;
  std::string numberOfInfoCollect_;
  std::string govFilename_;
  std::string enterName_;
  std::string enterTitle_;
  uint8_t apHoldFlg_ = 0;
  std::string seqNumber_;
  std::string businessName_;
  Boolean writeFile_;
  std::shared_ptr<PC4s> pc4Records_;
};

}  // namespace fiscalon
