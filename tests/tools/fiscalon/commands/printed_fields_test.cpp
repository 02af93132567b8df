#include "tools/fiscalon/commands/printed_fields.h"

#include <gtest/gtest.h>

#include "core/launch.h"
#include "tests/support/random_records.h"
#include "tests/support/ruled_record.h"
#include "tools/fiscalon/commands/shown_json.h"
#include "tools/fiscalon/commands/shown_text.h"
#include "tools/reading/record_taker.h"

namespace fiscalon {
namespace {

/// A record by a printer that has printed none before it.
std::string TextAlone(const ShownRecord& record, const ShownStyle& style) {
  std::string text;
  RecordPrinter(style).Append(text, record);
  return text;
}

std::string JsonAlone(const ShownRecord& record) {
  std::string text;
  JsonPrinter().Append(text, record);
  return text;
}

TEST(PrintedFields, AreThoseOfTheRecordWhateverWasPrintedBeforeIt) {
  ShownStyle folded;
  folded.paint = Paint(true);
  folded.width = 60;
  for (const std::string_view screen : {"", "03", "15"}) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
      RandomRecords records(seed);
      RecordTaker taker(FindLaunchRow(screen));
      RecordPrinter plain({});
      RecordPrinter painted(folded);
      JsonPrinter json;
      for (int i = 0; i < 300; ++i) {
        const std::string record = records.Next();
        ShownRecord shown;
        taker.Take(record, shown);
        // Not all that is taken apart is printed.
        if (records.Upto(4) == 0)
          continue;
        std::string text = "before";
        plain.Append(text, shown);
        ASSERT_EQ(text, "before" + TextAlone(shown, {})) << "seed " << seed;
        text.clear();
        painted.Append(text, shown);
        ASSERT_EQ(text, TextAlone(shown, folded)) << "seed " << seed;
        text.clear();
        json.Append(text, shown);
        ASSERT_EQ(text, JsonAlone(shown)) << "seed " << seed;
      }
    }
  }
}

TEST(PrintedFields, AreThoseOfTheRecordWhoeverTookItApart) {
  // As the bad payments of a batch are: each by the screen that it comes from.
  const std::string record = Ruled("PC40001F04000000000000000012");
  JsonPrinter json;
  for (uint64_t number = 1; number <= 6; ++number) {
    RecordTaker taker(FindLaunchRow(number % 2 == 0 ? "03" : "15"), number);
    ShownRecord shown;
    taker.Take(record, shown);
    std::string text;
    json.Append(text, shown);
    EXPECT_EQ(text, JsonAlone(shown));
  }
}

/// How the fields of two records of a kind are printed, the second of them.
template <typename Printer>
std::string SecondOf(Printer& printer, const std::string& first, const std::string& second) {
  RecordTaker taker(nullptr);
  std::string text;
  for (const std::string& record : {Ruled("PC40001T"), first, second}) {
    ShownRecord shown;
    taker.Take(record, shown);
    text.clear();
    printer.Append(text, shown);
  }
  return text;
}

TEST(PrintedFields, AreCopiedAroundThoseThatChange) {
  const std::string first = Ruled("PC40001F01000000000000000100022026              03000000000000000007");
  const std::string second = Ruled("PC40001F04000000000000012345052026              06000000000000000007");
  RecordPrinter printer({});
  const std::string text = SecondOf(printer, first, second);
  EXPECT_EQ(text.substr(text.find("|\n") + 2),
            "       9-10  FieldNum    \"04\"\n"
            "      11-28  FieldValue  \"000000000000012345\"  12345, as cents $123.45\n"
            "      29-30  FieldNum    \"05\"\n"
            "      31-48  FieldValue  \"2026··············\"  4 of 18 characters\n"
            "      49-50  FieldNum    \"06\"\n"
            "      51-68  FieldValue  \"000000000000000007\"  7, as cents $0.07\n"
            "      69-70  FieldNum    \"··\"                  blank\n"
            "      71-88  FieldValue  \"··················\"  blank\n"
            "\n");
  JsonPrinter json;
  const std::string line = SecondOf(json, first, second);
  const std::string fields = line.substr(line.find("\"fields\""));
  EXPECT_EQ(
      fields.substr(0, fields.find(",{\"name\":\"FieldNum\",\"from\":69")),
      R"("fields":[{"name":"FieldNum","from":9,"to":10,"text":"04","sense":"number","meaning":""},)"
      R"({"name":"FieldValue","from":11,"to":28,"text":"000000000000012345","sense":"digits","meaning":"123.45"},)"
      R"({"name":"FieldNum","from":29,"to":30,"text":"05","sense":"number","meaning":""},)"
      R"({"name":"FieldValue","from":31,"to":48,"text":"2026              ","sense":"text","meaning":"2026"},)"
      R"({"name":"FieldNum","from":49,"to":50,"text":"06","sense":"number","meaning":""},)"
      R"({"name":"FieldValue","from":51,"to":68,"text":"000000000000000007","sense":"digits","meaning":"0.07"})");
}

}  // namespace
}  // namespace fiscalon
