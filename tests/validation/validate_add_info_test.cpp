#include "validation/validate_add_info.h"

#include <gtest/gtest.h>

#include "core/boolean.h"
#include "core/module_to_change.h"
#include "tests/support/bulk_payment.h"
#include "tests/support/logged_test.h"
#include "tests/support/raises.h"

namespace fiscalon {
namespace {

/// What the error log says of an error, in the one line that a test leaves there.
std::string LogLine(std::string_view error) {
  return "2026-06-15 1:05:09 p.m.,Fiscalon,,0," + std::string(error) + "\r\n";
}

class ClsValidateAddInfo : public LoggedTest {
 protected:
  /// "valid", or the reason.
  std::string Check(const BulkPayment& payment) {
    validator.ScreenCode(payment.screen);
    validator.BillerCode(payment.biller);
    validator.PaymentAmount(payment.amount);
    validator.PC4Records(payment.Collection());
    const bool valid = validator.IsInfoValid();
    EXPECT_EQ(valid, validator.InvalidReason().empty());
    return valid ? "valid" : validator.InvalidReason();
  }

  clsValidateAddInfo validator;
};

TEST_F(ClsValidateAddInfo, StartsEmpty) {
  EXPECT_EQ(validator.ScreenCode() + validator.NumberOfFields() + validator.BillerCode() + validator.BillerName() +
                validator.PaymentDate() + validator.PaymentAmount() + validator.InvalidReason(),
            "");
  EXPECT_EQ(validator.PC4Records(), nullptr);
  EXPECT_EQ(validator.PC4GovFormatRecords(), nullptr);
  EXPECT_EQ(validator.PC4FreeFormatRecords(), nullptr);
}

TEST_F(ClsValidateAddInfo, JudgesEachOfManyRecords) {
  // One "T" record and from one to twelve "F" records, the last of which holds what is not required.
  Fields fields = GoodAgencyFields();
  for (int records = 1; records <= 12; ++records) {
    EXPECT_EQ(Check(AgencyPayment(fields)), "valid") << records;
    Fields spoilt = fields;
    spoilt.push_back({"09", "1"});
    EXPECT_EQ(Check(AgencyPayment(spoilt)), "Field 09 is not required") << records;
    for (int slot = 0; slot < 4; ++slot) fields.push_back({"09", ""});
  }
}

TEST_F(ClsValidateAddInfo, KeepsWhatAHostSets) {
  validator.ScreenCode("03");
  validator.NumberOfFields("4");
  validator.BillerCode("001052");
  validator.BillerName("Summit Levies");
  validator.PaymentDate("06152026");
  validator.InvalidReason("set");
  EXPECT_EQ(validator.ScreenCode(), "03");
  EXPECT_EQ(validator.NumberOfFields(), "4");
  EXPECT_EQ(validator.BillerCode(), "001052");
  EXPECT_EQ(validator.BillerName(), "Summit Levies");
  EXPECT_EQ(validator.PaymentDate(), "06152026");
  EXPECT_EQ(validator.InvalidReason(), "set");
  const auto records = std::make_shared<PC4s>();
  validator.PC4Records(records);
  EXPECT_EQ(validator.PC4Records(), records);
  const auto periods = std::make_shared<clsPC4GovFormats>();
  const auto slots = std::make_shared<clsPC4FreeFormats>();
  validator.PC4GovFormatRecords(periods);
  validator.PC4FreeFormatRecords(slots);
  EXPECT_EQ(validator.PC4GovFormatRecords(), periods);
  EXPECT_EQ(validator.PC4FreeFormatRecords(), slots);
}

TEST_F(ClsValidateAddInfo, ReadsThePaymentAmountAsCentsAndKeepsDollars) {
  validator.PaymentAmount("12345");
  EXPECT_EQ(validator.PaymentAmount(), "123.45");
  validator.PaymentAmount("5");
  EXPECT_EQ(validator.PaymentAmount(), ".05");
  validator.PaymentAmount("abc");
  EXPECT_EQ(validator.PaymentAmount(), "0");
}

TEST_F(ClsValidateAddInfo, HoldsRecordsAgainstNothingUntilAnAmountIsSet) {
  validator.ScreenCode("03");
  const auto check = [&](const std::string& cents) {
    validator.PC4Records(AgencyPayment(With(GoodAgencyFields(), "01", cents)).Collection());
    validator.IsInfoValid();
    return validator.InvalidReason();
  };
  EXPECT_EQ(check("000000000000000000"), "");
  EXPECT_EQ(check("000000000000000001"), "Field 01 Amount of Payment is not equal to amount to be paid");
  EXPECT_EQ(check("000000000000000100"), "Field 01 Amount of Payment is not equal to amount to be paid");
}

TEST_F(ClsValidateAddInfo, SwitchesTheModulesPlayByPlay) {
  clsValidateAddInfo::PlayByPlayEnabled(7);
  EXPECT_EQ(TheModule().playByPlayEnabled, 7);
}

TEST_F(ClsValidateAddInfo, TakesGoodPaymentsOfBothScreens) {
  EXPECT_EQ(Check(AgencyPayment(GoodAgencyFields())), "valid");
  EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields())), "valid");
}

TEST_F(ClsValidateAddInfo, OtherScreenCodesAreNotSupported) {
  for (const char* code : {"04", "", "3", "03 ", "200"}) {
    BulkPayment payment = AgencyPayment(GoodAgencyFields());
    payment.screen = code;
    EXPECT_EQ(Check(payment), "Invalid or not supported Screen Type") << code;
  }
}

TEST_F(ClsValidateAddInfo, PassesOverOtherKinds) {
  BulkPayment payment = AgencyPayment(GoodAgencyFields());
  payment.records.insert(payment.records.begin(), "PC40001P01not a number");
  payment.records.push_back("PC40001G");
  payment.records.push_back("short");
  EXPECT_EQ(Check(payment), "valid");
}

TEST_F(ClsValidateAddInfo, EachSlotOfTwoRecordsIsJudged) {
  Fields fields = GoodAgencyFields();
  for (const char* number : {"05", "06", "07", "08"}) fields.push_back({number, "1"});
  EXPECT_EQ(Check(AgencyPayment(fields)),
            "Field 05 is not required, Field 06 is not required, Field 07 is not required, Field 08 is not required");
}

TEST_F(ClsValidateAddInfo, ASecondCheckReplacesTheReason) {
  EXPECT_EQ(Check(AgencyPayment(With(GoodAgencyFields(), "04", ""))), "Field 04 Number of Employees cannot be blank");
  EXPECT_EQ(Check(AgencyPayment(With(GoodAgencyFields(), "02", ""))),
            "Field 02 End of Remitting Period cannot be blank");
  EXPECT_EQ(Check(AgencyPayment(GoodAgencyFields())), "valid");
}

TEST_F(ClsValidateAddInfo, LeavesNoWorkingRecords) {
  validator.PC4GovFormatRecords(std::make_shared<clsPC4GovFormats>());
  validator.PC4FreeFormatRecords(std::make_shared<clsPC4FreeFormats>());
  Check(AgencyPayment(With(GoodAgencyFields(), "04", "")));
  EXPECT_EQ(validator.PC4GovFormatRecords(), nullptr);
  EXPECT_EQ(validator.PC4FreeFormatRecords(), nullptr);
}

TEST_F(ClsValidateAddInfo, WithoutRecordsReportsError91) {
  validator.ScreenCode("03");
  validator.PC4FreeFormatRecords(std::make_shared<clsPC4FreeFormats>());
  validator.PC4FreeFormatRecords()->Add("01");
  EXPECT_FALSE(validator.IsInfoValid());
  EXPECT_EQ(validator.InvalidReason(), "Error 91 - Object variable or With block variable not set");
  EXPECT_EQ(ErrorLog(), LogLine("91,\"Object variable or With block variable not set\","
                                "\"clsValidateAddInfo.IsInfoValid at line 0\""));
  ASSERT_NE(validator.PC4FreeFormatRecords(), nullptr);
  EXPECT_EQ(validator.PC4FreeFormatRecords()->Count(), 0);
  EXPECT_EQ(validator.PC4GovFormatRecords()->Count(), 0);
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(ClsValidateAddInfo, AnErrorInARuleReplacesAllReasons) {
  Fields fields = With(GoodAgencyFields(), "01", "");
  EXPECT_EQ(Check(AgencyPayment(With(fields, "02", "2026AB31"))), "Error 13 - Type mismatch");
  EXPECT_EQ(ErrorLog(), LogLine("13,\"Type mismatch\",\"clsValidateAddInfo.ValidateCRASourceDeduction at line 0\""));
  EXPECT_EQ(validator.PC4FreeFormatRecords(), nullptr);
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(ClsValidateAddInfo, GrossPayrollAbove2147483647CentsOverflows) {
  EXPECT_EQ(Check(AgencyPayment(With(GoodAgencyFields(), "03", "000000002147483600"))), "valid");
  EXPECT_EQ(Check(AgencyPayment(With(GoodAgencyFields(), "03", "000000002147483700"))), "Error 6 - Overflow");
}

TEST_F(ClsValidateAddInfo, AnErrorLogThatCannotBeWrittenIsTheHostsError) {
  ModuleToChange().mainPath = folder.Path("nowhere");
  EXPECT_EQ(ErrorOf([&] { Check(AgencyPayment(With(GoodAgencyFields(), "02", "2026AB31"))); }), 76);
  EXPECT_EQ(validator.InvalidReason(), "Error 76 - Path not found");
  ASSERT_NE(validator.PC4FreeFormatRecords(), nullptr);
  EXPECT_EQ(validator.PC4FreeFormatRecords()->Item(2).FieldValue(), "2026AB31          ");
  EXPECT_EQ(validator.PC4GovFormatRecords()->Count(), 1);
}

TEST_F(ClsValidateAddInfo, LogsTheEntryOfEachRoutine) {
  clsValidateAddInfo::PlayByPlayEnabled(kTrue);
  EXPECT_EQ(Check(AgencyPayment(GoodAgencyFields())), "valid");
  EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {"202606", "202605"})), "valid");
  const std::string prefix = "2026-06-15 1:05:09 p.m. FISCALON - ";
  EXPECT_EQ(PlayByPlay(), prefix + "clsValidateAddInfo - IsInfoValid\r\n" + prefix +
                              "clsValidateAddInfo - ValidateCRASourceDeduction\r\n" + prefix +
                              "clsValidateAddInfo - IsInfoValid\r\n" + prefix +
                              "clsValidateAddInfo - ValidateQueRevSourceDeduction\r\n" + prefix +
                              "modLevyra - IsValidRemittancePeriodQueRevSrcDeduct\r\n" + prefix +
                              "modLevyra - IsValidRemittancePeriodQueRevSrcDeduct\r\n" + prefix +
                              "modLevyra - RecalcFormQueRevSrcDeduct\r\n");
}

TEST_F(ClsValidateAddInfo, LogsEntriesWhateverTheLogWasSwitchedOnBy) {
  clsValidateAddInfo::PlayByPlayEnabled(1);
  EXPECT_EQ(Check(AgencyPayment(GoodAgencyFields())), "valid");
  const std::string log = PlayByPlay();
  EXPECT_NE(log.find("clsValidateAddInfo - ValidateCRASourceDeduction\r\n"), log.npos);
}

TEST_F(ClsValidateAddInfo, APeriodThatCannotBeReadIsLoggedAndPasses) {
  EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {"2026AB"})), "valid");
  EXPECT_EQ(ErrorLog(), LogLine("13,\"Type mismatch\",\"modLevyra.IsValidRemittancePeriodQueRevSrcDeduct\""));
}

TEST_F(ClsValidateAddInfo, ATotalBeyondMoneyIsLoggedWithoutABox) {
  EXPECT_EQ(Check(QuebecPayment(With(GoodQuebecFields(), "01", "999999999999999999"))),
            "Field 01 Income tax withheld and compensation tax is invalid, "
            "The Amount Payable must match the Amount to be paid");
  EXPECT_EQ(ErrorLog(), LogLine("6,\"Overflow\",\"modLevyra.RecalcFormQueRevSrcDeduct\""));
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(ClsValidateAddInfo, WritesNoLogWhileAllIsWell) {
  Check(QuebecPayment(GoodQuebecFields()));
  Check(AgencyPayment(With(GoodAgencyFields(), "04", "")));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("error.log")));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("Zelmor/PBP.txt")));
}

}  // namespace
}  // namespace fiscalon
