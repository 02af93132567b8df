// Where the reasons against a payment lie: record, field, value found and code.

#include "validation/fault.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/bulk_payment.h"
#include "tests/support/module_test.h"
#include "validation/judge_payment.h"

namespace fiscalon {
namespace {

class Faults : public ModuleTest {
 protected:
  /// Each fault as "line|field|name|value|code|message", one a line.
  static std::string Of(const BulkPayment& payment) {
    std::string told;
    const auto faults = PaymentJudge().FaultsOf(
        {.screenCode = payment.screen, .billerCode = payment.biller, .cents = std::atoll(payment.amount.c_str())},
        payment.Views());
    for (const Fault& fault : faults)
      told += (told.empty() ? "" : "\n") + std::to_string(fault.line) + "|" + fault.field + "|" +
              std::string(fault.name) + "|" + fault.value + "|" + fault.code + "|" + fault.message;
    return told;
  }
};

/// The "T" record is the first of the payment, its only "F" record the second.
TEST_F(Faults, OfEachFieldOfTheAgency) {
  struct Row {
    const char* number;
    const char* value;
    const char* fault;
  };
  const Row rows[] = {
      {"01", "000000000000012345", ""},
      {"01", "", "2|01|Amount of Payment||blank|Field 01 Amount of Payment cannot be blank"},
      {"01", "12345", "2|01|Amount of Payment|12345|short|Field 01 Amount of Payment is invalid"},
      {"01", " 00000000000012345",
       "2|01|Amount of Payment| 00000000000012345|short|Field 01 Amount of Payment is invalid"},
      {"01", "00000000000001234X",
       "2|01|Amount of Payment|00000000000001234X|not-a-number|Field 01 Amount of Payment is invalid"},
      {"01", "-00000000000012345",
       "2|01|Amount of Payment|-00000000000012345|negative|Field 01 Amount of Payment cannot be less than 0"},
      {"01", "00000000000012345-",
       "2|01|Amount of Payment|00000000000012345-|not-digits|Field 01 Amount of Payment is invalid"},
      {"01", "000000000000012346",
       "2|01|Amount of Payment|000000000000012346|not-the-amount|Field 01 Amount of Payment is not equal to amount to "
       "be "
       "paid"},
      {"02", "2026053", "2|02|End of Remitting Period|2026053|not-a-date|Field 02 End of Remitting Period is invalid"},
      {"02", "2026AB31", "2|02|End of Remitting Period|2026AB31|error-13|Error 13 - Type mismatch"},
      {"03", "000000000000500001",
       "2|03|Gross Payroll in Remitting Period|000000000000500001|has-cents|Field 03 Gross Payroll in Remitting Period "
       "cannot have decimal value or invalid"},
      {"03", "000000002147483700",
       "2|03|Gross Payroll in Remitting Period|000000002147483700|error-6|Error 6 - Overflow"},
      {"04", "000000000000000000",
       "2|04|Number of Employees|000000000000000000|below-one|Field 04 Number of Employees is invalid"},
      // A fifth field needs a second "F" record.
      {"09", "1", "3|09||1|not-required|Field 09 is not required"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(Of(AgencyPayment(With(GoodAgencyFields(), row.number, row.value))), row.fault) << row.value;
}

TEST_F(Faults, OfEachFieldOfRevenueQuebec) {
  // Fields "05" and on stand in the second "F" record.
  EXPECT_EQ(Of(QuebecPayment(With(GoodQuebecFields(), "05", "000000000000000007"))),
            "3|05|Remittance Type|000000000000000007|not-a-type|Field 05 Remittance Type is invalid");
  EXPECT_EQ(Of(QuebecPayment(With(GoodQuebecFields(), "04", "00000000000000400-"))),
            "2|04|QPIP premiums|00000000000000400-|not-digits|Field 04 QPIP premiums is invalid");
  EXPECT_EQ(Of(QuebecPayment(GoodQuebecFields(), {"202606", "202601"})),
            "2||Remittance Period|202601|not-a-period|"
            "Remittance Period must be in the form YYYYMM and be within the last 4 months");
}

TEST_F(Faults, OfThePaymentAsAWholeStandAtItsFirstRecord) {
  EXPECT_EQ(Of(QuebecPayment(GoodQuebecFields(), {})), "1||||no-period|Record for Remittance Period is missing");
  EXPECT_EQ(Of(QuebecPayment({})), "1||||no-fields|Records for other required fields are missing");
  EXPECT_EQ(Of(AgencyPayment({})), "1||||no-fields|Record for required fields is missing");
  EXPECT_EQ(Of({.screen = "15"}), "1||||no-such-screen|Invalid or not supported Screen Type");
  // 1.00 + 2.00 + 3.00 + 4.00 + 113.46
  EXPECT_EQ(Of(QuebecPayment(With(GoodQuebecFields(), "06", "000000000000011346"))),
            "1|||123.46|not-the-total|The Amount Payable must match the Amount to be paid");
}

TEST_F(Faults, StandInTheOrderOfTheReason) {
  BulkPayment payment = QuebecPayment(With(GoodQuebecFields(), "01", ""), {"202601"});
  EXPECT_EQ(Of(payment),
            "1||Remittance Period|202601|not-a-period|"
            "Remittance Period must be in the form YYYYMM and be within the last 4 months\n"
            "2|01|Income tax withheld and compensation tax||blank|"
            "Field 01 Income tax withheld and compensation tax cannot be blank\n"
            "1|||122.45|not-the-total|The Amount Payable must match the Amount to be paid");
}

TEST_F(Faults, ARunTimeErrorIsTheOnlyOne) {
  const Fields fields = With(With(GoodAgencyFields(), "01", ""), "02", "2026AB31");
  EXPECT_EQ(Of(AgencyPayment(fields)), "2|02|End of Remitting Period|2026AB31|error-13|Error 13 - Type mismatch");
  // The total is beyond all amounts: it can't be written, and what is asked for can't be held against it.
  BulkPayment payment = QuebecPayment(With(GoodQuebecFields(), "01", "1e9999999999999999"));
  EXPECT_EQ(Of(payment), "2|01|Income tax withheld and compensation tax|1e9999999999999999|error-6|Error 6 - Overflow");
}

}  // namespace
}  // namespace fiscalon
