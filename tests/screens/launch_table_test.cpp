#include <gmock/gmock.h>

#include <algorithm>

#include "core/launch.h"
#include "core/screen.h"
#include "core/session.h"
#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

struct ExpectedRow {
  std::string_view code = {};
  std::string_view routine = {};
  std::string_view form = {};
};

constexpr ExpectedRow kExpected[] = {
    {"01", "ShowAssessmentForm", "Assessment"},
    {"02", "ShowCorpIncomeForm", "GOVCORPINCOME"},
    {"03", "ShowSourceDeductionForm", "GOVSOURCEDEDUCTION"},
    {"04", "ShowIndividualForm", "GOVINDIDUAL"},
    {"05", "ShowGST34Form", "GOVGST34"},
    {"06", "ShowGST58Form", "GOVGST58"},
    {"07", "ShowGenericForm", "GENERICFORM"},
    {"08", "ShowInvPaymentsForm", "InvoicePayments"},
    {"10", "ShowPaymentFrom", "frmDonation"},
    {"11", "ShowInvPaymentsForm", "InvoicePayments"},
    {"14", "ShowAlbertaRevenueForm", "frmAlbertaRevenue"},
    {"15", "ShowDueDateAmountForm", "frmDueDateAmount"},
    {"16", "ShowQue_Rev_QSTForm", "frmQue_Rev_QST"},
    {"17", "ShowInstalmentForm", "frmInstalments"},
    {"18", "ShowQue_Rev_QSTGSTReturnForm", "frmQue_Rev_QSTGSTComb"},
    {"19", "ShowQue_Rev_QSTGSTInstForm", "frmQue_Rev_QSTGSTInst"},
    {"20", "ShowQue_Rev_SourceDeductForm", "frmQue_Rev_SourceDeduct"},
    {"25", "ShowQue_Rev_CSST_Payments", "frmQue_Rev_CSST_Payments"},
    {"26", "ShowQue_Rev_CSST_Payments", "frmQue_Rev_CSST_Payments"},
    {"27", "ShowQue_Rev_CSST_Payments", "frmQue_Rev_CSST_Payments"},
    {"28", "ShowQue_Rev_GSTForm", "frmQue_Rev_GST"},
};

using LaunchTableTest = ModuleTest;

TEST_F(LaunchTableTest, HasEveryScreenCodeWithItsRoutineAndForm) {
  for (const ExpectedRow& expected : kExpected) {
    const LaunchRow* const row = FindLaunchRow(expected.code);
    ASSERT_NE(row, nullptr) << expected.code;
    EXPECT_EQ(row->routine, expected.routine) << expected.code;
    EXPECT_EQ(row->form, expected.form) << expected.code;
    EXPECT_NE(row->collects, "") << expected.code;
  }
}

TEST_F(LaunchTableTest, HasNoOtherCode) {
  EXPECT_EQ(LaunchTable().size(), std::size(kExpected));
  for (const std::string_view code : {"", "1", "015", "15 ", " 15", "1\0005", "AA"})
    EXPECT_EQ(FindLaunchRow(code), nullptr);
  int valid = 0;
  for (char tens = '0'; tens <= '9'; ++tens)
    for (char units = '0'; units <= '9'; ++units) valid += FindLaunchRow(std::string{tens, units}) != nullptr ? 1 : 0;
  EXPECT_EQ(valid, 21);
}

TEST_F(LaunchTableTest, FormsThatExistBearTheNameOfTheirRow) {
  int existing = 0;
  for (const LaunchRow& row : LaunchTable()) {
    if (row.make == nullptr)
      continue;
    EXPECT_EQ(row.make()->Name(), row.form);
    ++existing;
  }
  EXPECT_GE(existing, 3);
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
}  // namespace fiscalon
