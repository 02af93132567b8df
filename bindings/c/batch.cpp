#include "validation/batch.h"

#include <algorithm>
#include <memory>
#include <thread>

#include "bindings/c/answer.h"
#include "bindings/c/verdicts.h"
#include "core/platform/code_page.h"
#include "validation/batch_part.h"

/// Whole batches.
namespace fiscalon::c {

namespace {

fiscalon_batch_counts CountsOf(const BatchProgress& progress) {
  return {.size = sizeof(fiscalon_batch_counts),
          .payments = progress.payments,
          .invalid = progress.invalid,
          .bytes = progress.bytes,
          .total_bytes = progress.totalBytes.value_or(0)};
}

/// Tells the host of many verdicts at a time.
class HostListener final : public BatchListener {
 public:
  explicit HostListener(const fiscalon_batch& host) : host_(host) {}

  bool WantsValidPayments() const override { return host_.on_verdicts != nullptr && host_.wants_valid != 0; }
  bool WantsFaults() const override { return host_.on_verdicts != nullptr && host_.wants_faults != 0; }

  void OnPayment(const PaymentVerdict& verdict) override {
    if (host_.on_verdicts == nullptr)
      return;
    const Verdicts::Told told = {.row = verdict.row,
                                 .line = verdict.line,
                                 .seq = verdict.seq,
                                 .screen = verdict.screen,
                                 .reason = verdict.reason,
                                 .lines = host_.wants_lines != 0 ? verdict.lines : std::string_view(),
                                 .faults = verdict.faults};
    if (!verdicts_.Fits(told))
      TellVerdicts();
    verdicts_.Add(told);
  }

  void OnProgress(const BatchProgress& progress) override {
    TellVerdicts();
    const fiscalon_batch_counts counts = CountsOf(progress);
    CallHost("on_progress", host_.on_progress, host_.context, &counts);
  }

  void TellVerdicts() {
    const auto told = verdicts_.Get();
    if (!told.empty())
      CallHost("on_verdicts", host_.on_verdicts, host_.context, told.data(), told.size());
    verdicts_.Clear();
  }

  void TellProblems(const BatchError& error) const {
    for (const BatchProblem& problem : error.Problems())
      CallHost("on_problem", host_.on_problem, host_.context, problem.file.c_str(), problem.line,
               ToUtf8(problem.reason).c_str());
  }

 private:
  const fiscalon_batch& host_;
  Verdicts verdicts_;
};

std::unique_ptr<ByteSource> SourceOf(const char* path, const void* bytes, size_t size, const char* usualName) {
  if (bytes != nullptr)
    return ByteSource::Of({static_cast<const char*>(bytes), size}, path == nullptr ? usualName : path);
  if (path == nullptr)
    Fail(FISCALON_ERROR_NULL_POINTER, std::string("Neither a path nor bytes are given of the ") + usualName + ".");
  return ByteSource::Open(path);
}

unsigned JobsOf(const fiscalon_batch& host) {
  constexpr unsigned kMost = 256;
  if (host.jobs > kMost)
    Fail(FISCALON_ERROR_INVALID_PROCEDURE_CALL, "A batch is judged by 256 threads at most.");
  return host.jobs == 0 ? std::clamp(std::thread::hardware_concurrency(), 1U, kMost) : host.jobs;
}

BatchProgress Judge(const fiscalon_batch& host, HostListener& listener) {
  const auto payments = SourceOf(host.payments_path, host.payments_bytes, host.payments_size, "payments");
  const auto records = SourceOf(host.records_path, host.records_bytes, host.records_size, "records");
  const unsigned jobs = JobsOf(host);
  if (host.parts == 0 && host.part == 0)
    return ValidateBatch(*payments, *records, jobs, listener);
  if (host.part < 1 || host.part > host.parts || host.parts > 1'000'000)
    Fail(FISCALON_ERROR_INVALID_PROCEDURE_CALL, "A part is one from 1 to the number of parts, a million at most.");
  const BatchStretches stretches = CutPart(*payments, *records, {.number = host.part, .of = host.parts}, listener);
  return ValidateBatch(*stretches.payments, *stretches.records, jobs, listener);
}

}  // namespace

}  // namespace fiscalon::c

using namespace fiscalon::c;

extern "C" int fiscalon_validate_batch(const fiscalon_batch* batch, fiscalon_batch_counts* counts) {
  return AnswerAnyTime([&] {
    ExpectStruct(batch);
    if (counts != nullptr) {
      ExpectStruct(counts);
      *counts = CountsOf({});
    }
    const BatchTurn running;
    HostListener listener(*batch);
    try {
      const fiscalon::BatchProgress done = Judge(*batch, listener);
      listener.TellVerdicts();
      if (counts != nullptr)
        *counts = CountsOf(done);
    } catch (const fiscalon::BatchError& error) {
      listener.TellProblems(error);
      throw;
    }
  });
}
