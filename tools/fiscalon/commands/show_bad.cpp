#include "tools/fiscalon/commands/show_bad.h"

#include <memory>

#include "core/platform/code_page.h"
#include "core/records/record_line.h"
#include "core/records/record_reader.h"
#include "tools/fiscalon/commands/validate_batch.h"
#include "tools/fiscalon/files/interrupt_watch.h"
#include "tools/fiscalon/files/progress_line.h"
#include "tools/fiscalon/files/terminal.h"
#include "tools/reading/record_taker.h"
#include "tools/reading/visible_text.h"
#include "validation/batch.h"

namespace fiscalon {
namespace {

/// The columns that a fault is about: those of the field's value, or none for a record as a whole.
RecordField PlaceOf(const Fault& fault, const ShownRecord& record) {
  if (record.kind == RecordKind::Government && fault.code == "not-a-period")
    return FieldNamed(kGovernmentLayout, "PeriodDueDate");
  const auto slots = CutFreeFormat(record.record);
  for (size_t i = 0; i < slots.size(); ++i)
    if (!fault.field.empty() && record.kind == RecordKind::FreeFormat && slots[i].fieldNum == fault.field)
      return kSlotValues[i];
  return {};
}

/// Prints the bad payments of a batch.
class BadPayments : public BatchListener {
 public:
  BadPayments(ShownOutput& output, const RecordPicks& picks) : output_(output), picks_(picks) {}

  bool WantsValidPayments() const override { return false; }
  bool WantsFaults() const override { return true; }

  void OnPayment(const PaymentVerdict& verdict) override {
    RecordTaker taker(FindLaunchRow(verdict.screen), verdict.line);
    for (std::string_view lines = verdict.lines; !lines.empty();) {
      taker.Take(TakeRecordLine(lines), 0, record_);
      for (const Fault& fault : verdict.faults)
        if (fault.line == record_.number)
          AddValidatesWord(record_.problems, PlaceOf(fault, record_), fault.message);
      if (picks_.Hold(record_))
        output_.Add(record_);
    }
  }

  void OnProgress(const BatchProgress& progress) override {
    if (IsInterrupted())
      throw CommandError("interrupted");
    output_.Flush();
    if (tellsProgress_)
      progress_.Show(progress);
  }

 private:
  ShownOutput& output_;
  const RecordPicks& picks_;
  const bool tellsProgress_ = !TerminalWidth();
  ProgressLine progress_;
  ShownRecord record_;
};

}  // namespace

ExitStatus ShowBadPayments(const ShowBadOptions& options, const Context& context) {
  const RecordPicks picks(options.picks);
  return OnBatchFiles(options.payments, options.records, [&](ByteSource& payments, ByteSource& records) {
    const auto output = ShownOutput::Of(options.form, records.Name(), nullptr, context);
    output->Begin();
    try {
      BadPayments listener(*output, picks);
      const BatchProgress counts = ValidateBatch(payments, records, UsualJobs(), listener);
      output->Say(Counted(counts.payments, "payment") + ", " + std::to_string(counts.invalid) + " invalid");
      output->End(ShownOutput::Picked::Some);
      return counts.invalid == 0 ? ExitStatus::Done : ExitStatus::Invalid;
    } catch (const std::exception&) {
      output->Flush();
      throw;
    }
  });
}

}  // namespace fiscalon
