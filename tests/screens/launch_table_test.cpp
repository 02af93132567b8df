#include <gmock/gmock.h>

#include <algorithm>

#include "core/launch.h"
#include "core/screen.h"
#include "core/session.h"
#include "tests/support/module_test.h"

namespace fiscalon::launch_table_test {
namespace {

using LaunchTableTest = ModuleTest;

TEST_F(LaunchTableTest, FormsBearTheNameOfTheirRow) {
  for (const LaunchRow& row : LaunchTable()) EXPECT_EQ(row.make()->Name(), row.form);
}

TEST_F(LaunchTableTest, TellsWhatEachFormCollects) {
  const std::pair<const char*, const char*> rows[] = {
      {"01", "Workers' compensation: period, classifications and assessments"},
      {"02", "Corporate income tax: amounts owing or an instalment (RC98, RC99, RC100)"},
      {"03", "Federal source deductions: gross payroll, employees, end of period"},
      {"04", "Individual income tax: year of the instalment"},
      {"05", "GST/HST return of a registrant (GST34)"},
      {"06", "GST remittance by category (GST58)"},
      {"07", "Any biller: period, due date and up to twelve coded items"},
      {"08", "The invoices that a payment settles"},
      {"10", "A donor's name and address"},
      {"11", "The invoices that a payment settles"},
      {"14", "Alberta Finance: tax program and period"},
      {"15", "Any biller: end of the taxation year and amount payable"},
      {"16", "Revenue Quebec: QST, or GST/HST, return"},
      {"17", "Any biller: an instalment for a period"},
      {"18", "Revenue Quebec: combined GST/HST and QST return"},
      {"19", "Revenue Quebec: GST/HST and QST instalment"},
      {"20", "Revenue Quebec: source deductions by kind"},
      {"25", "Revenue Quebec: CSST payment"},
      {"26", "Revenue Quebec: end of a remittance period"},
      {"27", "Revenue Quebec: month for which non-resident tax was withheld"},
      {"28", "Revenue Quebec: GST/HST return"},
  };
  for (const auto& [code, collects] : rows) EXPECT_EQ(FindLaunchRow(code)->collects, collects) << code;
}

using Order = std::vector<std::string_view>;

Order OrderOf(std::string_view code) {
  Order order;
  for (const LaunchProperty& property : FindLaunchRow(code)->properties) order.push_back(property.name);
  return order;
}

TEST_F(LaunchTableTest, MostFederalFormsReceiveTheCommonNine) {
  for (const std::string_view code : {"01", "02", "03", "04", "05", "06", "14"})
    EXPECT_EQ(OrderOf(code), (Order{"CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                                    "SeqNumber", "APHoldFlg", "WriteFile"}))
        << code;
}

TEST_F(LaunchTableTest, NumberOfItemsFollowsTheSequenceWhereAFormCollectsAsMany) {
  EXPECT_EQ(OrderOf("07"), (Order{"CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                                  "SeqNumber", "NumberOfInfoCollect", "APHoldFlg", "WriteFile"}));
}

TEST_F(LaunchTableTest, BusinessNameFollowsTheHoldFlagWhereAFormOffersIt) {
  EXPECT_EQ(OrderOf("10"), (Order{"CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                                  "SeqNumber", "APHoldFlg", "BusinessName", "WriteFile"}));
}

TEST_F(LaunchTableTest, BillerCodeFollowsTheHoldFlagWhereAFormTakesIt) {
  for (const std::string_view code : {"15", "16", "17", "18", "19", "20", "28"}) {
    EXPECT_EQ(OrderOf(code), (Order{"CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                                    "SeqNumber", "APHoldFlg", "CompCode", "WriteFile"}))
        << code;
  }
}

TEST_F(LaunchTableTest, ScreenCodeFollowsAllElseWhereOneFormServesThreeCodes) {
  for (const std::string_view code : {"25", "26", "27"}) {
    EXPECT_EQ(OrderOf(code), (Order{"CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                                    "SeqNumber", "APHoldFlg", "CompCode", "WriteFile", "ScreenType"}))
        << code;
  }
}

TEST_F(LaunchTableTest, EachPropertyReachesTheForm) {
  Levyra session;
  session.CompName("Summit Levies");
  session.PaidAmount("12345");
  session.PaidDate("06152026");
  session.EnterName("Nora Adams");
  session.EnterTitle("Clerk");
  session.GovFilename("records.pc4");
  session.SeqNumber("0007");
  session.APHoldFlg(1);
  session.CompCode("001052");
  session.WriteFile(kTrue);
  const LaunchRow& row = *FindLaunchRow("15");
  const std::shared_ptr<Screen> screen = row.make();
  for (const LaunchProperty& property : row.properties) property.set(session, row.code, *screen);
  EXPECT_EQ(screen->CompName(), "Summit Levies");
  EXPECT_EQ(screen->PaidAmount(), "123.45");
  EXPECT_EQ(screen->PaidDate(), "06152026");
  EXPECT_EQ(screen->EnterName(), "Nora Adams");
  EXPECT_EQ(screen->EnterTitle(), "Clerk");
  EXPECT_EQ(screen->GovFilename(), "records.pc4");
  EXPECT_EQ(screen->SeqNumber(), "0007");
  EXPECT_EQ(screen->APHoldFlg(), 1);
  EXPECT_EQ(screen->CompCode(), "001052");
  EXPECT_EQ(screen->WriteFile(), kTrue);
}

TEST_F(LaunchTableTest, OneScreenAloneIsSetUpBeforeItIsShown) {
  for (const LaunchRow& row : LaunchTable()) EXPECT_EQ(row.beforeShow != nullptr, row.code == "20") << row.code;
}

}  // namespace
}  // namespace fiscalon::launch_table_test
