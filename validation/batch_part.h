#pragma once

#include <cstdint>
#include <memory>

#include "validation/batch.h"
#include "validation/byte_source.h"

namespace fiscalon {

/// One of the parts that a batch can be judged in, from 1.
struct BatchPart {
  uint64_t number = 1;
  uint64_t of = 1;
};

/// What a part has of the two files. Points into them.
struct BatchStretches {
  std::unique_ptr<ByteSource> payments;
  std::unique_ptr<ByteSource> records;
};

/// Cuts one part out of a batch: about the same bytes of the records for each, and the rows of the payments that begin
/// in them. The parts one after the other are the batch, each row and each line once, and some may be empty. Where the
/// parts are all judged without a `BatchError`, their reports one after the other are that of the batch.
///
/// The records are cut where a payment begins; the row that goes with it is found in the list by the sequence numbers
/// of the payments behind the cut. Where they come more than once, as in long batches, two witnesses must agree on the
/// place: the payments of the right rows are good ones, and the rows before them need about the bytes before the cut.
/// Where they do not, the payments before the cut are counted. So the list is read as a whole, and of the records
/// little but the part itself, unless they must be counted.
///
/// Both files must stay (`ByteSource::Stays`) or be empty, and be unread; otherwise throws `BatchError`, as for a list
/// without its header. Telling takes its time where payments are counted: the listener is called on the way, with
/// nothing done yet.
BatchStretches CutPart(ByteSource& payments, ByteSource& records, const BatchPart& part, BatchListener& listener);

}  // namespace fiscalon
