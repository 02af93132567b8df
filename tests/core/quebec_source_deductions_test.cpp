#include "core/quebec_source_deductions.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/boolean.h"
#include "core/module_to_change.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

constexpr const char* kSentence = "Remittance Period must be in the form YYYYMM and be within the last 4 months";

class QuebecRoutines : public ModuleTest {
 protected:
  QuebecRoutines() {
    std::filesystem::create_directory(folder.Path("Zelmor"));
    ModuleToChange().mainPath = folder.Path();
  }

  bool Valid(std::string_view period, Batch batch = Batch::Yes) {
    message.clear();
    return IsValidRemittancePeriodQueRevSrcDeduct(period, "001052", batch, message);
  }

  TemporaryFolder folder;
  std::string message;
};

using RemittancePeriod = QuebecRoutines;
using RecalcForm = QuebecRoutines;

TEST_F(RemittancePeriod, TakesTheCurrentMonthAndTheFourBeforeIt) {
  for (const char* period : {"202606", "202605", "202604", "202603", "202602"}) EXPECT_TRUE(Valid(period)) << period;
  for (const char* period : {"202601", "202607", "202506", "202706"}) EXPECT_FALSE(Valid(period)) << period;
}

TEST_F(RemittancePeriod, ReachesBackOverTheYearsEnd) {
  SetToday({2026, 1, 31});
  EXPECT_TRUE(Valid("202509"));
  EXPECT_FALSE(Valid("202508"));
  EXPECT_FALSE(Valid("202602"));
}

TEST_F(RemittancePeriod, RefusesAShortALongAndAnImpossibleOne) {
  for (const char* period : {"", "20260", "2026061", "202613", "202600"}) EXPECT_FALSE(Valid(period)) << period;
}

TEST_F(RemittancePeriod, HandsABatchTheSentenceWithoutItsFullStop) {
  EXPECT_FALSE(Valid("202601"));
  EXPECT_EQ(message, kSentence);
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(RemittancePeriod, ShowsACriticalBoxOutsideABatch) {
  EXPECT_FALSE(Valid("202601", Batch::No));
  ASSERT_EQ(toolkit.boxes.size(), 1u);
  EXPECT_EQ(toolkit.boxes[0].text, std::string(kSentence) + ".");
  EXPECT_EQ(toolkit.boxes[0].style, MessageStyle::Critical);
  EXPECT_EQ(message, "");
}

TEST_F(RemittancePeriod, TheBillerCodeMakesNoDifference) {
  for (const char* code : {"001051", "001052", ""}) {
    EXPECT_TRUE(IsValidRemittancePeriodQueRevSrcDeduct("202606", code, Batch::Yes, message));
    EXPECT_FALSE(IsValidRemittancePeriodQueRevSrcDeduct("202601", code, Batch::Yes, message));
  }
}

TEST_F(RemittancePeriod, LettersInABatchAreLoggedSilentlyAndPass) {
  EXPECT_TRUE(Valid("2026AB"));
  EXPECT_EQ(message, "Error 13 - Type mismatch");
  EXPECT_TRUE(toolkit.boxes.empty());
  EXPECT_EQ(folder.Read("error.log"),
            "2026-06-15 1:05:09 p.m.,Fiscalon,,0,13,\"Type mismatch\","
            "\"modLevyra.IsValidRemittancePeriodQueRevSrcDeduct\"\r\n");
}

TEST_F(RemittancePeriod, LettersOutsideABatchShowTheErrorAndPass) {
  EXPECT_TRUE(Valid("2026AB", Batch::No));
  EXPECT_EQ(message, "");
  ASSERT_EQ(toolkit.boxes.size(), 1u);
  EXPECT_EQ(toolkit.boxes[0].text,
            "The following error: 'Type mismatch (Error 13)' occurred in procedure "
            "'modLevyra.IsValidRemittancePeriodQueRevSrcDeduct'.");
}

TEST_F(RemittancePeriod, AMonthBeyondTheLastYearIsAnErrorToo) {
  EXPECT_TRUE(Valid("999999"));
  EXPECT_EQ(message, "Error 5 - Invalid procedure call or argument");
}

TEST_F(RemittancePeriod, AnErrorLogThatCannotBeWrittenReachesTheCaller) {
  ModuleToChange().mainPath = folder.Path("nowhere");
  EXPECT_EQ(ErrorOf([&] { Valid("2026AB"); }), 76);
}

TEST_F(RemittancePeriod, LogsItsEntry) {
  ModuleToChange().playByPlayEnabled = kTrue;
  Valid("202606");
  EXPECT_EQ(folder.Read("Zelmor/PBP.txt"),
            "2026-06-15 1:05:09 p.m. FISCALON - modLevyra - IsValidRemittancePeriodQueRevSrcDeduct\r\n");
}

TEST_F(RecalcForm, AddsTheFiveAmounts) {
  std::string total = "before";
  RecalcFormQueRevSrcDeduct(total, "1.10", "20", "", "300.05", "abc");
  EXPECT_EQ(total, "321.15");
}

TEST_F(RecalcForm, RoundsToTwoDecimals) {
  std::string total;
  RecalcFormQueRevSrcDeduct(total, "0.005", "", "", "", "");
  EXPECT_EQ(total, "0.01");
  RecalcFormQueRevSrcDeduct(total, "-5", "2.5", "", "", "");
  EXPECT_EQ(total, "-2.50");
}

TEST_F(RemittancePeriod, TheYearIsReadBeforeTheMonth) {
  EXPECT_EQ(ErrorOf([] { IsRemittancePeriodInRange("2e97AB", {2026, 6, 15}); }), 6);
  EXPECT_EQ(ErrorOf([] { IsRemittancePeriodInRange("2026AB", {2026, 6, 15}); }), 13);
}

TEST_F(RecalcForm, WritesTheUsersDecimalSeparatorAndReadsThePoint) {
  SetLocale(FrenchCanada());
  std::string total;
  RecalcFormQueRevSrcDeduct(total, "1.50", "2,75", "", "", "");
  EXPECT_EQ(total, "3,50");
}

TEST_F(RecalcForm, AnOverflowIsShownAndLeavesTheTotal) {
  std::string total = "before";
  RecalcFormQueRevSrcDeduct(total, "922337203685478", "", "", "", "");
  EXPECT_EQ(total, "before");
  ASSERT_EQ(toolkit.boxes.size(), 1u);
  EXPECT_EQ(toolkit.boxes[0].text,
            "The following error: 'Overflow (Error 6)' occurred in procedure 'modLevyra.RecalcFormQueRevSrcDeduct'.");
}

TEST_F(RecalcForm, AnOverflowInABatchIsLoggedSilently) {
  std::string total = "before";
  RecalcFormQueRevSrcDeduct(total, "922337203685478", "", "", "", "", Batch::Yes);
  EXPECT_EQ(total, "before");
  EXPECT_TRUE(toolkit.boxes.empty());
  EXPECT_EQ(folder.Read("error.log"),
            "2026-06-15 1:05:09 p.m.,Fiscalon,,0,6,\"Overflow\",\"modLevyra.RecalcFormQueRevSrcDeduct\"\r\n");
}

TEST_F(RecalcForm, LogsItsEntry) {
  ModuleToChange().playByPlayEnabled = kTrue;
  std::string total;
  RecalcFormQueRevSrcDeduct(total, "", "", "", "", "");
  EXPECT_EQ(total, "0.00");
  EXPECT_EQ(folder.Read("Zelmor/PBP.txt"),
            "2026-06-15 1:05:09 p.m. FISCALON - modLevyra - RecalcFormQueRevSrcDeduct\r\n");
}

}  // namespace
}  // namespace fiscalon
