#include "screens/general/donation.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "core/forms/laid_out.h"
#include "tests/support/payment_test.h"
#include "tests/support/raises.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::donation_test {
namespace {

using testing::ElementsAre;

const bool kFormTold = Tell({.codes = {"10"},
                             .routine = "ShowPaymentFrom",
                             .form = "frmDonation",
                             .controls = {"0 txtName", "1 txtAddress", "2 txtCity", "3 cmbProvince", "4 txtPostalCode",
                                          "5 txtEmail", "6 txtPhoneNo1", "7 txtPhoneNo2", "8 txtPhoneNo3",
                                          "9 txtAmount", "10 txtPurpose", "- cmdOK", "- cmdCancel"}});

constexpr const char* kIncomplete = "Please enter a complete e-mail address with the form 'name@example.com'.";
constexpr const char* kInvalid = "Please enter a valid e-mail address with the form 'name@example.com'.";
constexpr const char* kEmailTitle = "E-mail Address entry";

// 60 characters, as many as the field takes.
const std::string kLongestAddress = std::string(48, 'a') + "@example.com";

// clang-format off
const std::vector<std::string> kLines = {
    // head  |line text                                                             |
    "PC40001PNAME: JANE DOE                                                        ",
    "PC40001PADDRESS: 12 MAIN ST                                                   ",
    "PC40001P         BRANDON MB                                                   ",
    "PC40001PPOSTAL CODE: R7A 1A1                                                  ",
    "PC40001PEMAIL: jane@example.com                                               ",
    "PC40001PPHONE NO: 204-555-0123                                                ",
    "PC40001PAMOUNT: 123.45                                                        ",
    "PC40001PPURPOSE: FOOD BANK                                                    ",
};
// clang-format on

// The form tests lengths that no user can type: only the host and the form itself make longer texts. They are refused
// without a message.
class DonationPayment : public PaymentTest<frmDonation> {
 protected:
  DonationPayment() : PaymentTest("12345") {}

  std::string Code() const override { return "10"; }
  void FillIn(frmDonation& form, UserDriver& user) const override {
    user.PressMouse(form.txtName);
    Type(user, "Jane Doe\r12 Main St\rBrandon\r");
    user.Choose(form.cmbProvince, 2);
    user.PressMouse(form.txtPostalCode);
    Type(user, "r7a 1a1\rjane@example.com\r2045550123\rFood bank");
  }
  Button& OkButton(frmDonation& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "name is too long",
         .spoil = [](frmDonation& form) { form.txtName.Text(std::string(61, 'A')); },
         .focus = "txtName"},
        {.name = "address is too long",
         .spoil = [](frmDonation& form) { form.txtAddress.Text(std::string(61, 'A')); },
         .focus = "txtAddress"},
        {.name = "city is too long",
         .spoil = [](frmDonation& form) { form.txtCity.Text(std::string(21, 'A')); },
         .focus = "txtCity"},
        {.name = "postal code is too long",
         .spoil = [](frmDonation& form) { form.txtPostalCode.Text(std::string(10, 'A')); },
         .focus = "txtPostalCode"},
        {.name = "e-mail address is incomplete",
         .spoil = [](frmDonation& form) { form.txtEmail.Text(" a@b "); },
         .message = kIncomplete,
         .focus = "txtEmail",
         .title = kEmailTitle},
        {.name = "e-mail address is none",
         .spoil = [](frmDonation& form) { form.txtEmail.Text("jane.example.com"); },
         .message = kInvalid,
         .focus = "txtEmail",
         .title = kEmailTitle},
        {.name = "e-mail address is too long",
         .spoil = [](frmDonation& form) { form.txtEmail.Text("a" + kLongestAddress); },
         .focus = "txtEmail"},
        {.name = "purpose is too long",
         .spoil = [](frmDonation& form) { form.txtPurpose.Text(std::string(61, 'A')); },
         .focus = "txtPurpose"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return kLines; }
};

using DonationOkPath = DonationPayment;
using DonationRecords = DonationPayment;
const bool kTestsAdded =
    AddOkPathTests<DonationPayment>("DonationOkPath") && AddRecordsTests<DonationPayment>("DonationRecords");

TEST_F(DonationOkPath, HasThePartsOfThePhoneNumberCloseTogether) {
  const frmDonation form;
  for (const LaidOutGroup& group : LaidOut(form))
    for (const LaidOutRow& row : group.rows)
      if (row[0].field == &form.txtPhoneNo1) {
        ASSERT_EQ(row.size(), 3u);
        EXPECT_TRUE(row[1].isClose && row[2].isClose);
        return;
      }
  ADD_FAILURE() << "no phone number is laid out";
}

TEST_F(DonationOkPath, AcceptsTheLongestTexts) {
  EXPECT_TRUE(Show<frmDonation>("10", [](frmDonation& form, UserDriver& user) {
    form.txtName.Text(std::string(60, 'N'));
    form.txtAddress.Text(std::string(60, 'A'));
    form.txtCity.Text(std::string(20, 'C'));
    form.txtPostalCode.Text(std::string(9, 'P'));
    form.txtEmail.Text(kLongestAddress);
    form.txtPurpose.Text(std::string(60, 'U'));
    user.Click(form.cmdOK);
  }));
}

TEST_F(DonationOkPath, CountsBlanksToTheLength) {
  EXPECT_FALSE(Show<frmDonation>("10", [](frmDonation& form, UserDriver& user) {
    form.txtCity.Text("  BRANDON            ");
    user.Click(form.cmdOK);
    EXPECT_EQ(user.FocusName(), "txtCity");
  }));
}

TEST_F(DonationOkPath, TellsAnAddressThatIsNoneAndTooLong) {
  EXPECT_FALSE(Show<frmDonation>("10", [&](frmDonation& form, UserDriver& user) {
    form.txtEmail.Text(std::string(61, 'a'));
    user.Click(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kInvalid);
  }));
}

TEST_F(DonationOkPath, SelectsTheWholeTextThatItRefuses) {
  EXPECT_FALSE(Show<frmDonation>("10", [&](frmDonation& form, UserDriver& user) {
    for (TextField* field : {&form.txtName, &form.txtAddress, &form.txtCity, &form.txtPostalCode, &form.txtPurpose}) {
      SCOPED_TRACE(field->Name());
      field->Text(std::string(61, 'A'));
      user.Click(form.cmdOK);
      EXPECT_EQ(user.FocusName(), field->Name());
      EXPECT_EQ(field->Selected(), (Selection{.start = 0, .length = 61}));
      field->Text("");
    }
    form.txtEmail.Text("jane.example.com");
    user.Click(form.cmdOK);
    EXPECT_EQ(form.txtEmail.Selected(), (Selection{.start = 0, .length = 16}));
    TakeBoxes();
  }));
}

TEST_F(DonationOkPath, SelectsAClosedNameAndLeavesTheFocus) {
  session.BusinessName(std::string(61, 'A'));
  EXPECT_FALSE(Show<frmDonation>("10", [](frmDonation& form, UserDriver& user) {
    user.Click(form.cmdOK);
    EXPECT_EQ(user.FocusName(), "cmdOK");
    EXPECT_EQ(form.txtName.Selected(), (Selection{.start = 0, .length = 61}));
    EXPECT_TRUE(form.IsUp());
  }));
}

TEST_F(DonationOkPath, LeavesTheFocusWhereTheRefusedFieldIsHidden) {
  EXPECT_FALSE(Show<frmDonation>("10", [](frmDonation& form, UserDriver& user) {
    form.txtAddress.Text(std::string(61, 'A'));
    form.txtAddress.Visible(false);
    user.Click(form.cmdOK);
    EXPECT_EQ(user.FocusName(), "cmdOK");
    EXPECT_TRUE(form.IsUp());
  }));
}

TEST_F(DonationRecords, FillTheirLinesWithTheLongestTexts) {
  EXPECT_TRUE(Show<frmDonation>("10", [](frmDonation& form, UserDriver& user) {
    form.txtName.Text(std::string(60, 'N'));
    form.txtAddress.Text(std::string(60, 'A'));
    form.txtCity.Text(std::string(20, 'C'));
    form.cmbProvince.ListIndex(12);
    form.txtPostalCode.Text(std::string(9, 'P'));
    form.txtEmail.Text(kLongestAddress);
    form.txtPhoneNo1.Text("204");
    form.txtPhoneNo2.Text("555");
    form.txtPhoneNo3.Text("0123");
    form.txtAmount.Text("1234567890123456");
    form.txtPurpose.Text(std::string(60, 'U'));
    user.Click(form.cmdOK);
  }));
  EXPECT_THAT(
      Records(),
      ElementsAre(Ruled("PC40001PNAME: " + std::string(60, 'N')), Ruled("PC40001PADDRESS: " + std::string(60, 'A')),
                  Ruled("PC40001P         " + std::string(20, 'C') + " YT"),
                  Ruled("PC40001PPOSTAL CODE: " + std::string(9, 'P')), Ruled("PC40001PEMAIL: " + kLongestAddress),
                  Ruled("PC40001PPHONE NO: 204-555-0123"), Ruled("PC40001PAMOUNT: 1234567890123456"),
                  Ruled("PC40001PPURPOSE: " + std::string(60, 'U'))));
}

// "PHONE NO: " and the two hyphens leave 58 columns.
TEST_F(DonationRecords, TakeALineOf70) {
  EXPECT_TRUE(Show<frmDonation>("10", [](frmDonation& form, UserDriver& user) {
    form.txtPhoneNo1.Text(std::string(58, '2'));
    user.Click(form.cmdOK);
  }));
  EXPECT_EQ(Records()[5], Ruled("PC40001PPHONE NO: " + std::string(58, '2') + "--"));
}

TEST_F(DonationRecords, AreNotMadeOfALineOf71) {
  int16_t chosen = kTrue;
  EXPECT_EQ(ErrorOf([&] {
              Show<frmDonation>("10", [&](frmDonation& form, UserDriver& user) {
                form.txtPhoneNo1.Text(std::string(59, '2'));
                user.Click(form.cmdOK);
                chosen = form.Chosen();
              });
            }),
            5);
  EXPECT_EQ(chosen, kFalse);
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(DonationRecords, AreOneLineEachWhateverTheTexts) {
  EXPECT_TRUE(Show<frmDonation>("10", [](frmDonation& form, UserDriver& user) {
    form.txtAddress.Text("12\tMain\r\nSt\x1f\x7f\xe9");
    form.txtPurpose.Text(std::string("A\0B\n", 4));
    user.Click(form.cmdOK);
  }));
  ASSERT_EQ(Records().size(), 8U);
  EXPECT_EQ(Records()[1], Ruled("PC40001PADDRESS: 12 Main  St \x7f\xe9"));
  EXPECT_EQ(Records()[7], Ruled("PC40001PPURPOSE: A B"));
}

TEST_F(DonationRecords, LeaveAFileThatCannotBeDeleted) {
  WriteToMemory();
  files->contents["payment.pc4"] = "earlier";
  files->deletingFails = true;
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 70);
  EXPECT_EQ(files->contents["payment.pc4"], "earlier");
}

class Donation : public ScreenTest {};

TEST_F(Donation, FieldsFitTheirEntries) {
  const frmDonation form;
  EXPECT_EQ(form.txtName.MaxLength(), 60);
  EXPECT_EQ(form.txtAddress.MaxLength(), 60);
  EXPECT_EQ(form.txtCity.MaxLength(), 20);
  EXPECT_EQ(form.txtPostalCode.MaxLength(), 9);
  EXPECT_EQ(form.txtEmail.MaxLength(), 60);
  EXPECT_EQ(form.txtPhoneNo1.MaxLength(), 3);
  EXPECT_EQ(form.txtPhoneNo2.MaxLength(), 3);
  EXPECT_EQ(form.txtPhoneNo3.MaxLength(), 4);
  EXPECT_EQ(form.txtAmount.MaxLength(), 16);
  EXPECT_EQ(form.txtPurpose.MaxLength(), 60);
  for (const Control* control : form.Controls()) {
    SCOPED_TRACE(control->Name());
    if (const auto* field = dynamic_cast<const TextField*>(control)) {
      EXPECT_EQ(field->Designed().alignment, field->Name() == "txtAmount" ? Alignment::Right : Alignment::Left);
      EXPECT_EQ(field->IsMultiLine(), field->Name() == "txtPurpose");
    }
  }
}

TEST_F(Donation, KeepsWhatTheSessionGivesIt) {
  session.BusinessName("  Bow River Bakery");
  session.CompName("Maple Relief Fund");
  session.APHoldFlg(1);
  Show<frmDonation>("10", [](frmDonation& form, UserDriver&) {
    EXPECT_EQ(form.BusinessName(), "  Bow River Bakery");
    EXPECT_EQ(form.CompName(), "Maple Relief Fund");
    EXPECT_EQ(form.APHoldFlg(), 1);
  });
}

class DonationRandomly : public RandomActsTest<frmDonation> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& /*payment*/) override {
    static const std::vector<std::string> kLabels = {
        "NAME: ", "ADDRESS: ", "         ", "POSTAL CODE: ", "EMAIL: ", "PHONE NO: ", "AMOUNT: ", "PURPOSE: "};
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), kLabels.size());
    for (size_t i = 0; i < records.size(); ++i) {
      const std::string head = "PC4" + seqNumber + "P" + kLabels[i];
      EXPECT_EQ(records[i].substr(0, head.size()), head);
      ASSERT_EQ(records[i].size(), 160U);
      EXPECT_EQ(records[i].substr(78), std::string(82, ' '));
      EXPECT_TRUE(std::none_of(records[i].begin(), records[i].end(), [](char character) {
        return static_cast<unsigned char>(character) < ' ';
      })) << records[i];
    }
    EXPECT_GE(std::count(records[5].begin(), records[5].begin() + 78, '-'), 2) << records[5];
  }

  void BeforeLaunch(RandomUser& random) override {
    session.BusinessName(random.Below(4) == 0 ? "Bow River Bakery" : "");
    session.APHoldFlg(static_cast<uint8_t>(random.Below(3)));
  }
};

TEST_F(DonationRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", ""}, {"5", ""}, {"0", ""}, {"-12345", ""}};
  const RandomUser random(20260615, {"Jane Doe", "12 Main St", "Brandon", "r7a 1a1", "jane@example.com", "a@b", "204",
                                     "5550123", "123.45", "1,234.50", "Food bank", "a@b.c"});
  Play("10", random, payments);
}

}  // namespace
}  // namespace fiscalon::donation_test
