#include "validation/batch.h"

#include <algorithm>
#include <cassert>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "validation/clock_watch.h"
#include "validation/judge_payment.h"
#include "validation/payment_rows.h"
#include "validation/quick_judge.h"
#include "validation/record_block.h"
#include "validation/turnstile.h"

namespace fiscalon {

namespace {

constexpr size_t kMostProblems = 20;

/// What a thread works on: the payments of one block. Used again for block after block.
struct Portion {
  uint64_t ticket = 0;
  std::string recordStorage;
  std::string_view recordBytes;
  RecordBlock records;
  std::string rowStorage;
  std::string_view rowBytes;
  size_t rowCount = 0;
  uint64_t firstRow = 0;
  RowReader rows;

  /// The screens of all payments, if the listener wants all.
  std::vector<std::string> screens;
  struct Failure {
    size_t payment = 0;
    std::string screen;
    std::string reason;
    /// Their lines count from the first of the payment; where the listener wants none, there are none.
    std::vector<Fault> faults;
  };
  std::vector<Failure> failures;
  size_t judged = 0;
  std::vector<LineProblem> rowProblems;
  /// Why the records can't be read on, if they can't; its line counts from the first of the block.
  std::optional<BatchProblem> unreadable;
  /// Where the two files part, if they do: at a line of the records, or at a row that has none.
  std::optional<LineProblem> partingRecord;
  std::optional<LineProblem> partingRow;

  bool IsLast() const { return unreadable || partingRecord || partingRow; }
};

class BatchRun {
 public:
  BatchRun(ByteSource& payments, ByteSource& records, BatchListener& listener)
      : paymentsName_(payments.Name()),
        recordsName_(records.Name()),
        recordFeed_(records),
        rowFeed_(payments),
        records_(records),
        listener_(listener),
        wantsAll_(listener.WantsValidPayments()),
        wantsFaults_(listener.WantsFaults()) {
    progress_.totalBytes = records.Size();
  }

  BatchProgress Run(unsigned jobs) {
    if (rowFeed_.IsAtStart())
      rowFeed_.TakeHeader();
    std::vector<std::jthread> threads;
    for (unsigned extra = 1; extra < jobs; ++extra) threads.emplace_back([this] { Work(); });
    Work();
    threads.clear();
    if (failure_)
      std::rethrow_exception(failure_);
    if (!problems_.empty())
      throw BatchError(std::move(problems_));
    return progress_;
  }

 private:
  void Work() {
    try {
      Portion portion;
      while (TakeRecords(portion) && TakeRows(portion) && Hand(portion)) {
      }
    } catch (...) {
      Stop(std::current_exception());
    }
  }

  void Stop(std::exception_ptr failure) {
    const std::lock_guard lock(taking_);
    if (!failure_)
      failure_ = std::move(failure);
    ended_ = true;
    takingRows_.Close();
    handing_.Close();
  }

  /// Takes the next block and cuts it. The block behind the last is empty; there is none behind that.
  bool TakeRecords(Portion& portion) {
    {
      const std::lock_guard lock(taking_);
      if (ended_)
        return false;
      portion.ticket = nextTicket_++;
      ReadRecords(portion, [&] { return recordFeed_.Next(portion.recordStorage); });
      ended_ = portion.recordBytes.empty();
    }
    if (!portion.unreadable)
      ReadRecords(portion, [&] { return records_.Load(portion.recordBytes, portion.recordStorage); });
    portion.records.Cut(portion.recordBytes, judge_.Day());
    return true;
  }

  /// Takes bytes of records, and notes why they can't be read, if they can't.
  template <typename Read>
  static void ReadRecords(Portion& portion, const Read& read) {
    try {
      portion.recordBytes = read();
    } catch (const BatchError& error) {
      portion.recordBytes = {};
      portion.unreadable = error.Problems().front();
    }
  }

  /// Takes a row for each payment of the block, and judges them.
  bool TakeRows(Portion& portion) {
    portion.failures.clear();
    portion.rowProblems.clear();
    portion.judged = 0;
    if (portion.unreadable)
      return true;
    if (!takingRows_.Enter(portion.ticket))
      return false;
    // Behind the last block no row is left.
    portion.rowCount = portion.recordBytes.empty() ? 1 : portion.records.PaymentCount();
    portion.firstRow = rowFeed_.Line();
    portion.rowBytes = rowFeed_.Take(portion.rowCount, portion.rowStorage);
    takingRows_.Leave();
    Judge(portion);
    return true;
  }

  void Judge(Portion& portion) const {
    portion.rows.Read(portion.rowBytes);
    if (wantsAll_)
      portion.screens.resize(portion.rowCount);
    std::string reason;
    for (size_t i = 0; i < portion.rowCount; ++i) {
      if (!IsGoodAsFound(portion, i) && !JudgeNext(portion, i, reason))
        return;
    }
    portion.judged = portion.rowCount;
    if (portion.rowCount < portion.records.PaymentCount())
      NoteParting(portion, portion.rowCount, {});
  }

  /// Whether a payment was found good when the block was cut, for just what its row says. False reads no row.
  bool IsGoodAsFound(Portion& portion, size_t payment) const {
    if (payment >= portion.records.PaymentCount())
      return false;
    const auto& [rules, cents] = portion.records.FoundGood(payment);
    if (rules == nullptr || !portion.rows.NextIs(portion.records.Sequence(payment), rules->screenCode, cents))
      return false;
    assert(PassEveryTest(*rules, portion.records.Records(payment), {.paymentCents = cents, .day = &judge_.Day()}));
    if (wantsAll_)
      portion.screens[payment] = rules->screenCode;
    return true;
  }

  /// Judges a payment by whatever its row says. False where the two files part.
  bool JudgeNext(Portion& portion, size_t payment, std::string& reason) const {
    PaymentRow row;
    if (!portion.rows.NextQuickly(row) && !TakeRow(portion, payment, row))
      return true;
    if (payment == portion.records.PaymentCount() || !portion.records.IsSequence(payment, row.seq)) {
      NoteParting(portion, payment, row.seq);
      return false;
    }
    const PaymentFigures figures{row.screen, row.biller, row.cents};
    const auto records = portion.records.Records(payment);
    if (!IsGoodQuickly(figures, records, judge_.Day()) && !judge_.Judge(figures, records, reason))
      portion.failures.push_back({payment, std::string(row.screen), reason,
                                  wantsFaults_ ? judge_.FaultsOf(figures, records) : std::vector<Fault>()});
    if (wantsAll_)
      portion.screens[payment] = row.screen;
    return true;
  }

  /// Reads any row, and notes what is wrong with it. False where not even its payment is known.
  static bool TakeRow(Portion& portion, size_t payment, PaymentRow& row) {
    std::string problem = portion.rows.Next(row);
    if (problem.empty())
      return true;
    portion.rowProblems.push_back({payment, std::move(problem)});
    return !row.seq.empty();
  }

  /// The payment of a row, and that of the records at the same place, are not the same one.
  void NoteParting(Portion& portion, size_t payment, std::string_view seq) const {
    portion.judged = payment;
    if (payment == portion.records.PaymentCount()) {
      portion.partingRow = {payment, "payment " + Quoted(seq) + " has no records"};
      return;
    }
    const std::string found = "payment " + Quoted(portion.records.Sequence(payment));
    const std::string reason = payment == portion.rowCount
                                   ? found + " is not in the payments list, which ends before it"
                                   : found + " stands where the payments list has " + Quoted(seq) + " (line " +
                                         std::to_string(portion.firstRow + payment) + ")";
    portion.partingRecord = {portion.records.FirstLine(payment), reason};
  }

  /// Hands the verdicts of a portion to the listener, after those of all portions before it.
  bool Hand(Portion& portion) {
    if (!handing_.Enter(portion.ticket))
      return false;
    Note(portion);
    if (problems_.empty())
      Tell(portion);
    linesDone_ += portion.records.LineCount();
    const bool goesOn = !portion.IsLast() && problems_.size() < kMostProblems;
    if (!goesOn)
      Stop(nullptr);
    handing_.Leave();
    return goesOn;
  }

  void Note(const Portion& portion) {
    const auto note = [&](const std::string& file, uint64_t firstLine, const LineProblem& problem) {
      if (problems_.size() < kMostProblems)
        problems_.push_back({file, firstLine + problem.line, problem.reason});
    };
    for (const LineProblem& problem : portion.records.Problems()) note(recordsName_, FirstLine(), problem);
    for (const LineProblem& problem : portion.rowProblems) note(paymentsName_, portion.firstRow, problem);
    if (portion.partingRecord)
      note(recordsName_, FirstLine(), *portion.partingRecord);
    if (portion.partingRow)
      note(paymentsName_, portion.firstRow, *portion.partingRow);
    if (portion.unreadable)
      note(recordsName_, portion.unreadable->line == 0 ? 0 : FirstLine() - 1,
           {static_cast<size_t>(portion.unreadable->line), portion.unreadable->reason});
  }

  /// The line that the portion whose turn it is begins with, from 1. What stands before a stretch of a file is counted
  /// only when this is asked for the first time, since a good stretch never asks.
  uint64_t FirstLine() {
    if (!linesBefore_)
      linesBefore_ = records_.LinesBefore();
    return *linesBefore_ + linesDone_ + 1;
  }

  void Tell(Portion& portion) {
    auto failure = portion.failures.begin();
    for (size_t i = 0; wantsAll_ && i < portion.judged; ++i) {
      const bool failed = failure != portion.failures.end() && failure->payment == i;
      if (failed)
        TellFailure(portion, *failure++);
      else
        listener_.OnPayment(VerdictOn(portion, i, portion.screens[i]));
    }
    for (; failure != portion.failures.end(); ++failure) TellFailure(portion, *failure);
    progress_.payments += portion.judged;
    progress_.invalid += portion.failures.size();
    progress_.bytes += portion.recordBytes.size();
    listener_.OnProgress(progress_);
  }

  void TellFailure(const Portion& portion, Portion::Failure& failure) {
    PaymentVerdict verdict = VerdictOn(portion, failure.payment, failure.screen);
    if (!failure.faults.empty()) {
      verdict.line = FirstLine() + portion.records.FirstLine(failure.payment);
      for (Fault& fault : failure.faults) fault.line += verdict.line - 1;
    }
    verdict.reason = failure.reason;
    verdict.faults = failure.faults;
    listener_.OnPayment(verdict);
  }

  static PaymentVerdict VerdictOn(const Portion& portion, size_t payment, std::string_view screen) {
    return {.seq = portion.records.Sequence(payment),
            .screen = screen,
            .lines = portion.records.LinesOf(payment, portion.recordBytes),
            .row = portion.firstRow + payment};
  }

  const std::string paymentsName_;
  const std::string recordsName_;
  const PaymentJudge judge_;

  std::mutex taking_;
  RecordFeed recordFeed_;
  uint64_t nextTicket_ = 0;
  bool ended_ = false;
  std::exception_ptr failure_;

  Turnstile takingRows_;
  RowFeed rowFeed_;

  Turnstile handing_;
  const ByteSource& records_;
  BatchListener& listener_;
  const bool wantsAll_;
  const bool wantsFaults_;
  /// How many lines of the records were told of.
  uint64_t linesDone_ = 0;
  std::optional<uint64_t> linesBefore_;
  std::vector<BatchProblem> problems_;
  BatchProgress progress_;
};

}  // namespace

BatchProgress ValidateBatch(ByteSource& payments, ByteSource& records, unsigned jobs, BatchListener& listener) {
  const ClockWatch clock;
  const BatchProgress counts = BatchRun(payments, records, listener).Run(jobs);
  payments.RefuseChange();
  records.RefuseChange();
  clock.RefuseSettingBack();
  return counts;
}

}  // namespace fiscalon
