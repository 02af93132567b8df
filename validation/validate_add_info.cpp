#include "validation/validate_add_info.h"

#include <array>
#include <vector>

#include "core/logging.h"
#include "core/module_state.h"
#include "core/records/record_reader.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "validation/expectation.h"
#include "validation/rule_sets.h"

namespace fiscalon {

namespace {

/// The records of a collection as views, without an allocation for a payment of the usual size.
class RecordViews {
 public:
  explicit RecordViews(const PC4s& records) {
    const auto count = static_cast<size_t>(records.Count());
    std::string_view* views = few_.data();
    if (count > few_.size()) {
      many_.resize(count);
      views = many_.data();
    }
    views_ = {views, count};
    for (const PC4& record : records) *views++ = record.DescriptionView();
  }

  std::span<const std::string_view> All() const { return views_; }

 private:
  std::array<std::string_view, 8> few_;
  std::vector<std::string_view> many_;
  std::span<const std::string_view> views_;
};

/// What a handler does: logs the error under the routine's name. The line of the error is not known, so it
/// is 0.
void Log(const RuntimeError& error, std::string_view routine) {
  ShowError(error.Number(), error.Description(), "clsValidateAddInfo." + std::string(routine) + " at line 0",
            Silent::Yes);
}

}  // namespace

void clsValidateAddInfo::PaymentAmount(std::string_view cents) {
  paymentAmount_ = DollarsFromCents(cents);
  dollars_ = LeadingNumber(paymentAmount_);
  cents_ = CentsOfDollars(dollars_);
}

void clsValidateAddInfo::PlayByPlayEnabled(Boolean value) {
  EnablePlayByPlay(value);
}

bool clsValidateAddInfo::IsInfoValid() {
  try {
    WritePlayByPlay("clsValidateAddInfo - IsInfoValid");
    if (!pc4Records_)
      Raise(error_number::kObjectNotSet);
    std::string reason;
    const bool valid = Judge(RecordViews(*pc4Records_).All(), reason);
    invalidReason_ = std::move(reason);
    // The rules judged the records where they lie: the working collections would be empty again by now.
    govFormatRecords_.reset();
    freeFormatRecords_.reset();
    return valid;
  } catch (const RuntimeError& error) {
    CutWorkingRecords();
    invalidReason_ = ErrorReason(error);
    Log(error, "IsInfoValid");
    return false;
  }
}

bool clsValidateAddInfo::Judge(std::span<const std::string_view> records, std::string& reason) const {
  if (const RuleSet* const rules = RulesOf(screenCode_))
    return ValidateByRules(*rules, records, reason);
  reason = kUnsupportedScreen;
  return false;
}

bool clsValidateAddInfo::ValidateByRules(const RuleSet& rules, std::span<const std::string_view> records,
                                         std::string& reason) const {
  const bool logsEntries = TheModule().playByPlayEnabled != 0;
  try {
    if (logsEntries)
      WritePlayByPlay("clsValidateAddInfo - " + std::string(rules.routine));
    const JudgingDay day = JudgingDayOf(Today());
    const Expectation expected{.paymentAmount = dollars_,
                               .paymentCents = cents_,
                               .billerCode = billerCode_,
                               .day = &day,
                               .logging = logsEntries ? Logging::Entries : Logging::Errors};
    return JudgeRecords(rules, records, expected, reason);
  } catch (const RuntimeError& error) {
    reason = ErrorReason(error);
    Log(error, rules.routine);
    return false;
  }
}

void clsValidateAddInfo::CutWorkingRecords() {
  govFormatRecords_ = std::make_shared<clsPC4GovFormats>();
  freeFormatRecords_ = std::make_shared<clsPC4FreeFormats>();
  if (pc4Records_)
    CutRecords(*pc4Records_, *govFormatRecords_, *freeFormatRecords_);
}

}  // namespace fiscalon
