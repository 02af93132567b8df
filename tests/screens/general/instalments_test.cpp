#include "screens/general/instalments.h"

#include <algorithm>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::instalments_test {
namespace {

const bool kFormTold =
    Tell({.codes = {"17"},
          .routine = "ShowInstalmentForm",
          .form = "frmInstalments",
          .controls = {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtAmountPayable", "3 cmdOK", "4 cmdCancel"},
          .escape = "cmdCancel"});

constexpr const char* kMatch = "The Instalment Amount must match the Amount to be paid.";
constexpr const char* kBadTo =
    "Reporting Period To must be in the form YYYYMMDD and must be greater than the From date.";

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026010120260331                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |amount              |nothing             |nothing             |nothing             |
    "PC40001F01000000000000012345020000000000000000000300000000000000000004000000000000000000";
// clang-format on

class InstalmentsPayment : public PaymentTest<frmInstalments> {
 protected:
  InstalmentsPayment() : PaymentTest("12345") {}

  std::string Code() const override { return "17"; }
  void FillIn(frmInstalments& form, UserDriver& user) const override {
    user.PressMouse(form.period.From);
    Type(user, "202601012026033112345\r");
  }
  Button& OkButton(frmInstalments& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "amount is missing",
         .spoil = [](frmInstalments& form) { form.txtAmountPayable.Text(""); },
         .message = kMatch,
         .focus = "txtAmountPayable"},
        {.name = "amount is another one",
         .spoil = [](frmInstalments& form) { form.txtAmountPayable.Text("123.46"); },
         .message = kMatch,
         .focus = "txtAmountPayable"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }
};

using InstalmentsOkPath = InstalmentsPayment;
const bool kTestsAdded = AddOkPathTests<InstalmentsPayment>("InstalmentsOkPath") &&
                         AddRecordsTests<InstalmentsPayment>("InstalmentsRecords");

// The periods are tested when they are left and not on OK.
TEST_F(InstalmentsOkPath, AcceptsPeriodsThatAreNoneAnyMore) {
  EXPECT_TRUE(Show<frmInstalments>("17", [this](frmInstalments& form, UserDriver& user) {
    FillIn(form, user);
    form.period.From.Text("20260299");
    form.period.To.Text("1990");
    user.PressMouse(form.cmdCancel);
    user.Click(form.cmdOK);
  }));
  EXPECT_EQ(Records()[0].substr(8, 16), "202602991990    ");
}

// The whole text is read here, as the user's locale has it, and not the number at its start.
TEST_F(InstalmentsOkPath, ReadsTheAmountAsAWholeText) {
  EXPECT_TRUE(EnterAndPressOk([](frmInstalments& form) { form.txtAmountPayable.Text("123.4500"); }));
  EXPECT_FALSE(Show<frmInstalments>("17", [&](frmInstalments& form, UserDriver& user) {
    FillIn(form, user);
    form.txtAmountPayable.Text("123.45.");
    user.Click(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kMatch);
    user.Click(form.cmdCancel);
  }));
}

class Instalments : public ScreenTest {};

TEST_F(Instalments, FieldsFitTheirEntries) {
  const frmInstalments form;
  EXPECT_EQ(form.period.From.MaxLength(), 8);
  EXPECT_EQ(form.period.From.Designed().alignment, Alignment::Left);
  EXPECT_EQ(form.period.To.MaxLength(), 8);
  EXPECT_EQ(form.period.To.Designed().alignment, Alignment::Left);
  EXPECT_EQ(form.txtAmountPayable.MaxLength(), 12);
  EXPECT_EQ(form.txtAmountPayable.Designed().alignment, Alignment::Right);
}

TEST_F(Instalments, KeepsTheBillerCode) {
  session.CompCode("001051");
  Show<frmInstalments>("17", [](frmInstalments& form, UserDriver&) { EXPECT_EQ(form.CompCode(), "001051"); });
}

TEST_F(Instalments, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmInstalments>("17", [](frmInstalments& form, UserDriver& user) {
    form.period.To.Enabled(false);
    Type(user, "20260101");
    EXPECT_EQ(user.FocusName(), "txtPeriodFrom");
    form.period.To.Enabled(true);
    form.txtAmountPayable.Enabled(false);
    user.PressMouse(form.period.To);
    Type(user, "20260331");
    EXPECT_EQ(user.FocusName(), "txtPeriodTo");
    form.txtAmountPayable.Enabled(true);
    form.cmdOK.Enabled(false);
    user.PressMouse(form.txtAmountPayable);
    Type(user, "123456789012");
    EXPECT_EQ(user.FocusName(), "txtAmountPayable");
    EXPECT_EQ(user.Text(form.txtAmountPayable), "123456789012");
  });
}

// Only exactly eight characters are compared, so a longer text, which code alone can set, is left out.
TEST_F(Instalments, FromIsNotComparedWithALongerTo) {
  Show<frmInstalments>("17", [](frmInstalments& form, UserDriver& user) {
    form.period.To.Text("202603311");
    Type(user, "20260401");
    EXPECT_EQ(user.FocusName(), "txtPeriodTo");
  });
}

TEST_F(Instalments, ToIsNotComparedWithALongerFrom) {
  Show<frmInstalments>("17", [](frmInstalments& form, UserDriver& user) {
    form.period.From.Text("202603311");
    user.PressMouse(form.cmdCancel);
    user.PressMouse(form.period.To);
    Type(user, "20260101");
    EXPECT_EQ(user.FocusName(), "txtAmountPayable");
  });
}

TEST_F(Instalments, ALongerTextIsNoDate) {
  Show<frmInstalments>("17", [&](frmInstalments& form, UserDriver& user) {
    Type(user, "20260101");
    form.period.To.Text("202603311");
    user.PressMouse(form.txtAmountPayable);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kBadTo);
    EXPECT_EQ(user.FocusName(), "txtPeriodTo");
  });
}

// The name in the message is the label's caption, whatever that is.
TEST_F(Instalments, ANegativeAmountIsCalledByItsLabel) {
  Show<frmInstalments>("17", [&](frmInstalments& form, UserDriver& user) {
    Type(user, "2026010120260331-5");
    form.lblAmountPayable.Caption("Levy:");
    user.PressMouse(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "Levy: cannot be negative.");
    EXPECT_EQ(boxes[0].style, MessageStyle::Plain);
  });
}

class InstalmentsRandomly : public RandomActsTest<frmInstalments> {
 protected:
  static void ExpectDigitsThenBlanks(const std::string& field) {
    const size_t digits = std::min(field.find_first_not_of("0123456789"), field.size());
    EXPECT_EQ(field.find_first_not_of(' ', digits), std::string::npos) << field;
  }

  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    ASSERT_EQ(records[0].size(), 160U);
    // The way over Cancel lets any digits through.
    const std::string from = records[0].substr(8, 8), to = records[0].substr(16, 8);
    ExpectDigitsThenBlanks(from);
    ExpectDigitsThenBlanks(to);
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T" + from + to + std::string(16, ' ') + "Jane Doe" +
                                std::string(22, ' ') + "Clerk"));
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + payment.field +
                                "020000000000000000000300000000000000000004000000000000000000"));
  }
};

TEST_F(InstalmentsRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"},
                                               {"12345", "000000000000012345"},
                                               {"5", "000000000000000005"},
                                               {"0", "000000000000000000"},
                                               {"1E30", "no record"}};
  const RandomUser random(20260615, {"20260101", "20260101", "20260101", "20260331", "20260331", "20260331", "20260615",
                                     "20260299", "12345", "12345", "123.45", "5", "0", "-5"});
  Play("17", random, payments);
}

}  // namespace
}  // namespace fiscalon::instalments_test
