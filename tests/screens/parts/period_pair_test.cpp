#include "screens/parts/period_pair.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class PeriodForm : public PartForm {
 public:
  // clang-format off
  ValidationGuard inValidation {*this, cmdCancel};
  TextField       txtFirst     {*this, "txtFirst", {.tabIndex = 0}};
  PeriodPair      period       {*this, inValidation, {.caption = "Reporting Period From:", .tabIndex = 1,
                                                      .limit = [this] { return limit; },
                                                      .next = [this]() -> Control* { return &qst.From; }}};
  PeriodPair      qst          {*this, inValidation, {.caption = "QST From:", .tabIndex = 3, .limit = PeriodLimit::OneYear,
                                                      .next = &cmdOK, .name = "QST Reporting Period",
                                                      .fromCaptionName = "Label2", .from = "txtQSTPeriodFrom",
                                                      .toCaptionName = "Label3", .to = "txtQSTPeriodTo",
                                                      .fromHint = "", .toHint = ""}};
  Button          cmdOK        {*this, "cmdOK",     {.caption = "&OK"}, {}};
  Button          cmdCancel    {*this, "cmdCancel", {.caption = "Cancel", .cancel = true}, {}};
  // clang-format on

  PeriodLimit limit = PeriodLimit::None;
};

// Today is June 15, 2026.
class PeriodPairTest : public PartTest<PeriodForm> {
 protected:
  /// What leaving the first field says.
  std::vector<std::string> LeftFrom(PeriodPair& pair, std::string_view from, std::string_view to = "") {
    return Left(pair, pair.From, from, to);
  }
  /// What leaving the second one says.
  std::vector<std::string> LeftTo(PeriodPair& pair, std::string_view to, std::string_view from = "") {
    return Left(pair, pair.To, from, to);
  }

  static constexpr const char* kFrom =
      "Reporting Period From must be in the form YYYYMMDD and must be between 19920702 and 20260614";
  static constexpr const char* kTo = "Reporting Period To must be in the form YYYYMMDD and must be ";

 private:
  std::vector<std::string> Left(PeriodPair& pair, DigitsEntry& field, std::string_view from, std::string_view to) {
    pair.From.Text(from);
    pair.To.Text(to);
    WhileUp([&](FormUser& user) {
      field.SetFocus();
      user.acts.Press(form.cmdOK);
    });
    form.Unload();
    return TakeTexts();
  }
};

TEST_F(PeriodPairTest, ControlsBearTheFormsNames) {
  EXPECT_EQ(form.period.FromCaption.Caption(), "Reporting Period From:");
  EXPECT_EQ(form.period.ToCaption.Caption(), "To:");
  EXPECT_NE(form.FindControl("txtPeriodFrom"), nullptr);
  EXPECT_NE(form.FindControl("txtPeriodTo"), nullptr);
  EXPECT_EQ(form.FindControl("txtQSTPeriodTo"), &form.qst.To);
  EXPECT_EQ(form.qst.To.Designed().tabIndex, 4);
  EXPECT_EQ(form.qst.To.MaxLength(), 8);
  EXPECT_EQ(form.period.FromHint->Caption(), "YYYYMMDD");
  EXPECT_FALSE(form.qst.FromHint.has_value());
}

TEST_F(PeriodPairTest, StandsInOneRow) {
  const Row row = form.period.Row();
  ASSERT_EQ(row.cells.size(), 2U);
  EXPECT_EQ(row.cells[0].caption, &form.period.FromCaption);
  EXPECT_EQ(row.cells[0].field, &form.period.From);
  EXPECT_EQ(row.cells[0].hint, &*form.period.FromHint);
  EXPECT_EQ(row.cells[1].field, &form.period.To);
  EXPECT_EQ(form.qst.Row().cells[1].hint, nullptr);
}

TEST_F(PeriodPairTest, FullFieldsMoveOn) {
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    user.Type("20260101");
    EXPECT_EQ(FocusName(), "txtPeriodTo");
    user.Type("2026x0131");
    EXPECT_EQ(FocusName(), "txtQSTPeriodFrom");
    EXPECT_EQ(form.period.To.Text(), "20260131");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(PeriodPairTest, BeginsAfterJulyFirst1992AndBeforeToday) {
  for (const char* good : {"19920702", "20260614", "20240229"})
    EXPECT_THAT(LeftFrom(form.period, good), ElementsAre()) << good;
  for (const char* bad : {"", "2026061", "19920701", "20260615", "20250229", "20251301", "20250100", "99991301"})
    EXPECT_THAT(LeftFrom(form.period, bad), ElementsAre(kFrom)) << bad;
}

TEST_F(PeriodPairTest, EndsByTheLimitOfTheMoment) {
  form.limit = PeriodLimit::OneYear;
  EXPECT_THAT(LeftTo(form.period, "20270615"), ElementsAre());
  EXPECT_THAT(LeftTo(form.period, "20270616"), ElementsAre(kTo + std::string("between the From date and 20270615")));
  form.limit = PeriodLimit::OneYearLessADay;
  EXPECT_THAT(LeftTo(form.period, "20270614"), ElementsAre());
  EXPECT_THAT(LeftTo(form.period, "20270615"), ElementsAre(kTo + std::string("between the From date and 20270614")));
  form.limit = PeriodLimit::None;
  EXPECT_THAT(LeftTo(form.period, "99991231"), ElementsAre());
}

TEST_F(PeriodPairTest, EndIsADateOfTheCalendar) {
  for (const char* bad : {"", "2026061", "20250229", "99991301"})
    EXPECT_THAT(LeftTo(form.period, bad), ElementsAre(kTo + std::string("greater than the From date."))) << bad;
  EXPECT_THAT(LeftTo(form.period, "19000101"), ElementsAre());
}

TEST_F(PeriodPairTest, OneYearAheadOfALeapDayIsTheDayBeforeMarch) {
  SetToday({2028, 2, 29});
  EXPECT_THAT(LeftTo(form.qst, "20290228"), ElementsAre());
  EXPECT_THAT(LeftTo(form.qst, "20290301"),
              ElementsAre("QST " + std::string(kTo) + "between the From date and 20290228"));
}

TEST_F(PeriodPairTest, EndsAreInOrderWhereTheOtherOneIsComplete) {
  constexpr const char* kFromOrder = "Reporting Period From must be less than the Reporting Period 'To' date.";
  constexpr const char* kToOrder = "Reporting Period To must be greater than the Reporting Period 'From' date.";
  for (const char* to : {"20260101", "20251231", "99991301"}) {
    EXPECT_THAT(LeftFrom(form.period, "20260101", to), ElementsAre(kFromOrder)) << to;
  }
  for (const char* to : {"20260102", "", "2025123"})
    EXPECT_THAT(LeftFrom(form.period, "20260101", to), ElementsAre()) << to;
  for (const char* from : {"20260101", "20260102"})
    EXPECT_THAT(LeftTo(form.period, "20260101", from), ElementsAre(kToOrder)) << from;
  for (const char* from : {"20251231", "", "2026010"})
    EXPECT_THAT(LeftTo(form.period, "20260101", from), ElementsAre()) << from;
}

TEST_F(PeriodPairTest, MessagesNameTheTaxOfAFormThatHasTwo) {
  EXPECT_THAT(LeftFrom(form.qst, ""), ElementsAre("QST " + std::string(kFrom)));
  EXPECT_THAT(LeftFrom(form.qst, "20260101", "20260101"),
              ElementsAre("QST Reporting Period From must be less than the QST Reporting Period 'To' date."));
  EXPECT_THAT(LeftTo(form.qst, "20260101", "20260101"),
              ElementsAre("QST Reporting Period To must be greater than the QST Reporting Period 'From' date."));
  EXPECT_THAT(LeftTo(form.qst, ""), ElementsAre("QST " + std::string(kTo) + "between the From date and 20270615"));
}

TEST_F(PeriodPairTest, FailedCheckPullsTheFocusBackWithOneBox) {
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    user.Type("2026");
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtPeriodFrom");
    EXPECT_THAT(TakeTexts(), ElementsAre(kFrom));
  });
}

TEST_F(PeriodPairTest, GuardIsSharedByTheFieldsOfAForm) {
  WhileUp([&](FormUser& user) {
    form.period.To.SetFocus();
    // The empty field of the other tax receives the focus and loses it again, unchecked.
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtPeriodTo");
    EXPECT_THAT(TakeTexts(), ElementsAre(kTo + std::string("greater than the From date.")));
  });
}

TEST_F(PeriodPairTest, CancelLetsABadPeriodPass) {
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    user.Type("2026");
    user.acts.Press(form.cmdCancel);
    EXPECT_EQ(FocusName(), "cmdCancel");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

}  // namespace
}  // namespace fiscalon
