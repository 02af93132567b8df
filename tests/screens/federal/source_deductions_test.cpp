#include "screens/federal/source_deductions.h"

#include <gmock/gmock.h>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::source_deductions_test {
namespace {

using testing::ElementsAre;

const bool kFormTold = Tell({.codes = {"03"},
                             .routine = "ShowSourceDeductionForm",
                             .form = "GOVSOURCEDEDUCTION",
                             .controls = {"1 GrossPayroll", "2 NumberOfEmployees", "3 EndDate", "4 PaymentAmount",
                                          "19 PayeeName", "- Command3D6", "- Command3D5", "- Command3D4"}});

constexpr const char* kAskAmount = "Please enter amount of payment.";
constexpr const char* kOtherAmount = "Amount of Payment is not equal to amount to be paid.";
constexpr const char* kAskDate = "Please enter the date for the end of remitting period.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kOtherYear =
    "The year for 'End of Remitting Period' entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kNothingToPay = "Amount to be paid is equal to 0.";
constexpr const char* kAskGross = "Please enter Gross Payroll in Remitting Period.";
constexpr const char* kGrossWithCents = "Amount of Gross Payroll in Remitting Period cannot have decimal value.";
constexpr const char* kAskEmployees = "Please enter number of employees in latest pay period.";

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |amount paid         |end of period       |gross payroll       |employees           |
    "PC40001F010000000000000123450220260531          0300000000000050000004000000000000000012";
// clang-format on

// Three tests of OK refuse numbers below 0 and are not among the rows: a text with a minus sign is no amount, so that
// the silent test before them meets it first.
class SourceDeductionsPayment : public PaymentTest<GOVSOURCEDEDUCTION> {
 protected:
  SourceDeductionsPayment() : PaymentTest("12345") { yesOrNo = MessageAnswer::No; }

  std::string Code() const override { return "03"; }
  void FillIn(GOVSOURCEDEDUCTION& form, UserDriver& user) const override {
    user.PressMouse(form.GrossPayroll);
    Type(user, "5000\r12\r20260531");
  }
  Button& OkButton(GOVSOURCEDEDUCTION& form) const override { return form.Command3D6; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "amount is none",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.PaymentAmount.Text("-123.45"); },
         .focus = "PaymentAmount"},
        {.name = "amount is zero",
         .spoil =
             [](GOVSOURCEDEDUCTION& form) {
               form.head.AmountPaid.Caption("123.45");
               form.PaymentAmount.Text("0");
             },
         .message = kAskAmount,
         .focus = "PaymentAmount"},
        {.name = "amount is another one",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.PaymentAmount.Text("12346"); },
         .message = kOtherAmount,
         .focus = "PaymentAmount"},
        {.name = "date is missing",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.EndDate.Text("  "); },
         .message = kAskDate,
         .focus = "EndDate"},
        {.name = "date is short",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.EndDate.Text(" 2026053"); },
         .message = kBadDate,
         .focus = "EndDate"},
        {.name = "date is none",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.EndDate.Text("20260431"); },
         .message = kBadDate,
         .focus = "EndDate"},
        {.name = "date is of another year",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.EndDate.Text("20250531"); },
         .message = kOtherYear,
         .focus = "EndDate",
         .style = MessageStyle::Exclamation,
         .title = "Date Warning"},
        {.name = "gross payroll is no amount",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.GrossPayroll.Text(""); },
         .focus = "GrossPayroll"},
        {.name = "nothing is to be paid",
         .spoil =
             [](GOVSOURCEDEDUCTION& form) {
               form.head.AmountPaid.Caption("0.00");
               form.PaymentAmount.Text("0.00");
             },
         .message = kNothingToPay,
         .focus = "PaymentAmount"},
        {.name = "gross payroll is zero",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.GrossPayroll.Text("0.00"); },
         .message = kAskGross,
         .focus = "GrossPayroll"},
        {.name = "gross payroll has cents",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.GrossPayroll.Text("5000.01"); },
         .message = kGrossWithCents,
         .focus = "GrossPayroll",
         .style = MessageStyle::Plain},
        {.name = "employees are no number",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.NumberOfEmployees.Text("1 2"); },
         .focus = "NumberOfEmployees"},
        {.name = "employees have a fraction",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.NumberOfEmployees.Text("12.5"); },
         .focus = "NumberOfEmployees"},
        {.name = "employees are zero",
         .spoil = [](GOVSOURCEDEDUCTION& form) { form.NumberOfEmployees.Text("0"); },
         .message = kAskEmployees,
         .focus = "NumberOfEmployees"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }
};

using SourceDeductionsRecords = SourceDeductionsPayment;
const bool kTestsAdded = AddOkPathTests<SourceDeductionsPayment>("SourceDeductionsOkPath") &&
                         AddRecordsTests<SourceDeductionsPayment>("SourceDeductionsRecords");

TEST_F(SourceDeductionsRecords, AreMadeOfTrimmedEntries) {
  EXPECT_TRUE(EnterAndPressOk([](GOVSOURCEDEDUCTION& form) {
    form.PaymentAmount.Text(" 12345 ");
    form.EndDate.Text(" 20260531 ");
    form.GrossPayroll.Text(" 5000 ");
    form.NumberOfEmployees.Text(" 12 ");
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

class SourceDeductions : public ScreenTest {};

TEST_F(SourceDeductions, FieldsFitTheirEntries) {
  const GOVSOURCEDEDUCTION form;
  EXPECT_EQ(form.GrossPayroll.MaxLength(), 12);
  EXPECT_EQ(form.NumberOfEmployees.MaxLength(), 6);
  EXPECT_EQ(form.EndDate.MaxLength(), 8);
  EXPECT_EQ(form.PaymentAmount.MaxLength(), 12);
  for (const Control* control : form.Controls()) {
    const auto* field = dynamic_cast<const TextField*>(control);
    EXPECT_FALSE(field != nullptr && field->Designed().alignment == Alignment::Right) << control->Name();
  }
}

TEST_F(SourceDeductions, FullDateKeepsTheFocusWhereOkIsDisabled) {
  Show<GOVSOURCEDEDUCTION>("03", [](GOVSOURCEDEDUCTION& form, UserDriver& user) {
    form.Command3D6.Enabled(false);
    Type(user, "5000\r12\r20260531");
    EXPECT_EQ(user.FocusName(), "EndDate");
  });
}

class SourceDeductionsRandomly : public RandomActsTest<GOVSOURCEDEDUCTION> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0],
              Ruled("PC4" + seqNumber + "T" + std::string(32, ' ') + "Jane Doe" + std::string(22, ' ') + "Clerk"));
    ASSERT_EQ(records[1].size(), 160U);
    const std::string date = records[1].substr(30, 8), gross = records[1].substr(50, 18);
    const std::string employees = records[1].substr(70, 18);
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + payment.field + "02" + date + std::string(10, ' ') + "03" +
                                gross + "04" + employees));
    EXPECT_TRUE(date >= "20240101" && date <= "20281231") << date;
    EXPECT_EQ((gross + employees).find_first_not_of("0123456789"), std::string::npos) << gross << employees;
    EXPECT_TRUE(gross.ends_with("00") && gross > "000000000000000000") << gross;
    EXPECT_TRUE(employees > "000000000000000000" && employees <= "000000000000999999") << employees;
  }
};

TEST_F(SourceDeductionsRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"}, {"12345", "000000000000012345"},
                                               {"5", "000000000000000005"},     {"0", "no record"},
                                               {"-12345", "no record"},         {"1E30", "no record"}};
  const RandomUser random(20260615, {"5000", "12", "20260531", "20260531", "5000.00", "12", "20260615", "20250101",
                                     "20260431", "12345", "123.45", "0", "5", "999999999999", "-5", "1,000"});
  Play("03", random, payments);
}

}  // namespace
}  // namespace fiscalon::source_deductions_test
