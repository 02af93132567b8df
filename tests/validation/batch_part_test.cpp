// A batch judged in parts: the parts' reports one after the other are that of the whole, and a part reads little more
// than its own.

#include "validation/batch_part.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <utility>

#include "core/records/record_composer.h"
#include "tests/support/bulk_payment.h"
#include "tests/support/module_test.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"
#include "validation/batch_report.h"
#include "validation/generate_batch.h"

namespace fiscalon {
namespace {

struct PartedBatch {
  std::string payments = "seq,screen,biller,amount\n";
  std::string records = {};

  /// A payment with so many records beside its "T" record.
  void Add(const std::string& seq, const std::string& amount = "12345", int more = 1) {
    payments += seq + ",03,," + amount + "\n";
    records += QuotedLine(Ruled("PC4" + seq + "T"));
    AddRecords(seq, "12345", more);
  }
  /// So many "F" records of a payment, each of five digits of cents.
  void AddRecords(const std::string& seq, const std::string& amount, int count) {
    for (int record = 0; record < count; ++record)
      records += QuotedLine(ComposeFreeFormat(seq, {{"01", std::string(13, '0') + amount}}));
  }
  void Append(const PartedBatch& other) {
    payments += other.payments.substr(other.payments.find('\n') + 1);
    records += other.records;
  }
};

/// Keeps the report, the faults and the split records, and counts how often it was told that payments are counted.
class Outcome : public BatchListener {
 public:
  bool WantsValidPayments() const override { return true; }
  bool WantsFaults() const override { return true; }
  void OnPayment(const PaymentVerdict& verdict) override {
    AppendReportRow(report, verdict);
    AppendFaultRows(faults, verdict);
    rows += std::to_string(verdict.row) + " ";
    (verdict.IsValid() ? good : bad) += verdict.lines;
  }
  void OnProgress(const BatchProgress& progress) override { blocksCounted += progress.bytes == 0 ? 1 : 0; }

  friend bool operator==(const Outcome& a, const Outcome& b) {
    return a.report == b.report && a.faults == b.faults && a.good == b.good && a.bad == b.bad && a.rows == b.rows;
  }

  std::string report;
  std::string faults;
  std::string rows;
  std::string good;
  std::string bad;
  int blocksCounted = 0;
};

class BatchParts : public ModuleTest {
 protected:
  /// A part of a batch, with the files that it is cut from.
  struct Cut {
    Cut(const PartedBatch& batch, const BatchPart& part, BatchListener& listener)
        : payments(ByteSource::Of(batch.payments, "batch.csv")),
          records(ByteSource::Of(batch.records, "batch.pc4")),
          stretches(CutPart(*payments, *records, part, listener)) {}

    const std::unique_ptr<ByteSource> payments;
    const std::unique_ptr<ByteSource> records;
    const BatchStretches stretches;
  };

  static void Judge(const PartedBatch& batch, const BatchPart& part, Outcome& outcome) {
    const Cut cut(batch, part, outcome);
    ValidateBatch(*cut.stretches.payments, *cut.stretches.records, 1, outcome);
  }

  static Outcome Whole(const PartedBatch& batch) {
    Outcome whole;
    const auto payments = ByteSource::Of(batch.payments, "batch.csv");
    const auto records = ByteSource::Of(batch.records, "batch.pc4");
    ValidateBatch(*payments, *records, 1, whole);
    return whole;
  }

  /// The outcomes of all parts, one behind the other.
  static Outcome Joined(const PartedBatch& batch, uint64_t parts) {
    Outcome joined;
    for (uint64_t part = 1; part <= parts; ++part) Judge(batch, {part, parts}, joined);
    return joined;
  }

  /// The problems of all parts.
  static std::vector<std::string> ProblemsOf(const PartedBatch& batch, uint64_t parts) {
    std::vector<std::string> problems;
    for (uint64_t part = 1; part <= parts; ++part) {
      Outcome outcome;
      try {
        Judge(batch, {part, parts}, outcome);
      } catch (const BatchError& error) {
        for (const BatchProblem& problem : error.Problems()) problems.push_back(problem.Text());
      }
    }
    return problems;
  }

  static PartedBatch Generated(const std::string& screen, uint64_t payments, double badRate) {
    std::ostringstream list, records, planted;
    GenerateBatch({.payments = payments, .screen = screen, .badRate = badRate, .today = {2026, 6, 15}}, list, records,
                  planted);
    return {list.str(), records.str()};
  }

  static std::string Seq(int number) { return std::to_string(1000 + number % 9000); }
};

TEST_F(BatchParts, MakeTheWholeOfASmallBatch) {
  PartedBatch batch;
  for (int payment = 0; payment < 5; ++payment) batch.Add(Seq(payment), payment == 3 ? "1" : "12345", 1 + payment % 3);
  const Outcome whole = Whole(batch);
  EXPECT_EQ(whole.faults,
            "1003,03,11,01,Amount of Payment,000000000000012345,not-the-amount,"
            "Field 01 Amount of Payment is not equal to amount to be paid\n");
  EXPECT_EQ(whole.rows, "2 3 4 5 6 ");
  Outcome only;
  Judge(batch, {}, only);
  EXPECT_TRUE(only == whole);
  for (const uint64_t parts : {1U, 2U, 3U, 4U, 5U, 6U, 100U}) EXPECT_TRUE(Joined(batch, parts) == whole) << parts;
}

TEST_F(BatchParts, MakeTheWholeWhereNumbersComeAgainAndScreensAreMixed) {
  // Two screens one after the other, whose payments differ in length: the middle of the records is not that of the
  // list.
  PartedBatch batch = Generated("20", 10'500, 0.05);
  batch.Append(Generated("03", 10'500, 0.05));
  const Outcome whole = Whole(batch);
  EXPECT_GT(whole.bad.size(), 100'000u);
  for (const uint64_t parts : {2U, 5U}) {
    const Outcome joined = Joined(batch, parts);
    EXPECT_TRUE(joined == whole) << parts;
    EXPECT_EQ(joined.blocksCounted, 0) << parts;
  }
}

TEST_F(BatchParts, AreFoundByNumbersThatComeOnceWhateverElseIsWrong) {
  PartedBatch batch;
  for (int payment = 0; payment < 2000; ++payment) batch.Add(Seq(payment), "1", payment < 300 ? 7 : 1);
  const Outcome whole = Whole(batch);
  const Outcome joined = Joined(batch, 6);
  EXPECT_TRUE(joined == whole);
  EXPECT_EQ(joined.blocksCounted, 0);
}

TEST_F(BatchParts, AreFoundByTheEndOfTheList) {
  // Nothing tells the payments apart, but behind the cut all that is left of the records is looked at.
  PartedBatch batch;
  for (int payment = 0; payment < 60; ++payment)
    batch.Add(payment % 2 == 0 ? "0001" : "0002", "1", payment < 20 ? 4 : 1);
  const Outcome joined = Joined(batch, 2);
  EXPECT_TRUE(joined == Whole(batch));
  EXPECT_EQ(joined.blocksCounted, 0);
}

TEST_F(BatchParts, AreCountedWhereNothingTellsTheRow) {
  // Two numbers in turns, all amounts the same.
  PartedBatch alike;
  for (int payment = 0; payment < 3000; ++payment)
    alike.Add(payment % 2 == 0 ? "0001" : "0002", "12345", payment < 500 ? 3 : 1);
  const Outcome joined = Joined(alike, 3);
  EXPECT_TRUE(joined == Whole(alike));
  EXPECT_GT(joined.blocksCounted, 0);

  // The same numbers again and again, and no payment is good.
  PartedBatch bad;
  for (int payment = 0; payment < 3000; ++payment) bad.Add(Seq(payment % 500), "1", payment < 500 ? 3 : 1);
  EXPECT_TRUE(Joined(bad, 4) == Whole(bad));
}

TEST_F(BatchParts, AreCountedWhereTheWitnessesDisagree) {
  // The amounts are those of a list that begins one round of numbers later: all rows are wrong, but none in a way that
  // the numbers tell.
  constexpr int kRound = 400;
  constexpr int kPayments = 2000;
  PartedBatch batch;
  for (int payment = 0; payment < kPayments; ++payment) {
    const std::string amount = std::to_string(10'000 + payment);
    const std::string seq = Seq(payment % kRound);
    batch.AddRecords(seq, amount, 1);
    batch.payments += seq + ",03,," + std::to_string(10'000 + (payment + kRound) % kPayments) + "\n";
  }
  const Outcome whole = Whole(batch);
  EXPECT_TRUE(whole.good.empty());
  const Outcome joined = Joined(batch, 3);
  EXPECT_TRUE(joined == whole);
  EXPECT_GT(joined.blocksCounted, 0);
}

/// A batch whose sequence numbers come three times, of payments of one line of 163 characters and of different amounts.
/// Cut in two, the 102 payments from number 602 on are the sample that the second part is found by: its numbers stand
/// behind 202, 602 and 1002 rows.
struct Rounds {
  static constexpr int kRound = 400;
  static constexpr int kFirst = 602;
  static constexpr int kSample = 102;

  Rounds() {
    for (int payment = 0; payment < 3 * kRound; ++payment) {
      paid.push_back(10'000 + payment);
      asked.push_back(10'000 + payment);
    }
  }

  PartedBatch Made() const {
    PartedBatch batch;
    for (size_t payment = 0; payment < paid.size(); ++payment) {
      const std::string seq = std::to_string(1000 + payment % kRound);
      const std::string record = ComposeFreeFormat(seq, {{"01", std::string(13, '0') + std::to_string(paid[payment])}});
      batch.records += "\"" + record + "\"\n";
      batch.payments += seq + ",03,," + std::to_string(asked[payment]) + "\n";
    }
    return batch;
  }

  /// What the records hold, and what the rows ask for.
  std::vector<int> paid;
  std::vector<int> asked;
};

TEST_F(BatchParts, AreFoundWhereMoreThanHalfOfTheSampleIsGood) {
  for (const int good : {51, 52}) {
    Rounds rounds;
    for (int i = good; i < Rounds::kSample; ++i) ++rounds.paid[static_cast<size_t>(Rounds::kFirst + i)];
    const PartedBatch batch = rounds.Made();
    const Outcome joined = Joined(batch, 2);
    EXPECT_TRUE(joined == Whole(batch)) << good;
    EXPECT_EQ(joined.blocksCounted > 0, good == 51) << good;
  }
}

TEST_F(BatchParts, AreFoundWhereNoOtherPlaceIsAQuarterAsGood) {
  // Rows of another round ask for some of the same amounts.
  for (const int other : {-Rounds::kRound, Rounds::kRound}) {
    for (const int alike : {19, 20}) {
      Rounds rounds;
      for (int i = 0; i < Rounds::kSample; ++i) {
        const auto payment = static_cast<size_t>(Rounds::kFirst + i);
        if (i >= 80)
          ++rounds.paid[payment];
        else if (i < alike)
          rounds.asked[payment + static_cast<size_t>(other)] = rounds.asked[payment];
      }
      const PartedBatch batch = rounds.Made();
      const Outcome joined = Joined(batch, 2);
      EXPECT_TRUE(joined == Whole(batch)) << other << " " << alike;
      EXPECT_EQ(joined.blocksCounted > 0, alike == 20) << other << " " << alike;
    }
  }
}

TEST_F(BatchParts, AreFoundBehindPaymentsOfAScreenThatNoSampleShows) {
  // Longer ones lie between those at the start and those at the cut, and all amounts are what their rows ask for.
  PartedBatch batch;
  for (int payment = 0; payment < 1200; ++payment) {
    const std::string seq = std::to_string(1000 + payment % 300);
    const bool isLong = payment >= 300 && payment < 600;
    const std::string amount = std::to_string(10'000 + payment);
    batch.AddRecords(seq, amount, isLong ? 3 : 1);
    batch.payments += seq + (isLong ? ",15,," : ",03,,") + amount + "\n";
  }
  // The last quarter begins behind 75 % of the bytes, 150 payments behind the long ones, with the payment after next.
  Outcome last;
  Judge(batch, {4, 4}, last);
  EXPECT_EQ(last.blocksCounted, 0);
  EXPECT_TRUE(last.rows.starts_with("754 755 "));
  EXPECT_TRUE(Whole(batch).report.ends_with(last.report));
}

TEST_F(BatchParts, AreFoundByLengthsOfTheirOwnScreens) {
  // Payments of one line, a single one of 800 lines, then those of three lines among which the cut lies, and such of
  // one line again. Numbers come again every 120 payments, which take less than half of the long one.
  PartedBatch batch;
  for (int payment = 0; payment < 1001; ++payment) {
    const std::string seq = std::to_string(1000 + payment % 120);
    const std::string amount = std::to_string(12'345 + payment);
    const bool isLong = payment == 200;
    const bool isQuebec = payment > 200 && payment <= 800;
    if (isQuebec) {
      const std::string rest = std::string(13, '0') + std::to_string(11'345 + payment);
      for (std::string record : QuebecPayment(With(GoodQuebecFields(), "06", rest)).records)
        batch.records += QuotedLine(record.replace(3, 4, seq));
    } else {
      batch.AddRecords(seq, amount, isLong ? 800 : 1);
    }
    batch.payments += seq + (isQuebec ? ",20,001052," : isLong ? ",03,," : ",15,,") + amount + "\n";
  }
  Outcome last;
  Judge(batch, {2, 2}, last);
  EXPECT_EQ(last.blocksCounted, 0);
  EXPECT_GT(last.report.size(), 1000u);
  EXPECT_TRUE(Whole(batch).report.ends_with(last.report));
}

TEST_F(BatchParts, AreFoundByTheLengthOfTheOnlyPaymentOfItsScreen) {
  // The cut lies among twelve payments of 119 lines, each longer than a sample, behind 200 of one line of another
  // screen and a single one of 800 lines of a third.
  PartedBatch batch;
  Fields fields;
  for (int time = 0; time < 59; ++time)
    for (const FreeFormatSlot& field : GoodQuebecFields()) fields.push_back(field);
  for (int payment = 0; payment < 213; ++payment) {
    const std::string seq = Seq(payment % 4);
    const std::string amount = std::to_string(12'345 + payment);
    const bool isQuebec = payment > 200;
    if (isQuebec) {
      // Of an addend that comes again the last one counts.
      fields[fields.size() - 3].fieldValue = std::string(13, '0') + std::to_string(11'345 + payment);
      for (std::string record : QuebecPayment(fields).records) batch.records += QuotedLine(record.replace(3, 4, seq));
    } else {
      batch.AddRecords(seq, amount, payment == 200 ? 800 : 1);
    }
    batch.payments += seq + (isQuebec ? ",20,001052," : payment == 200 ? ",03,," : ",15,,") + amount + "\n";
  }
  Outcome last;
  Judge(batch, {2, 2}, last);
  EXPECT_EQ(last.blocksCounted, 0);
  EXPECT_TRUE(last.rows.starts_with("205 206 "));
  EXPECT_TRUE(Whole(batch).report.ends_with(last.report));
}

TEST_F(BatchParts, AreFoundByAPaymentThatIsLongerThanASample) {
  PartedBatch batch;
  for (int payment = 0; payment < 12; ++payment) {
    const std::string seq = Seq(payment % 4);
    const std::string amount = std::to_string(12'345 + payment);
    batch.AddRecords(seq, amount, 120);
    batch.payments += seq + ",03,," + amount + "\n";
  }
  const Outcome joined = Joined(batch, 2);
  EXPECT_TRUE(joined == Whole(batch));
  EXPECT_EQ(joined.blocksCounted, 0);
}

TEST_F(BatchParts, AreCountedFromTheFirstLineOn) {
  PartedBatch batch;
  for (int payment = 0; payment < 3000; ++payment) {
    batch.records += ComposeFreeFormat(payment % 2 == 0 ? "0001" : "0002", {{"01", "000000000000012345"}}) + "\n";
    batch.payments += payment % 2 == 0 ? "0001,03,,12345\n" : "0002,03,,12345\n";
  }
  const Outcome joined = Joined(batch, 3);
  EXPECT_TRUE(joined == Whole(batch));
  EXPECT_GT(joined.blocksCounted, 0);
}

TEST_F(BatchParts, NameAnEmptyRowWithWhichTheyBegin) {
  PartedBatch batch;
  for (int payment = 0; payment < 3000; ++payment) batch.Add(payment % 2 == 0 ? "0001" : "0002");
  // The second half begins with the payment behind the one in which the middle lies: behind the header and 1501 rows.
  batch.payments.insert(25 + 1501 * 15, "\n");
  const std::vector<std::string> problems = ProblemsOf(batch, 2);
  EXPECT_EQ(std::count(problems.begin(), problems.end(), "batch.csv:1503: an empty row"), 1);
}

TEST_F(BatchParts, NameThePaymentBehindTheEndOfAListThatIsTooShort) {
  PartedBatch batch;
  for (int payment = 0; payment < 3000; ++payment) batch.Add(payment % 2 == 0 ? "0001" : "0002");
  const std::string second = "batch.pc4:3003: payment '0002' is not in the payments list, which ends before it";
  // Ten rows, the last of which has no line end; and the header alone, without one.
  batch.payments.resize(25 + 10 * 15 - 1);
  EXPECT_EQ(ProblemsOf(batch, 2),
            (std::vector<std::string>{"batch.pc4:21: payment '0001' is not in the payments list, which ends before it",
                                      second}));
  batch.payments.resize(24);
  EXPECT_EQ(ProblemsOf(batch, 2),
            (std::vector<std::string>{"batch.pc4:1: payment '0001' is not in the payments list, which ends before it",
                                      second}));
}

TEST_F(BatchParts, AreCutOutOfFiles) {
  /// What comes through a pipe.
  class Pipe : public ByteSource {
   public:
    explicit Pipe(std::string_view bytes) : ByteSource("pipe"), bytes_(bytes) {}

    std::string_view Peek(size_t) override { return bytes_; }
    void Skip(size_t count) override { bytes_.remove_prefix(count); }
    bool Stays() const override { return false; }
    std::optional<size_t> Size() const override { return std::nullopt; }

   private:
    std::string_view bytes_;
  };
  PartedBatch batch;
  batch.Add("0001");
  const auto payments = ByteSource::Of(batch.payments, "batch.csv");
  Pipe records(batch.records);
  Outcome outcome;
  try {
    CutPart(*payments, records, {1, 2}, outcome);
    ADD_FAILURE();
  } catch (const BatchError& error) {
    EXPECT_STREQ(error.what(), "pipe: parts are cut out of files, and this is a pipe or a device");
  }
  // Of a pipe that is at its end nothing can get lost.
  Pipe nothing("");
  EXPECT_EQ(CutPart(*payments, nothing, {1, 2}, outcome).records->Peek(1), "");
}

TEST_F(BatchParts, TakeRowsInQuotesAndLinesInAnyFrame) {
  PartedBatch batch;
  for (int payment = 0; payment < 1500; ++payment) {
    const std::string seq = payment % 5 == 0 ? "\xE9" + Seq(payment).substr(1) : Seq(payment);
    const std::string written = payment % 5 == 0 ? "\xC3\xA9" + Seq(payment).substr(1) : Seq(payment);
    const std::string record = ComposeFreeFormat(seq, {{"01", "000000000000012345"}});
    batch.records += payment % 3 == 0 ? record + "\n" : QuotedLine(record);
    batch.payments += payment % 2 == 0 ? "\"" + written + "\",\"03\",,12346\r\n" : written + ",03,,12345\n";
  }
  // The last line may lack its end.
  batch.records.resize(batch.records.size() - 2);
  batch.payments.pop_back();
  const Outcome whole = Whole(batch);
  for (const uint64_t parts : {2U, 7U}) EXPECT_TRUE(Joined(batch, parts) == whole) << parts;
}

TEST_F(BatchParts, AreEmptyWhereThereIsNothingLeft) {
  EXPECT_EQ(Joined(PartedBatch{}, 4).report, "");
  PartedBatch one;
  one.Add("0001");
  EXPECT_EQ(Joined(one, 4).report, "0001,03,yes,\n");
}

TEST_F(BatchParts, AreAboutEquallyLong) {
  const PartedBatch batch = Generated("03", 1000, 0);
  constexpr uint64_t kParts = 7;
  // Two records of 164 characters, for the payment in which the cut is wanted and the one behind it.
  constexpr size_t kSlack = 4 * 164;
  std::string records;
  std::string rows;
  for (uint64_t part = 1; part <= kParts; ++part) {
    Outcome outcome;
    const Cut cut(batch, {part, kParts}, outcome);
    EXPECT_NEAR(static_cast<double>(cut.stretches.records->Peek(0).size()),
                static_cast<double>(batch.records.size()) / kParts, kSlack);
    records += cut.stretches.records->Peek(0);
    rows += cut.stretches.payments->Peek(0);
  }
  EXPECT_TRUE(records == batch.records);
  EXPECT_TRUE(rows == batch.payments);
}

TEST_F(BatchParts, AreAboutEquallyLongHoweverManyThereAre) {
  // More of them than payments, and not as many as go into the bytes.
  PartedBatch batch;
  for (int payment = 0; payment < 1000; ++payment) batch.Add(Seq(payment));
  constexpr uint64_t kParts = 5000;
  constexpr size_t kPayment = 2 * 164;
  for (const uint64_t part : {1U, 1250U, 2500U, 4000U, 4999U, 5000U}) {
    Outcome outcome;
    const Cut cut(batch, {part, kParts}, outcome);
    const std::string_view records = cut.stretches.records->Peek(0);
    EXPECT_LE(records.size(), kPayment) << part;
    // Every fifth of them has a payment, which begins about where the part does.
    const auto start = static_cast<double>(records.data() - batch.records.data());
    EXPECT_NEAR(start, static_cast<double>(batch.records.size()) / kParts * static_cast<double>(part - 1), 2 * kPayment)
        << part;
  }
}

TEST_F(BatchParts, NameProblemsByTheLinesOfTheWholeFiles) {
  PartedBatch batch;
  for (int payment = 0; payment < 1000; ++payment) batch.Add(Seq(payment));
  // Behind 600 payments of two lines each; behind the header and 700 rows.
  batch.records.insert(600 * 2 * 164, "hello\n");
  batch.payments.insert(25 + 700 * 15, "9999\n");
  for (const uint64_t parts : {4U, 5U}) {
    const std::vector<std::string> problems = ProblemsOf(batch, parts);
    EXPECT_EQ(std::count(problems.begin(), problems.end(),
                         "batch.pc4:1201: no record: a record begins with PC4, a sequence number and a kind"),
              1);
    EXPECT_EQ(std::count(problems.begin(), problems.end(),
                         "batch.csv:702: a row of 1 fields; it has seq,screen,biller,amount"),
              1);
  }
}

TEST_F(BatchParts, DoNotAllSucceedWhereARowOrAPaymentIsMissing) {
  PartedBatch whole;
  for (int payment = 0; payment < 1000; ++payment) whole.Add(Seq(payment % 250));
  PartedBatch row = whole;
  row.payments.erase(25 + 300 * 15, 15);
  PartedBatch payment = whole;
  payment.records.erase(700 * 2 * 164, 2 * 164);
  PartedBatch round = whole;
  round.records.erase(300 * 2 * 164, 250 * 2 * 164);
  for (const PartedBatch* batch : {&row, &payment, &round}) {
    for (const uint64_t parts : {2U, 3U, 8U}) EXPECT_FALSE(ProblemsOf(*batch, parts).empty()) << parts;
  }
}

TEST_F(BatchParts, NameALineThatNeverEndsWhereItKeepsThemFromBeingCounted) {
  // Two numbers in turns, so that what stands before a part must be counted.
  PartedBatch batch;
  for (int payment = 0; payment < 9000; ++payment) batch.Add(payment % 2 == 0 ? "0001" : "0002");
  // In the third of the blocks that are counted.
  batch.records.insert(8000 * 2 * 164, std::string(size_t{17} << 20, 'a') + "\n");
  Outcome outcome;
  try {
    Judge(batch, {1000, 1000}, outcome);
    ADD_FAILURE();
  } catch (const BatchError& error) {
    EXPECT_STREQ(error.what(), "batch.pc4:16001: a line of more than 16 MiB");
  }
}

TEST_F(BatchParts, NameAFileThatBecomesShorterWhileTheyAreCounted) {
  // Only two numbers, so that the place of the second part is known by counting alone.
  PartedBatch batch;
  for (int payment = 0; batch.records.size() < size_t{8} << 20; ++payment) batch.Add(Seq(payment % 2));
  const TemporaryFolder folder;
  const std::string path = folder.Write("batch.pc4", batch.records);
  class Shortens : public Outcome {
   public:
    explicit Shortens(std::string path) : path_(std::move(path)) {}
    void OnProgress(const BatchProgress& progress) override {
      Outcome::OnProgress(progress);
      std::filesystem::resize_file(path_, size_t{2} << 20);
    }

   private:
    const std::string path_;
  } outcome(path);
  const auto payments = ByteSource::Of(batch.payments, "batch.csv");
  const auto records = ByteSource::Open(path);
  try {
    CutPart(*payments, *records, {2, 2}, outcome);
    FAIL();
  } catch (const BatchError& error) {
    EXPECT_EQ(error.what(), path + ": the file became shorter while it was read");
  }
  EXPECT_GT(outcome.blocksCounted, 0);
}

TEST_F(BatchParts, NeedAList) {
  PartedBatch batch;
  batch.Add("0001");
  batch.payments = "0001,03,,12345\n";
  for (const uint64_t part : {1U, 2U}) {
    Outcome outcome;
    try {
      Judge(batch, {part, 2}, outcome);
      ADD_FAILURE() << "part " << part;
    } catch (const BatchError& error) {
      EXPECT_STREQ(error.what(), "batch.csv:1: the first line is not seq,screen,biller,amount");
    }
  }
}

}  // namespace
}  // namespace fiscalon
