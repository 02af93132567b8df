#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "core/boolean.h"
#include "core/records/pc4_records.h"

namespace fiscalon {

/// Checks the records of one payment without a screen, for payments that arrive in bulk: screen codes "03"
/// (source deductions of the Canada Revenue Agency) and "20" (of Revenue Quebec). All texts are in
/// Windows-1252. For whole batches see validation/batch.h.
class clsValidateAddInfo {
 public:
  /// The screen whose rules are to be met: "03" or "20".
  std::string ScreenCode() const { return screenCode_; }
  void ScreenCode(std::string_view text) { screenCode_ = text; }
  /// Kept for the host; no rule looks at it.
  std::string NumberOfFields() const { return numberOfFields_; }
  void NumberOfFields(std::string_view text) { numberOfFields_ = text; }
  /// Screen "20" asks biller "001052" alone for a remittance type.
  std::string BillerCode() const { return billerCode_; }
  void BillerCode(std::string_view text) { billerCode_ = text; }
  /// Kept for the host; no rule looks at it.
  std::string BillerName() const { return billerName_; }
  void BillerName(std::string_view text) { billerName_ = text; }
  /// Kept for the host; no rule looks at it.
  std::string PaymentDate() const { return paymentDate_; }
  void PaymentDate(std::string_view text) { paymentDate_ = text; }
  /// The amount to be paid. Written in cents ("12345"), read back in dollars ("123.45"). A text that begins
  /// with no number is 0. Error 6 for a number beyond all floats.
  std::string PaymentAmount() const { return paymentAmount_; }
  void PaymentAmount(std::string_view cents);
  /// The records to check. Null until the host sets them, which `IsInfoValid` reports as error 91.
  std::shared_ptr<PC4s> PC4Records() const { return pc4Records_; }
  void PC4Records(std::shared_ptr<PC4s> records) { pc4Records_ = std::move(records); }
  /// Turns the play-by-play log on (any value but 0) or off, for the whole process.
  static void PlayByPlayEnabled(Boolean value);
  /// Every failure that the last check found, ", " between them; empty where there was none.
  std::string InvalidReason() const { return invalidReason_; }
  void InvalidReason(std::string_view text) { invalidReason_ = text; }
  /// The records as a check cuts them into fields. A check replaces what a host sets here, and leaves null,
  /// unless an error ended it: then they hold what had been cut.
  std::shared_ptr<clsPC4GovFormats> PC4GovFormatRecords() const { return govFormatRecords_; }
  void PC4GovFormatRecords(std::shared_ptr<clsPC4GovFormats> records) { govFormatRecords_ = std::move(records); }
  /// The same for the slots of "F" records.
  std::shared_ptr<clsPC4FreeFormats> PC4FreeFormatRecords() const { return freeFormatRecords_; }
  void PC4FreeFormatRecords(std::shared_ptr<clsPC4FreeFormats> records) { freeFormatRecords_ = std::move(records); }

  /// Whether the records pass all rules of `ScreenCode`; `InvalidReason` tells the rest. A run-time error in a
  /// rule is a reason, "Error <number> - <description>", and a line of the error log; one in writing that log
  /// is raised to the host.
  bool IsInfoValid();

 private:
  bool Judge(std::span<const std::string_view> records, std::string& reason) const;
  bool ValidateByRules(const struct RuleSet& rules, std::span<const std::string_view> records,
                       std::string& reason) const;
  void CutWorkingRecords();

  std::string screenCode_;
  std::string numberOfFields_;
  std::string billerCode_;
  std::string billerName_;
  std::string paymentDate_;
  std::string paymentAmount_;
  /// `paymentAmount_` as a number, and as cents where it is whole cents.
  double dollars_ = 0;
  uint64_t cents_ = 0;
  std::shared_ptr<PC4s> pc4Records_;
  std::string invalidReason_;
  std::shared_ptr<clsPC4GovFormats> govFormatRecords_;
  std::shared_ptr<clsPC4FreeFormats> freeFormatRecords_;
};

}  // namespace fiscalon
