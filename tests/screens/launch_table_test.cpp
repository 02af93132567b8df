#include <gmock/gmock.h>

#include <algorithm>

#include "core/launch.h"
#include "core/screen_contract.h"
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

TEST_F(LaunchTableTest, BillerCodeFollowsTheHoldFlagWhereAFormTakesIt) {
  for (const std::string_view code : {"15", "16", "17", "18", "19", "20", "25", "26", "27", "28"}) {
    const LaunchRow& row = *FindLaunchRow(code);
    ASSERT_FALSE(row.ownProperties.empty()) << code;
    EXPECT_EQ(row.ownProperties[0].after, ContractProperty::APHoldFlg) << code;
    if (row.make == nullptr)
      continue;
    Levyra session;
    session.CompCode("001052");
    const std::shared_ptr<Screen> screen = row.make();
    row.ownProperties[0].set(session, code, *screen);
    EXPECT_EQ(screen->CompCode(), "001052") << code;
  }
}

TEST_F(LaunchTableTest, OldestFormsTakeNothingOfTheirOwn) {
  for (const std::string_view code : {"01", "02", "03", "04", "05", "06", "14"})
    EXPECT_TRUE(FindLaunchRow(code)->ownProperties.empty()) << code;
}

TEST_F(LaunchTableTest, OneScreenAloneIsSetUpBeforeItIsShown) {
  for (const LaunchRow& row : LaunchTable()) EXPECT_EQ(row.beforeShow != nullptr, row.code == "20") << row.code;
}

}  // namespace
}  // namespace fiscalon
