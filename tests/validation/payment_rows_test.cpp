#include "validation/payment_rows.h"

#include <gtest/gtest.h>

#include "validation/batch_error.h"

namespace fiscalon {
namespace {

/// A row as "seq|screen|biller|cents", or what is wrong with it. The same is asked of the row alone and with
/// enough behind it that the quick look may be taken.
std::string Read(const std::string& line) {
  const auto read = [](std::string_view bytes) {
    RowReader reader;
    reader.Read(bytes);
    PaymentRow row;
    const std::string problem = reader.NextQuickly(row) ? std::string() : reader.Next(row);
    if (!problem.empty())
      return problem;
    return std::string(row.seq) + "|" + std::string(row.screen) + "|" + std::string(row.biller) + "|" +
           std::to_string(row.cents);
  };
  const std::string alone = read(line);
  EXPECT_EQ(read(line + "\n" + std::string(100, ' ')), alone) << line;
  EXPECT_EQ(read(line + "\r\n" + std::string(100, '7')), alone) << line;
  return alone;
}

TEST(RowReader, ReadsSequenceScreenBillerAndCents) {
  EXPECT_EQ(Read("0001,03,,12345"), "0001|03||12345");
  EXPECT_EQ(Read("0001,20,001052,5"), "0001|20|001052|5");
  EXPECT_EQ(Read("AB-1,03,x,0"), "AB-1|03|x|0");
  EXPECT_EQ(Read("A~1,03,~,0"), "A~1|03|~|0");
}

TEST(RowReader, ReadsAmountsOfAnyLength) {
  std::string digits;
  for (int length = 1; length <= 17; ++length) {
    digits += static_cast<char>('0' + length % 10);
    EXPECT_EQ(Read("0001,03,," + digits), "0001|03||" + std::to_string(std::stoll(digits))) << digits;
  }
  EXPECT_EQ(Read("0001,03,,000000000000000012345"), "0001|03||12345");
  EXPECT_EQ(Read("0001,03,,-500"), "0001|03||-500");
}

/// How many characters of a row the quick look takes; 0 where it leaves the row.
size_t TakenQuickly(const std::string& row) {
  const std::string bytes = row + std::string(40, '7');
  RowReader reader;
  reader.Read(bytes);
  PaymentRow read;
  return reader.NextQuickly(read) ? bytes.size() - reader.Rest().size() : 0;
}

TEST(RowReader, TakesUsualRowsQuickly) {
  for (const char* const head : {"0001,03,,", "9999,99,001052,"}) {
    for (const char* const end : {"\n", "\r\n"}) {
      std::string digits;
      for (int length = 1; length <= 15; ++length) {
        digits += static_cast<char>('0' + length % 10);
        const std::string row = head + digits + end;
        EXPECT_EQ(TakenQuickly(row), row.size()) << row;
      }
      EXPECT_EQ(TakenQuickly(head + digits + "6" + end), 0u);
      EXPECT_EQ(TakenQuickly(head + std::string(end)), 0u);
    }
  }
  EXPECT_EQ(TakenQuickly("0001,03,,1\r\r\n"), 0u);
  EXPECT_EQ(TakenQuickly("0001,03,AB1052,1\n"), 0u);
  EXPECT_EQ(TakenQuickly("A001,03,,1\n"), 0u);
}

TEST(RowReader, LooksQuicklyOnlyWhereThereIsRoom) {
  const std::string row = "0001,03,,1\n";
  for (size_t size = row.size(); size <= 60; ++size) {
    const std::string bytes = row + std::string(size - row.size(), '7');
    PaymentRow read;
    RowReader reader;
    reader.Read(bytes);
    EXPECT_EQ(reader.NextQuickly(read), size >= 40) << size;
    reader.Read(bytes);
    EXPECT_EQ(reader.NextIs("0001", "03", 1), size >= 40) << size;
  }
}

TEST(RowReader, KeepsNothingOfTheRowBefore) {
  RowReader reader;
  reader.Read("0001,03,001052,12345\n\n0002,03\n");
  PaymentRow row;
  ASSERT_EQ(reader.Next(row), "");
  for (const char* const problem : {"an empty row", "a row of 2 fields; it has seq,screen,biller,amount"}) {
    EXPECT_EQ(reader.Next(row), problem);
    EXPECT_TRUE(row.seq.empty() && row.screen.empty() && row.biller.empty()) << problem;
    EXPECT_EQ(row.cents, 0);
    row.seq = "0001";
    row.cents = 12345;
  }
}

TEST(PaymentRow, SaysNothingUntilItIsRead) {
  const PaymentRow row;
  EXPECT_EQ(row.cents, 0);
  EXPECT_TRUE(row.seq.empty() && row.screen.empty() && row.biller.empty());
}

TEST(RowReader, KnowsARowThatSaysWhatItIsAskedFor) {
  // Each character of a row becomes every other one: it says that, or it does not, as when it is read.
  size_t known = 0;
  for (const char* const row : {"0001,03,,12345\n", "0001,20,001052,12345\r\n", "0001,03,,123456789012345\n"}) {
    const std::string text = row + std::string(40, '7');
    for (size_t at = 0; at < std::string_view(row).size(); ++at)
      for (int byte = 0; byte < 256; ++byte) {
        std::string bytes = text;
        bytes[at] = static_cast<char>(byte);
        RowReader quick, asked;
        quick.Read(bytes);
        asked.Read(bytes);
        PaymentRow read;
        const bool isSo = quick.NextQuickly(read) && read.seq == "0001" && read.screen == "03" && read.cents == 12345;
        ASSERT_EQ(asked.NextIs("0001", "03", 12345), isSo) << bytes;
        ASSERT_EQ(asked.Rest(), isSo ? quick.Rest() : std::string_view(bytes));
        known += isSo ? 1 : 0;
      }
  }
  // The first row itself, once for each of its characters, and the third with a line end in the place of its 6.
  EXPECT_EQ(known, std::string_view("0001,03,,12345\n").size() + 1);
  RowReader last;
  last.Read("0001,03,,12345\n");
  EXPECT_FALSE(last.NextIs("0001", "03", 12345)) << "there is no room to look ahead";
}

TEST(RowReader, KnowsAnAmountOfAnyLength) {
  std::string digits;
  for (const char digit : std::string_view("912345678901234")) {
    digits += digit;
    const std::string bytes = "0001,03,," + digits + "\n" + std::string(40, '7');
    const uint64_t cents = std::stoull(digits);
    for (const uint64_t other : {cents - 1, cents + 1, cents / 10, cents * 10}) {
      RowReader reader;
      reader.Read(bytes);
      EXPECT_FALSE(reader.NextIs("0001", "03", other)) << digits << " " << other;
      EXPECT_EQ(reader.Rest(), bytes);
    }
    RowReader reader;
    reader.Read(bytes);
    EXPECT_TRUE(reader.NextIs("0001", "03", cents)) << digits;
    EXPECT_EQ(reader.Rest(), std::string(40, '7'));
  }
}

TEST(RowReader, ReadsFieldsInQuotesAndUtf8) {
  EXPECT_EQ(Read("\"0001\",\"03\",\"\",\"12345\""), "0001|03||12345");
  EXPECT_EQ(Read("\"a,\"\"b\",03,,1"), "a,\"b|03||1");
  EXPECT_EQ(Read("\"\"\"\",\"a\"\"\",,\"1\""), "\"|a\"||1");
  EXPECT_EQ(Read("\xC3\xA9"
                 "001,03,,1"),
            "\xE9"
            "001|03||1");
}

TEST(RowReader, NamesWhatIsWrongWithARow) {
  EXPECT_EQ(Read("0001,03,,"), "the amount '' is no whole number of cents");
  EXPECT_EQ(Read("0001,03,,12.5"), "the amount '12.5' is no whole number of cents");
  EXPECT_EQ(Read("0001,03,,12x"), "the amount '12x' is no whole number of cents");
  EXPECT_EQ(Read("0001,03,, 12"), "the amount ' 12' is no whole number of cents");
  EXPECT_EQ(Read("0001,03,,+12"), "the amount '+12' is no whole number of cents");
  EXPECT_EQ(Read("0001,03,,92233720368547758"), "0001|03||92233720368547758");
  EXPECT_EQ(Read("0001,03,,-92233720368547758"), "0001|03||-92233720368547758");
  EXPECT_EQ(Read("0001,03,,-92233720368547759"), "the amount '-92233720368547759' is out of range");
  EXPECT_EQ(Read("0001,03,,92233720368547759"), "the amount '92233720368547759' is out of range");
  EXPECT_EQ(Read("0001,03,,92233720368547759x"), "the amount '92233720368547759x' is no whole number of cents");
  EXPECT_EQ(Read("0001,03,,99999999999999999999"), "the amount '99999999999999999999' is out of range");
  EXPECT_EQ(Read("0001,03,,1234567890123456789012345678901234567890"),
            "the amount '1234567890123456789012345678901234567890' is out of range");
  EXPECT_EQ(Read("0001,03,,1234567890123456789012345678901234567890x"),
            "the amount '1234567890123456789012345678901234567890...' is out of range");
  EXPECT_EQ(Read("0001,03,,\xC3\xA9"), "the amount '\xE9' is no whole number of cents");
  EXPECT_EQ(Read("0001,03,12345"), "a row of 3 fields; it has seq,screen,biller,amount");
  EXPECT_EQ(Read("0001,03,,1,2"), "a row of 5 fields; it has seq,screen,biller,amount");
  // Six characters where a biller stands, and what stands behind them.
  EXPECT_EQ(Read("0001,03,00,105,1"), "a row of 5 fields; it has seq,screen,biller,amount");
  EXPECT_EQ(Read("0001,03,001052712345"), "a row of 3 fields; it has seq,screen,biller,amount");
  EXPECT_EQ(Read("0001"), "a row of 1 fields; it has seq,screen,biller,amount");
  EXPECT_EQ(Read(std::string(65'536, 'x')), "a row of 1 fields; it has seq,screen,biller,amount");
  EXPECT_EQ(Read(std::string(65'537, 'x')), "a row of 65537 characters");
  EXPECT_EQ(Read("\"0001,03,,1"), "a quote out of place");
  EXPECT_EQ(Read("0001,03,,\"1"), "a quote out of place");
  EXPECT_EQ(Read("0001,03,,\""), "a quote out of place");
  EXPECT_EQ(Read("0001,03,,\"1\"\""), "a quote out of place");
  EXPECT_EQ(Read("00\"01,03,,1"), "a quote out of place");
  EXPECT_EQ(Read("\"0001\"x,03,,1"), "a quote out of place");
  EXPECT_EQ(Read(std::string("0001,03,\0,1", 11)), "a NUL byte");
  RowReader reader;
  reader.Read("\n0001,03,,1\n");
  PaymentRow row;
  EXPECT_FALSE(reader.NextQuickly(row));
  EXPECT_EQ(reader.Next(row), "an empty row");
  EXPECT_EQ(reader.Next(row), "");
  EXPECT_EQ(row.cents, 1);
}

TEST(RowFeed, TakesTheHeaderAndThenRows) {
  const std::string list = "seq,screen,biller,amount\r\n0001,03,,1\r\n0002,03,,2\r\n0003,03,,3";
  const auto source = ByteSource::Of(list, "batch.csv");
  RowFeed feed(*source);
  feed.TakeHeader();
  EXPECT_EQ(feed.Line(), 2u);
  std::string storage;
  size_t count = 2;
  EXPECT_TRUE(feed.Take(count, storage).starts_with("0001,03,,1\r\n0002,03,,2\r\n"));
  EXPECT_EQ(count, 2u);
  EXPECT_EQ(feed.Line(), 4u);
  count = 5;
  EXPECT_EQ(feed.Take(count, storage), "0003,03,,3");
  EXPECT_EQ(count, 1u);
  EXPECT_EQ(feed.Take(count, storage), "");
  EXPECT_EQ(count, 0u);
}

TEST(RowFeed, CountsLinesOverManyChunks) {
  std::string list = "seq,screen,biller,amount\n";
  for (int row = 0; row < 1000; ++row) list += std::string(static_cast<size_t>(row % 37), 'x') + "\n";
  const auto source = ByteSource::Of(list, "batch.csv");
  RowFeed feed(*source);
  feed.TakeHeader();
  std::string storage;
  for (int row = 0; row < 1000;) {
    size_t count = static_cast<size_t>(1 + row % 7);
    const size_t wanted = std::min(count, static_cast<size_t>(1000 - row));
    const std::string_view bytes = feed.Take(count, storage);
    ASSERT_EQ(count, wanted);
    ASSERT_EQ(bytes.substr(0, bytes.find('\n')), std::string(static_cast<size_t>(row % 37), 'x'));
    row += static_cast<int>(count);
  }
}

TEST(RowFeed, CountsALastLineWithoutAnEndHoweverLongTheListIs) {
  for (size_t rows = 1; rows <= 3; ++rows) {
    for (size_t width = 1; width <= 600; ++width) {
      std::string body;
      for (size_t row = 0; row < rows; ++row) body += (row == 0 ? "" : "\n") + std::string(width, 'x');
      const std::string list = "seq,screen,biller,amount\n" + body;
      const auto source = ByteSource::Of(list, "batch.csv");
      RowFeed feed(*source);
      feed.TakeHeader();
      std::string storage;
      size_t count = rows + 2;
      EXPECT_EQ(feed.Take(count, storage), body);
      EXPECT_EQ(count, rows) << width;
    }
  }
}

/// A pipe that gives one letter again and again, and never ends.
class Endless : public ByteSource {
 public:
  explicit Endless(std::string start) : ByteSource("batch.csv"), bytes_(std::move(start)) {}

  std::string_view Peek(size_t atLeast) override {
    if (bytes_.size() < atLeast)
      bytes_.resize(atLeast, 'x');
    return bytes_;
  }
  void Skip(size_t count) override { bytes_.erase(0, count); }
  bool Stays() const override { return false; }
  std::optional<size_t> Size() const override { return std::nullopt; }

 private:
  std::string bytes_;
};

TEST(RowFeed, NamesARowThatNeverEnds) {
  Endless source("seq,screen,biller,amount\n0001,03,,1\n");
  RowFeed feed(source);
  feed.TakeHeader();
  std::string storage;
  size_t count = 1;
  EXPECT_EQ(feed.Take(count, storage), "0001,03,,1\n");
  try {
    feed.Take(count, storage);
    ADD_FAILURE() << "a row of " << storage.size() << " characters";
  } catch (const BatchError& error) {
    EXPECT_STREQ(error.what(), "batch.csv:3: the row is too long, or never ends");
  }
}

TEST(RowFeed, RefusesAnotherHeader) {
  const auto error = [](const std::string& list) {
    const auto source = ByteSource::Of(list, "batch.csv");
    try {
      RowFeed(*source).TakeHeader();
    } catch (const BatchError& raised) {
      return std::string(raised.what());
    }
    return std::string("none");
  };
  EXPECT_EQ(error("seq,screen,biller,amount"), "none");
  EXPECT_EQ(error("\"seq\",\"screen\",\"biller\",\"amount\"\r\n"), "none");
  EXPECT_EQ(error("\"seq,screen,biller,amount\n"), "batch.csv:1: the first line is not seq,screen,biller,amount");
  EXPECT_EQ(error("seq,screen,amount\n"), "batch.csv:1: the first line is not seq,screen,biller,amount");
  EXPECT_EQ(error(""), "batch.csv:1: the first line is not seq,screen,biller,amount");
  EXPECT_EQ(error("\xEF\xBB\xBFseq,screen,biller,amount\n"),
            "batch.csv:1: a byte-order mark; save the list without it");
  EXPECT_EQ(error("seq;screen;biller;amount\n0001;03;;1\n"),
            "batch.csv:1: its fields are separated by semicolons; save the list with commas");
  EXPECT_EQ(error("seq\tscreen\tbiller\tamount\r\n"),
            "batch.csv:1: its fields are separated by tabs; save the list with commas");
  EXPECT_EQ(error("seq,screen,biller,amount\r0001,03,,1\r"),
            "batch.csv:1: the lines end with CR alone; save the list with LF or CR LF");
  for (const std::string_view utf16 : {std::string_view("\xFF\xFEs\0e\0", 6), std::string_view("\xFE\xFF\0s\0e", 6),
                                       std::string_view("s\0e\0q\0", 6), std::string_view("\0s\0e\0q", 6)})
    EXPECT_EQ(error(std::string(utf16)), "batch.csv:1: the list is in UTF-16; save it in UTF-8");
  EXPECT_EQ(error(std::string("se\0q", 4)), "batch.csv:1: the first line is not seq,screen,biller,amount");
  EXPECT_EQ(error(std::string(1'000'000, ',')), "batch.csv:1: the first line is not seq,screen,biller,amount");
}

}  // namespace
}  // namespace fiscalon
