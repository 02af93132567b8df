#include "screens/federal/corporate_income.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/records/record_reader.h"
#include "tests/support/memory_files.h"
#include "tests/support/ok_path.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

constexpr const char* kNoInstalment = "Instalment Payment cannot be 0.";
constexpr const char* kNothingOwing = "Amounts Owing Payment cannot be 0.";
constexpr const char* kAskDate = "Please enter the date for the end of fiscal period.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kOtherYear =
    "The year for 'Remittance Period Ending' entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";

void FillInInstalment(GOVCORPINCOME& form, UserDriver& user) {
  user.Click(form.optRC100);
  Type(user, "20260531");
}

// The tests of OK that refuse numbers below 0 are not among the rows: a text with a minus sign is no amount, so that
// the silent test before them meets it first.
class CorporateInstalmentOkPath : public OkPathTest<GOVCORPINCOME> {
 protected:
  CorporateInstalmentOkPath() {
    session.PaidAmount("12345");
    yesOrNo = MessageAnswer::No;
  }

  std::string Code() const override { return "02"; }
  void FillValid(GOVCORPINCOME& form, UserDriver& user) const override { FillInInstalment(form, user); }
  Button& OkButton(GOVCORPINCOME& form) const override { return form.Command3D6; }

  const std::vector<Row>& Rows() const override {
    static const std::vector<Row> kRows = {
        {.name = "amount is none",
         .spoil = [](GOVCORPINCOME& form) { form.InstalmentPayment.Text("-123.45"); },
         .focus = "InstalmentPayment"},
        {.name = "amount is zero",
         .spoil = [](GOVCORPINCOME& form) { form.InstalmentPayment.Text("0"); },
         .message = kNoInstalment,
         .focus = "InstalmentPayment"},
        {.name = "date is missing",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text("  "); },
         .message = kAskDate,
         .focus = "EndDate"},
        {.name = "date is short",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text(" 2026053"); },
         .focus = "EndDate"},
        {.name = "date is none",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text("20260431"); },
         .message = kBadDate,
         .focus = "EndDate"},
        {.name = "date is of another year",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text("20250531"); },
         .message = kOtherYear,
         .focus = "EndDate",
         .style = MessageStyle::Exclamation,
         .title = "Date Warning"},
    };
    return kRows;
  }
};

TEST_F(CorporateInstalmentOkPath, EachRowRefusesWithItsMessageAndFocus) {
  ExpectEachRowRefuses();
}

TEST_F(CorporateInstalmentOkPath, EachRowIsMetBeforeEveryLaterRow) {
  ExpectEachRowIsMetBeforeLaterOnes();
}

TEST_F(CorporateInstalmentOkPath, TheRowsAreAllThereInOrder) {
  EXPECT_THAT(MessagesWhileMending(), ElementsAre("", kNoInstalment, kAskDate, "", kBadDate, kOtherYear));
}

TEST_F(CorporateInstalmentOkPath, AcceptsAValidForm) {
  ExpectAValidFormIsAccepted();
}

class CorporateAmountOwingOkPath : public OkPathTest<GOVCORPINCOME> {
 protected:
  CorporateAmountOwingOkPath() { session.PaidAmount("12345"); }

  std::string Code() const override { return "02"; }
  // The form opens with the whole amount owing.
  void FillValid(GOVCORPINCOME& /*form*/, UserDriver& /*user*/) const override {}
  Button& OkButton(GOVCORPINCOME& form) const override { return form.Command3D6; }

  const std::vector<Row>& Rows() const override {
    static const std::vector<Row> kRows = {
        {.name = "amount is none",
         .spoil = [](GOVCORPINCOME& form) { form.ArrearsPayment.Text("-123.45"); },
         .focus = "ArrearsPayment"},
        {.name = "amount is zero",
         .spoil = [](GOVCORPINCOME& form) { form.ArrearsPayment.Text("0"); },
         .message = kNothingOwing,
         .focus = "ArrearsPayment"},
    };
    return kRows;
  }
};

TEST_F(CorporateAmountOwingOkPath, EachRowRefusesWithItsMessageAndFocus) {
  ExpectEachRowRefuses();
}

TEST_F(CorporateAmountOwingOkPath, EachRowIsMetBeforeEveryLaterRow) {
  ExpectEachRowIsMetBeforeLaterOnes();
}

TEST_F(CorporateAmountOwingOkPath, TheRowsAreAllThereInOrder) {
  EXPECT_THAT(MessagesWhileMending(), ElementsAre("", kNothingOwing));
}

TEST_F(CorporateAmountOwingOkPath, AcceptsAValidForm) {
  ExpectAValidFormIsAccepted();
}

class CorporateIncomeRecords : public ScreenTest {
 protected:
  CorporateIncomeRecords() {
    session.SeqNumber("0001");
    session.PaidAmount("12345");
    session.EnterName("Jane Doe");
    session.EnterTitle("Clerk");
  }

  bool PayAmountOwing() {
    return Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) { user.Click(form.Command3D6); });
  }

  bool PayInstalment() {
    return Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
      FillInInstalment(form, user);
      user.Click(form.Command3D6);
    });
  }
};

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                                Jane Doe                      Clerk                         ";
const std::string kAmountOwingF =
    // head  |amount owing        |nothing             |nothing             |nothing             |
    "PC40001F03000000000000012345                                                            ";
const std::string kInstalmentF =
    // head  |instalment          |end of period       |nothing             |nothing             |
    "PC40001F010000000000000123450220260531                                                  ";
// clang-format on

TEST_F(CorporateIncomeRecords, OfAnAmountOwingHoldItInTheFirstSlot) {
  EXPECT_TRUE(PayAmountOwing());
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kAmountOwingF)));
}

TEST_F(CorporateIncomeRecords, OfAnInstalmentHoldAmountAndDate) {
  EXPECT_TRUE(PayInstalment());
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kInstalmentF)));
}

TEST_F(CorporateIncomeRecords, AreMadeOfTrimmedEntries) {
  EXPECT_TRUE(Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text(" 123.45 ");
    form.EndDate.Text(" 20260531 ");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kInstalmentF)));
}

TEST_F(CorporateIncomeRecords, TakeAnAmountWithoutAPointForCents) {
  EXPECT_TRUE(Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    form.ArrearsPayment.Text(" 12345 ");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kAmountOwingF)));
  EXPECT_TRUE(Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text("12345");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kInstalmentF)));
}

// OK compares neither amount with the payment.
TEST_F(CorporateIncomeRecords, HoldTheFieldsAmountWhateverIsToBePaid) {
  EXPECT_TRUE(Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    form.ArrearsPayment.Text("999.99");
    user.Click(form.Command3D6);
  }));
  // head  |amount owing        |
  EXPECT_EQ(Records()[1], Ruled("PC40001F03000000000000099999"));
}

TEST_F(CorporateIncomeRecords, AreQuotedLinesInTheFile) {
  const TemporaryFolder folder;
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path("payment.pc4"));
  EXPECT_TRUE(PayInstalment());
  EXPECT_EQ(folder.Read("payment.pc4"), '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kInstalmentF) + "\"\r\n");
  EXPECT_TRUE(PayAmountOwing());
  EXPECT_EQ(folder.Read("payment.pc4"), '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kAmountOwingF) + "\"\r\n");
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(CorporateIncomeRecords, LieInAClosedFileAsSoonAsTheFormHides) {
  const auto files = std::make_shared<MemoryFiles>();
  TheModule().files = files;
  session.WriteFile(kTrue);
  session.GovFilename("payment.pc4");
  EXPECT_TRUE(Show<GOVCORPINCOME>("02", [&](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    user.Click(form.Command3D6);
    EXPECT_FALSE(form.IsUp());
    EXPECT_EQ(files->openFiles, 0);
  }));
}

TEST_F(CorporateIncomeRecords, TakeANameOf30AndATitleOf20) {
  session.EnterName(" abcdefghijklmnopqrstuvwxyz1234 ");
  session.EnterTitle(" ABCDEFGHIJKLMNOPQRST ");
  EXPECT_TRUE(PayAmountOwing());
  EXPECT_EQ(Records()[0],
            // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2 |
            Ruled("PC40001T                                abcdefghijklmnopqrstuvwxyz1234ABCDEFGHIJKLMNOPQRST"));
}

TEST_F(CorporateIncomeRecords, AreMissingForANameOf31ThoughOkIsChosen) {
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  EXPECT_TRUE(PayAmountOwing());
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
}

TEST_F(CorporateIncomeRecords, AreMissingForATitleOf21ThoughOkIsChosen) {
  session.EnterTitle("ABCDEFGHIJKLMNOPQRSTU");
  EXPECT_TRUE(PayInstalment());
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
}

TEST_F(CorporateIncomeRecords, AreIncompleteOnAFullDiskAndTheFileStaysOpenUntilTheFormUnloads) {
  const auto files = std::make_shared<MemoryFiles>();
  files->printsLeft = 1;
  TheModule().files = files;
  session.WriteFile(kTrue);
  session.GovFilename("payment.pc4");
  int openBehindOk = 0;
  EXPECT_TRUE(Show<GOVCORPINCOME>("02", [&](GOVCORPINCOME& form, UserDriver& user) {
    user.Click(form.Command3D6);
    openBehindOk = files->openFiles;
  }));
  EXPECT_EQ(openBehindOk, 1);
  EXPECT_EQ(files->openFiles, 0);
  EXPECT_EQ(files->contents["payment.pc4"], '"' + Ruled(kRecordT) + "\"\r\n");
}

TEST_F(CorporateIncomeRecords, AreReadBackAsTheyWereWritten) {
  EXPECT_TRUE(PayInstalment());
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
  EXPECT_EQ(free.Item(3).FieldNum() + free.Item(3).FieldValue(), "                    ");
  EXPECT_EQ(free.Item(4).FieldNum() + free.Item(4).FieldValue(), "                    ");
}

class CorporateIncome : public ScreenTest {
 protected:
  CorporateIncome() { session.PaidAmount("12345"); }

  void ExpectOneCriticalBox(const std::string& text) {
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, text);
    EXPECT_EQ(boxes[0].style, MessageStyle::Critical);
    EXPECT_EQ(boxes[0].title, "");
  }
};

TEST_F(CorporateIncome, FieldsAreAsLongAsTheirEntriesAndNoButtonIsForEscape) {
  const GOVCORPINCOME form;
  EXPECT_EQ(form.ArrearsPayment.MaxLength(), 10);
  EXPECT_EQ(form.InstalmentPayment.MaxLength(), 10);
  EXPECT_EQ(form.EndDate.MaxLength(), 8);
  EXPECT_TRUE(form.ArrearsPayment.Designed().locked);
  EXPECT_TRUE(form.InstalmentPayment.Designed().locked);
  for (const Button* button : {&form.Command3D6, &form.Command3D5, static_cast<const Button*>(&form.Command3D4)})
    EXPECT_FALSE(button->Designed().cancel) << button->Name();
}

TEST_F(CorporateIncome, FullDateKeepsTheFocusWhereOkIsDisabled) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    form.Command3D6.Enabled(false);
    FillInInstalment(form, user);
    EXPECT_EQ(user.FocusName(), "EndDate");
  });
}

// The user can't change the amounts. What their keys do with other texts is reached by code alone.
TEST_F(CorporateIncome, EnterInAnEmptyAmountOwingMakesItZeroAndStays) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text("  ");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "0.00");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

TEST_F(CorporateIncome, EnterInAnEmptyInstalmentMakesItZeroAndGoesToOk) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text("  ");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "0.00");
    EXPECT_EQ(user.FocusName(), "Command3D6");
  });
}

TEST_F(CorporateIncome, EmptyAmountsAreZerosUnderACommaLocaleToo) {
  SetLocale(FrenchCanada());
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text("");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "0,00");
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text("");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "0,00");
  });
}

TEST_F(CorporateIncome, EnterReadsAnAmountWithoutAPointAsCents) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text(" 10000 ");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "100.00");
    EXPECT_EQ(user.FocusName(), "Command3D6");
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text(" 10000 ");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "100.00");
    EXPECT_EQ(user.FocusName(), "EndDate");
  });
}

TEST_F(CorporateIncome, EnterRefusesAnAmountOwingAboveThePayment) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text("12346");
    Type(user, "\r");
    ExpectOneCriticalBox("Arrears Payment cannot be greater than amount to be paid.");
    EXPECT_EQ(form.ArrearsPayment.Text(), "123.46");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

TEST_F(CorporateIncome, EnterRefusesAnInstalmentAboveThePayment) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text("123.46");
    Type(user, "\r");
    ExpectOneCriticalBox("Instalment Payment cannot be greater than amount to be paid.");
    EXPECT_EQ(form.InstalmentPayment.Text(), "123.46");
    EXPECT_EQ(user.FocusName(), "InstalmentPayment");
  });
}

TEST_F(CorporateIncome, EnterSaysNothingAboutATextThatIsNoAmount) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text(" 1 2 ");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "1 2");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text(" 1 2 ");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "1 2");
    EXPECT_EQ(user.FocusName(), "InstalmentPayment");
  });
}

// The amount owing is closed while an instalment is paid: the move there fails, and the focus stays.
TEST_F(CorporateIncome, EnterInADateStaysWhereTheAmountsDoNotAddUp) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text("100.00");
    user.PressMouse(form.EndDate);
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "EndDate");
    form.ArrearsPayment.Enabled(true);
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

TEST_F(CorporateIncome, EnterInADateAddsBothAmounts) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text("100.00");
    form.ArrearsPayment.Text("23.45");
    user.PressMouse(form.EndDate);
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "Command3D6");
  });
}

TEST_F(CorporateIncome, EnterGoesOnFromAnEmptyDateWhereNoInstalmentStands) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.Click(form.optRC100);
    form.InstalmentPayment.Text("");
    form.ArrearsPayment.Text("123.45");
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "Command3D6");
  });
}

TEST_F(CorporateIncome, OkMakesAnEmptyInstalmentZeroAndRefusesIt) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text(" ");
    user.Click(form.Command3D6);
    ExpectOneCriticalBox(kNoInstalment);
    EXPECT_EQ(form.InstalmentPayment.Text(), "0.00");
    EXPECT_EQ(user.SelectedText(form.InstalmentPayment), "0.00");
    EXPECT_EQ(user.FocusName(), "InstalmentPayment");
  });
}

TEST_F(CorporateIncome, OkMakesAnEmptyAmountOwingZeroAndRefusesIt) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    form.ArrearsPayment.Text(" ");
    user.Click(form.Command3D6);
    ExpectOneCriticalBox(kNothingOwing);
    EXPECT_EQ(form.ArrearsPayment.Text(), "0.00");
    EXPECT_EQ(user.SelectedText(form.ArrearsPayment), "0.00");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

TEST_F(CorporateIncome, WritesNoPlayByPlayLog) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("Zelmor"));
  Levyra::MainPath(folder.Path());
  Levyra::PlayByPlayEnabled(kTrue);
  EXPECT_TRUE(Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) { user.Click(form.Command3D6); }));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("Zelmor/PBP.txt")));
}

class CorporateIncomeRandomly : public RandomActsTest<GOVCORPINCOME> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0],
              Ruled("PC4" + seqNumber + "T" + std::string(32, ' ') + "Jane Doe" + std::string(22, ' ') + "Clerk"));
    ASSERT_EQ(records[1].size(), 160U);
    if (records[1].substr(8, 2) == "03") {
      EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F03" + payment.field));
      return;
    }
    const std::string date = records[1].substr(30, 8);
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + payment.field + "02" + date));
    EXPECT_TRUE(date >= "20240101" && date <= "20281231") << date;
  }
};

TEST_F(CorporateIncomeRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"},
                                               {"5", "000000000000000005"},
                                               {"123456789012", "000000123456789012"},
                                               {"0", "no record"},
                                               {"-12345", "no record"}};
  const RandomUser random(20260615, {"20260531", "20260531", "20260615", "20250101", "20260431", "2026053", "20281231",
                                     "20231231", "123.45", "12345", "-5"});
  Play("02", random, payments);
}

}  // namespace
}  // namespace fiscalon
