#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/platform/date.h"
#include "validation/batch_error.h"
#include "validation/byte_source.h"

/// Judges whole batches: a payments list and a file with the records of its payments, in the same order. Both
/// are read once, from start to end, in a memory that does not grow with them.
namespace fiscalon {

/// The verdict on one payment. The texts are in Windows-1252 and last for the call.
struct PaymentVerdict {
  std::string_view seq = {};
  std::string_view screen = {};
  /// Empty where the payment is good.
  std::string_view reason = {};

  bool IsValid() const { return reason.empty(); }
};

struct BatchProgress {
  uint64_t payments = 0;
  uint64_t invalid = 0;
  /// Bytes of records that were judged, and of how many, where that is known.
  uint64_t bytes = 0;
  std::optional<uint64_t> totalBytes = {};
};

/// Whom a batch tells of its payments: one call after the other, in the order of the batch, from whatever
/// thread is at it. What a call throws ends the batch and comes out of `ValidateBatch`.
class BatchListener {
 public:
  virtual ~BatchListener() = default;

  /// Whether `OnPayment` is to be told of good payments too.
  virtual bool WantsValidPayments() const = 0;
  virtual void OnPayment(const PaymentVerdict& verdict) = 0;
  /// Called every few thousand payments.
  virtual void OnProgress(const BatchProgress& /*progress*/) {}
};

/// Judges every payment as `clsValidateAddInfo` would, as of today by the module's clock, on `jobs` threads, and
/// returns the counts. The listener's calls are the same for any number of threads. Throws `BatchError` where
/// a file can't be read, a line is no record or row, or the two files do not line up; it names the first
/// twenty such problems, up to the first place where the files part.
BatchProgress ValidateBatch(ByteSource& payments, ByteSource& records, unsigned jobs, BatchListener& listener);

}  // namespace fiscalon
