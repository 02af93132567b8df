#include "screens/general/alberta_finance.h"

#include <gmock/gmock.h>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::alberta_finance_test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;

const bool kFormTold =
    Tell({.codes = {"14"},
          .routine = "ShowAlbertaRevenueForm",
          .form = "frmAlbertaRevenue",
          .controls = {"0 cmbTaxProgram", "1 txtPeriodEndDate", "2 txtFacilityNumber", "- cmdOK", "- cmdCancel"}});

constexpr const char* kAskProgram = "Please select the tax program you wish to remit for.";
constexpr const char* kAskDate = "Please enter the Period End Date.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kAskFacility = "Please enter your facility number.";

constexpr int kTobaccoTax = 7;
constexpr int kTourismLevy = 8;

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T        20260531                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |tax program         |facility number     |nothing             |nothing             |
    "PC40001F01000000000000000005020000000000000001230300000000000000000004000000000000000000";
// clang-format on

class AlbertaFinancePayment : public PaymentTest<frmAlbertaRevenue> {
 protected:
  AlbertaFinancePayment() : PaymentTest("12345") {}

  std::string Code() const override { return "14"; }
  void FillIn(frmAlbertaRevenue& form, UserDriver& user) const override {
    user.Choose(form.cmbTaxProgram, kTourismLevy);
    Type(user, "20260531123");
  }
  Button& OkButton(frmAlbertaRevenue& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
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

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }
};

using AlbertaFinanceOkPath = AlbertaFinancePayment;
using AlbertaFinanceRecords = AlbertaFinancePayment;
const bool kTestsAdded = AddOkPathTests<AlbertaFinancePayment>("AlbertaFinanceOkPath") &&
                         AddRecordsTests<AlbertaFinancePayment>("AlbertaFinanceRecords");

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

TEST_F(AlbertaFinanceRecords, AreMadeOfATrimmedDate) {
  EXPECT_TRUE(Show<frmAlbertaRevenue>("14", [this](frmAlbertaRevenue& form, UserDriver& user) {
    FillIn(form, user);
    form.txtPeriodEndDate.Text(" 20260531 ");
    user.Click(form.cmdOK);
    EXPECT_EQ(form.txtPeriodEndDate.Text(), "20260531");
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

class AlbertaFinance : public ScreenTest {};

TEST_F(AlbertaFinance, FieldsFitTheirEntries) {
  const frmAlbertaRevenue form;
  EXPECT_EQ(form.txtPeriodEndDate.MaxLength(), 8);
  EXPECT_EQ(form.txtFacilityNumber.MaxLength(), 3);
  EXPECT_FALSE(form.txtFacilityNumber.Designed().enabled);
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
}  // namespace fiscalon::alberta_finance_test
