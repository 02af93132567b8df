#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/layout.h"
#include "core/launch.h"
#include "core/screen.h"

namespace fiscalon::every_form_test {
namespace {

/// A screen code with its launch routine and its form.
struct Launched {
  std::string_view code = {};
  std::string_view routine = {};
  std::string_view form = {};
};

constexpr Launched kLaunched[] = {
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

/// A form's controls by their tab indexes; those that have none come last, as "-".
struct TabOrder {
  std::string_view code = {};
  std::vector<std::string> controls = {};
  /// The button that Escape presses; empty where it presses none.
  std::string_view escape = {};
};

// clang-format off
const std::vector<TabOrder> kTabOrders = {
    {"01", {"3 WCBstatementonly(0)", "4 WCBstatementonly(1)", "5 WCBperiodfrommm", "6 WCBperiodtomm", "7 WCBperiodyyyy",
            "8 WCBclass(0)", "9 WCBassessment(0)", "10 WCBclass(1)", "11 WCBassessment(1)", "12 WCBclass(2)",
            "13 WCBassessment(2)", "14 WCBclass(3)", "15 WCBassessment(3)", "16 WCBclass(4)", "17 WCBassessment(4)",
            "18 WCBclass(5)", "19 WCBassessment(5)", "- WCBpayeename", "- Command3D6", "- Command3D5", "- Command3D4"}},
    {"02", {"0 optRC99", "1 optRC100", "3 ArrearsPayment", "4 InstalmentPayment", "5 EndDate", "6 Command3D6",
            "7 Command3D5", "8 Command3D4", "19 PayeeName"}},
    {"03", {"1 GrossPayroll", "2 NumberOfEmployees", "3 EndDate", "4 PaymentAmount", "19 PayeeName", "- Command3D6",
            "- Command3D5", "- Command3D4"}},
    {"04", {"2 PayYear", "3 PaymentAmount", "15 PayeeName", "- Command3D6", "- Command3D5", "- Command3D4"}},
    {"05", {"1 PeriodStartDate", "2 PeriodEndDate", "3 SalesRevenue", "4 InstalmentPayment", "5 Rebates",
            "6 RealProperty", "7 ImportedTax", "8 TotalGST", "9 TotalITCs", "10 NetTax", "11 RefundAmount",
            "12 PaymentEnclosed", "36 PayeeName", "- Command1", "- Command2", "- Command3"}},
    {"06", {"1 PeriodStartDate", "2 PeriodEndDate", "3 InstalmentPayment", "4 ArrearsPayment", "5 OtherPayment",
            "6 AuditAssessment", "7 NetTaxDue", "8 PaymentEnclosed", "28 PayeeName", "- Command3D6", "- Command3D5",
            "- Command3D4"}},
    {"07", {"1 StatementOnly(0)", "2 StatementOnly(1)", "3 PeriodStartDate", "4 PeriodEndDate", "5 DueDate", "6 Box(0)",
            "35 PayeeName", "36 Box(1)", "37 Box(2)", "38 Box(3)", "39 Box(4)", "40 Box(5)", "41 Box(6)", "42 Box(7)",
            "43 Box(8)", "44 Box(9)", "45 Box(10)", "46 Box(11)", "47 Box(12)", "48 Box(13)", "- Command3D6",
            "- Command3D5", "- Command3D4"}},
    {"08", {"1 InvoiceStatementOnly(0)", "2 InvoiceStatementOnly(1)", "3 InvoiceDate", "4 InvoiceNumber",
            "5 InvoiceAmount", "6 InvoicePaymentList", "7 CancelInvoice", "19 InvoicePayeeName", "20 cmdOK",
            "21 cmdCancel", "22 cmdHelp"}},
    {"10", {"0 txtName", "1 txtAddress", "2 txtCity", "3 cmbProvince", "4 txtPostalCode", "5 txtEmail", "6 txtPhoneNo1",
            "7 txtPhoneNo2", "8 txtPhoneNo3", "9 txtAmount", "10 txtPurpose", "- cmdOK", "- cmdCancel"}},
    {"14", {"0 cmbTaxProgram", "1 txtPeriodEndDate", "2 txtFacilityNumber", "- cmdOK", "- cmdCancel"}},
    {"15", {"0 txtRemittancePeriod", "1 txtAmountPayable", "2 cmdOK", "3 cmdCancel"}, "cmdCancel"},
    {"16", {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtSupplies", "3 txtTaxCollectible", "4 txtITRs", "5 txtInstalments",
            "6 txtOtherRebates", "7 txtNewHousingRebates", "8 cmdOK", "9 cmdCancel", "22 txtAmountPayable"}, "cmdCancel"},
    {"17", {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtAmountPayable", "3 cmdOK", "4 cmdCancel"}, "cmdCancel"},
    {"18", {"0 txtGSTAccountNumber", "1 txtGSTPeriodFrom", "2 txtGSTPeriodTo", "3 txtQSTPeriodFrom", "4 txtQSTPeriodTo",
            "5 txtGSTCollectible", "6 txtGSTITCs", "7 txtGSTInstalment", "8 txtOtherGSTHSTRebates",
            "9 txtNewHousingRebate", "10 txtQSTCollectible", "11 txtQSTITRs", "12 txtQSTInstalment",
            "13 txtOtherQSTRebates", "14 txtSupplies", "15 cmdOK", "16 cmdCancel", "29 txtGSTPayable",
            "34 txtQSTPayable", "39 txtAmountPayable"}, "cmdCancel"},
    {"19", {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtGSTInstalment", "3 txtQSTInstalment", "4 cmdOK", "5 cmdCancel",
            "16 txtAmountPayable"}, "cmdCancel"},
    {"20", {"0 txtRemittancePeriod", "1 txtIncomeTaxWithheld", "2 txtQPP", "3 txtHealthFund", "4 txtQPIP", "5 txtCSST",
            "6 cmbRemittanceType", "7 cmdOK", "8 cmdCancel", "14 txtAmountPayable"}, "cmdCancel"},
    {"25", {"0 txtRemittancePeriod", "1 cmdOK", "2 cmdCancel", "3 txtYear", "4 txtMonth", "12 txtAmountPayable"}, "cmdCancel"},
    {"28", {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtSupplies", "3 txtTaxCollectible", "4 txtITRs", "5 txtInstalments",
            "6 txtOtherRebates", "7 txtNewHousingRebates", "8 txtExemptSupplies", "9 txtAssociatesTaxableSales",
            "10 txtPensionPlanRebate", "11 cmdOK", "12 cmdCancel", "25 txtAmountPayable"}, "cmdCancel"},
};
// clang-format on

TEST(Launch, FindsEveryScreenCodeWithItsRoutineAndForm) {
  for (const Launched& expected : kLaunched) {
    const LaunchRow* const row = FindLaunchRow(expected.code);
    ASSERT_NE(row, nullptr) << expected.code;
    EXPECT_EQ(row->routine, expected.routine) << expected.code;
    EXPECT_EQ(row->form, expected.form) << expected.code;
    EXPECT_NE(row->collects, "") << expected.code;
  }
}

TEST(Launch, KnowsNoOtherCode) {
  EXPECT_EQ(LaunchTable().size(), std::size(kLaunched));
  for (const std::string_view code : {"", "1", "015", "15 ", " 15", "1\0005", "AA"})
    EXPECT_EQ(FindLaunchRow(code), nullptr);
  int valid = 0;
  for (char tens = '0'; tens <= '9'; ++tens)
    for (char units = '0'; units <= '9'; ++units) valid += FindLaunchRow(std::string{tens, units}) != nullptr ? 1 : 0;
  EXPECT_EQ(static_cast<size_t>(valid), std::size(kLaunched));
}

TEST(TabOrder, IsThatOfTheTabIndexesOnEveryForm) {
  for (const TabOrder& expected : kTabOrders) {
    SCOPED_TRACE(expected.code);
    const std::shared_ptr<Screen> screen = FindLaunchRow(expected.code)->make();
    std::vector<std::string> controls;
    for (const Control* control : screen->TabOrder())
      controls.push_back((control->TabIndex() < 0 ? "-" : std::to_string(control->TabIndex())) + " " + control->Name());
    EXPECT_THAT(controls, testing::ElementsAreArray(expected.controls));
  }
}

TEST(TabOrder, IsToldOfEveryForm) {
  for (const LaunchRow& row : LaunchTable()) {
    const auto told = [&row](const TabOrder& order) { return FindLaunchRow(order.code)->form == row.form; };
    EXPECT_TRUE(std::any_of(kTabOrders.begin(), kTabOrders.end(), told)) << row.form;
  }
}

TEST(Escape, PressesTheButtonThatIsToldOfEveryForm) {
  for (const TabOrder& expected : kTabOrders) {
    SCOPED_TRACE(expected.code);
    const std::shared_ptr<Screen> screen = FindLaunchRow(expected.code)->make();
    std::string pressed;
    for (const Control* control : screen->Controls())
      if (const auto* button = dynamic_cast<const Button*>(control); button != nullptr && button->Designed().cancel)
        pressed += button->Name();
    EXPECT_EQ(pressed, expected.escape);
  }
}

std::set<const Control*> ControlsOf(const Layout& layout) {
  std::set<const Control*> controls(layout.buttons.begin(), layout.buttons.end());
  for (const Group& group : layout.groups) {
    controls.insert(group.heading);
    for (const Row& row : group.rows)
      for (const Cell& cell : row.cells) controls.insert({cell.caption, cell.field, cell.hint});
  }
  return controls;
}

// What a layout forgets is shown behind all the rest.
TEST(Layouts, TellWhereEachControlOfEveryFormStands) {
  for (const LaunchRow& row : LaunchTable()) {
    SCOPED_TRACE(row.code);
    const std::shared_ptr<Screen> screen = row.make();
    const std::set<const Control*> told = ControlsOf(screen->FormLayout());
    for (const Control* control : screen->Controls()) {
      // A frame around all of a group is told by what lies in it.
      if (control->Kind() != ControlKind::Frame) {
        EXPECT_TRUE(told.contains(control)) << control->Name();
      }
    }
  }
}

}  // namespace
}  // namespace fiscalon::every_form_test
