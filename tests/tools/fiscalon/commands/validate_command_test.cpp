// `fiscalon validate` and `fiscalon generate` as a user runs them: what they print and leave behind, and their
// exit status.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "core/records/record_composer.h"
#include "tests/support/bulk_payment.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

struct Outcome {
  int status = 0;
  std::string out = {};
  std::string err = {};
};

class Program : public testing::Test {
 protected:
  Program() {
    folder.Write("good.pc4", Lines(AgencyPayment(GoodAgencyFields())));
    folder.Write("bad.pc4", Lines(AgencyPayment(With(GoodAgencyFields(), "04", ""))));
    folder.Write("batch.csv", "seq,screen,biller,amount\n0001,03,,12345\n0002,03,,12345\n");
    folder.Write("batch.pc4", Lines(AgencyPayment(GoodAgencyFields())) +
                                  Lines(AgencyPayment(With(GoodAgencyFields(), "04", "")), "0002"));
  }

  static std::string Lines(const BulkPayment& payment, const std::string& seq = "0001") {
    std::string lines;
    for (std::string record : payment.records) lines += QuotedLine(record.replace(3, 4, seq));
    return lines;
  }

  /// Runs the program in the test's folder, as of June 15, 2026. What stands behind it may redirect its input.
  Outcome Run(const std::string& arguments) const {
    const std::string command = "cd '" + folder.Path() +
                                "' && '" FISCALON_PROGRAM "' --today 2026-06-15 --locale en-CA " + arguments +
                                " >out 2>err";
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), folder.Read("out"), folder.Read("err")};
  }

  /// The exit status of a command line of the shell, in the test's folder. Its output goes where it says.
  int Shell(const std::string& commandLine) const {
    return WEXITSTATUS(std::system(
        ("cd '" + folder.Path() + "' && fiscalon() { '" FISCALON_PROGRAM "' \"$@\"; } && { " + commandLine + "\n}")
            .c_str()));
  }

  bool Exists(std::string_view name) const { return std::filesystem::exists(folder.Path(name)); }

  /// Whether all files are ones that somebody has named.
  bool LeftNothingBehind() const {
    const std::filesystem::directory_iterator files(folder.Path());
    return std::none_of(begin(files), end(files),
                        [](const auto& file) { return file.path().filename().string().starts_with("."); });
  }

  TemporaryFolder folder;
};

using ValidatePayment = Program;
using ValidateBatchFiles = Program;
using Generate = Program;

TEST_F(ValidatePayment, SaysValid) {
  const Outcome outcome = Run("validate --screen 03 --amount 12345 good.pc4");
  EXPECT_EQ(outcome.out, "valid\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(ValidatePayment, SaysInvalidAndTheWholeReason) {
  const Outcome outcome = Run("validate --screen 03 --amount 12346 bad.pc4");
  EXPECT_EQ(outcome.out,
            "invalid: Field 01 Amount of Payment is not equal to amount to be paid, "
            "Field 04 Number of Employees cannot be blank\n");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(ValidatePayment, TakesTheBillerAndStandardInput) {
  folder.Write("quebec.pc4", Lines(QuebecPayment(With(GoodQuebecFields(), "05", "000000000000000007"))));
  EXPECT_EQ(Run("validate --screen 20 --amount 12345 quebec.pc4").out, "valid\n");
  EXPECT_EQ(Run("validate --screen 20 --amount 12345 --biller 001052 - <quebec.pc4").out,
            "invalid: Field 05 Remittance Type is invalid\n");
}

// `show` says the same: see `SaysThatAFileIsEmpty` in show_command_test.cpp.
TEST_F(ValidatePayment, AnEmptyFileHoldsNoPayment) {
  folder.Write("empty.pc4", "");
  const Outcome outcome = Run("validate --screen 03 --amount 12345 empty.pc4");
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "fiscalon: empty.pc4: the file is empty, it holds no records\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(ValidatePayment, TellsThatAFileHoldsManyPayments) {
  folder.Write("many.pc4", Lines(AgencyPayment(GoodAgencyFields())) + Lines(AgencyPayment(GoodAgencyFields()), "0002") +
                               Lines(AgencyPayment(GoodAgencyFields())));
  const Outcome outcome = Run("validate --screen 03 --amount 12345 many.pc4");
  EXPECT_EQ(outcome.out, "valid\n");
  EXPECT_EQ(outcome.err,
            "fiscalon: many.pc4 holds the records of 3 payments, judged here as one; to judge each of them, list them "
            "for --payments\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(ValidatePayment, ALineThatIsTooLongForAnyRecordIsNamed) {
  folder.Write("long.pc4", QuotedLine(Ruled("PC40001T")) + Ruled("PC40001F") + std::string(1'000'000, ' ') + "\r\n");
  const Outcome outcome = Run("validate --screen 03 --amount 12345 long.pc4");
  EXPECT_EQ(outcome.err, "fiscalon: long.pc4:2: a line of 1000160 characters; a record has 160\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(ValidatePayment, AllLinesAreTheOnePaymentsQuotedOrBareLongOrShort) {
  folder.Write("mixed.pc4", "PC40001F01000000000000012345\r\n" + QuotedLine(Ruled("PC49999T")) + "\"PC40007P\"\n");
  EXPECT_EQ(Run("validate --screen 03 --amount 12345 mixed.pc4").out, "valid\n");
}

TEST_F(ValidatePayment, ALineThatIsNoRecordIsNamed) {
  folder.Write("short.pc4", QuotedLine(Ruled("PC40001T")) + "PC40001\n");
  const Outcome outcome = Run("validate --screen 03 --amount 12345 short.pc4");
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "fiscalon: short.pc4:2: no record: a record begins with PC4, a sequence number and a kind\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(ValidatePayment, ALineThatIsFramedWronglyIsNamed) {
  const std::pair<std::string, std::string> rows[] = {
      {"\xEF\xBB\xBFPC40001T\n", "1: a byte-order mark; record files have none"},
      {"PC40001T\n\"PC40001F\n", "2: the quote in front has none behind; the line has 8 more characters"},
      {"PC40001T\"\n", "1: the quote behind has none in front"},
      {"PC40001T\n\nPC40001F\n", "2: an empty line"},
      {std::string("PC40001T\0\n", 10), "1: a NUL byte in column 9"},
      {"PC40001T\r\nPC40001F\r", "2: half a line end, CR without LF; the file was cut off there"},
  };
  for (const auto& [bytes, problem] : rows) {
    folder.Write("framed.pc4", bytes);
    const Outcome outcome = Run("validate --screen 03 --amount 12345 framed.pc4");
    EXPECT_EQ(outcome.err, "fiscalon: framed.pc4:" + problem + "\n");
    EXPECT_EQ(outcome.status, 2);
  }
}

TEST_F(ValidatePayment, BadUsageIsStatus2) {
  for (const char* arguments :
       {"validate", "validate --screen 03 good.pc4", "validate --amount 1 good.pc4", "validate --screen 03 --amount 1",
        "validate --screen 03 --amount 1.5 good.pc4", "validate --screen 03 --amount 1 missing.pc4",
        "validate --screen 03 --amount 1 --report r.csv good.pc4", "validate --payments batch.csv",
        "validate --payments batch.csv --records batch.pc4 good.pc4", "validate --payments - --records -",
        "validate --payments batch.csv --records batch.pc4 --jobs 0"}) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments;
    EXPECT_NE(outcome.err, "") << arguments;
    EXPECT_EQ(outcome.out, "") << arguments;
  }
}

TEST_F(ValidateBatchFiles, WritesAReportAndASummary) {
  const Outcome outcome = Run("validate --payments batch.csv --records batch.pc4 --report report.csv");
  EXPECT_EQ(outcome.out,
            "2 payments: 1 valid, 1 invalid\n"
            "           1   100 %  Field 04 Number of Employees cannot be blank\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(folder.Read("report.csv"),
            "seq,screen,valid,reason\n0001,03,yes,\n0002,03,no,Field 04 Number of Employees cannot be blank\n");
}

TEST_F(ValidateBatchFiles, SaysSoWhereAllIsValid) {
  folder.Write("batch.pc4",
               Lines(AgencyPayment(GoodAgencyFields())) + Lines(AgencyPayment(GoodAgencyFields()), "0002"));
  const Outcome outcome = Run("validate --payments batch.csv --records batch.pc4");
  EXPECT_EQ(outcome.out, "2 payments: all valid\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(ValidateBatchFiles, ReadsEitherFileFromAPipeAndReportsToOne) {
  const Outcome outcome = Run("validate --payments batch.csv --records - --report - <batch.pc4");
  EXPECT_EQ(outcome.out,
            "seq,screen,valid,reason\n0001,03,yes,\n0002,03,no,Field 04 Number of Employees cannot be blank\n");
  EXPECT_TRUE(outcome.err.starts_with("2 payments: 1 valid, 1 invalid\n"));
  EXPECT_EQ(Run("validate --payments - --records batch.pc4 <batch.csv").status, 1);
}

TEST_F(ValidateBatchFiles, NamesProblemsAndLeavesNoReport) {
  folder.Write("batch.csv", "seq,screen,biller,amount\n0001,03,,12345\n0003,03,,x\n");
  folder.Write("report.csv", "older");
  const Outcome outcome = Run("validate --payments batch.csv --records batch.pc4 --report report.csv");
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "fiscalon: batch.csv:3: the amount 'x' is no whole number of cents\n"
            "fiscalon: batch.pc4:3: payment '0002' stands where the payments list has '0003' (line 3)\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(folder.Read("report.csv"), "older");
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(ValidateBatchFiles, NamesHalfALineEnd) {
  const std::string lines = folder.Read("batch.pc4");
  folder.Write("batch.pc4", lines.substr(0, lines.size() - 1));
  const Outcome outcome = Run("validate --payments batch.csv --records batch.pc4");
  EXPECT_EQ(outcome.err, "fiscalon: batch.pc4:4: half a line end, CR without LF; the file was cut off there\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(ValidateBatchFiles, ShowsControlCharactersAndAccentsOfTheFilesInMessages) {
  folder.Write("batch.csv", "seq,screen,biller,amount\n0001,03,,\x1B[1m\xC3\xA9\n0002,03,,12345\n");
  EXPECT_EQ(Run("validate --payments batch.csv --records batch.pc4").err,
            "fiscalon: batch.csv:2: the amount '\u241B[1m\u00E9' is no whole number of cents\n");
}

TEST_F(ValidateBatchFiles, AReportThroughALinkTakesThePlaceOfTheFileBehindIt) {
  folder.Write("report.csv", "older");
  std::filesystem::create_symlink("report.csv", folder.Path("link.csv"));
  EXPECT_EQ(Run("validate --payments batch.csv --records batch.pc4 --report link.csv").status, 1);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.csv")));
  EXPECT_TRUE(folder.Read("report.csv").starts_with("seq,screen,valid,reason\n0001,03,yes,\n"));
}

TEST_F(ValidateBatchFiles, NamesAFileThatCannotBeRead) {
  const Outcome outcome = Run("validate --payments missing.csv --records batch.pc4 --report report.csv");
  EXPECT_EQ(outcome.err, "fiscalon: missing.csv: can't be opened: No such file or directory\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_FALSE(Exists("report.csv"));
}

TEST_F(ValidateBatchFiles, AReportThatCannotBeWrittenIsStatus2) {
  EXPECT_EQ(Run("validate --payments batch.csv --records batch.pc4 --report nowhere/report.csv").status, 2);
  EXPECT_EQ(Run("validate --payments batch.csv --records batch.pc4 --report .").status, 2);
  EXPECT_EQ(Run("validate --payments batch.csv --records batch.pc4 --report batch.csv").status, 2);
  EXPECT_TRUE(folder.Read("batch.csv").starts_with("seq,"));
  if (Exists("/dev/full")) {
    const Outcome outcome = Run("validate --payments batch.csv --records batch.pc4 --report /dev/full");
    EXPECT_EQ(outcome.err, "fiscalon: /dev/full can't be written: No space left on device\n");
    EXPECT_EQ(outcome.status, 2);
  }
}

TEST_F(ValidateBatchFiles, SaysWhereEachFaultLies) {
  EXPECT_EQ(Run("validate --payments batch.csv --records batch.pc4 --faults faults.csv").status, 1);
  EXPECT_EQ(folder.Read("faults.csv"),
            "seq,screen,line,field,name,value,code,message\n"
            "0002,03,4,04,Number of Employees,,blank,Field 04 Number of Employees cannot be blank\n");
  const Outcome asJson =
      Run("validate --payments batch.csv --records batch.pc4 --faults - --json-lines --report r.json");
  EXPECT_EQ(asJson.out,
            "{\"seq\":\"0002\",\"screen\":\"03\",\"line\":4,\"field\":\"04\",\"name\":\"Number of Employees\","
            "\"value\":\"\",\"code\":\"blank\",\"message\":\"Field 04 Number of Employees cannot be blank\"}\n");
  EXPECT_EQ(folder.Read("r.json"),
            "{\"seq\":\"0001\",\"screen\":\"03\",\"valid\":true,\"reason\":\"\"}\n"
            "{\"seq\":\"0002\",\"screen\":\"03\",\"valid\":false,"
            "\"reason\":\"Field 04 Number of Employees cannot be blank\"}\n");
}

TEST_F(ValidateBatchFiles, SplitsTheRecords) {
  EXPECT_EQ(Run("validate --payments batch.csv --records - --good good --bad bad <batch.pc4").status, 1);
  EXPECT_EQ(folder.Read("good"), Lines(AgencyPayment(GoodAgencyFields())));
  EXPECT_EQ(folder.Read("bad"), Lines(AgencyPayment(With(GoodAgencyFields(), "04", "")), "0002"));
}

TEST_F(ValidateBatchFiles, WritesAllOrNothing) {
  folder.Write("good", "older");
  // The device is full when the first of the bad records is written; the others could have been.
  const Outcome outcome =
      Run("validate --payments batch.csv --records batch.pc4 --report report.csv --good good --bad /dev/full");
  EXPECT_EQ(outcome.err, "fiscalon: /dev/full can't be written: No space left on device\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(folder.Read("good"), "older");
  EXPECT_FALSE(Exists("report.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(ValidateBatchFiles, EndsAtTheNthBadPayment) {
  folder.Write("batch.csv", "seq,screen,biller,amount\n0001,03,,12345\n0002,03,,12345\n0003,03,,1\n");
  folder.Write("batch.pc4", folder.Read("batch.pc4") + Lines(AgencyPayment(GoodAgencyFields()), "0003"));
  const std::string validate = "validate --payments batch.csv --records batch.pc4 --report report.csv --good good ";
  const Outcome outcome = Run(validate + "--faults faults.csv --max-bad 1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "1 invalid, the last of them at batch.csv:3; the payments behind it were not judged\n"
            "           1   100 %  Field 04 Number of Employees cannot be blank\n");
  EXPECT_EQ(outcome.err, "fiscalon: not written, since they tell of the whole batch: report.csv, good\n");
  EXPECT_EQ(folder.Read("faults.csv"),
            "seq,screen,line,field,name,value,code,message\n"
            "0002,03,4,04,Number of Employees,,blank,Field 04 Number of Employees cannot be blank\n");
  EXPECT_FALSE(Exists("report.csv") || Exists("good"));
  EXPECT_TRUE(LeftNothingBehind());
  EXPECT_TRUE(Run(validate + "--max-bad 3").out.starts_with("3 payments: 1 valid, 2 invalid\n"));
  EXPECT_TRUE(Exists("report.csv") && Exists("good"));
}

#ifdef FISCALON_SILENT_FOLDER
class SilentFolder : public ValidateBatchFiles {
 protected:
  SilentFolder() {
    ::mkdir(folder.Path("silent").c_str(), 0700);
    ::mkfifo(folder.Path("list").c_str(), 0600);
    folder.Write("silent/batch.pc4", folder.Read("batch.pc4"));
  }

  /// Judges the records with a list that somebody is about to write and never does.
  int Validate(const std::string& files) const {
    return Shell("exec 3<>list; LD_PRELOAD='" FISCALON_SILENT_FOLDER "' fiscalon --today 2026-06-15 validate " +
                 ("--payments list --stall 1 " + files + " >out 2>err"));
  }
};

TEST_F(SilentFolder, OfAFileOfTheBatchIsNamed) {
  EXPECT_EQ(Validate("--records silent/batch.pc4 --report report.csv"), 75);
  EXPECT_EQ(folder.Read("err"),
            "fiscalon: silent/batch.pc4: its folder has not answered for 1 second; see whether its server can be "
            "reached, then run this again\n");
  EXPECT_EQ(folder.Read("out"), "");
  EXPECT_FALSE(Exists("report.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(SilentFolder, OfAReportIsNamed) {
  EXPECT_EQ(Validate("--records batch.pc4 --report silent/report.csv"), 75);
  EXPECT_TRUE(folder.Read("err").starts_with("fiscalon: silent/report.csv: its folder has not answered for 1 second;"))
      << folder.Read("err");
  EXPECT_FALSE(Exists("silent/report.csv"));
}

TEST_F(SilentFolder, DoesNotHurtWhereItIsNotOfTheBatch) {
  // The list comes when all files have been asked for twice.
  ::mkfifo(folder.Path("asked").c_str(), 0600);
  EXPECT_EQ(Shell("exec 3<>list 4<>asked; (exec 3>&-; LD_PRELOAD='" FISCALON_SILENT_FOLDER "' fiscalon "
                  "--today 2026-06-15 validate --payments list --stall 1 --records batch.pc4 --report report.csv "
                  ">out 2>err) & head -c 46 asked >seen; cat batch.csv >list; exec 3>&-; wait $!"),
            1)
      << folder.Read("err");
  EXPECT_EQ(folder.Read("seen"), "listbatch.pc4report.csvlistbatch.pc4report.csv");
  EXPECT_EQ(folder.Read("err"), "");
}
#endif

#ifdef FISCALON_SET_BACK_CLOCK
TEST_F(ValidateBatchFiles, AClockThatIsSetBackGivesNoVerdict) {
  const auto validate = [&](const std::string& options, const std::string& mostBad) {
    return Shell("LD_PRELOAD='" FISCALON_SET_BACK_CLOCK "' fiscalon " + options +
                 " validate --payments batch.csv --records batch.pc4 --report report.csv --faults faults.csv "
                 "--max-bad " +
                 mostBad + " >out 2>err");
  };
  // Whether the batch ends at its end or at a bad payment.
  for (const char* bad : {"5", "1"}) {
    EXPECT_EQ(validate("", bad), 2);
    EXPECT_TRUE(folder.Read("err").starts_with("fiscalon: the clock: it was set back by ")) << folder.Read("err");
    EXPECT_EQ(folder.Read("out"), "");
    EXPECT_FALSE(Exists("report.csv") || Exists("faults.csv"));
    EXPECT_TRUE(LeftNothingBehind());
  }
  // The clock says nothing where the day is named.
  EXPECT_EQ(validate("--today 2026-06-15", "1"), 1);
}
#endif

TEST_F(ValidateBatchFiles, JudgesPartsWhoseFilesJoined) {
  ASSERT_EQ(Run("generate --payments 500 --screen 20 --bad 0.1 --out big").status, 0);
  const std::string validate = "validate --payments big.csv --records big.pc4 --report r --faults f --good g --bad b ";
  Run(validate);
  std::string whole;
  for (const char* name : {"r", "f", "g", "b"}) whole += folder.Read(name);
  std::string report, faults, good, bad;
  for (const char* part : {"1/3", "2/3", "3/3"}) {
    EXPECT_EQ(Run(validate + "--part " + part).status, 1);
    report += folder.Read("r");
    faults += folder.Read("f");
    good += folder.Read("g");
    bad += folder.Read("b");
  }
  EXPECT_TRUE(report + faults + good + bad == whole);
}

TEST_F(ValidateBatchFiles, RefusesOptionsThatMakeNoSense) {
  const std::string batch = "validate --payments batch.csv --records batch.pc4 ";
  const std::string original = folder.Read("batch.pc4");
  const std::pair<std::string, std::string> rows[] = {
      {"--part 0/3", "--part: \"0/3\" is no part: 2/8 is the second of eight, and there are a million at most"},
      {"--part 4/3", "--part: \"4/3\" is no part: 2/8 is the second of eight, and there are a million at most"},
      {"--part 1/1000001",
       "--part: \"1/1000001\" is no part: 2/8 is the second of eight, and there are a million at most"},
      {"--part x", "--part: \"x\" is no part: 2/8 is the second of eight, and there are a million at most"},
      {"--part 1", "--part: \"1\" is no part: 2/8 is the second of eight, and there are a million at most"},
      {"--part 1/2x", "--part: \"1/2x\" is no part: 2/8 is the second of eight, and there are a million at most"},
      {"--max-bad 0", "--max-bad: \"0\" is no whole number from 1"},
      {"--max-bad -1", "--max-bad: \"-1\" is no whole number from 1"},
      {"--max-bad abc", "--max-bad: \"abc\" is no whole number from 1"},
      {"--good batch.pc4", "batch.pc4 would take the place of batch.pc4, which is read"},
      {"--bad ./batch.csv", "./batch.csv would take the place of batch.csv, which is read"},
      {"--good x --bad ./x", "--good and --bad name one file"},
      {"--report - --faults -", "--report and --faults name one file"},
      {"--json-lines", "--json-lines says how --report and --faults are written: give one of them"},
  };
  for (const auto& [options, complaint] : rows) {
    const Outcome outcome = Run(batch + options);
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), "fiscalon: " + complaint) << options;
    EXPECT_EQ(outcome.status, 2) << options;
    EXPECT_EQ(outcome.out, "") << options;
  }
  EXPECT_EQ(folder.Read("batch.pc4"), original);
  EXPECT_TRUE(Run(batch + "--good /dev/null --bad /dev/null").status == 1);
  const Outcome single = Run("validate --screen 03 --amount 12345 --faults f good.pc4");
  EXPECT_TRUE(
      single.err.starts_with("fiscalon: --report, --faults, --good, --bad, --json-lines, --max-bad and --part "
                             "go with a batch\n"));
}

TEST_F(ValidateBatchFiles, CutsNoPartOutOfAPipe) {
  EXPECT_EQ(Shell("cat batch.pc4 | fiscalon validate --payments batch.csv --records - --part 1/2 2>err"), 2);
  EXPECT_EQ(folder.Read("err"),
            "fiscalon: standard input: parts are cut out of files, and this is a pipe or a device\n");
}

TEST_F(ValidateBatchFiles, AClosedStandardOutputIsStatus2AndNoFileTakesItsPlace) {
  // The next file that is opened would get its descriptor, and the report would stand among the faults.
  EXPECT_EQ(
      Shell("fiscalon validate --payments batch.csv --records batch.pc4 --report - --faults faults.csv >&- 2>err"), 2);
  EXPECT_EQ(folder.Read("err"), "fiscalon: standard output can't be written: Bad file descriptor\n");
  EXPECT_FALSE(Exists("faults.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(ValidateBatchFiles, AFolderIsNoBatch) {
  const Outcome outcome = Run("validate --payments batch.csv --records . --good good");
  EXPECT_EQ(outcome.err, "fiscalon: .: can't be read: Is a directory\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_FALSE(Exists("good"));
}

TEST_F(ValidateBatchFiles, AReaderThatGoesAwayIsStatus2) {
  ASSERT_EQ(Run("generate --payments 20000 --screen 03 --out big").status, 0);
  ASSERT_EQ(Shell("(fiscalon validate --payments big.csv --records big.pc4 --report - 2>err; echo $? >status) | "
                  "head -n 1 >out"),
            0);
  EXPECT_EQ(folder.Read("out"), "seq,screen,valid,reason\n");
  EXPECT_EQ(folder.Read("status"), "2\n");
}

/// Starts the program with a payments list that comes through a pipe, lets something happen while it waits for
/// the list, and then ends the list.
class WaitingProgram : public Program {
 protected:
  int RunWhile(void (*happening)(pid_t program, const TemporaryFolder& place)) {
    const std::string pipe = folder.Path("pipe");
    EXPECT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const pid_t program = ::fork();
    if (program == 0) {
      ::chdir(folder.Path().c_str());
      ::freopen("err", "w", stderr);
      ::execl(FISCALON_PROGRAM, "fiscalon", "validate", "--payments", "pipe", "--records", "batch.pc4", "--report",
              "report.csv", nullptr);
      ::_exit(127);
    }
    {
      // Opening waits for the program to open its end.
      std::ofstream list(pipe);
      list << "seq,screen,biller,amount\n" << std::flush;
      WaitForRecords(program);
      happening(program, folder);
      list << "0001,03,,12345\n0002,03,,12345\n" << std::flush;
    }
    int status = 0;
    ::waitpid(program, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  }

  void SetUp() override { ::signal(SIGPIPE, SIG_IGN); }

 private:
  /// Until the program has the records before it; the list, which it has opened before, doesn't end.
  static void WaitForRecords(pid_t program) {
    const std::string maps = "/proc/" + std::to_string(program) + "/maps";
    for (bool found = false; !found; std::this_thread::yield()) {
      std::ifstream lines(maps);
      for (std::string line; std::getline(lines, line);) found = found || line.ends_with("/batch.pc4");
    }
  }
};

TEST_F(WaitingProgram, AnInterruptLeavesNoReport) {
  EXPECT_EQ(RunWhile([](pid_t program, const TemporaryFolder&) { ::kill(program, SIGINT); }), 128 + SIGINT);
  EXPECT_EQ(folder.Read("err"), "fiscalon: interrupted\n");
  EXPECT_FALSE(Exists("report.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(WaitingProgram, ATerminalThatGoesAwayLeavesNoReport) {
  EXPECT_EQ(RunWhile([](pid_t program, const TemporaryFolder&) { ::kill(program, SIGHUP); }), 128 + SIGHUP);
  EXPECT_FALSE(Exists("report.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(WaitingProgram, EveryWayToEndItLeavesNoReport) {
  EXPECT_EQ(RunWhile([](pid_t program, const TemporaryFolder&) { ::kill(program, SIGQUIT); }), 128 + SIGQUIT);
  std::filesystem::remove(folder.Path("pipe"));
  EXPECT_EQ(RunWhile([](pid_t program, const TemporaryFolder&) { ::kill(program, SIGXCPU); }), 128 + SIGXCPU);
  std::filesystem::remove(folder.Path("pipe"));
  EXPECT_EQ(RunWhile([](pid_t program, const TemporaryFolder&) { ::kill(program, SIGTERM); }), 128 + SIGTERM);
  EXPECT_FALSE(Exists("report.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(WaitingProgram, AnInterruptThatIsToBeIgnoredIsIgnored) {
  ::signal(SIGHUP, SIG_IGN);
  EXPECT_EQ(RunWhile([](pid_t program, const TemporaryFolder&) { ::kill(program, SIGHUP); }), 1);
  ::signal(SIGHUP, SIG_DFL);
  EXPECT_TRUE(Exists("report.csv"));
}

TEST_F(WaitingProgram, AFileThatShrinksIsNamedAndLeavesNoReport) {
  EXPECT_EQ(
      RunWhile([](pid_t, const TemporaryFolder& place) { std::filesystem::resize_file(place.Path("batch.pc4"), 0); }),
      2);
  EXPECT_EQ(folder.Read("err"), "fiscalon: batch.pc4: the file became shorter while it was read\n");
  EXPECT_FALSE(Exists("report.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(WaitingProgram, AFileThatGrowsGivesNoVerdict) {
  EXPECT_EQ(RunWhile([](pid_t, const TemporaryFolder& place) {
              std::ofstream(place.Path("batch.pc4"), std::ios::app) << "\"PC40003T";
            }),
            2);
  EXPECT_EQ(folder.Read("err"), "fiscalon: batch.pc4: the file changed while it was read\n");
  EXPECT_FALSE(Exists("report.csv"));
  EXPECT_TRUE(LeftNothingBehind());
}

TEST_F(WaitingProgram, AFileThatIsWrittenOverGivesNoVerdict) {
  // The same bytes once more: who writes them could as well be about to write others.
  EXPECT_EQ(RunWhile([](pid_t, const TemporaryFolder& place) {
              const std::string records = place.Read("batch.pc4");
              std::fstream(place.Path("batch.pc4"), std::ios::in | std::ios::out | std::ios::binary) << records;
            }),
            2);
  EXPECT_FALSE(Exists("report.csv"));
}

TEST_F(WaitingProgram, AFileThatIsRemovedIsReadToItsEnd) {
  EXPECT_EQ(RunWhile([](pid_t, const TemporaryFolder& place) { std::filesystem::remove(place.Path("batch.pc4")); }), 1);
  EXPECT_TRUE(Exists("report.csv"));
}

TEST_F(Generate, MakesABatchWhoseDefectsAreFound) {
  const Outcome made = Run("generate --payments 2000 --screen 20 --bad 0.05 --seed 3 --out trial");
  EXPECT_EQ(made.out, "trial.csv, trial.pc4, trial.planted.csv: 2000 payments\n");
  EXPECT_EQ(made.status, 0);
  const std::string planted = folder.Read("trial.planted.csv");
  const auto bad = std::count(planted.begin(), planted.end(), '\n') - 1;
  EXPECT_GT(bad, 50);
  const Outcome judged = Run("validate --payments trial.csv --records trial.pc4 --jobs 1 --report one.csv");
  EXPECT_TRUE(judged.out.starts_with("2000 payments: " + std::to_string(2000 - bad) + " valid, " + std::to_string(bad) +
                                     " invalid\n"))
      << judged.out;
  EXPECT_EQ(Run("validate --payments trial.csv --records trial.pc4 --jobs 3 --report three.csv").out, judged.out);
  EXPECT_EQ(folder.Read("three.csv"), folder.Read("one.csv"));
}

TEST_F(Generate, RefusesWhatMakesNoSense) {
  for (const char* arguments :
       {"generate", "generate --payments 5 --screen 15", "generate --payments x --screen 03",
        "generate --payments 5 --screen 03 --bad 2", "generate --payments 5 --screen 03 --bad nan",
        "generate --payments 5 --screen 03 --out nowhere/batch", "generate --payments 5 --screen 03 --out ''",
        "generate --payments 5 --screen 03 --out .", "generate --payments 5 --screen 03 --out ./",
        "generate --payments -1 --screen 03", "generate --payments 99999999999999999999 --screen 03",
        "generate --payments 5 --screen 03 --seed -1"})
    EXPECT_EQ(Run(arguments).status, 2) << arguments;
  EXPECT_FALSE(Exists(".csv"));
  EXPECT_FALSE(Exists("..csv"));
}

TEST_F(Generate, EndsAtTheFirstWriteThatFails) {
  if (!Exists("/dev/full"))
    GTEST_SKIP() << "no device that is always full";
  std::filesystem::create_symlink("/dev/full", folder.Path("full.pc4"));
  // Going on would take hours.
  const Outcome outcome = Run("generate --payments 10000000000 --screen 03 --out full --force");
  EXPECT_EQ(outcome.err, "fiscalon: full.pc4 can't be written: No space left on device\n");
  EXPECT_EQ(outcome.status, 2);
}

}  // namespace
}  // namespace fiscalon
