#include "validation/record_block.h"

#include <gtest/gtest.h>

#include "core/records/record_composer.h"
#include "tests/support/ruled_record.h"
#include "validation/batch_error.h"

namespace fiscalon {
namespace {

std::string Record(const std::string& seq, char kind = 'T') {
  return Ruled("PC4" + seq + kind);
}

/// The lines of each payment, as "seq:lines" and blanks between.
std::string Payments(const RecordBlock& block) {
  std::string told;
  for (size_t i = 0; i < block.PaymentCount(); ++i) {
    told += std::string(told.empty() ? "" : " ") + std::string(block.Sequence(i)) + ":" +
            std::to_string(block.Records(i).size());
  }
  return told;
}

std::string Problems(const RecordBlock& block) {
  std::string told;
  for (const LineProblem& problem : block.Problems())
    told += std::to_string(problem.line) + " " + problem.reason + "; ";
  return told;
}

TEST(RecordBlock, APaymentIsARunOfOneSequenceNumber) {
  RecordBlock block;
  const std::string bytes = QuotedLine(Record("0001")) + QuotedLine(Record("0001", 'F')) + QuotedLine(Record("0002")) +
                            QuotedLine(Record("0001"));
  block.Cut(bytes);
  EXPECT_EQ(Payments(block), "0001:2 0002:1 0001:1");
  EXPECT_EQ(block.Records(0)[1], Record("0001", 'F'));
  EXPECT_EQ(block.FirstLine(2), 3u);
  EXPECT_TRUE(block.IsSequence(1, "0002"));
  EXPECT_FALSE(block.IsSequence(1, "0003"));
  EXPECT_FALSE(block.IsSequence(1, "00021"));
  EXPECT_EQ(Problems(block), "");
}

TEST(RecordBlock, TakesQuotedAndBareLinesWithEitherEnd) {
  RecordBlock block;
  const std::string bytes = QuotedLine(Record("0001")) + Record("0001") + "\n" + "\"" + Record("0001") + "\"\n" +
                            Record("0001") + "\r\n" + Record("0001") + "\r\n" + QuotedLine(Record("0001"));
  block.Cut(bytes);
  EXPECT_EQ(Payments(block), "0001:6");
  for (const std::string_view record : block.Records(0)) EXPECT_EQ(record, Record("0001"));
  EXPECT_EQ(Problems(block), "");
}

TEST(RecordBlock, TheLastLineMayLackItsEnd) {
  for (const std::string& last : {Record("0002"), "\"" + Record("0002") + "\""}) {
    RecordBlock block;
    const std::string bytes = QuotedLine(Record("0001")) + last;
    block.Cut(bytes);
    EXPECT_EQ(Payments(block), "0001:1 0002:1");
    EXPECT_EQ(Problems(block), "");
  }
}

TEST(RecordBlock, HalfALineEndShowsThatTheFileWasCutOff) {
  RecordBlock block;
  const std::string bytes = QuotedLine(Record("0001")) + Record("0002") + "\r";
  block.Cut(bytes);
  EXPECT_EQ(Payments(block), "0001:1 0002:1");
  EXPECT_EQ(Problems(block), "1 half a line end, CR without LF; the file was cut off there; ");
}

TEST(RecordBlock, TabsAndQuotesInsideARecordStay) {
  std::string record = Record("0001");
  record[50] = '\t';
  record[51] = '"';
  RecordBlock block;
  const std::string bytes = QuotedLine(record);
  block.Cut(bytes);
  EXPECT_EQ(block.Records(0)[0], record);
  EXPECT_EQ(Problems(block), "");
}

TEST(RecordBlock, NamesWhatIsNoRecordAndGoesOnBehindIt) {
  const struct {
    std::string line;
    std::string problem;
  } rows[] = {
      {Record("0001").substr(0, 159) + "\n", "1 a line of 159 characters; a record has 160; "},
      {Record("0001") + " \n", "1 a line of 161 characters; a record has 160; "},
      {"\"" + Record("0001").substr(0, 159) + "\"\r\n", "1 a line of 159 characters; a record has 160; "},
      {"\n", "1 an empty line; "},
      {"\r\n", "1 an empty line; "},
      {"\"\"\r\n", "1 an empty line; "},
      {"hello\n", "1 no record: a record begins with PC4, a sequence number and a kind; "},
      {"PC40001\n", "1 no record: a record begins with PC4, a sequence number and a kind; "},
      {Ruled("pc40001T") + "\n", "1 no record: a record begins with PC4, a sequence number and a kind; "},
      {"\"" + Record("0001") + "\r\n", "1 the quote in front has none behind; the line has 160 more characters; "},
      {"\"\n", "1 the quote in front has none behind; the line has 0 more characters; "},
      {Record("0001") + "\"\r\n", "1 the quote behind has none in front; "},
      {Record("0001").replace(20, 1, 1, '\0') + "\n", "1 a NUL byte in column 21; "},
  };
  for (const auto& row : rows) {
    RecordBlock block;
    const std::string bytes =
        QuotedLine(Record("0001")) + row.line + QuotedLine(Record("0001")) + QuotedLine(Record("0002"));
    block.Cut(bytes);
    EXPECT_EQ(Problems(block), row.problem) << row.line;
    EXPECT_EQ(Payments(block), "0001:3 0002:1") << row.line;
    EXPECT_EQ(block.LineCount(), 4u);
  }
}

TEST(RecordBlock, AQuoteInTheLastColumnOfABareRecordIsItsOwnWhateverCameBefore) {
  const std::string record = Record("0001").replace(159, 1, "\"");
  for (const std::string& before : {QuotedLine(Record("0001")), Record("0001") + "\n"}) {
    RecordBlock block;
    const std::string bytes = before + record + "\n";
    block.Cut(bytes);
    EXPECT_EQ(Problems(block), "");
    EXPECT_EQ(block.Records(0)[1], record);
  }
}

TEST(RecordBlock, NamesAByteOrderMarkAndReadsTheRecordBehindIt) {
  RecordBlock block;
  const std::string bytes = "\xEF\xBB\xBF" + QuotedLine(Record("0001"));
  block.Cut(bytes);
  EXPECT_EQ(Problems(block), "0 a byte-order mark; record files have none; ");
  EXPECT_EQ(Payments(block), "0001:1");
}

TEST(RecordBlock, LinesBeforeTheFirstRecordBelongToTheFirstPayment) {
  RecordBlock block;
  const std::string bytes = "hello\n" + QuotedLine(Record("0007"));
  block.Cut(bytes);
  EXPECT_EQ(Payments(block), "0007:2");
}

TEST(RecordBlock, IsFilledAgainFromTheStart) {
  RecordBlock block;
  const std::string bytes = QuotedLine(Record("0001")) + "hello\n" + QuotedLine(Record("0002"));
  block.Cut(bytes);
  const std::string more = QuotedLine(Record("0003"));
  block.Cut(more);
  EXPECT_EQ(Payments(block), "0003:1");
  EXPECT_EQ(Problems(block), "");
  block.Cut("");
  EXPECT_EQ(block.PaymentCount(), 0u);
  EXPECT_EQ(block.LineCount(), 0u);
}

TEST(RecordBlock, HoldsNothingUntilSomethingIsCut) {
  const RecordBlock block;
  EXPECT_EQ(block.PaymentCount(), 0u);
  EXPECT_EQ(block.LineCount(), 0u);
  EXPECT_TRUE(block.Problems().empty());
}

TEST(RecordBlock, HoldsMoreLinesThanItsBytesHaveRecords) {
  // Each is a payment of its own, and too short: what room is made for at the start is not enough for them.
  constexpr int kPayments = 3000;
  std::string bytes;
  for (int payment = 0; payment < kPayments; ++payment) bytes += "PC4" + std::to_string(1000 + payment) + "T\n";
  RecordBlock block;
  block.Cut(bytes);
  ASSERT_EQ(block.PaymentCount(), 3000u);
  EXPECT_EQ(block.LineCount(), 3000u);
  EXPECT_EQ(block.Problems().size(), 3000u);
  for (size_t payment = 0; payment < block.PaymentCount(); ++payment) {
    EXPECT_EQ(block.Sequence(payment), std::to_string(1000 + payment));
    EXPECT_EQ(block.FirstLine(payment), payment);
    EXPECT_EQ(block.Records(payment).size(), 1u);
    EXPECT_EQ(block.LinesOf(payment, bytes).size(), 9u);
  }
}

TEST(RecordBlock, TellsTheLinesOfEachPaymentWithAllThatStandsAroundThem) {
  const std::string bytes = "hello\n" + QuotedLine(Record("0001")) + Record("0001", 'F') + "\n" + Record("0002") +
                            "\r\n\"" + Record("0003") + "\"";
  RecordBlock block;
  block.Cut(bytes);
  ASSERT_EQ(block.PaymentCount(), 3u);
  EXPECT_EQ(block.LinesOf(0, bytes), "hello\n" + QuotedLine(Record("0001")) + Record("0001", 'F') + "\n");
  EXPECT_EQ(block.LinesOf(1, bytes), Record("0002") + "\r\n");
  EXPECT_EQ(block.LinesOf(2, bytes), "\"" + Record("0003") + "\"");
}

/// The blocks that a feed hands out.
std::vector<std::string> Blocks(ByteSource& source) {
  RecordFeed feed(source);
  std::string storage;
  std::vector<std::string> blocks;
  for (;;) {
    const std::string_view block = feed.Next(storage);
    if (block.empty())
      return blocks;
    blocks.emplace_back(block);
  }
}

TEST(RecordFeed, CutsBetweenPayments) {
  std::string file;
  for (int payment = 0; payment < 8000; ++payment) {
    const std::string seq = std::to_string(1000 + payment);
    for (int line = 0; line <= payment % 4; ++line)
      file += payment % 2 == 0 ? QuotedLine(Record(seq)) : Record(seq) + "\n";
  }
  const auto source = ByteSource::Of(file, "batch.pc4");
  const std::vector<std::string> blocks = Blocks(*source);
  EXPECT_GT(blocks.size(), 2u);
  std::string all;
  std::string before;
  for (const std::string& block : blocks) {
    EXPECT_NE(SequenceOf(block), before);
    all += block;
    const size_t lastLine = block.find_last_of('\n', block.size() - 2) + 1;
    before = SequenceOf(std::string_view(block).substr(lastLine));
    EXPECT_LT(block.size(), 1'100'000u);
  }
  EXPECT_EQ(all, file);
}

TEST(RecordFeed, FindsTheEndOfAPaymentFromAnyPlace) {
  // Of each line: where it starts and which payment it is of, if it is a record.
  struct Line {
    size_t start;
    std::string sequence;
  };
  std::string file;
  std::vector<Line> lines;
  const auto add = [&](const std::string& sequence, const std::string& line) {
    lines.push_back({file.size(), sequence});
    file += line;
  };
  int payment = 1000;
  for (const int length : {1, 2, 40, 1, 7, 8, 9, 3}) {
    const std::string sequence = std::to_string(++payment);
    for (int i = 0; i < length; ++i) add(sequence, i % 2 == 0 ? QuotedLine(Record(sequence)) : Record(sequence) + "\n");
    add("", "no record\n");
  }
  for (const bool endsWithALine : {true, false}) {
    const auto source = ByteSource::Of(file, "batch.pc4");
    size_t line = 0;
    for (size_t from = 0; from < file.size(); ++from) {
      while (line + 1 < lines.size() && lines[line + 1].start <= from) ++line;
      size_t end = line + 1;
      std::string sequence;
      while (end < lines.size() &&
             (sequence.empty() || lines[end].sequence.empty() || lines[end].sequence == sequence)) {
        if (sequence.empty())
          sequence = lines[end].sequence;
        ++end;
      }
      ASSERT_EQ(RecordFeed(*source).EndOfPayment(from), end == lines.size() ? file.size() : lines[end].start)
          << from << " " << endsWithALine;
    }
    EXPECT_EQ(RecordFeed(*source).EndOfPayment(file.size()), file.size());
    file.pop_back();
  }
}

TEST(RecordFeed, APaymentOfMoreThan16MebibytesIsAnError) {
  // Lines of 164 bytes; the first that begins more than 16 MiB behind a block of 1 MiB. An empty line counts, too.
  for (const auto& [front, line] : {std::pair{"", "108695"}, std::pair{"\n", "108696"}}) {
    std::string file = front;
    while (file.size() < size_t{18} << 20) file += QuotedLine(Record("0001"));
    const auto source = ByteSource::Of(file, "batch.pc4");
    try {
      Blocks(*source);
      ADD_FAILURE() << line;
    } catch (const BatchError& error) {
      EXPECT_EQ(error.what(),
                "batch.pc4:" + std::string(line) + ": the records of payment '0001' take more than 16 MiB");
    }
  }
}

TEST(RecordBlock, HoldsRecordsBehindAnyNumberOfShortLines) {
  // Short lines fill the room for lines of a record's length, and records behind them need more.
  for (int shortLines = 0; shortLines < 70; ++shortLines) {
    std::string bytes = QuotedLine(Record("0001"));
    for (int line = 0; line < shortLines; ++line) bytes += "x\n";
    for (int line = 0; line < 40; ++line) bytes += QuotedLine(Record("0002"));
    RecordBlock block;
    block.Cut(bytes);
    ASSERT_EQ(block.LineCount(), static_cast<size_t>(shortLines) + 41);
    ASSERT_EQ(block.Problems().size(), static_cast<size_t>(shortLines));
    ASSERT_EQ(block.PaymentCount(), 2u);
    for (const std::string_view record : block.Records(1)) ASSERT_EQ(record, Record("0002"));
  }
}

TEST(SequenceOf, ReadsQuotedAndBareLines) {
  EXPECT_EQ(SequenceOf("PC40001T"), "0001");
  EXPECT_EQ(SequenceOf("\"PC40001T"), "0001");
  EXPECT_EQ(SequenceOf("PC40001"), "");
  EXPECT_EQ(SequenceOf("hello, world"), "");
  EXPECT_EQ(SequenceOf(""), "");
}

}  // namespace
}  // namespace fiscalon
