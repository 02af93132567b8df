#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/fiscalon/files/progress_line.h"
#include "tools/fiscalon/files/whole_file.h"
#include "validation/batch.h"
#include "validation/batch_report.h"

namespace fiscalon {

/// Where the outcome of a batch goes: file names as the user gives them, empty for what is not wanted.
struct BatchOutputs {
  /// A row for each payment, and one for each fault.
  std::string report = {};
  std::string faults = {};
  /// The lines of the good and of the bad payments.
  std::string good = {};
  std::string bad = {};
  /// Report and faults as JSON lines, not as CSV.
  bool asJson = false;
  /// Whether the CSV files begin with their header: the first part's do.
  bool withHeader = true;
  /// The bad payment that ends the batch, counted from 1; 0 for none.
  uint64_t mostBad = 0;
};

/// What ends a batch that has more bad payments than anyone wants to see.
struct EnoughBad {
  /// The line of the payments list where the last of them stands.
  uint64_t row = 0;
};

/// Takes down the verdicts of a batch: writes the files, counts the reasons, shows how far the batch is.
class BatchDesk : public BatchListener {
 public:
  /// Opens the files; none of them can be an input, "-" for standard input, or one of the others.
  BatchDesk(const BatchOutputs& outputs, const std::vector<std::string>& inputs);

  bool WantsValidPayments() const override { return report_ || good_; }
  bool WantsFaults() const override { return faults_ != nullptr; }
  /// Throws `EnoughBad` behind the last payment that is to be told.
  void OnPayment(const PaymentVerdict& verdict) override;
  /// Throws `CommandError` after an interrupt.
  void OnProgress(const BatchProgress& progress) override;

  /// Puts all files into their places, or none.
  void Commit();
  /// The same for a batch that ended early: what tells of the whole batch is not there, only the faults are. Returns
  /// the names of the files that are missed.
  std::string CommitFaults();

  /// Takes the progress line away.
  void EndProgress() { progressLine_.reset(); }
  const ReasonCounts& Reasons() const { return reasons_; }
  /// Whether one of the files is standard output, so that nothing else may stand there.
  bool TakesStandardOutput() const;

 private:
  /// A file, and what is to be written to it next.
  struct Output {
    /// Where all is good, no bad record is what was asked for.
    Output(const std::string& given, const std::vector<std::string>& inputs)
        : name(given), file(given, inputs, WholeFile::Older::Replaced, WholeFile::Empty::Allowed) {}

    std::string name;
    WholeFile file;
    std::string text = {};
  };

  std::unique_ptr<Output> Open(const std::string& name, const std::vector<std::string>& inputs);
  std::vector<Output*> All() const;
  void Write();

  const bool asJson_;
  const uint64_t mostBad_;
  std::unique_ptr<Output> report_;
  std::unique_ptr<Output> faults_;
  std::unique_ptr<Output> good_;
  std::unique_ptr<Output> bad_;
  uint64_t badSoFar_ = 0;
  ReasonCounts reasons_;
  std::optional<ProgressLine> progressLine_ = std::optional<ProgressLine>(std::in_place);
};

}  // namespace fiscalon
