#include "screens/general/alberta_finance.h"

#include <gmock/gmock.h>

#include "core/records/record_reader.h"
#include "tests/support/memory_files.h"
#include "tests/support/ok_path.h"
#include "tests/support/raises.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::AnyOf;
using testing::ElementsAre;

constexpr const char* kAskProgram = "Please select the tax program you wish to remit for.";
constexpr const char* kAskDate = "Please enter the Period End Date.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kAskFacility = "Please enter your facility number.";

constexpr int kTobaccoTax = 7;
constexpr int kTourismLevy = 8;

void FillIn(frmAlbertaRevenue& form, UserDriver& user) {
  user.Choose(form.cmbTaxProgram, kTourismLevy);
  Type(user, "20260531123");
}

class AlbertaFinanceOkPath : public OkPathTest<frmAlbertaRevenue> {
 protected:
  AlbertaFinanceOkPath() { session.PaidAmount("12345"); }

  std::string Code() const override { return "14"; }
  void FillValid(frmAlbertaRevenue& form, UserDriver& user) const override { FillIn(form, user); }
  Button& OkButton(frmAlbertaRevenue& form) const override { return form.cmdOK; }

  const std::vector<Row>& Rows() const override {
    static const std::vector<Row> kRows = {
        {.name = "program is missing",
         .spoil = [](frmAlbertaRevenue& form) { form.cmbTaxProgram.ListIndex(ListControl::kNothingSelected); },
         .message = kAskProgram,
         .focus = "cmbTaxProgram",
         .style = MessageStyle::Information},
        {.name = "date is missing",
         .spoil = [](frmAlbertaRevenue& form) { form.txtPeriodEndDate.Text("  "); },
         .message = kAskDate,
         .focus = "txtPeriodEndDate"},
        {.name = "date is short",
         .spoil = [](frmAlbertaRevenue& form) { form.txtPeriodEndDate.Text(" 2026053"); },
         .message = kBadDate,
         .focus = "txtPeriodEndDate"},
        {.name = "date is none",
         .spoil = [](frmAlbertaRevenue& form) { form.txtPeriodEndDate.Text("20260431"); },
         .message = kBadDate,
         .focus = "txtPeriodEndDate"},
        {.name = "facility number is short",
         .spoil = [](frmAlbertaRevenue& form) { form.txtFacilityNumber.Text(" 12"); },
         .message = kAskFacility,
         .focus = "txtFacilityNumber",
         .style = MessageStyle::Information},
    };
    return kRows;
  }
};

TEST_F(AlbertaFinanceOkPath, EachRowRefusesWithItsMessageAndFocus) {
  ExpectEachRowRefuses();
}

TEST_F(AlbertaFinanceOkPath, EachRowIsMetBeforeEveryLaterRow) {
  ExpectEachRowIsMetBeforeLaterOnes();
}

TEST_F(AlbertaFinanceOkPath, TheRowsAreAllThereInOrder) {
  EXPECT_THAT(MessagesWhileMending(), ElementsAre(kAskProgram, kAskDate, kBadDate, kBadDate, kAskFacility));
}

TEST_F(AlbertaFinanceOkPath, AcceptsAValidForm) {
  ExpectAValidFormIsAccepted();
}

// Whether the field is open says that the number counts; the program itself is not looked at.
TEST_F(AlbertaFinanceOkPath, AsksForAnOpenFacilityNumberWhateverTheProgram) {
  EXPECT_FALSE(Show<frmAlbertaRevenue>("14", [&](frmAlbertaRevenue& form, UserDriver& user) {
    user.Choose(form.cmbTaxProgram, kTobaccoTax);
    Type(user, "20260531");
    form.txtFacilityNumber.Enabled(true);
    user.Click(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kAskFacility);
    EXPECT_EQ(user.FocusName(), "txtFacilityNumber");
  }));
}

TEST_F(AlbertaFinanceOkPath, AsksForNoClosedFacilityNumberWhateverTheProgram) {
  EXPECT_TRUE(Show<frmAlbertaRevenue>("14", [](frmAlbertaRevenue& form, UserDriver& user) {
    user.Choose(form.cmbTaxProgram, kTourismLevy);
    Type(user, "20260531");
    form.txtFacilityNumber.Enabled(false);
    user.Click(form.cmdOK);
  }));
}

class AlbertaFinanceRecords : public ScreenTest {
 protected:
  AlbertaFinanceRecords() {
    session.SeqNumber("0001");
    session.PaidAmount("12345");
    session.EnterName("Jane Doe");
    session.EnterTitle("Clerk");
  }

  bool EnterAndPressOk() {
    return Show<frmAlbertaRevenue>("14", [](frmAlbertaRevenue& form, UserDriver& user) {
      FillIn(form, user);
      user.Click(form.cmdOK);
    });
  }
};

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T        20260531                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |tax program         |facility number     |nothing             |nothing             |
    "PC40001F01000000000000000005020000000000000001230300000000000000000004000000000000000000";
// clang-format on

TEST_F(AlbertaFinanceRecords, AreOneGovernmentAndOneFreeFormatRecord) {
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

TEST_F(AlbertaFinanceRecords, AreMadeOfATrimmedDate) {
  EXPECT_TRUE(Show<frmAlbertaRevenue>("14", [](frmAlbertaRevenue& form, UserDriver& user) {
    FillIn(form, user);
    form.txtPeriodEndDate.Text(" 20260531 ");
    user.Click(form.cmdOK);
    EXPECT_EQ(form.txtPeriodEndDate.Text(), "20260531");
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

TEST_F(AlbertaFinanceRecords, AreQuotedLinesInTheFile) {
  const TemporaryFolder folder;
  session.WriteFile(kTrue);
  session.GovFilename(folder.Path("payment.pc4"));
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(folder.Read("payment.pc4"), '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kRecordF) + "\"\r\n");
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(AlbertaFinanceRecords, TakeANameOf30AndATitleOf20) {
  session.EnterName("   abcdefghijklmnopqrstuvwxyz1234   ");
  session.EnterTitle(" ABCDEFGHIJKLMNOPQRST ");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records()[0],
            // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2 |
            Ruled("PC40001T        20260531                abcdefghijklmnopqrstuvwxyz1234ABCDEFGHIJKLMNOPQRST"));
}

TEST_F(AlbertaFinanceRecords, AreNotMadeForANameOf31) {
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 5);
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(AlbertaFinanceRecords, AreNotMadeForATitleOf21) {
  session.EnterTitle("ABCDEFGHIJKLMNOPQRSTU");
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 5);
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(AlbertaFinanceRecords, AreIncompleteOnAFullDiskUntilTheNextOutput) {
  const auto files = std::make_shared<MemoryFiles>();
  files->printsLeft = 1;
  TheModule().files = files;
  session.WriteFile(kTrue);
  session.GovFilename("payment.pc4");
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 61);
  EXPECT_EQ(files->contents["payment.pc4"], '"' + Ruled(kRecordT) + "\"\r\n");
  EXPECT_EQ(files->openFiles, 1);
  files->printsLeft = 100;
  EXPECT_TRUE(Show<frmAlbertaRevenue>("14", [](frmAlbertaRevenue& form, UserDriver& user) { user.Click(form.cmdOK); }));
  EXPECT_EQ(files->openFiles, 0);
  EXPECT_EQ(files->contents["payment.pc4"], '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kRecordF) + "\"\r\n");
}

TEST_F(AlbertaFinanceRecords, AreReadBackAsTheyWereWritten) {
  EXPECT_TRUE(EnterAndPressOk());
  clsPC4GovFormats government;
  clsPC4FreeFormats free;
  CutRecords(*session.PC4Records(), government, free);
  ASSERT_EQ(government.Count(), 1);
  EXPECT_EQ(government.Item(1).PeriodStartDate(), "        ");
  EXPECT_EQ(government.Item(1).PeriodEndDate(), "20260531");
  EXPECT_EQ(government.Item(1).PeriodDueDate(), "        ");
  EXPECT_EQ(government.Item(1).Filler1(), "        ");
  EXPECT_EQ(government.Item(1).ContactName(), "Jane Doe                      ");
  EXPECT_EQ(government.Item(1).ContactTitle(), "Clerk               ");
  EXPECT_EQ(government.Item(1).Filler2(), "          ");
  ASSERT_EQ(free.Count(), 4);
  EXPECT_EQ(free.Item(1).FieldNum() + free.Item(1).FieldValue(), "01000000000000000005");
  EXPECT_EQ(free.Item(2).FieldNum() + free.Item(2).FieldValue(), "02000000000000000123");
  EXPECT_EQ(free.Item(3).FieldNum() + free.Item(3).FieldValue(), "03000000000000000000");
  EXPECT_EQ(free.Item(4).FieldNum() + free.Item(4).FieldValue(), "04000000000000000000");
}

class AlbertaFinance : public ScreenTest {};

TEST_F(AlbertaFinance, FieldsAreAsLongAsTheirEntriesAndNoButtonAnswersEscape) {
  const frmAlbertaRevenue form;
  EXPECT_EQ(form.txtPeriodEndDate.MaxLength(), 8);
  EXPECT_EQ(form.txtFacilityNumber.MaxLength(), 3);
  EXPECT_FALSE(form.txtFacilityNumber.Designed().enabled);
  EXPECT_FALSE(form.cmdOK.Designed().cancel);
  EXPECT_FALSE(form.cmdCancel.Designed().cancel);
}

TEST_F(AlbertaFinance, KeepsWhatItMakesNoUseOf) {
  session.CompName("Alberta Treasury");
  session.APHoldFlg(1);
  Show<frmAlbertaRevenue>("14", [](frmAlbertaRevenue& form, UserDriver&) {
    EXPECT_EQ(form.CompName(), "Alberta Treasury");
    EXPECT_EQ(form.APHoldFlg(), 1);
  });
}

TEST_F(AlbertaFinance, FullFieldsKeepTheFocusWhereOkIsDisabled) {
  Show<frmAlbertaRevenue>("14", [](frmAlbertaRevenue& form, UserDriver& user) {
    form.cmdOK.Enabled(false);
    user.Choose(form.cmbTaxProgram, kTobaccoTax);
    Type(user, "20260531");
    EXPECT_EQ(user.FocusName(), "txtPeriodEndDate");
    user.Choose(form.cmbTaxProgram, kTourismLevy);
    user.PressMouse(form.txtFacilityNumber);
    Type(user, "123");
    EXPECT_EQ(user.FocusName(), "txtFacilityNumber");
  });
}

class AlbertaFinanceRandomly : public RandomActsTest<frmAlbertaRevenue> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& /*payment*/) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    ASSERT_EQ(records[0].size(), 160U);
    const std::string date = records[0].substr(16, 8);
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T        " + date + std::string(16, ' ') + "Jane Doe" +
                                std::string(22, ' ') + "Clerk"));
    EXPECT_TRUE(date >= "20240101" && date <= "20281231") << date;
    // A pasted number may be below zero, and then its sign makes the record one column longer.
    ASSERT_GE(records[1].size(), 160U);
    ASSERT_LE(records[1].size(), 161U);
    const std::string program = records[1].substr(10, 18);
    const std::string facility = records[1].substr(30, records[1].size() - 160 + 18);
    EXPECT_THAT(program.substr(16), AnyOf("01", "10", "13", "23", "03", "07", "21", "11", "05"));
    EXPECT_EQ(program.substr(0, 16), std::string(16, '0'));
    EXPECT_EQ(facility.front() == '-', records[1].size() == 161) << facility;
    EXPECT_EQ(facility.find_first_not_of("0123456789", 1), std::string::npos) << facility;
    EXPECT_EQ(records[1], "PC4" + seqNumber + "F01" + program + "02" + facility + "03" + std::string(18, '0') + "04" +
                              std::string(18, '0') + std::string(72, ' '));
  }
};

TEST_F(AlbertaFinanceRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", ""}, {"0", ""}, {"-12345", ""}, {"1E30", ""}};
  const RandomUser random(20260615, {"20260531", "20260531", "20260531", "20260615", "20240101", "20281231", "20260431",
                                     "2026053", "123", "007", "-12"});
  Play("14", random, payments);
}

}  // namespace
}  // namespace fiscalon
