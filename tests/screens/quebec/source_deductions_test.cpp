#include "screens/quebec/source_deductions.h"

#include <gmock/gmock.h>

#include "tests/screens/quebec/source_deductions_entries.h"
#include "tests/support/memory_files.h"
#include "tests/support/payment_test.h"
#include "tests/support/raises.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::quebec_source_deductions_test {
namespace {

using testing::ElementsAre;

const bool kFormTold =
    Tell({.codes = {"20"},
          .routine = "ShowQue_Rev_SourceDeductForm",
          .form = "frmQue_Rev_SourceDeduct",
          .controls = {"0 txtRemittancePeriod", "1 txtIncomeTaxWithheld", "2 txtQPP", "3 txtHealthFund", "4 txtQPIP",
                       "5 txtCSST", "6 cmbRemittanceType", "7 cmdOK", "8 cmdCancel", "14 txtAmountPayable"},
          .escape = "cmdCancel"});

constexpr const char* kAskType = "Please select a Remittance Type.";
constexpr const char* kMatch = "The Amount Payable must match the Amount to be paid.";

class QuebecSourceDeductionsOkPath : public PaymentTest<frmQue_Rev_SourceDeduct> {
 protected:
  QuebecSourceDeductionsOkPath() : PaymentTest("1500") { session.CompCode("001052"); }

  std::string Code() const override { return "20"; }

  void FillIn(frmQue_Rev_SourceDeduct& form, UserDriver& user) const override {
    fiscalon::FillIn(form, user);
    user.Choose(form.cmbRemittanceType, 0);
  }

  Button& OkButton(frmQue_Rev_SourceDeduct& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "type is missing",
         .spoil = [](frmQue_Rev_SourceDeduct& form) { form.cmbRemittanceType.ListIndex(-1); },
         .message = kAskType,
         .focus = "cmbRemittanceType",
         .style = MessageStyle::Information},
        {.name = "total is another amount",
         .spoil = [](frmQue_Rev_SourceDeduct& form) { form.txtQPIP.Text("4.01"); },
         .message = kMatch,
         .focus = "txtIncomeTaxWithheld"},
    };
    return kRows;
  }
};

const bool kOkPathTestsAdded = AddOkPathTests<QuebecSourceDeductionsOkPath>("QuebecSourceDeductionsOkPath");

// The period has no test on OK: a bad one goes out as it stands.
TEST_F(QuebecSourceDeductionsOkPath, AcceptsAPeriodThatIsNoneAnyMore) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_SourceDeduct& form) { form.txtRemittancePeriod.Text("199913"); }));
  EXPECT_EQ(Records()[0].substr(24, 8), "199913  ");
}

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                202606          Jane Doe                      Clerk                         ";
const std::string kRecordF1 =
    // head  |income tax withheld |QPP                 |health fund         |QPIP                |
    "PC40001F01000000000000000100020000000000000002000300000000000000030004000000000000000400";
const std::string kRecordF2 =
    // head  |remittance type     |CSST                |nothing             |nothing             |
    "PC40001F05000000000000000000060000000000000005000700000000000000000008000000000000000000";
// clang-format on

class QuebecSourceDeductionsRecords : public PaymentTest<frmQue_Rev_SourceDeduct> {
 protected:
  QuebecSourceDeductionsRecords() : PaymentTest("1500") {
    session.CompCode("001051");
    ModuleToChange().files = files;
    Levyra::MainPath("logs");
  }

  std::string Code() const override { return "20"; }
  void FillIn(frmQue_Rev_SourceDeduct& form, UserDriver& user) const override { fiscalon::FillIn(form, user); }
  Button& OkButton(frmQue_Rev_SourceDeduct& form) const override { return form.cmdOK; }
  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF1, kRecordF2}; }
  bool WritesAPlayByPlayLog() const override { return true; }
};

const bool kRecordsTestsAdded = AddRecordsTests<QuebecSourceDeductionsRecords>("QuebecSourceDeductionsRecords");

TEST_F(QuebecSourceDeductionsRecords, NumberTheTypeForItsBiller) {
  session.CompCode("001052");
  EXPECT_TRUE(Show<frmQue_Rev_SourceDeduct>("20", [this](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    FillIn(form, user);
    user.Choose(form.cmbRemittanceType, 5);
    user.Click(form.cmdOK);
  }));
  EXPECT_THAT(Records(),
              ElementsAre(Ruled(kRecordT), Ruled(kRecordF1),
                          // head  |remittance type     |CSST                |nothing             |nothing             |
                          Ruled("PC40001F0500000000000000000606000000000000000500070000000000000000000800000000000000"
                                "0000")));
}

TEST_F(QuebecSourceDeductionsRecords, HoldZerosForTheTypeOfABillerWithoutTypesWhateverIsChosen) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_SourceDeduct& form) { form.cmbRemittanceType.ListIndex(2); }));
  EXPECT_EQ(Records()[2], Ruled(kRecordF2));
}

TEST_F(QuebecSourceDeductionsRecords, HoldZerosForTheTypeOfAnyOtherBiller) {
  session.CompCode("");
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(Records()[2], Ruled(kRecordF2));
}

TEST_F(QuebecSourceDeductionsRecords, AreMissingForANameOf31WhichIsReported) {
  session.ZelmorNumber(" 4711 ");
  Levyra::SessionNumber(123456);
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  EXPECT_TRUE(EnterAndPressOk());
  const std::vector<BoxRequest> boxes = TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text,
            "The following error: 'Invalid procedure call or argument (Error 5)' occurred in procedure "
            "'frmQue_Rev_SourceDeduct.DoWrite'.");
  EXPECT_EQ(boxes[0].style, MessageStyle::Critical);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
  EXPECT_EQ(files->contents["logs/error.log"],
            "2026-06-15 1:05:09 p.m.,Fiscalon,4711,456,5,\"Invalid procedure call or argument\","
            "\"frmQue_Rev_SourceDeduct.DoWrite\"\r\n");
}

TEST_F(QuebecSourceDeductionsRecords, AreIncompleteOnAFullDiskWhichIsReported) {
  WriteToMemory();
  files->printsLeft = 2;
  // By the time of the report, somebody has made room.
  frontEnd.onMessage = [this](const BoxRequest& box) {
    EXPECT_EQ(box.text,
              "The following error: 'Disk full (Error 61)' occurred in procedure 'frmQue_Rev_SourceDeduct.DoWrite'.");
    files->printsLeft = 10;
    return MessageAnswer::Ok;
  };
  EXPECT_TRUE(EnterAndPressOk());
  EXPECT_EQ(openBehindOk, 1);
  EXPECT_EQ(files->openFiles, 0);
  EXPECT_EQ(files->contents["payment.pc4"], '"' + Ruled(kRecordT) + "\"\r\n\"" + Ruled(kRecordF1) + "\"\r\n");
  EXPECT_EQ(files->contents["logs/error.log"],
            "2026-06-15 1:05:09 p.m.,Fiscalon,,0,61,\"Disk full\",\"frmQue_Rev_SourceDeduct.DoWrite\"\r\n");
}

TEST_F(QuebecSourceDeductionsRecords, FailForTheHostWhereTheReportFailsToo) {
  WriteToMemory();
  files->printsLeft = 0;
  EXPECT_EQ(ErrorOf([&] { EnterAndPressOk(); }), 61);
  EXPECT_EQ(TakeBoxes().size(), 1U);
}

class QuebecSourceDeductions : public ScreenTest {
 protected:
  QuebecSourceDeductions() {
    ModuleToChange().files = files;
    Levyra::MainPath("logs");
    session.PaidAmount("1500");
  }

  std::shared_ptr<MemoryFiles> files = std::make_shared<MemoryFiles>();
};

TEST_F(QuebecSourceDeductions, FieldsFitTheirEntries) {
  const frmQue_Rev_SourceDeduct form;
  EXPECT_EQ(form.txtRemittancePeriod.MaxLength(), 6);
  EXPECT_EQ(form.txtRemittancePeriod.Designed().alignment, Alignment::Left);
  for (const TextField* amount :
       std::initializer_list<const TextField*>{&form.txtIncomeTaxWithheld, &form.txtQPP, &form.txtHealthFund,
                                               &form.txtQPIP, &form.txtCSST, &form.txtAmountPayable}) {
    EXPECT_EQ(amount->MaxLength(), 12);
    EXPECT_EQ(amount->Designed().alignment, Alignment::Right);
  }
  EXPECT_TRUE(form.lblAmountPayable.Designed().bold);
  EXPECT_FALSE(form.txtAmountPayable.Designed().tabStop);
}

TEST_F(QuebecSourceDeductions, OnlyEnterByItselfMovesOn) {
  session.CompCode("001051");
  Show<frmQue_Rev_SourceDeduct>("20", [](frmQue_Rev_SourceDeduct&, UserDriver& user) {
    Type(user, "202606");
    for (const int shift : {shift_state::kShift, shift_state::kControl, shift_state::kAlt}) {
      user.PressKey({.keyCode = key::kEnter, .shift = shift, .character = key::kEnter});
      EXPECT_EQ(user.FocusName(), "txtIncomeTaxWithheld") << shift;
    }
    user.PressKey({.keyCode = key::kEnter, .character = key::kEnter});
    EXPECT_EQ(user.FocusName(), "txtQPP");
  });
}

TEST_F(QuebecSourceDeductions, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmQue_Rev_SourceDeduct>("20", [](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    form.txtIncomeTaxWithheld.Enabled(false);
    Type(user, "202606");
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
    const auto expectToStay = [&](TextField& field, Control& next) {
      next.Enabled(false);
      user.PressMouse(field);
      Type(user, "1234567890.1");
      EXPECT_EQ(user.FocusName(), field.Name());
      next.Enabled(true);
    };
    form.txtIncomeTaxWithheld.Enabled(true);
    expectToStay(form.txtIncomeTaxWithheld, form.txtQPP);
    expectToStay(form.txtQPP, form.txtHealthFund);
    expectToStay(form.txtHealthFund, form.txtQPIP);
    expectToStay(form.txtCSST, form.cmdOK);
  });
}

TEST_F(QuebecSourceDeductions, QpipGoesToOkWhereCsstTakesNoEntries) {
  Show<frmQue_Rev_SourceDeduct>("20", [](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    Type(user, "202606");
    form.txtCSST.Locked(true);
    user.PressMouse(form.txtQPIP);
    Type(user, "1234567890.1");
    EXPECT_EQ(user.FocusName(), "cmdOK");
    form.txtCSST.Locked(false);
    form.txtCSST.Enabled(false);
    form.txtQPIP.Text("");
    user.PressMouse(form.txtQPIP);
    form.txtQPIP.Text("1234567890.1");
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

TEST_F(QuebecSourceDeductions, ChoiceKeepsTheFocusWhereOkIsDisabled) {
  session.CompCode("001052");
  Show<frmQue_Rev_SourceDeduct>("20", [](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    Type(user, "202606");
    form.cmdOK.Enabled(false);
    user.Choose(form.cmbRemittanceType, 2);
    EXPECT_EQ(user.FocusName(), "cmbRemittanceType");
  });
}

TEST_F(QuebecSourceDeductions, AmountBeyondAllNumbersIsReported) {
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    Type(user, "202606\r");
    form.txtQPP.Text(std::string(400, '9'));
    user.Click(form.txtCSST);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              "The following error: 'Overflow (Error 6)' occurred in procedure 'frmQue_Rev_SourceDeduct.CheckValues'.");
    EXPECT_EQ(boxes[0].style, MessageStyle::Critical);
    EXPECT_EQ(user.FocusName(), "txtCSST");
    EXPECT_EQ(form.txtQPP.Text(), std::string(400, '9'));
  });
  EXPECT_EQ(files->contents["logs/error.log"],
            "2026-06-15 1:05:09 p.m.,Fiscalon,,0,6,\"Overflow\",\"frmQue_Rev_SourceDeduct.CheckValues\"\r\n");
}

TEST_F(QuebecSourceDeductions, TotalBeyondMoneyIsReportedAndStaysAsItWas) {
  Show<frmQue_Rev_SourceDeduct>("20", [&](frmQue_Rev_SourceDeduct& form, UserDriver& user) {
    Type(user,
         "202606"
         "100\r");
    EXPECT_EQ(form.txtAmountPayable.Text(), "1.00");
    form.txtQPP.Text("922337203685478.");
    user.PressMouse(form.txtCSST);
    std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              "The following error: 'Overflow (Error 6)' occurred in procedure 'modLevyra.RecalcFormQueRevSrcDeduct'.");
    EXPECT_EQ(form.txtQPP.Text(), "922337203685478.00");
    EXPECT_EQ(form.txtAmountPayable.Text(), "1.00");
    // CSST's own check, then OK's, report it again; OK then finds the old total, which is not the amount to be paid.
    user.Click(form.cmdOK);
    boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(boxes[2].text, kMatch);
    EXPECT_EQ(user.FocusName(), "txtIncomeTaxWithheld");
  });
}

class QuebecSourceDeductionsRandomly : public RandomActsTest<frmQue_Rev_SourceDeduct> {
 protected:
  void BeforeLaunch(RandomUser& random) override {
    static const std::vector<std::string> kBillers = {"001051", "001052", "999999"};
    session.CompCode(random.OneOf(kBillers));
  }

  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 3U);
    for (const std::string& record : records) ASSERT_EQ(record.size(), 160U);
    const std::string period = records[0].substr(24, 8);
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T" + std::string(16, ' ') + period + std::string(8, ' ') +
                                "Jane Doe" + std::string(22, ' ') + "Clerk"));
    long long total = 0;
    const auto amount = [&](int record, size_t slot) {
      const std::string value = records[static_cast<size_t>(record)].substr(10 + 20 * slot, 18);
      EXPECT_EQ(value.find_first_not_of("0123456789", 1), std::string::npos) << value;
      total += std::stoll(value);
      return value;
    };
    const std::string type = records[2].substr(10, 18);
    EXPECT_TRUE(type >= "000000000000000000" && type <= "000000000000000006") << type;
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + amount(1, 0) + "02" + amount(1, 1) + "03" + amount(1, 2) +
                                "04" + amount(1, 3)));
    EXPECT_EQ(records[2], Ruled("PC4" + seqNumber + "F05" + type + "06" + amount(2, 1) + "07" + std::string(18, '0') +
                                "08" + std::string(18, '0')));
    EXPECT_EQ(std::to_string(total), payment.cents);
  }
};

TEST_F(QuebecSourceDeductionsRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{.cents = "12345"}, {.cents = "12345"}, {.cents = "5"},   {.cents = "0"},
                                               {.cents = "0"},     {.cents = "-5"},    {.cents = "1E30"}};
  const RandomUser random(20260615, {"202606", "202606", "202602", "202601", "202613", "12345", "123.45", "5", ".05",
                                     "-5", "123456789012", "0", "0"});
  Play("20", random, payments);
}

}  // namespace
}  // namespace fiscalon::quebec_source_deductions_test
