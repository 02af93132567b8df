#include "screens/general/due_date_amount.h"

#include <filesystem>

#include "tests/support/payment_test.h"
#include "tests/support/raises.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/told_form.h"

namespace fiscalon::due_date_amount_test {
namespace {

const bool kFormTold = Tell({.codes = {"15"},
                             .routine = "ShowDueDateAmountForm",
                             .form = "frmDueDateAmount",
                             .controls = {"0 txtRemittancePeriod", "1 txtAmountPayable", "2 cmdOK", "3 cmdCancel"},
                             .escape = "cmdCancel"});

constexpr const char* kPeriodMessage =
    "'Taxation year ends on' must be in the form YYYYMM. Your entry can range from 199001 to 202705.";
constexpr const char* kAmountMessage = "Amount payable cannot be zero or negative.";
constexpr const char* kMatchMessage = "The Amount Payable must match the Amount to be paid.";

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                202612          Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |number and value    |number and value    |number and value    |number and value    |
    "PC40001F01000000000000012345020000000000000000000300000000000000000004000000000000000000";
// clang-format on

class DueDateAmountPayment : public PaymentTest<frmDueDateAmount> {
 protected:
  DueDateAmountPayment() : PaymentTest("12345") {}

  std::string Code() const override { return "15"; }

  void FillIn(frmDueDateAmount& form, UserDriver& user) const override {
    user.PressMouse(form.txtRemittancePeriod);
    Type(user, "202612");
    Type(user, "12345");
  }

  Button& OkButton(frmDueDateAmount& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "period is no month in range",
         .spoil = [](frmDueDateAmount& form) { form.txtRemittancePeriod.Text("202706"); },
         .message = kPeriodMessage,
         .focus = "txtRemittancePeriod"},
        {.name = "amount is zero",
         .spoil = [](frmDueDateAmount& form) { form.txtAmountPayable.Text("0"); },
         .message = kAmountMessage,
         .focus = "txtAmountPayable",
         .style = MessageStyle::Plain},
        {.name = "amount is another one",
         .spoil = [](frmDueDateAmount& form) { form.txtAmountPayable.Text("12346"); },
         .message = kMatchMessage,
         .focus = "txtAmountPayable"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }
};

using DueDateAmountRecords = DueDateAmountPayment;
const bool kTestsAdded = AddOkPathTests<DueDateAmountPayment>("DueDateAmountOkPath") &&
                         AddRecordsTests<DueDateAmountPayment>("DueDateAmountRecords");

TEST_F(DueDateAmountRecords, HoldEveryCharacterOfTheContactAndBlanksForControlCharacters) {
  session.EnterName(std::string("J\0\"\r\n\t\xe9", 7));
  session.EnterTitle("\x80");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records()[0], Ruled("PC40001T                202612          J \"   \xe9" + std::string(23, ' ') + "\x80"));
}

TEST_F(DueDateAmountRecords, StayOneLineWhateverTheSequenceIs) {
  session.SeqNumber(std::string_view("\"\0\r\n", 4));
  session.EnterName("");
  session.EnterTitle("");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records()[0], Ruled("PC4\"   T                202612"));
}

TEST_F(DueDateAmountRecords, GoToNoFileWithANulInItsName) {
  const TemporaryFolder folder;
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path("payment") + std::string("\0.pc4", 5));
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 75);
  EXPECT_FALSE(std::filesystem::exists(folder.Path("payment")));
}

class DueDateAmount : public ScreenTest {};

TEST_F(DueDateAmount, FieldsFitTheirEntries) {
  const frmDueDateAmount form;
  EXPECT_EQ(form.txtRemittancePeriod.MaxLength(), 6);
  EXPECT_EQ(form.txtRemittancePeriod.Designed().alignment, Alignment::Left);
  EXPECT_EQ(form.txtAmountPayable.MaxLength(), 12);
  EXPECT_EQ(form.txtAmountPayable.Designed().alignment, Alignment::Right);
}

TEST_F(DueDateAmount, EnterWithShiftDoesNotMoveOn) {
  Show<frmDueDateAmount>("15", [](frmDueDateAmount&, UserDriver& user) {
    user.PressKey({.keyCode = key::kEnter, .shift = shift_state::kShift, .character = key::kEnter});
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
    user.PressKey({.keyCode = key::kEnter, .character = key::kEnter});
    EXPECT_EQ(user.FocusName(), "txtAmountPayable");
  });
}

TEST_F(DueDateAmount, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmDueDateAmount>("15", [](frmDueDateAmount& form, UserDriver& user) {
    form.txtAmountPayable.Enabled(false);
    Type(user, "202612");
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
    form.txtAmountPayable.Enabled(true);
    form.cmdOK.Enabled(false);
    user.PressMouse(form.txtAmountPayable);
    Type(user, "123456789012");
    EXPECT_EQ(user.FocusName(), "txtAmountPayable");
  });
}

TEST_F(DueDateAmount, FullPeriodKeepsTheFocusWhereTheAmountIsHidden) {
  Show<frmDueDateAmount>("15", [](frmDueDateAmount& form, UserDriver& user) {
    form.txtAmountPayable.Visible(false);
    Type(user, "202612");
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
    EXPECT_EQ(user.Text(form.txtRemittancePeriod), "202612");
  });
}

TEST_F(DueDateAmount, BadPeriodIsToldOnceThoughTheAmountIsFullToo) {
  Show<frmDueDateAmount>("15", [&](frmDueDateAmount& form, UserDriver& user) {
    user.PressMouse(form.txtAmountPayable);
    Type(user, "123456789012");
    user.PressMouse(form.txtRemittancePeriod);
    Type(user, "202699");
    ASSERT_EQ(TakeBoxes().size(), 1U);
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
  });
}

class DueDateAmountRandomly : public RandomActsTest<frmDueDateAmount> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    ASSERT_EQ(records[0].size(), 160U);
    const std::string period = records[0].substr(24, 6);
    EXPECT_TRUE(period >= "199001" && period <= "202705") << period;
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T                " + period + "          Jane Doe" +
                                std::string(22, ' ') + "Clerk"));
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + payment.field +
                                "020000000000000000000300000000000000000004000000000000000000"));
  }
};

TEST_F(DueDateAmountRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"},
                                               {"5", "000000000000000005"},
                                               {"123456789012", "000000123456789012"},
                                               {"0", "no record"},
                                               {"-12345", "no record"},
                                               {"1E30", "no record"}};
  const RandomUser random(20260615, {"202612", "202612", "202612", "199001", "202705", "202713", "20261", "12345",
                                     "123.45", "5", ".05", "123456789012", "-12345", "0"});
  Play("15", random, payments);
}

}  // namespace
}  // namespace fiscalon::due_date_amount_test
