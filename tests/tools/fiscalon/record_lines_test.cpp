#include <gmock/gmock.h>

#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::Not;

/// What is said of a file's lines around their records.
class RecordLines : public CommandLine {
 protected:
  const std::string record_ = Ruled("PC40001T");

  /// The lines of `show` that tell what is wrong, and the last one.
  std::string Complaints(const std::string& bytes) const {
    Write("a.pc4", bytes);
    return Run("fiscalon show a.pc4 | grep -E '^(    !|[0-9]+ lines?,)'").out;
  }
};

TEST_F(RecordLines, MissesTheClosingQuote) {
  EXPECT_EQ(Complaints('"' + record_ + "\r\n"),
            "    ! no closing quote; a line end inside the record would cut it in two\n1 line, 1 problem\n");
}

TEST_F(RecordLines, MissesTheOpeningQuote) {
  EXPECT_EQ(Complaints(record_ + "\"\r\n"), "    ! no opening quote\n1 line, 1 problem\n");
}

TEST_F(RecordLines, MissesTheLineEndBehindAQuote) {
  EXPECT_EQ(Complaints('"' + record_ + '"'),
            "    ! no CR LF behind it; the file may have been cut off\n1 line, 1 problem\n");
}

TEST_F(RecordLines, MissesBothWhereAFileWasCutOff) {
  EXPECT_EQ(Complaints(Line(record_) + "\"PC40001F0100"),
            "    ! no closing quote; a line end inside the record would cut it in two\n"
            "    ! no CR LF behind it; the file may have been cut off\n"
            "    ! 12 characters long, not 160: 148 short\n"
            "2 lines, 3 problems\n");
}

TEST_F(RecordLines, FindsAByteOrderMark) {
  EXPECT_EQ(Complaints("\xEF\xBB\xBF" + Line(record_)),
            "    ! a byte-order mark stands in front; record files are plain Windows-1252\n1 line, 1 problem\n");
  EXPECT_EQ(Complaints("\xEF\xBB\xBF"),
            "    ! a byte-order mark stands in front; record files are plain Windows-1252\n"
            "    ! the line is empty\n"
            "1 line, 2 problems\n");
}

TEST_F(RecordLines, SeesARecordThatALineEndCutInTwo) {
  EXPECT_EQ(Complaints('"' + Ruled("PC40001T                                Anne\r\nLee").append("\"\r\n")),
            "    ! no closing quote; a line end inside the record would cut it in two\n"
            "    ! 44 characters long, not 160: 116 short\n"
            "    ! no opening quote\n"
            "    ! no record: the line begins with \"Lee                 \", not with \"PC4\"\n"
            "2 lines, 4 problems\n");
}

TEST_F(RecordLines, FindsAByteOrderMarkOfAnyLine) {
  EXPECT_EQ(Complaints(Line(record_) + "\xEF\xBB\xBF" + Line(Ruled("PC40002T"))),
            "    ! a byte-order mark stands in front; record files are plain Windows-1252\n2 lines, 1 problem\n");
}

TEST_F(RecordLines, MissesTheRestOfATornLineEnd) {
  EXPECT_EQ(Complaints('"' + record_ + "\"\r"),
            "    ! no CR LF behind it; the file may have been cut off\n1 line, 1 problem\n");
}

TEST_F(RecordLines, KeepsQuotesInsideARecord) {
  const std::string quoting = Ruled("PC40001T                                Anne \"A\" Lee");
  Write("a.pc4", Line(quoting));
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.out, HasSubstr("\"Anne \"A\" Lee··················\"  12 of 30 characters"));
}

TEST_F(RecordLines, SaysWhatIsNoRecord) {
  EXPECT_EQ(Complaints("\r\nPC40001\n" + std::string(30, 'z') + "\nPC3" + record_.substr(3, 100) + "\n"),
            "    ! the line is empty\n"
            "    ! no record: 7 characters, and the head alone takes 8\n"
            "    ! no record: the line begins with \"zzzzzzzzzzzzzzzzzzzz\", not with \"PC4\"\n"
            "    ! no record: the line begins with \"PC30001T            \", not with \"PC4\"\n"
            "4 lines, 4 problems\n");
}

}  // namespace
}  // namespace fiscalon
