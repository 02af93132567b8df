#include "validation/batch.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

#include "core/records/record_composer.h"
#include "tests/support/bulk_payment.h"
#include "tests/support/module_test.h"
#include "tests/support/plain_validator.h"
#include "tests/support/raises.h"
#include "tests/support/random_payments.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"
#include "validation/batch_report.h"
#include "validation/generate_batch.h"
#include "validation/rule_sets.h"
#include "validation/trial_payments.h"

namespace fiscalon {
namespace {

/// Keeps every verdict as a row of the report.
class Report : public BatchListener {
 public:
  explicit Report(bool all = true) : all_(all) {}
  bool WantsValidPayments() const override { return all_; }
  void OnPayment(const PaymentVerdict& verdict) override { AppendReportRow(rows, verdict); }

  std::string rows;

 private:
  bool all_;
};

/// A payments list and its records.
struct Batch {
  std::string payments = "seq,screen,biller,amount\n";
  std::string records = {};

  void Add(const std::string& seq, const std::string& amount = "12345",
           const std::string& value = "000000000000012345") {
    payments += seq + ",03,," + amount + "\n";
    AddRecords(seq, value);
  }
  void AddRecords(const std::string& seq, const std::string& value = "000000000000012345") {
    records += QuotedLine(Ruled("PC4" + seq + "T")) + QuotedLine(ComposeFreeFormat(seq, {{"01", value}}));
  }
};

class ValidateBatchTest : public ModuleTest {
 protected:
  /// The rows of the report, or the problems.
  static std::string Validate(const Batch& batch, unsigned jobs = 1, bool all = true) {
    const auto payments = ByteSource::Of(batch.payments, "batch.csv");
    const auto records = ByteSource::Of(batch.records, "batch.pc4");
    Report report(all);
    try {
      ValidateBatch(*payments, *records, jobs, report);
    } catch (const BatchError& error) {
      return error.what();
    }
    return report.rows;
  }

  static Batch ThreePayments() {
    Batch batch;
    for (const char* seq : {"0001", "0002", "0003"}) batch.Add(seq);
    return batch;
  }
};

TEST_F(ValidateBatchTest, TellsEachPaymentInOrder) {
  Batch batch;
  batch.Add("0001");
  batch.Add("0002", "999");
  batch.Add("0003");
  EXPECT_EQ(Validate(batch),
            "0001,03,yes,\n"
            "0002,03,no,Field 01 Amount of Payment is not equal to amount to be paid\n"
            "0003,03,yes,\n");
  EXPECT_EQ(Validate(batch, 1, false), "0002,03,no,Field 01 Amount of Payment is not equal to amount to be paid\n");
}

TEST_F(ValidateBatchTest, CountsPaymentsAndFailures) {
  Batch batch;
  batch.Add("0001");
  batch.Add("0002", "999");
  const auto payments = ByteSource::Of(batch.payments, "batch.csv");
  const auto records = ByteSource::Of(batch.records, "batch.pc4");
  Report report;
  const BatchProgress counts = ValidateBatch(*payments, *records, 1, report);
  EXPECT_EQ(counts.payments, 2u);
  EXPECT_EQ(counts.invalid, 1u);
  EXPECT_EQ(counts.bytes, batch.records.size());
  EXPECT_EQ(counts.totalBytes, batch.records.size());
}

TEST_F(ValidateBatchTest, TellsHowFarItIsBehindEachBlock) {
  class Watching : public Report {
   public:
    Watching() : Report(false) {}
    void OnProgress(const BatchProgress& progress) override { told.push_back(progress); }

    std::vector<BatchProgress> told;
  };
  // Three blocks of about a MiB, of payments of two lines of 164 characters, every fifth of them bad.
  Batch batch;
  for (int payment = 0; payment < 8000; ++payment)
    batch.Add(std::to_string(1000 + payment), payment % 5 == 0 ? "1" : "12345");
  for (const unsigned jobs : {1u, 3u}) {
    const auto payments = ByteSource::Of(batch.payments, "batch.csv");
    const auto records = ByteSource::Of(batch.records, "batch.pc4");
    Watching watching;
    ValidateBatch(*payments, *records, jobs, watching);
    // The block behind the last is empty.
    ASSERT_EQ(watching.told.size(), 4u);
    for (size_t i = 0; i < watching.told.size(); ++i) {
      const BatchProgress& progress = watching.told[i];
      EXPECT_EQ(progress.totalBytes, batch.records.size());
      EXPECT_EQ(progress.bytes, progress.payments * 2 * 164);
      EXPECT_EQ(progress.invalid, (progress.payments + 4) / 5);
      if (i < 2)
        EXPECT_NEAR(static_cast<double>(progress.bytes), static_cast<double>((i + 1) << 20), 1000);
      else
        EXPECT_EQ(progress.payments, 8000u);
    }
  }
}

TEST(PaymentVerdict, SaysNothingUntilItIsGiven) {
  const PaymentVerdict verdict;
  EXPECT_TRUE(verdict.IsValid());
  EXPECT_EQ(verdict.line, 0u);
  EXPECT_EQ(verdict.row, 0u);
  const BatchProgress progress;
  EXPECT_EQ(progress.payments + progress.invalid + progress.bytes, 0u);
  EXPECT_EQ(progress.totalBytes, std::nullopt);
}

TEST_F(ValidateBatchTest, TellsFaultsOnlyToWhoAsksForThem) {
  class Asking : public Report {
   public:
    explicit Asking(bool asks) : asks_(asks) {}
    bool WantsFaults() const override { return asks_ || Report::WantsFaults(); }
    void OnPayment(const PaymentVerdict& verdict) override {
      told += std::to_string(verdict.row) + ":" + std::to_string(verdict.line) + ":" +
              std::to_string(verdict.faults.size()) + " ";
    }

    std::string told;

   private:
    bool asks_;
  };
  Batch batch;
  batch.Add("0001");
  batch.Add("0002", "1");
  const auto told = [&](bool asks) {
    const auto payments = ByteSource::Of(batch.payments, "batch.csv");
    const auto records = ByteSource::Of(batch.records, "batch.pc4");
    Asking asking(asks);
    ValidateBatch(*payments, *records, 1, asking);
    return asking.told;
  };
  EXPECT_EQ(told(true), "2:0:0 3:3:1 ");
  EXPECT_EQ(told(false), "2:0:0 3:0:0 ");
}

TEST_F(ValidateBatchTest, AnEmptyBatchHasNoPayments) {
  EXPECT_EQ(Validate(Batch{}), "");
}

TEST_F(ValidateBatchTest, ScreensWithoutRulesAreNotSupported) {
  Batch batch;
  batch.payments += "0001,15,,12345\n";
  batch.AddRecords("0001");
  EXPECT_EQ(Validate(batch), "0001,15,no,Invalid or not supported Screen Type\n");
}

TEST_F(ValidateBatchTest, ReasonsWithCommasStandInQuotesAndAccentsInUtf8) {
  Batch batch;
  batch.payments += "0001,03,,1\n";
  batch.records += QuotedLine(ComposeFreeFormat("0001", {{"0\xE9", "1"}, {"09", "1"}}));
  EXPECT_EQ(Validate(batch), "0001,03,no,\"Field 0\xC3\xA9 is not required, Field 09 is not required\"\n");
}

TEST_F(ValidateBatchTest, NamesEveryLineThatIsNoRecord) {
  Batch batch = ThreePayments();
  batch.records.insert(0, "hello\n");
  batch.records += "PC40003T\n";
  EXPECT_EQ(Validate(batch),
            "batch.pc4:1: no record: a record begins with PC4, a sequence number and a kind\n"
            "batch.pc4:8: a line of 8 characters; a record has 160");
}

TEST_F(ValidateBatchTest, NamesATruncatedLastLine) {
  Batch batch = ThreePayments();
  batch.records.resize(batch.records.size() - 50);
  EXPECT_EQ(Validate(batch), "batch.pc4:6: the quote in front has none behind; the line has 113 more characters");
}

TEST_F(ValidateBatchTest, NamesALineThatNeverEndsBehindTheProblemsBeforeIt) {
  Batch batch;
  for (int payment = 0; payment < 8000; ++payment) batch.Add(std::to_string(1000 + payment));
  batch.records.insert(0, "hello\n");
  batch.records += std::string(size_t{17} << 20, 'a');
  for (const unsigned jobs : {1u, 2u})
    EXPECT_EQ(Validate(batch, jobs),
              "batch.pc4:1: no record: a record begins with PC4, a sequence number and a kind\n"
              "batch.pc4:16002: a line of more than 16 MiB");
}

TEST_F(ValidateBatchTest, NamesWhereTheRecordsBecomeNone) {
  Batch batch;
  while (batch.records.size() < size_t{18} << 20) batch.records += "hello\n";
  // Lines of 6 bytes; the first that begins more than 16 MiB behind a block of 1 MiB.
  EXPECT_EQ(Validate(batch), "batch.pc4:2970967: no record in 16 MiB before this line");
}

TEST_F(ValidateBatchTest, NamesEveryRowThatCannotBeRead) {
  Batch batch = ThreePayments();
  batch.payments = "seq,screen,biller,amount\n0001,03,,x\n0002,03,,12345\n0003,03\n";
  EXPECT_EQ(Validate(batch),
            "batch.csv:2: the amount 'x' is no whole number of cents\n"
            "batch.csv:4: a row of 2 fields; it has seq,screen,biller,amount");
}

TEST_F(ValidateBatchTest, StopsAtTwentyProblems) {
  Batch batch = ThreePayments();
  for (int line = 0; line < 100; ++line) batch.records += "hello\n";
  const std::string problems = Validate(batch);
  EXPECT_EQ(std::count(problems.begin(), problems.end(), '\n'), 19);
}

TEST_F(ValidateBatchTest, NamesWhereTheFilesPart) {
  Batch missingRow = ThreePayments();
  missingRow.payments = "seq,screen,biller,amount\n0001,03,,12345\n0003,03,,12345\n";
  EXPECT_EQ(Validate(missingRow), "batch.pc4:3: payment '0002' stands where the payments list has '0003' (line 3)");

  Batch doubledRow = ThreePayments();
  doubledRow.payments = "seq,screen,biller,amount\n0001,03,,12345\n0001,03,,12345\n0002,03,,1\n0003,03,,1\n";
  EXPECT_EQ(Validate(doubledRow), "batch.pc4:3: payment '0002' stands where the payments list has '0001' (line 3)");

  Batch swappedRows = ThreePayments();
  swappedRows.payments = "seq,screen,biller,amount\n0002,03,,12345\n0001,03,,12345\n0003,03,,12345\n";
  EXPECT_EQ(Validate(swappedRows), "batch.pc4:1: payment '0001' stands where the payments list has '0002' (line 2)");

  Batch lastRowMissing = ThreePayments();
  lastRowMissing.payments = "seq,screen,biller,amount\n0001,03,,12345\n0002,03,,12345\n";
  EXPECT_EQ(Validate(lastRowMissing), "batch.pc4:5: payment '0003' is not in the payments list, which ends before it");

  Batch rowLeftOver = ThreePayments();
  rowLeftOver.payments += "0004,03,,12345\n";
  EXPECT_EQ(Validate(rowLeftOver), "batch.csv:5: payment '0004' has no records");

  Batch noRecords;
  noRecords.payments += "0001,03,,12345\n";
  EXPECT_EQ(Validate(noRecords), "batch.csv:2: payment '0001' has no records");
}

TEST_F(ValidateBatchTest, NamesNothingBehindThePlaceWhereTheFilesPart) {
  // A row is missing in the first of several blocks; no payment behind it goes with its row.
  Batch batch;
  for (int payment = 0; payment < 8000; ++payment) batch.Add(std::to_string(1000 + payment));
  batch.payments.erase(batch.payments.find("1005,"), std::string_view("1005,03,,12345\n").size());
  for (const unsigned jobs : {1u, 2u, 3u})
    EXPECT_EQ(Validate(batch, jobs), "batch.pc4:11: payment '1005' stands where the payments list has '1006' (line 7)")
        << jobs;
}

TEST_F(ValidateBatchTest, NamesTwentyProblemsOfManyBlocks) {
  Batch batch;
  for (int payment = 0; payment < 8000; ++payment) {
    batch.Add(std::to_string(1000 + payment));
    if (payment % 1000 == 7)
      batch.records += "hello\nhello\nhello\n";
  }
  const std::string problems = Validate(batch);
  EXPECT_EQ(std::count(problems.begin(), problems.end(), '\n'), 19);
  // Behind 8 payments of two lines each, and then behind each thousand of them and what was put in before.
  EXPECT_TRUE(problems.starts_with("batch.pc4:17: no record"));
  EXPECT_NE(problems.find("\nbatch.pc4:12036: no record"), problems.npos);
  EXPECT_EQ(problems.find("batch.pc4:12037:"), problems.npos);
  for (const unsigned jobs : {2u, 3u}) EXPECT_EQ(Validate(batch, jobs), problems) << jobs;
}

TEST_F(ValidateBatchTest, RefusesAListAndRecordsThatAreWrittenToMeanwhile) {
  /// Writes to a file as soon as it is told of a payment.
  class Writing : public Report {
   public:
    explicit Writing(std::string path) : path_(std::move(path)) {}
    void OnPayment(const PaymentVerdict&) override { std::ofstream(path_, std::ios::app) << "more"; }

   private:
    std::string path_;
  };
  for (const char* const written : {"batch.csv", "batch.pc4", "other"}) {
    const TemporaryFolder folder;
    const Batch batch = ThreePayments();
    const auto payments = ByteSource::Open(folder.Write("batch.csv", batch.payments));
    const auto records = ByteSource::Open(folder.Write("batch.pc4", batch.records));
    Writing writing(folder.Path(written));
    std::string problem;
    try {
      ValidateBatch(*payments, *records, 1, writing);
    } catch (const BatchError& error) {
      problem = error.what();
    }
    EXPECT_EQ(problem, written == std::string_view("other")
                           ? std::string()
                           : folder.Path(written) + ": the file changed while it was read");
  }
}

TEST_F(ValidateBatchTest, NamesARowLeftOverThatIsLikeTheFirst) {
  // Payments as screens write them, which are found good before their rows are read.
  Batch batch;
  for (const char* const seq : {"0001", "0002"}) {
    for (std::string record : AgencyPayment(GoodAgencyFields()).records)
      batch.records += QuotedLine(record.replace(3, 4, seq));
    batch.payments += std::string(seq) + ",03,,12345\n";
  }
  EXPECT_EQ(Validate(batch), "0001,03,yes,\n0002,03,yes,\n");
  // With room behind it to look ahead.
  batch.payments += "0001,03,,12345\n0003,03,,12345\n0004,03,,12345\n0005,03,,12345\n";
  EXPECT_EQ(Validate(batch), "batch.csv:4: payment '0001' has no records");
}

TEST_F(ValidateBatchTest, NamesAPaymentThatIsTornApart) {
  Batch batch = ThreePayments();
  batch.AddRecords("0002");
  EXPECT_EQ(Validate(batch), "batch.pc4:7: payment '0002' is not in the payments list, which ends before it");
}

/// A batch of random payments, and the report that it must give.
Batch RandomBatch(int count, std::string& expected) {
  RandomPayments random(4);
  Batch batch;
  for (int i = 0; i < count; ++i) {
    BulkPayment payment = random.Next();
    const std::string seq = std::to_string(1000 + i % 9000);
    std::string records;
    for (std::string& record : payment.records) {
      // Records of a batch are whole, and of this payment.
      record.resize(160, ' ');
      record.replace(0, 7, "PC4" + seq);
      std::replace_if(
          record.begin(), record.end(), [](char c) { return c == '\n' || c == '\0'; }, '?');
      records += i % 3 == 0 ? record + "\n" : QuotedLine(record);
    }
    if (payment.records.empty())
      continue;
    batch.records += records;
    batch.payments += seq + "," + payment.screen + "," + payment.biller + "," + payment.amount + "\n";
    AppendReportRow(expected, {seq, payment.screen, ReasonInPlainWords(payment)});
  }
  return batch;
}

TEST_F(ValidateBatchTest, GivesTheSameReportForAnyNumberOfJobs) {
  std::string expected;
  const Batch batch = RandomBatch(8000, expected);
  for (const unsigned jobs : {1u, 2u, 3u, 8u}) EXPECT_TRUE(Validate(batch, jobs) == expected) << jobs;
}

/// Holds what verdicts say of places against the files.
class Places : public BatchListener {
 public:
  explicit Places(const Batch& batch) : rows_(LinesOf(batch.payments)), lines_(LinesOf(batch.records)) {}
  bool WantsValidPayments() const override { return true; }
  bool WantsFaults() const override { return true; }
  void OnPayment(const PaymentVerdict& verdict) override {
    records += verdict.lines;
    ASSERT_EQ(rows_.at(verdict.row - 1).substr(0, 4), verdict.seq);
    ASSERT_EQ(verdict.faults.empty(), verdict.IsValid());
    for (const Fault& fault : verdict.faults) {
      const std::string& line = lines_.at(fault.line - 1);
      ASSERT_EQ(line.substr(line.find("PC4") + 3, 4), verdict.seq);
      // A total stands in no line.
      if (!fault.name.empty() || !fault.field.empty()) {
        ASSERT_NE(line.find(fault.field + fault.value), line.npos) << fault.message;
        ++found;
      }
    }
  }

  std::string records;
  int found = 0;

 private:
  static std::vector<std::string> LinesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    std::istringstream in(bytes);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

  std::vector<std::string> rows_;
  std::vector<std::string> lines_;
};

TEST_F(ValidateBatchTest, TellsWherePaymentsAndFaultsLie) {
  std::string expected;
  const Batch batch = RandomBatch(8000, expected);
  for (const unsigned jobs : {1u, 3u}) {
    const auto payments = ByteSource::Of(batch.payments, "batch.csv");
    const auto records = ByteSource::Of(batch.records, "batch.pc4");
    Places places(batch);
    ValidateBatch(*payments, *records, jobs, places);
    EXPECT_TRUE(places.records == batch.records);
    EXPECT_GT(places.found, 2000);
  }
}

TEST_F(ValidateBatchTest, NamesTheSameProblemsForAnyNumberOfJobs) {
  std::string expected;
  Batch batch = RandomBatch(8000, expected);
  batch.records.insert(batch.records.find('\n', batch.records.size() / 2) + 1, "hello\n");
  const std::string problems = Validate(batch);
  EXPECT_NE(problems.find(": no record"), problems.npos);
  for (const unsigned jobs : {2u, 3u, 8u}) EXPECT_EQ(Validate(batch, jobs), problems);
}

TEST_F(ValidateBatchTest, WhatAListenerThrowsComesOut) {
  class Broken : public Report {
    void OnPayment(const PaymentVerdict&) override { throw std::length_error("enough"); }
  };
  std::string expected;
  const Batch batch = RandomBatch(4000, expected);
  for (const unsigned jobs : {1u, 3u}) {
    const auto payments = ByteSource::Of(batch.payments, "batch.csv");
    const auto records = ByteSource::Of(batch.records, "batch.pc4");
    Broken broken;
    EXPECT_THROW(ValidateBatch(*payments, *records, jobs, broken), std::length_error);
  }
}

TEST_F(ValidateBatchTest, ReadsFilesAndPipesAlike) {
  std::string expected;
  const Batch batch = RandomBatch(4000, expected);
  const TemporaryFolder folder;
  const std::string csv = folder.Write("batch.csv", batch.payments);
  const std::string pc4 = folder.Write("batch.pc4", batch.records);
  const std::string pipe = folder.Path("pipe");
  const std::string csvPipe = folder.Path("csv-pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  ASSERT_EQ(::mkfifo(csvPipe.c_str(), 0600), 0);
  const auto validate = [](const std::string& payments, const std::string& records) {
    Report report;
    const auto list = ByteSource::Open(payments);
    const auto lines = ByteSource::Open(records);
    ValidateBatch(*list, *lines, 2, report);
    return report.rows;
  };
  EXPECT_TRUE(validate(csv, pc4) == expected);
  {
    const std::jthread writer([&] { std::ofstream(pipe, std::ios::binary) << batch.records; });
    EXPECT_TRUE(validate(csv, pipe) == expected);
  }
  const std::jthread writer([&] { std::ofstream(csvPipe, std::ios::binary) << batch.payments; });
  EXPECT_TRUE(validate(csvPipe, pc4) == expected);
}

TEST_F(ValidateBatchTest, ReadsAFileWhateverPiecesItLiesIn) {
  std::string expected;
  const Batch batch = RandomBatch(8000, expected);
  const TemporaryFolder folder;
  const std::string atOnce = folder.Write("at-once.pc4", batch.records);
  const std::string little = folder.Path("little-by-little.pc4");
  {
    std::ofstream file(little, std::ios::binary);
    for (size_t at = 0; at < batch.records.size(); at += 1000) file << batch.records.substr(at, 1000) << std::flush;
  }
  for (const std::string& path : {atOnce, little})
    for (const unsigned jobs : {1u, 2u, 5u}) {
      const auto list = ByteSource::Of(batch.payments, "batch.csv");
      const auto lines = ByteSource::Open(path);
      Report report;
      ValidateBatch(*list, *lines, jobs, report);
      EXPECT_TRUE(report.rows == expected) << path << " " << jobs;
    }
}

TEST_F(ValidateBatchTest, AFileThatBecomesShorterCountsForNothing) {
  std::string expected;
  const Batch batch = RandomBatch(8000, expected);
  const TemporaryFolder folder;
  const std::string path = folder.Write("batch.pc4", batch.records);
  const auto list = ByteSource::Of(batch.payments, "batch.csv");
  const auto lines = ByteSource::Open(path);
  std::filesystem::resize_file(path, batch.records.size() / 2);
  Report report;
  try {
    ValidateBatch(*list, *lines, 2, report);
    FAIL();
  } catch (const BatchError& error) {
    EXPECT_EQ(error.what(), path + ": the file became shorter while it was read");
  }
}

class GeneratedBatch : public ModuleTest {
 protected:
  struct Made {
    Batch batch;
    std::string planted;
  };

  static Made Make(const std::string& screen, uint64_t payments, double badRate, uint64_t seed) {
    std::ostringstream list, records, planted;
    GenerateBatch({.payments = payments, .screen = screen, .badRate = badRate, .seed = seed, .today = {2026, 6, 15}},
                  list, records, planted);
    return {{list.str(), records.str()}, planted.str()};
  }

  /// What a judge found, in the form of the list of what was planted, but for the defects' names.
  static std::string Found(const Batch& batch, unsigned jobs) {
    class Finder : public BatchListener {
     public:
      bool WantsValidPayments() const override { return true; }
      void OnPayment(const PaymentVerdict& verdict) override {
        ++row_;
        if (!verdict.IsValid())
          found += std::to_string(row_) + "," + std::string(verdict.seq) + "," + CsvField(verdict.reason) + "\n";
      }
      std::string found;

     private:
      int row_ = 0;
    };
    const auto payments = ByteSource::Of(batch.payments, "batch.csv");
    const auto records = ByteSource::Of(batch.records, "batch.pc4");
    Finder finder;
    ValidateBatch(*payments, *records, jobs, finder);
    return finder.found;
  }

  static std::string WithoutDefects(const std::string& planted) {
    std::istringstream lines(planted);
    std::string line, kept;
    std::getline(lines, line);
    EXPECT_EQ(line, "row,seq,defect,reason");
    while (std::getline(lines, line)) {
      const size_t defect = line.find(',', line.find(',') + 1);
      kept += line.substr(0, defect) + line.substr(line.find(',', defect + 1)) + "\n";
    }
    return kept;
  }
};

TEST_F(GeneratedBatch, WhatWasPlantedIsFoundAndNothingElse) {
  for (const RuleSet* const rules : RuleSets()) {
    const Made made = Make(std::string(rules->screenCode), 5000, 0.1, 11);
    const std::string planted = WithoutDefects(made.planted);
    EXPECT_GT(std::count(planted.begin(), planted.end(), '\n'), 400);
    EXPECT_EQ(Found(made.batch, 1), planted);
    EXPECT_EQ(Found(made.batch, 2), planted);
  }
}

TEST_F(GeneratedBatch, HasDefectsOfEveryKind) {
  for (const RuleSet* const rules : RuleSets()) {
    const std::string screen(rules->screenCode);
    const Made made = Make(screen, 3000, 1, 12);
    for (const Defect& defect : rules->trial->defects)
      EXPECT_NE(made.planted.find("," + std::string(defect.name) + ","), std::string::npos) << screen << defect.name;
  }
  EXPECT_EQ(ErrorOf([] { Make("15", 1, 0, 1); }), 5);
}

TEST_F(GeneratedBatch, IsTheSameForTheSameSeed) {
  EXPECT_EQ(Make("03", 50, 0.5, 1).batch.records, Make("03", 50, 0.5, 1).batch.records);
  EXPECT_NE(Make("03", 50, 0.5, 1).batch.records, Make("03", 50, 0.5, 2).batch.records);
}

TEST_F(GeneratedBatch, HasNoDefectWhereNoneWasAskedFor) {
  const Made made = Make("20", 2000, 0, 13);
  EXPECT_EQ(made.planted, "row,seq,defect,reason\n");
  EXPECT_EQ(Found(made.batch, 1), "");
}

}  // namespace
}  // namespace fiscalon
