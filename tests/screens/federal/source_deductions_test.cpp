#include "screens/federal/source_deductions.h"

#include <gmock/gmock.h>

#include "core/records/record_reader.h"
#include "tests/support/memory_files.h"
#include "tests/support/ok_path.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

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

void FillIn(GOVSOURCEDEDUCTION& form, UserDriver& user) {
  user.PressMouse(form.GrossPayroll);
  Type(user, "5000\r12\r20260531");
}

// Three tests of OK refuse numbers below 0 and are not among the rows: a text with a minus sign is no amount, so that
// the silent test before them meets it first.
class SourceDeductionsOkPath : public OkPathTest<GOVSOURCEDEDUCTION> {
 protected:
  SourceDeductionsOkPath() {
    session.PaidAmount("12345");
    yesOrNo = MessageAnswer::No;
  }

  std::string Code() const override { return "03"; }
  void FillValid(GOVSOURCEDEDUCTION& form, UserDriver& user) const override { FillIn(form, user); }
  Button& OkButton(GOVSOURCEDEDUCTION& form) const override { return form.Command3D6; }

  const std::vector<Row>& Rows() const override {
    static const std::vector<Row> kRows = {
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
};

TEST_F(SourceDeductionsOkPath, EachRowRefusesWithItsMessageAndFocus) {
  ExpectEachRowRefuses();
}

TEST_F(SourceDeductionsOkPath, EachRowIsMetBeforeEveryLaterRow) {
  ExpectEachRowIsMetBeforeLaterOnes();
}

TEST_F(SourceDeductionsOkPath, TheRowsAreAllThereInOrder) {
  EXPECT_THAT(MessagesWhileMending(),
              ElementsAre("", kAskAmount, kOtherAmount, kAskDate, kBadDate, kBadDate, kOtherYear, "", kNothingToPay,
                          kAskGross, kGrossWithCents, "", "", kAskEmployees));
}

TEST_F(SourceDeductionsOkPath, AcceptsAValidForm) {
  ExpectAValidFormIsAccepted();
}

class SourceDeductionsRecords : public ScreenTest {
 protected:
  SourceDeductionsRecords() {
    session.SeqNumber("0001");
    session.PaidAmount("12345");
    session.EnterName("Jane Doe");
    session.EnterTitle("Clerk");
  }

  bool EnterAndPressOk() {
    return Show<GOVSOURCEDEDUCTION>("03", [](GOVSOURCEDEDUCTION& form, UserDriver& user) {
      FillIn(form, user);
      user.Click(form.Command3D6);
    });
  }
};

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |amount paid         |end of period       |gross payroll       |employees           |
    "PC40001F010000000000000123450220260531          0300000000000050000004000000000000000012";
// clang-format on

TEST_F(SourceDeductionsRecords, AreOneGovernmentAndOneFreeFormatRecord) {
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

TEST_F(SourceDeductionsRecords, AreMadeOfTrimmedEntries) {
  EXPECT_TRUE(Show<GOVSOURCEDEDUCTION>("03", [](GOVSOURCEDEDUCTION& form, UserDriver& user) {
    FillIn(form, user);
    form.PaymentAmount.Text(" 12345 ");
    form.EndDate.Text(" 20260531 ");
    form.GrossPayroll.Text(" 5000 ");
    form.NumberOfEmployees.Text(" 12 ");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

TEST_F(SourceDeductionsRecords, AreQuotedLinesInTheFile) {
  const TemporaryFolder folder;
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path("payment.pc4"));
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(folder.Read("payment.pc4"), '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kRecordF) + "\"\r\n");
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(SourceDeductionsRecords, TakeANameOf30AndATitleOf20) {
  session.EnterName(" abcdefghijklmnopqrstuvwxyz1234 ");
  session.EnterTitle(" ABCDEFGHIJKLMNOPQRST ");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records()[0],
            // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2 |
            Ruled("PC40001T                                abcdefghijklmnopqrstuvwxyz1234ABCDEFGHIJKLMNOPQRST"));
}

TEST_F(SourceDeductionsRecords, AreMissingForANameOf31ThoughOkIsChosen) {
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  EXPECT_TRUE(EnterAndPressOk());
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
}

TEST_F(SourceDeductionsRecords, AreMissingForATitleOf21ThoughOkIsChosen) {
  session.EnterTitle("ABCDEFGHIJKLMNOPQRSTU");
  EXPECT_TRUE(EnterAndPressOk());
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
}

TEST_F(SourceDeductionsRecords, AreIncompleteOnAFullDiskAndTheFileStaysOpenUntilTheFormUnloads) {
  const auto files = std::make_shared<MemoryFiles>();
  files->printsLeft = 1;
  TheModule().files = files;
  session.WriteFile(kTrue);
  session.GovFilename("payment.pc4");
  int openBehindOk = 0;
  EXPECT_TRUE(Show<GOVSOURCEDEDUCTION>("03", [&](GOVSOURCEDEDUCTION& form, UserDriver& user) {
    FillIn(form, user);
    user.Click(form.Command3D6);
    openBehindOk = files->openFiles;
  }));
  EXPECT_EQ(openBehindOk, 1);
  EXPECT_EQ(files->openFiles, 0);
  EXPECT_EQ(files->contents["payment.pc4"], '"' + Ruled(kRecordT) + "\"\r\n");
}

TEST_F(SourceDeductionsRecords, AreReadBackAsTheyWereWritten) {
  EXPECT_TRUE(EnterAndPressOk());
  clsPC4GovFormats government;
  clsPC4FreeFormats free;
  CutRecords(*session.PC4Records(), government, free);
  ASSERT_EQ(government.Count(), 1);
  EXPECT_EQ(government.Item(1).PeriodStartDate(), "        ");
  EXPECT_EQ(government.Item(1).PeriodEndDate(), "        ");
  EXPECT_EQ(government.Item(1).PeriodDueDate(), "        ");
  EXPECT_EQ(government.Item(1).Filler1(), "        ");
  EXPECT_EQ(government.Item(1).ContactName(), "Jane Doe                      ");
  EXPECT_EQ(government.Item(1).ContactTitle(), "Clerk               ");
  EXPECT_EQ(government.Item(1).Filler2(), "          ");
  ASSERT_EQ(free.Count(), 4);
  EXPECT_EQ(free.Item(1).FieldNum() + free.Item(1).FieldValue(), "01000000000000012345");
  EXPECT_EQ(free.Item(2).FieldNum() + free.Item(2).FieldValue(), "0220260531          ");
  EXPECT_EQ(free.Item(3).FieldNum() + free.Item(3).FieldValue(), "03000000000000500000");
  EXPECT_EQ(free.Item(4).FieldNum() + free.Item(4).FieldValue(), "04000000000000000012");
}

class SourceDeductions : public ScreenTest {};

TEST_F(SourceDeductions, FieldsAreAsLongAsTheirEntriesAndNoneStandsRight) {
  const GOVSOURCEDEDUCTION form;
  EXPECT_EQ(form.GrossPayroll.MaxLength(), 12);
  EXPECT_EQ(form.NumberOfEmployees.MaxLength(), 6);
  EXPECT_EQ(form.EndDate.MaxLength(), 8);
  EXPECT_EQ(form.PaymentAmount.MaxLength(), 12);
  for (const Control* control : form.Controls()) {
    const auto* field = dynamic_cast<const TextField*>(control);
    EXPECT_FALSE(field != nullptr && field->Designed().alignment == Alignment::Right) << control->Name();
    const auto* button = dynamic_cast<const Button*>(control);
    EXPECT_FALSE(button != nullptr && button->Designed().cancel) << control->Name();
  }
}

TEST_F(SourceDeductions, FullDateKeepsTheFocusWhereOkIsDisabled) {
  Show<GOVSOURCEDEDUCTION>("03", [](GOVSOURCEDEDUCTION& form, UserDriver& user) {
    form.Command3D6.Enabled(false);
    Type(user, "5000\r12\r20260531");
    EXPECT_EQ(user.FocusName(), "EndDate");
  });
}

TEST_F(SourceDeductions, WritesNoPlayByPlayLog) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("Zelmor"));
  Levyra::MainPath(folder.Path());
  Levyra::PlayByPlayEnabled(kTrue);
  session.PaidAmount("12345");
  EXPECT_TRUE(Show<GOVSOURCEDEDUCTION>("03", [](GOVSOURCEDEDUCTION& form, UserDriver& user) {
    FillIn(form, user);
    user.Click(form.Command3D6);
  }));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("Zelmor/PBP.txt")));
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
}  // namespace fiscalon
