#include <gtest/gtest.h>

#include "tests/frontends/played/play_scenario.h"
#include "tests/support/temporary_folder.h"

/// What scenarios expect of the records that a show has left.
namespace fiscalon {
namespace {

const std::string kToCollection = "host SeqNumber 0001\nhost EnterName \"Côté\"\nshow 15\n type abc\n click cmdOK\n";
const std::string kToFile = "host WriteFile True\nhost GovFilename $TMP/f.pc4\n" + kToCollection;

TEST(ScenarioRecords, AreCountedInTheCollection) {
  ExpectPassed("expect records 0\n" + kToCollection + "expect records 2\n");
  ExpectFailed(kToCollection + "expect records 3\n", 6, "3 records", "2 records");
}

TEST(ScenarioRecords, AreCountedInTheFileWhereWriteFileIsExactlyTrue) {
  ExpectPassed("host WriteFile True\nhost GovFilename $TMP/f.pc4\nexpect records 0\n");
  ExpectPassed(kToFile + "expect records 2\n");
  ExpectPassed(kToCollection + "host WriteFile True\nexpect records 0\nhost WriteFile 1\nexpect records 2\n");
}

TEST(ScenarioRecords, AreComparedWithoutTrailingBlanks) {
  for (const std::string& acts : {kToCollection, kToFile}) {
    ExpectPassed(acts +
                 "expect record 1 \"PC40001T abc\"\nexpect record 1 \"PC40001T abc    \"\nexpect record 2 PC4Côté\n");
    ExpectPassed(acts + "expect length 1 14\nexpect length 2 0x7\n");
  }
  ExpectFailed(kToCollection + "expect record 1 \" PC40001T abc\"\n", 6, " PC40001T abc", "PC40001T abc");
  ExpectFailed(kToCollection + "expect length 1 160\n", 6, "160", "14");
}

TEST(ScenarioRecords, MustBeThere) {
  ExpectFailed("expect record 1 x\n", 1, "a record 1", "0 records");
  ExpectFailed(kToCollection + "expect record 0 x\n", 6, "a record 0", "2 records");
  ExpectFailed(kToCollection + "expect length 3 1\n", 6, "a record 3", "2 records");
}

TEST(ScenarioRecords, LineEndInARecordIsAnyLineEnd) {
  ExpectPassed("host EnterName \"a\\nb\"\nshow 15\n click cmdOK\nexpect record 2 \"PC4a\\nb\"\n");
}

TEST(ScenarioRecords, LinesOfTheFileAreQuotedAndEndedWhole) {
  const TemporaryFolder folder;
  const std::string acts = "host WriteFile True\nhost GovFilename " + folder.Path("f") + "\nexpect records 2\n";
  folder.Write("f", "\"PC4 \"a\"\"\r\n\"\"\r\n");
  ExpectPassed(acts + "expect record 1 \"PC4 \\\"a\\\"\"\nexpect record 2 \"\"\n");
  const std::pair<const char*, const char*> rows[] = {{"\"a\"\r\nPC4\r\n", "PC4"},  {"\"PC4\"\n", "\"\\\"PC4\\\"\\n\""},
                                                      {"\"PC4\r\n", "\"\\\"PC4\""}, {"PC4\"\r\n", "\"PC4\\\"\""},
                                                      {"\"\r\n", "\"\\\"\""},       {"\"PC4\"", "\"\\\"PC4\\\"\""}};
  for (const auto& [content, line] : rows) {
    folder.Write("f", content);
    ExpectFailed(acts, 3, "each line of the record file in double quotes and ended by CR LF", line);
  }
}

TEST(ScenarioRecords, AFolderHoldsNoRecords) {
  ExpectPassed("host WriteFile True\nhost GovFilename $TMP\nexpect records 0\n");
}

TEST(ScenarioRecords, InvoicesStandApartInThreeFields) {
  const std::string acts = "show 15\n click cmdInvoice\nexpect result True\nexpect records 1\n";
  ExpectPassed(acts + "expect invoice 1 20260615 \" 000012345\" A-17\n");
  ExpectPassed(acts + "expect invoice 1 20260615 \" 000012345\" \"A-17   \"\n");
  ExpectFailed(acts + "expect invoice 1 20260615 000012345 A-17\n", 5, "20260615|000012345|A-17",
               "20260615| 000012345|A-17");
  ExpectFailed(acts + "expect invoice 2 a b c\n", 5, "a member 2", "1 members");
  ExpectFailed("expect invoice 1 a b c\n", 1, "a member 1", "0 members");
}

TEST(ScenarioRecords, LinesOfATextFileStandWithoutTheirEnds) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("log.txt", "one\r\n\n two \nC\xf4t\xe9\r\nlast");
  const std::string expect = "expect line " + file + " ";
  ExpectPassed(expect + "1 one\n" + expect + "2 \"\"\n" + expect + "3 \" two \"\n" + expect + "4 Côté\n" + expect +
               "0x5 last\n");
  ExpectFailed(expect + "3 two\n", 1, "two", "\" two \"");
}

TEST(ScenarioRecords, LineThatIsNotThereSaysSo) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("log.txt", "one\ntwo\n");
  const std::string wanted = " of " + file + ": x";
  ExpectFailed("expect line " + file + " 3 x\n", 1, "line 3" + wanted, "the file has 2 lines");
  ExpectFailed("expect line " + file + " 0 x\n", 1, "line 0" + wanted, "the file has 2 lines");
  folder.Write("log.txt", "one");
  ExpectFailed("expect line " + file + " 2 x\n", 1, "line 2" + wanted, "the file has 1 line");
  folder.Write("log.txt", "");
  ExpectFailed("expect line " + file + " 1 x\n", 1, "line 1" + wanted, "the file has 0 lines");
}

TEST(ScenarioRecords, LineOfAFileThatIsNotThereSaysSo) {
  const TemporaryFolder folder;
  for (const std::string& path : {folder.Path("missing"), folder.Path()})
    ExpectFailed("expect line " + path + " 1 \"a b\"\n", 1, "line 1 of " + path + ": \"a b\"", "there is no such file");
}

TEST(ScenarioRecords, LineOfTheRecordFileHasItsQuotes) {
  ExpectPassed(kToFile + "expect line $TMP/f.pc4 2 \"\\\"PC4Côté\\\"\"\n");
}

TEST(ScenarioRecords, FilesExistOrNot) {
  ExpectPassed("expect file $TMP yes\nexpect file $TMP/f.pc4 no\n" + kToFile + "expect file $TMP/f.pc4 yes\n");
  ExpectFailed("expect file $TMP/f.pc4 yes\n", 1, "yes", "no");
  ExpectPassed("expect file /dev/null/x no\n");
  ExpectPassed("expect file /" + std::string(5000, 'x') + " no\n");
}

}  // namespace
}  // namespace fiscalon
