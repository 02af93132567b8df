#include "screens/general/due_date_amount.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/records/record_reader.h"
#include "tests/support/ok_path.h"
#include "tests/support/raises.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

constexpr const char* kPeriodMessage =
    "'Taxation year ends on' must be in the form YYYYMM. Your entry can range from 199001 to 202705.";
constexpr const char* kAmountMessage = "Amount payable cannot be zero or negative.";
constexpr const char* kMatchMessage = "The Amount Payable must match the Amount to be paid.";

class DueDateAmountOkPath : public OkPathTest<frmDueDateAmount> {
 protected:
  DueDateAmountOkPath() { session.PaidAmount("12345"); }

  std::string Code() const override { return "15"; }

  void FillValid(frmDueDateAmount& form, UserDriver& user) const override {
    user.PressMouse(form.txtRemittancePeriod);
    Type(user, "202612");
    Type(user, "12345");
  }

  Button& OkButton(frmDueDateAmount& form) const override { return form.cmdOK; }

  const std::vector<Row>& Rows() const override {
    static const std::vector<Row> kRows = {
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
};

TEST_F(DueDateAmountOkPath, EachRowRefusesWithItsMessageAndFocus) {
  ExpectEachRowRefuses();
}

TEST_F(DueDateAmountOkPath, EachRowIsMetBeforeEveryLaterRow) {
  ExpectEachRowIsMetBeforeLaterOnes();
}

TEST_F(DueDateAmountOkPath, TheRowsAreAllThereInOrder) {
  EXPECT_THAT(MessagesWhileMending(), ElementsAre(kPeriodMessage, kAmountMessage, kMatchMessage));
}

TEST_F(DueDateAmountOkPath, AcceptsAValidForm) {
  ExpectAValidFormIsAccepted();
}

class DueDateAmountRecords : public ScreenTest {
 protected:
  DueDateAmountRecords() {
    session.SeqNumber("0001");
    session.PaidAmount("12345");
  }

  bool EnterAndPressOk() {
    return Show<frmDueDateAmount>("15", [](frmDueDateAmount& form, UserDriver& user) {
      user.PressMouse(form.txtRemittancePeriod);
      Type(user, "202612");
      Type(user, "12345");
      user.Click(form.cmdOK);
    });
  }
};

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                202612          Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |number and value    |number and value    |number and value    |number and value    |
    "PC40001F01000000000000012345020000000000000000000300000000000000000004000000000000000000";
// clang-format on

TEST_F(DueDateAmountRecords, AreOneGovernmentAndOneFreeFormatRecord) {
  session.EnterName("Jane Doe");
  session.EnterTitle("Clerk");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

TEST_F(DueDateAmountRecords, AreQuotedLinesInTheFile) {
  const TemporaryFolder folder;
  session.EnterName("Jane Doe");
  session.EnterTitle("Clerk");
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path("payment.pc4"));
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(folder.Read("payment.pc4"), '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kRecordF) + "\"\r\n");
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(DueDateAmountRecords, HoldEveryCharacterOfTheContactAndBlanksForControlCharacters) {
  session.EnterName(std::string("J\0\"\r\n\t\xe9", 7));
  session.EnterTitle("\x80");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records()[0], Ruled("PC40001T                202612          J \"   \xe9" + std::string(23, ' ') + "\x80"));
}

TEST_F(DueDateAmountRecords, StayOneLineWhateverTheSequenceIs) {
  session.SeqNumber(std::string_view("\"\0\r\n", 4));
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

TEST_F(DueDateAmountRecords, TakeANameOf30AndATitleOf20) {
  session.EnterName("   abcdefghijklmnopqrstuvwxyz1234   ");
  session.EnterTitle(" ABCDEFGHIJKLMNOPQRST ");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records()[0],
            // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2 |
            Ruled("PC40001T                202612          abcdefghijklmnopqrstuvwxyz1234ABCDEFGHIJKLMNOPQRST"));
}

TEST_F(DueDateAmountRecords, AreNotMadeForANameOf31) {
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 5);
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(DueDateAmountRecords, AreNotMadeForATitleOf21) {
  session.EnterTitle("ABCDEFGHIJKLMNOPQRSTU");
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 5);
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(DueDateAmountRecords, AreReadBackAsTheyWereWritten) {
  session.EnterName("Jane Doe");
  session.EnterTitle("Clerk");
  EXPECT_TRUE(EnterAndPressOk());
  clsPC4GovFormats government;
  clsPC4FreeFormats free;
  CutRecords(*session.PC4Records(), government, free);
  ASSERT_EQ(government.Count(), 1);
  EXPECT_EQ(government.Item(1).PeriodStartDate(), "        ");
  EXPECT_EQ(government.Item(1).PeriodEndDate(), "        ");
  EXPECT_EQ(government.Item(1).PeriodDueDate(), "202612  ");
  EXPECT_EQ(government.Item(1).Filler1(), "        ");
  EXPECT_EQ(government.Item(1).ContactName(), "Jane Doe                      ");
  EXPECT_EQ(government.Item(1).ContactTitle(), "Clerk               ");
  EXPECT_EQ(government.Item(1).Filler2(), "          ");
  ASSERT_EQ(free.Count(), 4);
  EXPECT_EQ(free.Item(1).FieldNum() + free.Item(1).FieldValue(), "01000000000000012345");
  EXPECT_EQ(free.Item(2).FieldNum() + free.Item(2).FieldValue(), "02000000000000000000");
  EXPECT_EQ(free.Item(3).FieldNum() + free.Item(3).FieldValue(), "03000000000000000000");
  EXPECT_EQ(free.Item(4).FieldNum() + free.Item(4).FieldValue(), "04000000000000000000");
}

class DueDateAmount : public ScreenTest {};

TEST_F(DueDateAmount, FieldsAreAsLongAsTheirEntriesAndTheAmountStandsRight) {
  const frmDueDateAmount form;
  EXPECT_EQ(form.txtRemittancePeriod.MaxLength(), 6);
  EXPECT_EQ(form.txtRemittancePeriod.Designed().alignment, Alignment::Left);
  EXPECT_EQ(form.txtAmountPayable.MaxLength(), 12);
  EXPECT_EQ(form.txtAmountPayable.Designed().alignment, Alignment::Right);
  EXPECT_TRUE(form.cmdCancel.Designed().cancel);
  EXPECT_FALSE(form.cmdOK.Designed().cancel);
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
}  // namespace fiscalon
