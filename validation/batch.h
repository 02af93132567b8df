#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "core/platform/date.h"
#include "validation/batch_error.h"
#include "validation/byte_source.h"
#include "validation/fault.h"

/// Judges whole batches: a payments list and a file with the records of its payments, in the same order. Both
/// are read once, from start to end, in a memory that does not grow with them.
namespace fiscalon {

/// The verdict on one payment. The texts are in Windows-1252 and last for the call.
struct PaymentVerdict {
  std::string_view seq = {};     ///< the payment's `SeqNumber`
  std::string_view screen = {};  ///< its screen code
  /// Empty where the payment is good.
  std::string_view reason = {};
  /// Where each part of the reason lies, if the listener wants to know.
  std::span<const Fault> faults = {};
  /// The payment's lines as they lie in the record file, with what stands around the records.
  std::string_view lines = {};
  /// The line that they begin with, from 1; 0 where `faults` is empty.
  uint64_t line = 0;
  /// Its line in the payments list, from 1.
  uint64_t row = 0;

  /// Whether the payment is good.
  bool IsValid() const { return reason.empty(); }
};

/// How far a batch is, and at its end the counts.
struct BatchProgress {
  uint64_t payments = 0;  ///< judged so far
  uint64_t invalid = 0;   ///< of those, the bad ones
  /// Bytes of records that were judged, and of how many, where that is known.
  uint64_t bytes = 0;
  std::optional<uint64_t> totalBytes = {};  ///< nothing for a pipe
};

/// Whom a batch tells of its payments: one call after the other, in the order of the batch, from whatever
/// thread is at it. What a call throws ends the batch and comes out of `ValidateBatch`.
class BatchListener {
 public:
  virtual ~BatchListener() = default;

  /// Whether `OnPayment` is to be told of good payments too.
  virtual bool WantsValidPayments() const = 0;
  /// Whether the verdicts on bad payments are to tell where their faults lie.
  virtual bool WantsFaults() const { return false; }
  /// The verdict on a payment: on a bad one always, on a good one where `WantsValidPayments` said so.
  virtual void OnPayment(const PaymentVerdict& verdict) = 0;
  /// Called every few thousand payments.
  virtual void OnProgress(const BatchProgress& /*progress*/) {}
};

/// Judges every payment as `clsValidateAddInfo` would, as of today by the module's clock, on `jobs` threads, and
/// returns the counts. The listener's calls are the same for any number of threads. Throws `BatchError` where
/// a file can't be read, a line is no record or row, or the two files do not line up; it names the first
/// twenty such problems, up to the first place where the files part. Where a file was written to meanwhile, or the
/// module's clock was set back, it throws too, and no verdict counts.
///
/// The sources may be stretches of the two files, as validation/batch_part.h cuts them: lines count from the start of
/// the files then, and a header stands at the start of the payments list alone.
BatchProgress ValidateBatch(ByteSource& payments, ByteSource& records, unsigned jobs, BatchListener& listener);

}  // namespace fiscalon
