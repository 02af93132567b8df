#include "core/records/field_names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/launch.h"

namespace fiscalon {
namespace {

std::vector<std::string_view> NamesOf(std::string_view screen) {
  std::vector<std::string_view> names;
  for (const FieldName& field : FieldNamesOf(screen)) names.push_back(field.name);
  return names;
}

using Names = std::vector<std::string_view>;

// They read as the forms do, in the order of the records: not in that of the controls.
TEST(FieldTable, NamesTheFieldsOfTheFederalScreens) {
  EXPECT_EQ(NamesOf("01"),
            (Names{"Classification", "Assessment", "Classification", "Assessment", "Classification", "Assessment",
                   "Classification", "Assessment", "Classification", "Assessment", "Classification", "Assessment"}));
  EXPECT_EQ(NamesOf("02"), (Names{"Instalment Payment", "Remittance Period Ending", "Amounts Owing Payment"}));
  EXPECT_EQ(NamesOf("03"), (Names{"Amount of Payment", "End of Remitting Period", "Gross Payroll in Remitting Period",
                                  "Number of Employees"}));
  EXPECT_EQ(NamesOf("04"), (Names{"Instalment Payment for", "Amount of Payment"}));
  EXPECT_EQ(NamesOf("05"),
            (Names{"Sales and Other Revenue (101)", "Total GST/HST and adjustments for period (105)",
                   "Instalments and Other Annual Filer Payments (110)", "Total ITCs and adjustments (108)",
                   "Rebates (111)", "Net tax (109)", "GST/HST due on acquisition of taxable real property (205)",
                   "Refund claimed (114)", "Other GST/HST to be self-assessed (405)", "Payment enclosed (115)"}));
  EXPECT_EQ(NamesOf("06"), (Names{"Instalment Payment", "Arrears Payment", "Audit Assessment", "Other Payment",
                                  "Total Payment Enclosed", "Net Tax Remittance"}));
}

TEST(FieldTable, NamesTheFieldsOfTheGeneralScreens) {
  EXPECT_EQ(NamesOf("07"),
            (Names{"A-01", "B-02", "C-03", "D-04", "E-05", "F-06", "G-07", "H-08", "I-09", "J-10", "K-11", "L-12"}));
  EXPECT_EQ(NamesOf("14"), (Names{"Tax Program", "Facility Number"}));
  EXPECT_EQ(NamesOf("15"), Names{"Amount payable"});
  EXPECT_EQ(NamesOf("17"), Names{"Instalment Amount"});
}

TEST(FieldTable, NamesTheFieldsOfTheQuebecScreens) {
  EXPECT_EQ(NamesOf("16"),
            (Names{"Supplies (sales figure) (201, GST/HST 101)", "Tax collectible and adjustments (205, GST/HST 105)",
                   "ITRs and adjustments (208, GST/HST ITCs 108)", "Instalments (210, GST/HST 110)",
                   "Payable or refund (213, GST/HST 113)", "Other Rebates (211, GST/HST 111)",
                   "New Housing Rebate Included in the ITCs (135)"}));
  EXPECT_EQ(NamesOf("18"),
            (Names{"Supplies (sales figure) (101)", "QST collectible and adjustments (205)",
                   "ITRs payable and adjustments (208)", "QST instalment (210)", "QST payable or refund (213)",
                   "GST/HST collectible and adjustments (105)", "ITCs payable and adjustments (108)",
                   "GST/HST instalment (110)", "GST/HST payable or refund (113)", "GST account number", "GST/HST From",
                   "GST/HST To", "Other QST Rebates (211)", "Other GST/HST Rebates (111)",
                   "New Housing Rebate Included in the ITCs (135)"}));
  EXPECT_EQ(NamesOf("19"), (Names{"QST Instalment", "GST/HST Instalment"}));
  EXPECT_EQ(NamesOf("20"),
            (Names{"Income tax withheld and compensation tax", "QPP contributions",
                   "Contribution to the health services fund", "QPIP premiums", "Remittance Type", "CSST payments"}));
  EXPECT_EQ(NamesOf("25"), Names{"CSST Payable"});
  EXPECT_EQ(NamesOf("27"), Names{"Month for which non-resident tax was withheld"});
  EXPECT_EQ(
      NamesOf("28"),
      (Names{"Supplies (sales figure) (101)", "GST/HST collectible and adjustments (105)", "ITCs and adjustments (108)",
             "GST/HST instalments (110)", "GST/HST payable or refund (113)", "Other GST/HST Rebates (111)",
             "New Housing Rebate Included in the ITCs (135)", "Pension plan rebate included in the ITCs (136)",
             "Exempt supplies, zero-rated exports, and other sales (91)",
             "Associates' taxable sales made in Canada (102)"}));
}

TEST(FieldTable, HasNothingOfScreensWithoutSuchRecords) {
  EXPECT_EQ(FieldNameOf("03", "05"), "");
  EXPECT_TRUE(FieldNamesOf("10").empty());
  EXPECT_TRUE(FieldNamesOf("26").empty());
}

TEST(FieldTable, TellsWhatTheValuesAre) {
  const auto kind = [](std::string_view screen, std::string_view number) { return FindField(screen, number)->kind; };
  EXPECT_EQ(kind("01", "11"), FieldKind::Text);
  EXPECT_EQ(kind("01", "12"), FieldKind::Amount);
  EXPECT_EQ(kind("02", "02"), FieldKind::Date);
  EXPECT_EQ(kind("03", "01"), FieldKind::Amount);
  EXPECT_EQ(kind("03", "03"), FieldKind::WholeDollars);
  EXPECT_EQ(kind("03", "04"), FieldKind::Count);
  EXPECT_EQ(kind("04", "01"), FieldKind::Year);
  EXPECT_EQ(kind("05", "01"), FieldKind::WholeDollars);
  EXPECT_EQ(kind("05", "06"), FieldKind::Amount);
  EXPECT_EQ(kind("07", "12"), FieldKind::Text);
  EXPECT_EQ(kind("14", "01"), FieldKind::Count);
  EXPECT_EQ(kind("14", "02"), FieldKind::Count);
  EXPECT_EQ(kind("18", "09"), FieldKind::Amount);
  EXPECT_EQ(kind("18", "10"), FieldKind::Text);
  EXPECT_EQ(kind("18", "11"), FieldKind::Date);
  EXPECT_EQ(kind("18", "12"), FieldKind::Date);
  EXPECT_EQ(kind("20", "05"), FieldKind::Count);
  EXPECT_EQ(kind("27", "01"), FieldKind::Month);
}

// The rest of the screens collect nothing but amounts.
TEST(FieldTable, HasAmountsOnTheOtherScreens) {
  for (const std::string_view code : {"06", "15", "16", "17", "19", "25", "28"})
    for (const FieldName& field : FieldNamesOf(code))
      EXPECT_EQ(field.kind, FieldKind::Amount) << code << ' ' << field.number;
}

TEST(FieldTable, StandsInTheOrderOfCodesAndNumbers) {
  std::string_view before;
  for (const ScreenFields& screen : FieldTable()) {
    EXPECT_LT(before, screen.code);
    EXPECT_NE(FindLaunchRow(screen.code), nullptr) << screen.code;
    before = screen.code;
    int number = 0;
    for (const FieldName& field : screen.names) {
      ++number;
      EXPECT_EQ(field.number, (number < 10 ? "0" : "") + std::to_string(number)) << screen.code;
      EXPECT_FALSE(field.name.empty()) << screen.code;
    }
    EXPECT_GT(number, 0) << screen.code;
  }
}

}  // namespace
}  // namespace fiscalon
