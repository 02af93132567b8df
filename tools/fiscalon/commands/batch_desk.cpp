#include "tools/fiscalon/commands/batch_desk.h"

#include "tools/fiscalon/files/program_end.h"

namespace fiscalon {
namespace {

/// An option and what it was given.
struct NamedOutput {
  std::string_view option = {};
  const std::string& name;
};

void RefuseOneFileForTwo(const BatchOutputs& outputs) {
  const NamedOutput named[] = {
      {"--report", outputs.report}, {"--faults", outputs.faults}, {"--good", outputs.good}, {"--bad", outputs.bad}};
  for (const NamedOutput& one : named) {
    for (const NamedOutput& other : named) {
      if (&one < &other && !one.name.empty() && !other.name.empty() && WholeFile::IsSamePlace(one.name, other.name))
        throw UsageError(std::string(one.option).append(" and ").append(other.option).append(" name one file"));
    }
  }
}

}  // namespace

BatchDesk::BatchDesk(const BatchOutputs& outputs, const std::vector<std::string>& inputs)
    : asJson_(outputs.asJson), mostBad_(outputs.mostBad) {
  RefuseOneFileForTwo(outputs);
  report_ = Open(outputs.report, inputs);
  faults_ = Open(outputs.faults, inputs);
  good_ = Open(outputs.good, inputs);
  bad_ = Open(outputs.bad, inputs);
  if (!outputs.withHeader || asJson_)
    return;
  if (report_)
    report_->text.append(kReportHeader).append("\n");
  if (faults_)
    faults_->text.append(kFaultsHeader).append("\n");
}

std::unique_ptr<BatchDesk::Output> BatchDesk::Open(const std::string& name, const std::vector<std::string>& inputs) {
  return name.empty() ? nullptr : std::make_unique<Output>(name, inputs);
}

void BatchDesk::OnPayment(const PaymentVerdict& verdict) {
  if (report_)
    (asJson_ ? AppendReportJson : AppendReportRow)(report_->text, verdict);
  if (verdict.IsValid()) {
    if (good_)
      good_->text += verdict.lines;
    return;
  }
  reasons_.Add(verdict.reason);
  if (faults_)
    (asJson_ ? AppendFaultJson : AppendFaultRows)(faults_->text, verdict);
  if (bad_)
    bad_->text += verdict.lines;
  if (++badSoFar_ == mostBad_)
    throw EnoughBad{verdict.row};
}

void BatchDesk::OnProgress(const BatchProgress& progress) {
  if (IsInterrupted())
    throw CommandError("interrupted");
  Write();
  progressLine_->Show(progress);
}

std::vector<BatchDesk::Output*> BatchDesk::All() const {
  std::vector<Output*> all;
  for (Output* const each : {report_.get(), faults_.get(), good_.get(), bad_.get()}) {
    if (each != nullptr)
      all.push_back(each);
  }
  return all;
}

void BatchDesk::Write() {
  for (Output* const each : All()) {
    each->file.Write(each->text);
    each->text.clear();
  }
}

void BatchDesk::Commit() {
  Write();
  std::vector<WholeFile*> files;
  for (Output* const each : All()) files.push_back(&each->file);
  WholeFile::Commit(files);
}

std::string BatchDesk::CommitFaults() {
  if (faults_) {
    faults_->file.Write(faults_->text);
    faults_->file.Commit();
  }
  std::string missed;
  for (const Output* const each : All()) {
    if (each != faults_.get())
      missed.append(missed.empty() ? "" : ", ").append(each->name);
  }
  return missed;
}

bool BatchDesk::TakesStandardOutput() const {
  for (const Output* const each : All()) {
    if (each->file.IsStandardOutput())
      return true;
  }
  return false;
}

}  // namespace fiscalon
