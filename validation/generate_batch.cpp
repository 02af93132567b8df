#include "validation/generate_batch.h"

#include "core/platform/runtime_error.h"
#include "core/records/field_values.h"
#include "core/records/record_composer.h"
#include "validation/batch_report.h"
#include "validation/payment_rows.h"
#include "validation/rule_sets.h"
#include "validation/trial_payments.h"

namespace fiscalon {

namespace {

void WriteRecords(std::ostream& records, const std::string& seq, const Draft& payment) {
  if (payment.hasPeriodRecord)
    records << QuotedLine(ComposeGovernmentFormat(seq, {.periodDueDate = payment.period}));
  for (const std::string& record : ComposeFreeFormats(seq, payment.slots)) records << QuotedLine(record);
}

}  // namespace

void GenerateBatch(const BatchPlan& plan, std::ostream& payments, std::ostream& records, std::ostream& planted) {
  constexpr uint64_t kSequences = 9999;
  constexpr size_t kSequenceWidth = FieldNamed(kRecordHead, "SeqNumber").Width();
  const RuleSet* const rules = RulesOf(plan.screen);
  if (rules == nullptr)
    Raise(error_number::kInvalidProcedureCall);
  const TrialRecipe& recipe = *rules->trial;
  Dice dice(plan.seed);
  payments << kPaymentsHeader << '\n';
  planted << kPlantedHeader << '\n';
  for (uint64_t row = 1; row <= plan.payments; ++row) {
    const std::string seq = Digits((row - 1) % kSequences + 1).substr(kValueWidth - kSequenceWidth);
    Draft payment = recipe.goodPayment(dice, plan.today);
    if (dice.Chance(plan.badRate)) {
      const Defect& defect = recipe.defects[static_cast<size_t>(dice.Below(recipe.defects.size()))];
      defect.Plant(payment);
      planted << row << ',' << seq << ',' << defect.name << ',' << CsvField(defect.reason) << '\n';
    }
    WriteRecords(records, seq, payment);
    payments << seq << ',' << plan.screen << ',' << payment.biller << ',' << payment.cents << '\n';
  }
}

}  // namespace fiscalon
