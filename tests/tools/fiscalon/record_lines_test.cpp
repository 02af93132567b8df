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
            "    ! the quote in front has none behind; the line has 160 more characters\n1 line, 1 problem\n");
}

TEST_F(RecordLines, MissesTheOpeningQuote) {
  EXPECT_EQ(Complaints(record_ + "\"\r\n"), "    ! the quote behind has none in front\n1 line, 1 problem\n");
}

TEST_F(RecordLines, FindsItOddThatTheLineEndBehindAQuoteIsMissing) {
  Write("a.pc4", Line(record_) + '"' + Ruled("PC40002T") + '"');
  const Outcome seen = Run("fiscalon show a.pc4");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.out,
              testing::AllOf(HasSubstr("\n    ~ no CR LF behind it, as screens write it; more may have stood there\n"),
                             testing::EndsWith("\n2 lines, nothing wrong, 1 odd\n")));
}

TEST_F(RecordLines, MissesBothWhereAFileWasCutOff) {
  EXPECT_EQ(Complaints(Line(record_) + "\"PC40001F0100"),
            "    ! the quote in front has none behind; the line has 12 more characters\n"
            "    ! 12 characters long, not 160: 148 short\n"
            "2 lines, 2 problems, 1 odd\n");
}

TEST_F(RecordLines, FindsAByteOrderMark) {
  EXPECT_EQ(Complaints("\xEF\xBB\xBF" + Line(record_)),
            "    ! a byte-order mark; record files have none\n1 line, 1 problem\n");
  EXPECT_EQ(Complaints("\xEF\xBB\xBF"),
            "    ! a byte-order mark; record files have none\n"
            "    ! an empty line\n"
            "1 line, 2 problems\n");
}

TEST_F(RecordLines, SeesARecordThatALineEndCutInTwo) {
  EXPECT_EQ(Complaints('"' + Ruled("PC40001T                                Anne\r\nLee").append("\"\r\n")),
            "    ! the quote in front has none behind; the line has 44 more characters\n"
            "    ! 44 characters long, not 160: 116 short\n"
            "    ! the quote behind has none in front\n"
            "    ! no record: the line begins with \"Lee                 \", not with \"PC4\"\n"
            "2 lines, 4 problems\n");
}

TEST_F(RecordLines, FindsAByteOrderMarkOfAnyLine) {
  EXPECT_EQ(Complaints(Line(record_) + "\xEF\xBB\xBF" + Line(Ruled("PC40002T"))),
            "    ! a byte-order mark; record files have none\n2 lines, 1 problem\n");
}

// The judges of a payment and of a batch say the same: see `NamesHalfALineEnd` in validate_command_test.cpp.
TEST_F(RecordLines, MissesTheRestOfATornLineEnd) {
  for (const std::string& line : {'"' + record_ + '"', record_})
    EXPECT_EQ(Complaints(line + "\r"),
              "    ! half a line end, CR without LF; the file was cut off there\n1 line, 1 problem\n");
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
            "    ! an empty line\n"
            "    ! no record: 7 characters, and the head alone takes 8\n"
            "    ! no record: the line begins with \"zzzzzzzzzzzzzzzzzzzz\", not with \"PC4\"\n"
            "    ! no record: the line begins with \"PC30001T            \", not with \"PC4\"\n"
            "4 lines, 4 problems\n");
}

}  // namespace
}  // namespace fiscalon
