#include "screens/federal/assessment.h"

#include <gmock/gmock.h>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::assessment_test {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

const bool kFormTold =
    Tell({.codes = {"01"},
          .routine = "ShowAssessmentForm",
          .form = "Assessment",
          .controls = {"3 WCBstatementonly(0)", "4 WCBstatementonly(1)", "5 WCBperiodfrommm",   "6 WCBperiodtomm",
                       "7 WCBperiodyyyy",       "8 WCBclass(0)",         "9 WCBassessment(0)",  "10 WCBclass(1)",
                       "11 WCBassessment(1)",   "12 WCBclass(2)",        "13 WCBassessment(2)", "14 WCBclass(3)",
                       "15 WCBassessment(3)",   "16 WCBclass(4)",        "17 WCBassessment(4)", "18 WCBclass(5)",
                       "19 WCBassessment(5)",   "- WCBpayeename",        "- Command3D6",        "- Command3D5",
                       "- Command3D4"}});

constexpr const char* kAskMonth = "Please enter the month for the start of the period.";
constexpr const char* kAskYear = "Please enter year field.";
constexpr const char* kBadYear =
    "Invalid year value, please re-enter the year value or check your PC to make sure that it has the correct date.";
constexpr const char* kMonthAhead =
    "Invalid month value, please re-enter or check your PC to make sure that it has the correct date.";
constexpr const char* kBadQuarter = "Invalid month value, please re-enter.";
constexpr const char* kDuplicate = "Classification number is duplicated.";
constexpr const char* kBelowZero = "Assessment amount cannot be less than 0.";
constexpr const char* kTooLarge = "Assessment amount cannot be greater than\n$9,999,999.99";
constexpr const char* kAskClass = "Please enter classification number.";
constexpr const char* kBadClass = "Invalid classification number.";

/// April to June 2026, one pair.
void EnterOnePair(Assessment& form, UserDriver& user) {
  user.PressMouse(form.WCBperiodfrommm);
  Type(user, "04062026");
  Type(user, "1234567\r12345\r");
}

/// Puts months into the period. A full month passes the focus on; a press on Cancel takes it out of the period again
/// without a check.
void PutMonths(Assessment& form, std::string_view from, std::string_view to) {
  form.WCBperiodfrommm.Text(from);
  form.WCBperiodtomm.Text(to);
  form.Acts().Press(form.Command3D5);
}

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026040120260630                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |classification      |assessment          |nothing             |nothing             |
    "PC40001F011234567           02000000000000012345                                        ";
// clang-format on

// Two tests of OK look at months of last year behind February, and are not among the rows: that year is refused before.
class AssessmentPayment : public PaymentTest<Assessment> {
 protected:
  AssessmentPayment() : PaymentTest("12345") {}

  std::string Code() const override { return "01"; }
  void FillIn(Assessment& form, UserDriver& user) const override { EnterOnePair(form, user); }
  Button& OkButton(Assessment& form) const override { return form.Command3D6; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "start month is missing",
         .spoil = [](Assessment& form) { form.WCBperiodfrommm.Text(""); },
         .message = kAskMonth,
         .focus = "WCBperiodfrommm"},
        {.name = "start month is none",
         .spoil = [](Assessment& form) { form.WCBperiodfrommm.Text("0"); },
         .focus = "WCBperiodfrommm"},
        {.name = "end month is missing",
         .spoil = [](Assessment& form) { form.WCBperiodtomm.Text(""); },
         .message = kAskMonth,
         .focus = "WCBperiodtomm"},
        {.name = "end month is none",
         .spoil = [](Assessment& form) { form.WCBperiodtomm.Text("0"); },
         .focus = "WCBperiodtomm"},
        {.name = "year is missing",
         .spoil = [](Assessment& form) { form.WCBperiodyyyy.Text(""); },
         .message = kAskYear,
         .focus = "WCBperiodyyyy",
         .style = MessageStyle::Plain},
        {.name = "year is neither this one nor the last",
         .spoil = [](Assessment& form) { form.WCBperiodyyyy.Text("2024"); },
         .message = kBadYear,
         .focus = "WCBperiodyyyy"},
        {.name = "year is the last one in June",
         .spoil = [](Assessment& form) { form.WCBperiodyyyy.Text("2025"); },
         .message = kBadYear,
         .focus = "WCBperiodyyyy"},
        {.name = "one month that lies ahead",
         .spoil = [](Assessment& form) { PutMonths(form, "07", "07"); },
         .message = kMonthAhead,
         .focus = "WCBperiodfrommm"},
        {.name = "quarter of two months",
         .spoil = [](Assessment& form) { PutMonths(form, "04", "05"); },
         .message = kBadQuarter,
         .focus = "WCBperiodtomm"},
        {.name = "quarter that ends too far ahead",
         .spoil = [](Assessment& form) { PutMonths(form, "07", "09"); },
         .message = kBadQuarter,
         .focus = "WCBperiodtomm"},
        {.name = "no assessment",
         .spoil = [](Assessment& form) { form.WCBassessment[0].Text(""); },
         .focus = "WCBassessment(0)"},
        {.name = "classification stands twice",
         .spoil =
             [](Assessment& form) {
               form.WCBclass[0].Text("1234567");
               form.WCBclass[1].Text("1234567");
             },
         .message = kDuplicate,
         .focus = "WCBclass(1)"},
        {.name = "assessment is below zero",
         .spoil = [](Assessment& form) { form.WCBassessment[0].Text("-5"); },
         .message = kBelowZero,
         .focus = "WCBassessment(0)"},
        {.name = "assessment is too large",
         .spoil = [](Assessment& form) { form.WCBassessment[0].Text("10000000.00"); },
         .message = kTooLarge,
         .focus = "WCBassessment(0)"},
        {.name = "classification is missing",
         .spoil = [](Assessment& form) { form.WCBclass[0].Text(""); },
         .message = kAskClass,
         .focus = "WCBclass(0)"},
        {.name = "classification is short",
         .spoil = [](Assessment& form) { form.WCBclass[0].Text("123456"); },
         .message = kBadClass,
         .focus = "WCBclass(0)"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }
};

using AssessmentRecords = AssessmentPayment;
const bool kTestsAdded =
    AddOkPathTests<AssessmentPayment>("AssessmentOkPath") && AddRecordsTests<AssessmentPayment>("AssessmentRecords");

TEST_F(AssessmentRecords, HoldTwoPairsEach) {
  EXPECT_TRUE(Show<Assessment>("01", [](Assessment& form, UserDriver& user) {
    user.PressMouse(form.WCBperiodfrommm);
    Type(user, "04062026");
    Type(user, "1000001\r100\r1000002\r200\r1000003\r300\r1000004\r400\r1000005\r500\r1000006\r600\r");
    EXPECT_EQ(user.FocusName(), "Command3D6");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(
      Records(),
      ElementsAre(Ruled(kRecordT),
                  // head  |classification      |assessment          |classification      |assessment          |
                  Ruled("PC40001F011000001           02000000000000000100031000002           04000000000000000200"),
                  Ruled("PC40001F051000003           06000000000000000300071000004           08000000000000000400"),
                  Ruled("PC40001F091000005           10000000000000000500111000006           12000000000000000600")));
}

TEST_F(AssessmentRecords, SkipAPairWithoutAnAssessment) {
  EXPECT_TRUE(EnterAndPressOk([](Assessment& form) {
    form.WCBclass[1].Text("123456");
    form.WCBclass[3].Text("1000004");
    form.WCBassessment[3].Text("4.00");
  }));
  EXPECT_THAT(
      Records(),
      ElementsAre(Ruled(kRecordT),
                  // head  |classification      |assessment          |classification      |assessment          |
                  Ruled("PC40001F011234567           02000000000000012345071000004           08000000000000000400")));
}

TEST_F(AssessmentRecords, AreMadeOfTrimmedEntries) {
  EXPECT_TRUE(EnterAndPressOk([](Assessment& form) {
    form.WCBclass[0].Text(" 1234567 ");
    form.WCBassessment[0].Text(" 123.45 ");
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

TEST_F(AssessmentRecords, TakeTheMonthsAndTheYearTrimmed) {
  EXPECT_TRUE(EnterAndPressOk([](Assessment& form) {
    PutMonths(form, " 04 ", " 06 ");
    form.WCBperiodyyyy.Text(" 2026 ");
  }));
  EXPECT_EQ(Records()[0], Ruled(kRecordT));
}

// The tests read the number at the start of the text; the record takes the whole text, and with it the sign behind.
TEST_F(AssessmentRecords, AreAColumnLongerForASignBehindAnAmount) {
  EXPECT_TRUE(EnterAndPressOk([](Assessment& form) {
    form.WCBassessment[0].Text("5.00-");
    form.WCBclass[1].Text("7654321");
    form.WCBassessment[1].Text("6.00");
  }));
  ASSERT_EQ(Records().size(), 2U);
  EXPECT_EQ(Records()[1],
            // head  |classification      |assessment, one too many  |classification      |assessment          |
            Ruled("PC40001F011234567           02-000000000000000500037654321           04000000000000000600") + ' ');
}

class AssessmentForm : public ScreenTest {};

TEST_F(AssessmentForm, FieldsFitTheirEntries) {
  const Assessment form;
  EXPECT_EQ(form.WCBperiodfrommm.MaxLength(), 2);
  EXPECT_EQ(form.WCBperiodtomm.MaxLength(), 2);
  EXPECT_EQ(form.WCBperiodyyyy.MaxLength(), 4);
  EXPECT_EQ(form.WCBclass.Size(), 6);
  EXPECT_EQ(form.WCBassessment.Size(), 6);
  for (const TextField& number : form.WCBclass) EXPECT_EQ(number.MaxLength(), 18) << number.Name();
  for (const TextField& amount : form.WCBassessment) EXPECT_EQ(amount.MaxLength(), 10) << amount.Name();
}

TEST_F(AssessmentForm, PairsAreNumberedThroughInTheirCaptions) {
  const Assessment form;
  std::vector<std::string> captions;
  for (int i = 0; i < Assessment::kPairs; ++i) {
    captions.push_back(form.ClassLabel[i].Designed().caption.English());
    captions.push_back(form.AssessmentLabel[i].Designed().caption.English());
  }
  EXPECT_THAT(captions, ElementsAre("01 Classification", "02 Assessment", "03 Classification", "04 Assessment",
                                    "05 Classification", "06 Assessment", "07 Classification", "08 Assessment",
                                    "09 Classification", "10 Assessment", "11 Classification", "12 Assessment"));
}

TEST_F(AssessmentForm, FullYearKeepsTheFocusWhereTheFirstClassificationIsDisabled) {
  Show<Assessment>("01", [](Assessment& form, UserDriver& user) {
    form.WCBclass[0].Enabled(false);
    user.PressMouse(form.WCBperiodyyyy);
    Type(user, "2026");
    EXPECT_EQ(user.FocusName(), "WCBperiodyyyy");
  });
}

TEST_F(AssessmentForm, EnterInAYearOfFiveDigitsKeepsTheFocus) {
  Show<Assessment>("01", [](Assessment& form, UserDriver& user) {
    user.PressMouse(form.WCBperiodyyyy);
    form.WCBperiodyyyy.Text("20261");
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "WCBperiodyyyy");
    EXPECT_EQ(user.Text(form.WCBperiodyyyy), "20261");
  });
}

TEST_F(AssessmentForm, TickingTheDetailsMovesNoFocusWhereThePeriodIsClosed) {
  Show<Assessment>("01", [](Assessment& form, UserDriver& user) {
    form.WCBperiodfrommm.Enabled(false);
    user.Click(form.WCBstatementonly[0]);
    user.Click(form.WCBstatementonly[0]);
    EXPECT_TRUE(form.WCBstatementonly[1].Value());
    EXPECT_EQ(user.FocusName(), "WCBstatementonly(0)");
    form.WCBperiodfrommm.Enabled(true);
    form.WCBperiodfrommm.Visible(false);
    user.Click(form.WCBstatementonly[0]);
    user.Click(form.WCBstatementonly[0]);
    EXPECT_TRUE(form.WCBstatementonly[1].Value());
    EXPECT_EQ(user.FocusName(), "WCBstatementonly(0)");
  });
}

TEST_F(AssessmentForm, CheckBoxesAreOppositeWhicheverIsSetByCode) {
  Show<Assessment>("01", [](Assessment& form, UserDriver&) {
    for (const int changed : {0, 1, 1, 0}) {
      form.WCBstatementonly[changed].Value(!form.WCBstatementonly[changed].Value());
      EXPECT_NE(form.WCBstatementonly[0].Value(), form.WCBstatementonly[1].Value());
    }
  });
}

TEST_F(AssessmentForm, StatementAloneHandsOverAnEmptyCollection) {
  EXPECT_TRUE(Show<Assessment>("01", [](Assessment& form, UserDriver& user) {
    user.Click(form.WCBstatementonly[0]);
    user.Click(form.Command3D6);
  }));
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
}

class AssessmentRandomly : public RandomActsTest<Assessment> {
 protected:
  /// Keys and OK let failures out: an amount beyond all amounts, and pasted text behind one with a point.
  bool MayFail(const RuntimeError& error) const override { return error.Number() == 6 || error.Number() == 13; }

  void Begin(Assessment& form, UserDriver& user, RandomUser& random) override {
    if (random.Below(2) == 0)
      EnterOnePair(form, user);
  }

  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& /*payment*/) override {
    const std::vector<std::string> records = Records();
    // A statement paid alone leaves what stood there before: nothing, at first.
    if (records.empty())
      return;
    EXPECT_THAT(records[0], MatchesRegex("PC4" + seqNumber + "T2026..012026..(28|30|31)" + std::string(16, ' ') +
                                         "Jane Doe" + std::string(22, ' ') + "Clerk *"));
    EXPECT_EQ(records[0].size(), 160U);
    ASSERT_GT(records.size(), 1U);
    std::string lastNumber = "00";
    for (size_t i = 1; i < records.size(); ++i) {
      // A sign behind an amount makes it a column longer.
      EXPECT_THAT(records[i],
                  MatchesRegex("PC4" + seqNumber + "F((0[13579]|11).{7} {11}(0[2468]|1[02])-?[0-9]{18}){1,2} *"));
      EXPECT_GE(records[i].size(), 160U);
      EXPECT_GT(records[i].substr(8, 2), lastNumber);
      lastNumber = records[i].substr(8, 2);
    }
  }
};

TEST_F(AssessmentRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345"}, {"5"}, {"0"}, {"-12345"}, {"1E30"}};
  const RandomUser random(20260615, {"4", "06", "06", "13", "2026", "2025", "1234567", "7654321", "1000003", "12345",
                                     "123.45", "1.2.3", "-5", "1E20", "9999999999"});
  Play("01", random, payments);
}

}  // namespace
}  // namespace fiscalon::assessment_test
