#include "core/records/record_line.h"

#include <gmock/gmock.h>

#include "core/records/record_composer.h"
#include "tests/support/ruled_record.h"

namespace fiscalon {
namespace {

const std::string kRecord = Ruled("PC40001T");

/// The one line of a file.
RecordLine Only(std::string_view bytes) {
  const std::vector<RecordLine> lines = RecordLinesOf(bytes);
  EXPECT_EQ(lines.size(), 1U) << bytes;
  return lines.empty() ? RecordLine{} : lines.front();
}

TEST(RecordLine, IsAsWrittenInQuotesWithCrLf) {
  const std::string bytes = QuotedLine(kRecord);
  const RecordLine line = Only(bytes);
  EXPECT_EQ(line.record, kRecord);
  EXPECT_EQ(line.bytes, bytes);
  EXPECT_TRUE(line.IsAsWritten());
  EXPECT_EQ(WrongWith(line), "");
}

TEST(RecordLine, MayBeBareAndEndWithLfOrNotAtAll) {
  const struct {
    std::string bytes;
    LineEnd end;
  } rows[] = {{kRecord + "\r\n", LineEnd::CrLf},
              {kRecord + "\n", LineEnd::Lf},
              {kRecord, LineEnd::None},
              {'"' + kRecord + "\"\n", LineEnd::Lf},
              {'"' + kRecord + '"', LineEnd::None}};
  for (const auto& row : rows) {
    const RecordLine line = Only(row.bytes);
    EXPECT_EQ(line.record, kRecord) << row.bytes;
    EXPECT_EQ(line.end, row.end) << row.bytes;
    EXPECT_FALSE(line.IsAsWritten()) << row.bytes;
    EXPECT_EQ(WrongWith(line), "") << row.bytes;
  }
}

TEST(RecordLine, LosesHalfALineEnd) {
  for (const std::string& bytes : {kRecord + "\r", '"' + kRecord + "\"\r"}) {
    const RecordLine line = Only(bytes);
    EXPECT_EQ(line.record, kRecord) << bytes;
    EXPECT_EQ(line.end, LineEnd::Cr) << bytes;
  }
  // In front of LF it is half of one end, and elsewhere a character.
  EXPECT_EQ(Only("PC40001T\r\r\n").record, "PC40001T\r");
}

TEST(RecordLine, KeepsQuotesInside) {
  EXPECT_EQ(Only("\"PC40001P\"x\"\"\r\n").record, "PC40001P\"x\"");
}

TEST(RecordLine, ABareLineOfARecordsLengthEndsWithAnyCharacter) {
  const std::string record = Ruled("PC40001T").replace(159, 1, "\"");
  EXPECT_EQ(Only(record + "\n").record, record);
  EXPECT_FALSE(Only(record + "\n").closesWithQuote);
}

TEST(RecordLine, LosesAByteOrderMarkWhereverTheLineStands) {
  const std::vector<RecordLine> lines = RecordLinesOf("PC40001T\n\xEF\xBB\xBF\"PC40001F\"\r\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_FALSE(lines[0].hasByteOrderMark);
  EXPECT_TRUE(lines[1].hasByteOrderMark);
  EXPECT_EQ(lines[1].record, "PC40001F");
  EXPECT_FALSE(lines[1].IsAsWritten());
}

TEST(RecordLine, AFileHasOneForEachLineEndAndTheRest) {
  EXPECT_TRUE(RecordLinesOf("").empty());
  EXPECT_EQ(RecordLinesOf("\n\r\n").size(), 2U);
  EXPECT_EQ(RecordLinesOf("a\nb").size(), 2U);
  std::string_view rest = "a\nb";
  EXPECT_EQ(TakeRecordLine(rest).record, "a");
  EXPECT_EQ(rest, "b");
}

TEST(WrongWith, NamesWhatKeepsALineFromBeingRead) {
  const struct {
    std::string bytes;
    std::string problem;
  } rows[] = {
      {"\xEF\xBB\xBFPC40001T\n", "a byte-order mark; record files have none"},
      {"\"PC40001T\r\n", "the quote in front has none behind; the line has 8 more characters"},
      {"\"", "the quote in front has none behind; the line has 0 more characters"},
      {"PC40001T\"\r\n", "the quote behind has none in front"},
      {"PC40001T\r", "half a line end, CR without LF; the file was cut off there"},
      {"\"PC40001T\"\r", "half a line end, CR without LF; the file was cut off there"},
      {"\r\n", "an empty line"},
      {"\"\"\r\n", "an empty line"},
      {std::string("PC40001T\0", 9) + "\n", "a NUL byte in column 9"},
      {"PC40001\n", "no record: a record begins with PC4, a sequence number and a kind"},
      {"pc40001T\n", "no record: a record begins with PC4, a sequence number and a kind"},
  };
  for (const auto& row : rows) EXPECT_EQ(WrongWith(Only(row.bytes)), row.problem) << row.bytes;
}

TEST(WrongAround, NamesEverything) {
  using testing::ElementsAre;
  EXPECT_THAT(WrongAround(Only("\xEF\xBB\xBF\"PC40001T\r")),
              ElementsAre("a byte-order mark; record files have none",
                          "the quote in front has none behind; the line has {1} more characters",
                          "half a line end, CR without LF; the file was cut off there"));
  EXPECT_THAT(WrongAround(Only("PC40001T\"")), ElementsAre("the quote behind has none in front"));
  // What stands in between is the reader's own matter.
  EXPECT_THAT(WrongAround(Only("\r\n")), testing::IsEmpty());
}

TEST(WrongWith, DoesNotJudgeLengths) {
  EXPECT_EQ(WrongWith(Only("PC40001T\n")), "");
  EXPECT_EQ(WrongWith(Only(Ruled("PC40001T") + "  \n")), "");
}

}  // namespace
}  // namespace fiscalon
