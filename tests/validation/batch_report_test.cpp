#include "validation/batch_report.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace fiscalon {
namespace {

TEST(CsvField, StandsInQuotesWhereItMust) {
  EXPECT_EQ(CsvField(""), "");
  EXPECT_EQ(CsvField("a; b~c 'd'\t"), "a; b~c 'd'\t");
  EXPECT_EQ(CsvField("a,b"), "\"a,b\"");
  EXPECT_EQ(CsvField("a\rb"), "\"a\rb\"");
  EXPECT_EQ(CsvField("a\nb"), "\"a\nb\"");
  EXPECT_EQ(CsvField("\"a\""), "\"\"\"a\"\"\"");
}

TEST(BatchReport, WritesFaultsAsCsv) {
  const Fault faults[] = {{.line = 12, .field = "0\xE9", .value = "1,\"2", .code = "not-required", .message = "a"},
                          {.line = 13, .code = "no-fields", .message = "b, c"}};
  std::string rows;
  AppendFaultRows(rows, {.seq = "0001", .screen = "03", .reason = "a, b, c", .faults = faults});
  EXPECT_EQ(rows,
            "0001,03,12,0\xC3\xA9,,\"1,\"\"2\",not-required,a\n"
            "0001,03,13,,,,no-fields,\"b, c\"\n");
}

TEST(BatchReport, WritesJsonLines) {
  const Fault faults[] = {
      {.line = 12, .field = "02", .name = "End", .value = "\"\\\t\x10\x1F \xE9", .code = "short", .message = "a"}};
  const PaymentVerdict bad{.seq = "0001", .screen = "03", .reason = "a", .faults = faults};
  std::string lines;
  AppendReportJson(lines, {.seq = "0000", .screen = "20"});
  AppendReportJson(lines, bad);
  EXPECT_EQ(lines,
            "{\"seq\":\"0000\",\"screen\":\"20\",\"valid\":true,\"reason\":\"\"}\n"
            "{\"seq\":\"0001\",\"screen\":\"03\",\"valid\":false,\"reason\":\"a\"}\n");
  lines.clear();
  AppendFaultJson(lines, bad);
  EXPECT_EQ(lines,
            "{\"seq\":\"0001\",\"screen\":\"03\",\"line\":12,\"field\":\"02\",\"name\":\"End\","
            "\"value\":\"\\\"\\\\\\u0009\\u0010\\u001f \xC3\xA9\",\"code\":\"short\",\"message\":\"a\"}\n");
}

TEST(ReasonCounts, ShowsTheMostFrequentFirst) {
  ReasonCounts counts;
  for (int i = 0; i < 3; ++i) counts.Add("b");
  counts.Add("a");
  std::ostringstream out;
  counts.Print(out);
  EXPECT_EQ(out.str(), "           3    75 %  b\n           1    25 %  a\n");
}

TEST(ReasonCounts, RoundsShares) {
  // 18 of 125 are 14.4 percent, 29 of 200 are 14.5, and 1449 of 10,000 a little less than that.
  const auto share = [](int few, int all) {
    ReasonCounts counts;
    for (int i = 0; i < all; ++i) counts.Add(i < few ? "few" : "many");
    std::ostringstream out;
    counts.Print(out);
    return out.str().substr(out.str().find('\n') + 1);
  };
  EXPECT_EQ(share(18, 125), "          18    14 %  few\n");
  EXPECT_EQ(share(29, 200), "          29    15 %  few\n");
  EXPECT_EQ(share(1449, 10'000), "        1449    14 %  few\n");
}

TEST(ReasonCounts, SumsUpWhatIsLeftOver) {
  ReasonCounts counts;
  for (int i = 0; i < 25; ++i) counts.Add("reason " + std::to_string(100 + i));
  std::ostringstream out;
  counts.Print(out);
  EXPECT_NE(out.str().find("reason 119\n"), std::string::npos);
  EXPECT_NE(out.str().find("           5    20 %  other reasons\n"), std::string::npos);
}

TEST(ReasonCounts, SumsUpWhatIsLeftOverEvenIfItIsOne) {
  ReasonCounts counts;
  for (int i = 0; i < 20; ++i) counts.Add("reason " + std::to_string(100 + i));
  const auto print = [&] {
    std::ostringstream out;
    counts.Print(out);
    return out.str();
  };
  EXPECT_TRUE(print().ends_with("           1     5 %  reason 119\n"));
  counts.Add("reason 120");
  EXPECT_TRUE(print().ends_with("           1     5 %  reason 119\n           1     5 %  other reasons\n"));
}

TEST(ReasonCounts, CountsReasonsWithoutEnd) {
  // More different ones than are kept: all count, and one that was kept still goes by its name.
  ReasonCounts counts;
  for (int i = 0; i < 10'005; ++i) counts.Add("reason " + std::to_string(i));
  counts.Add("reason 7");
  counts.Add("reason 10000");
  std::ostringstream out;
  counts.Print(out);
  EXPECT_TRUE(out.str().starts_with("           2     0 %  reason 7\n")) << out.str();
  EXPECT_NE(out.str().find("        9986   100 %  other reasons\n"), std::string::npos) << out.str();
  EXPECT_EQ(out.str().find("reason 10000\n"), std::string::npos);
}

}  // namespace
}  // namespace fiscalon
