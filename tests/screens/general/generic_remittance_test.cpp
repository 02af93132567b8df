#include "screens/general/generic_remittance.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/told_form.h"

namespace fiscalon::generic_remittance_test {
namespace {

using testing::ElementsAre;

const bool kFormTold =
    Tell({.codes = {"07"},
          .routine = "ShowGenericForm",
          .form = "GENERICFORM",
          .controls = {"1 StatementOnly(0)", "2 StatementOnly(1)", "3 PeriodStartDate", "4 PeriodEndDate", "5 DueDate",
                       "6 Box(0)",           "35 PayeeName",       "36 Box(1)",         "37 Box(2)",       "38 Box(3)",
                       "39 Box(4)",          "40 Box(5)",          "41 Box(6)",         "42 Box(7)",       "43 Box(8)",
                       "44 Box(9)",          "45 Box(10)",         "46 Box(11)",        "47 Box(12)",      "48 Box(13)",
                       "- Command3D6",       "- Command3D5",       "- Command3D4"}});

constexpr const char* kAskStart = "Please enter the date for the start of the period.";
constexpr const char* kAskEnd = "Please enter the date for the end of the period.";
constexpr const char* kAskDueDate = "Please enter due date.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kNoPeriod = "Reporting period starting date is same as ending date.";
constexpr const char* kEndBeforeStart = "Reporting period ending date is incorrect.";
constexpr const char* kOtherYearOfStart =
    "The year for For the period from entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kOtherYearOfEnd =
    "The year for to entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kOtherYearOfDueDate =
    "The year for Due Date entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kAskBox1 = "Please enter Box 01 field.";
constexpr const char* kAskBox2 = "Please enter Box 02 field.";
constexpr const char* kAskBox3 = "Please enter Box 03 field.";
constexpr const char* kAskAmount =
    "If you enter a value for 'Details', you must also enter a value for 'Other Amount'.";
constexpr const char* kAskDetails =
    "If you enter a value for 'Other Amount', you must also enter a value for 'Details'.";

constexpr const char* kDateWarning = "Date Warning";

// Full dates pass the focus on by themselves.
void EnterDates(GENERICFORM& form, UserDriver& user) {
  user.PressMouse(form.PeriodStartDate);
  Type(user, "202604012026043020260515");
}

void EnterOtherAmount(GENERICFORM& form, UserDriver& user) {
  user.PressMouse(form.Box[12]);
  Type(user, "FEES");
  user.PressMouse(form.Box[13]);
  Type(user, "1250");
}

/// Puts a text into a date. A full one passes the focus on; Help takes it then, since no date is checked on the way
/// there.
void Put(GENERICFORM& form, TextField& date, std::string_view text) {
  date.Text(text);
  form.Acts().Press(form.Command3D4);
}

class GenericRemittanceOkPath : public PaymentTest<GENERICFORM> {
 protected:
  GenericRemittanceOkPath() : PaymentTest("12345") {
    session.NumberOfInfoCollect("3");
    yesOrNo = MessageAnswer::No;
  }

  std::string Code() const override { return "07"; }

  void FillIn(GENERICFORM& form, UserDriver& user) const override {
    EnterDates(form, user);
    Type(user, "A1\rB2\rC3");
    EnterOtherAmount(form, user);
  }

  Button& OkButton(GENERICFORM& form) const override { return form.Command3D6; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "start is missing",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodStartDate, "  "); },
         .message = kAskStart,
         .focus = "PeriodStartDate"},
        {.name = "start is short",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodStartDate, " 2026040"); },
         .focus = "PeriodStartDate"},
        {.name = "start is no date",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodStartDate, "20260431"); },
         .message = kBadDate,
         .focus = "PeriodStartDate"},
        {.name = "start is of another year",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodStartDate, "20250401"); },
         .message = kOtherYearOfStart,
         .focus = "PeriodStartDate",
         .style = MessageStyle::Exclamation,
         .title = kDateWarning},
        {.name = "end is missing",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodEndDate, "  "); },
         .message = kAskEnd,
         .focus = "PeriodEndDate"},
        {.name = "end is short",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodEndDate, " 2026043"); },
         .focus = "PeriodEndDate"},
        {.name = "end is no date",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodEndDate, "20260431"); },
         .message = kBadDate,
         .focus = "PeriodEndDate"},
        {.name = "end is the start",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodEndDate, "20260401"); },
         .message = kNoPeriod,
         .focus = "PeriodEndDate"},
        {.name = "end is before the start",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodEndDate, "20260331"); },
         .message = kEndBeforeStart,
         .focus = "PeriodEndDate"},
        {.name = "end is of another year",
         .spoil = [](GENERICFORM& form) { Put(form, form.PeriodEndDate, "20270430"); },
         .message = kOtherYearOfEnd,
         .focus = "PeriodEndDate",
         .style = MessageStyle::Exclamation,
         .title = kDateWarning},
        {.name = "due date is missing",
         .spoil = [](GENERICFORM& form) { Put(form, form.DueDate, "  "); },
         .message = kAskDueDate,
         .focus = "DueDate"},
        {.name = "due date is short",
         .spoil = [](GENERICFORM& form) { Put(form, form.DueDate, " 2026051"); },
         .message = kBadDate,
         .focus = "DueDate"},
        {.name = "due date is no date",
         .spoil = [](GENERICFORM& form) { Put(form, form.DueDate, "20260532"); },
         .message = kBadDate,
         .focus = "DueDate"},
        {.name = "due date is of another year",
         .spoil = [](GENERICFORM& form) { Put(form, form.DueDate, "20270115"); },
         .message = kOtherYearOfDueDate,
         .focus = "DueDate",
         .style = MessageStyle::Exclamation,
         .title = kDateWarning},
        {.name = "box 1 is missing",
         .spoil = [](GENERICFORM& form) { form.Box[0].Text("  "); },
         .message = kAskBox1,
         .focus = "Box(0)"},
        {.name = "box 1 is no code", .spoil = [](GENERICFORM& form) { form.Box[0].Text("A#1"); }, .focus = "Box(0)"},
        {.name = "box 2 is missing",
         .spoil = [](GENERICFORM& form) { form.Box[1].Text("  "); },
         .message = kAskBox2,
         .focus = "Box(1)"},
        {.name = "box 2 is no code", .spoil = [](GENERICFORM& form) { form.Box[1].Text("B 2"); }, .focus = "Box(1)"},
        {.name = "box 3 is missing",
         .spoil = [](GENERICFORM& form) { form.Box[2].Text("  "); },
         .message = kAskBox3,
         .focus = "Box(2)"},
        {.name = "box 3 is no code", .spoil = [](GENERICFORM& form) { form.Box[2].Text("\xC9"); }, .focus = "Box(2)"},
        {.name = "box 6 is no code, which this biller does not collect",
         .spoil =
             [](GENERICFORM& form) {
               form.Box[5].Enabled(true);
               form.Box[5].Text("F#6");
             },
         .focus = "Box(5)"},
        {.name = "details can't be printed",
         .spoil = [](GENERICFORM& form) { form.Box[12].Text("CAF\xC9"); },
         .focus = "Box(12)"},
        {.name = "other amount is none",
         .spoil = [](GENERICFORM& form) { form.Box[13].Text("-12.50"); },
         .focus = "Box(13)"},
        {.name = "other amount is missing",
         .spoil =
             [](GENERICFORM& form) {
               form.Box[12].Text("FEES");
               form.Box[13].Text("  ");
             },
         .message = kAskAmount,
         .focus = "Box(13)",
         .style = MessageStyle::Information},
        {.name = "details are missing",
         .spoil = [](GENERICFORM& form) { form.Box[12].Text("  "); },
         .message = kAskDetails,
         .focus = "Box(12)",
         .style = MessageStyle::Information},
    };
    return kRows;
  }
};

const bool kOkPathTestsAdded = AddOkPathTests<GenericRemittanceOkPath>("GenericRemittanceOkPath");

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T202604012026043020260515        Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |box                 |box                 |box                 |box                 |
    "PC40001F01A1                02B2                                                        ";
const std::string kRecordG =
    // head  |other amount      |details                                           |
    "PC40001G000000000000001250FEES                                              ";
const std::string kRecordFWithOtherAmount =
    // head  |box                 |box                 |other amount      |details                                           |
    "PC40001F01A1                02B2                000000000000001250FEES                                              ";
// clang-format on

class GenericRemittanceRecords : public PaymentTest<GENERICFORM> {
 protected:
  GenericRemittanceRecords() : PaymentTest("12345") { session.NumberOfInfoCollect("2"); }

  std::string Code() const override { return "07"; }
  void FillIn(GENERICFORM& form, UserDriver& user) const override {
    EnterDates(form, user);
    Type(user, "A1\rB2\r");
  }
  Button& OkButton(GENERICFORM& form) const override { return form.Command3D6; }
  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }

  bool EnterWithOtherAmountAndPressOk() {
    return Show<GENERICFORM>("07", [this](GENERICFORM& form, UserDriver& user) {
      FillIn(form, user);
      EnterOtherAmount(form, user);
      user.Click(form.Command3D6);
    });
  }
};

const bool kRecordsTestsAdded = AddRecordsTests<GenericRemittanceRecords>("GenericRemittanceRecords");

constexpr size_t kLengthWithOtherAmount = 312;

// The slots that are left of the boxes' record come behind the other amount there.
TEST_F(GenericRemittanceRecords, HoldTheOtherAmountBehindTheBoxesInTheCollection) {
  EXPECT_TRUE(EnterWithOtherAmountAndPressOk());
  std::string joined = kRecordFWithOtherAmount;
  joined.resize(kLengthWithOtherAmount, ' ');
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), joined));
}

TEST_F(GenericRemittanceRecords, HoldTheOtherAmountInALineOfItsOwnInTheFile) {
  const TemporaryFolder folder;
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path("payment.pc4"));
  EXPECT_TRUE(EnterWithOtherAmountAndPressOk());
  EXPECT_EQ(folder.Read("payment.pc4"),
            '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kRecordF) + "\"\r\n\"" + Ruled(kRecordG) + "\"\r\n");
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(GenericRemittanceRecords, HoldTheOtherAmountInARecordOfItsOwnWithoutBoxes) {
  session.NumberOfInfoCollect("0");
  EXPECT_TRUE(Show<GENERICFORM>("07", [](GENERICFORM& form, UserDriver& user) {
    EnterDates(form, user);
    EnterOtherAmount(form, user);
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordG)));
}

// Only code reaches the boxes that the biller does not collect. They are records all the same, under their own numbers.
TEST_F(GenericRemittanceRecords, NumberTheBoxesThatAreFilled) {
  session.NumberOfInfoCollect("1");
  EXPECT_TRUE(Show<GENERICFORM>("07", [](GENERICFORM& form, UserDriver& user) {
    EnterDates(form, user);
    Type(user, "A1\r");
    form.Box[2].Text("C3");
    form.Box[6].Text("G7");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT),
                                     // head  |box                 |box                 |box                 |
                                     Ruled("PC40001F01A1                03C3                07G7")));
}

TEST_F(GenericRemittanceRecords, AreMadeOfTrimmedEntries) {
  EXPECT_TRUE(Show<GENERICFORM>("07", [](GENERICFORM& form, UserDriver& user) {
    EnterDates(form, user);
    Put(form, form.PeriodStartDate, " 20260401 ");
    Put(form, form.PeriodEndDate, " 20260430 ");
    form.Box[0].Text(" A1 ");
    form.Box[1].Text(" B2 ");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

// The due date is the one date that OK tests as it stands.
TEST_F(GenericRemittanceRecords, AreNotMadeOfADueDateWithBlanks) {
  EXPECT_FALSE(Show<GENERICFORM>("07", [&](GENERICFORM& form, UserDriver& user) {
    EnterDates(form, user);
    Put(form, form.DueDate, " 20260515 ");
    form.Box[0].Text("A1");
    form.Box[1].Text("B2");
    user.Click(form.Command3D6);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kBadDate);
    EXPECT_EQ(user.FocusName(), "DueDate");
  }));
}

class GenericRemittance : public ScreenTest {
 protected:
  GenericRemittance() {
    session.PaidAmount("12345");
    session.NumberOfInfoCollect("2");
  }
};

TEST_F(GenericRemittance, FieldsFitTheirEntries) {
  const GENERICFORM form;
  EXPECT_EQ(form.PeriodStartDate.MaxLength(), 8);
  EXPECT_EQ(form.PeriodEndDate.MaxLength(), 8);
  EXPECT_EQ(form.DueDate.MaxLength(), 8);
  ASSERT_EQ(form.Box.Size(), 14);
  for (int box = 0; box < 12; ++box) EXPECT_EQ(form.Box[box].MaxLength(), 18) << box;
  EXPECT_EQ(form.Box[12].MaxLength(), 50);
  EXPECT_EQ(form.Box[13].MaxLength(), 18);
}

TEST_F(GenericRemittance, EachBoxHasItsLetterAndNumber) {
  const GENERICFORM form;
  for (const char* caption :
       {"A-01", "B-02", "C-03", "D-04", "E-05", "F-06", "G-07", "H-08", "I-09", "J-10", "K-11", "L-12"})
    EXPECT_EQ(std::count_if(form.Controls().begin(), form.Controls().end(),
                            [&](const Control* control) {
                              const auto* label = dynamic_cast<const Label*>(control);
                              return label != nullptr && label->Designed().caption.English() == caption;
                            }),
              1)
        << caption;
}

TEST_F(GenericRemittance, IsToldTheNumberOfBoxes) {
  session.NumberOfInfoCollect("7 of them");
  Show<GENERICFORM>(
      "07", [](GENERICFORM& form, UserDriver& /*user*/) { EXPECT_EQ(form.NumberOfInfoCollect(), "7 of them"); });
}

// A closed box can't take the focus that its refusal gives it.
TEST_F(GenericRemittance, RefusesAClosedBoxThatIsNoCodeWithoutAWord) {
  EXPECT_FALSE(Show<GENERICFORM>("07", [](GENERICFORM& form, UserDriver& user) {
    EnterDates(form, user);
    Type(user, "A1\rB2\r");
    form.Box[5].Text("F#6");
    user.Click(form.Command3D6);
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(user.FocusName(), "Command3D6");
  }));
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(GenericRemittance, ChoosingDetailsLeavesAHiddenPeriodAlone) {
  EXPECT_FALSE(Show<GENERICFORM>("07", [](GENERICFORM& form, UserDriver& user) {
    form.PeriodStartDate.Visible(false);
    user.Click(form.StatementOnly[0]);
    user.Click(form.StatementOnly[1]);
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(user.FocusName(), "StatementOnly(1)");
    EXPECT_TRUE(form.StatementOnly[1].Value());
    EXPECT_TRUE(form.PeriodEndDate.Enabled());
  }));
}

class GenericRemittanceRandomly : public RandomActsTest<GENERICFORM> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& /*payment*/) override {
    const std::vector<std::string> records = Records();
    // A statement alone was paid, before any records.
    if (seqNumber.empty()) {
      EXPECT_TRUE(records.empty());
      return;
    }
    ASSERT_FALSE(records.empty());
    ExpectGovernmentRecord(records[0], seqNumber);
    std::string lastBox;
    size_t slots = 0;
    for (size_t i = 1; i < records.size(); ++i) {
      const std::string& record = records[i];
      SCOPED_TRACE(record);
      EXPECT_TRUE(std::none_of(record.begin(), record.end(),
                               [](char character) { return static_cast<unsigned char>(character) < ' '; }));
      ASSERT_TRUE(record.size() == 160U || record.size() == 312U);
      // Nothing comes behind a record that has room left, but in the record itself.
      EXPECT_EQ(slots % 4, 0U);
      const bool isLast = i + 1 == records.size();
      if (record.starts_with("PC4" + seqNumber + "G")) {
        EXPECT_TRUE(isLast);
        ExpectOtherAmount(record.substr(8));
        continue;
      }
      ASSERT_TRUE(record.starts_with("PC4" + seqNumber + "F"));
      const size_t open = slots;
      for (; slots < open + 4 && IsBox(record.substr(8 + 20 * (slots - open), 20)); ++slots) {
        const std::string box = record.substr(8 + 20 * (slots - open), 2);
        EXPECT_TRUE(box > lastBox && box <= "12") << box;
        lastBox = box;
      }
      EXPECT_GT(slots, open);
      if (record.size() == 312U) {
        EXPECT_TRUE(isLast);
        EXPECT_NE(slots % 4, 0U);
        ExpectOtherAmount(record.substr(8 + 20 * (slots - open)));
      } else {
        EXPECT_EQ(record.substr(8 + 20 * (slots - open)).find_first_not_of(' '), std::string::npos);
      }
    }
  }

  void BeforeLaunch(RandomUser& random) override {
    static const std::vector<std::string> kNumbers = {"0", "1", "1", "2", "4", "13", "1.5"};
    session.NumberOfInfoCollect(random.OneOf(kNumbers));
    session.APHoldFlg(static_cast<uint8_t>(random.Below(3)));
  }

 private:
  static void ExpectGovernmentRecord(const std::string& record, const std::string& seqNumber) {
    ASSERT_EQ(record.size(), 160U);
    const std::string start = record.substr(8, 8), end = record.substr(16, 8), due = record.substr(24, 8);
    EXPECT_EQ(record, Ruled("PC4" + seqNumber + "T" + start + end + due + std::string(8, ' ') + "Jane Doe" +
                            std::string(22, ' ') + "Clerk"));
    for (const std::string& date : {start, end, due}) EXPECT_TRUE(date >= "20240101" && date <= "20281231") << date;
    EXPECT_LT(start, end);
  }

  /// A number of two digits, and a code with blanks behind it alone. An amount has five digits or fewer, and so zeros
  /// in front.
  static bool IsBox(const std::string& slot) {
    const std::string code = slot.substr(2, slot.find_last_not_of(' ') - 1);
    return slot.substr(0, 2) > "00" && slot.substr(0, 2) <= "12" && !code.empty() && code[0] != ' ' &&
           std::all_of(code.begin(), code.end(), [](char character) {
             return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '.' || character == '-' ||
                    character == ',';
           });
  }

  static void ExpectOtherAmount(const std::string& body) {
    EXPECT_EQ(body.substr(0, 18).find_first_not_of("0123456789"), std::string::npos);
    EXPECT_NE(body[18], ' ');
    EXPECT_EQ(body.substr(68).find_first_not_of(' '), std::string::npos);
  }
};

TEST_F(GenericRemittanceRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", ""}, {"0", ""}, {"-12345", ""}, {"1E30", ""}};
  const RandomUser random(20260615, {"20260401", "20260401", "20260430", "20260430", "20260515", "20250101", "20260431",
                                     "A1", "b-2", "1250", "12.50", "Fees"});
  Play("07", random, payments);
}

}  // namespace
}  // namespace fiscalon::generic_remittance_test
