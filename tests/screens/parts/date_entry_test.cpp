#include "screens/parts/date_entry.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

constexpr DateRow kStartOnEnter[] = {{date::IsMissing, "Missing."}, {date::IsNotEightLong}};
constexpr DateRow kInvoiceOnEnter[] = {{date::IsInvalid, kInvalidDate}};

class DateForm : public PartForm {
 public:
  // clang-format off
  DateEntry StartDate {*this, "StartDate", {.tabIndex = 0, .maxLength = 8},
                       {.whenFull = &EndDate, .onEnter = kStartOnEnter, .next = &EndDate,
                        .waysOut = {Command2, Command3}, .nameInWarning = "'Period From'"}};
  DateEntry EndDate   {*this, "EndDate",   {.tabIndex = 1, .maxLength = 8},
                       {.confirmed = [this] { ++confirmed; }, .whenLeft = DateLeft::StaysAsItIs, .waysOut = {Command2, Command3}}};
  DateEntry Invoice   {*this, "Invoice",   {.tabIndex = 2, .maxLength = 8},
                       {.onEnter = kInvoiceOnEnter, .whenLeft = DateLeft::Unchecked, .failures = Failures::Leave}};
  Button    Command1  {*this, "Command1",  {.caption = "&OK"},     {}};
  Button    Command2  {*this, "Command2",  {.caption = "&Cancel"}, {}};
  Button    Command3  {*this, "Command3",  {.caption = "&Help"},   {}};
  // clang-format on

  int confirmed = 0;
};

class DateEntryTest : public PartTest<DateForm> {
 protected:
  bool Passes(std::string_view text, const std::vector<DateRow>& rows) {
    form.StartDate.Text(text);
    return form.StartDate.Passes(rows);
  }
};

TEST_F(DateEntryTest, TakesDigitsAlone) {
  WhileUp([&](FormUser& user) {
    user.Type("2a0.2-6 ,");
    EXPECT_EQ(form.StartDate.Text(), "2026");
  });
}

TEST_F(DateEntryTest, FullDateMovesOnWhereTheFormSaysSo) {
  WhileUp([&](FormUser& user) {
    user.Type("20260615");
    EXPECT_EQ(FocusName(), "EndDate");
    user.Type("20260615");
    EXPECT_EQ(FocusName(), "EndDate");
  });
}

TEST_F(DateEntryTest, FullDateStaysWhereTheNextIsDisabled) {
  WhileUp([&](FormUser& user) {
    form.EndDate.Enabled(false);
    user.Type("20260615");
    EXPECT_EQ(FocusName(), "StartDate");
  });
}

TEST_F(DateEntryTest, EnterMovesOnWhereItsRowsPass) {
  WhileUp([&](FormUser& user) {
    user.Key("Enter");
    EXPECT_THAT(TakeTexts(), ElementsAre("Missing."));
    user.Type("2026061");
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "StartDate");
    EXPECT_THAT(TakeTexts(), ElementsAre());
    form.EndDate.Enabled(false);
    form.StartDate.Text("20260615");
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "StartDate");
    form.EndDate.Enabled(true);
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "EndDate");
    user.Key("Enter");
    EXPECT_EQ(form.confirmed, 1);
    EXPECT_EQ(FocusName(), "EndDate");
  });
}

TEST_F(DateEntryTest, IsLeftUncheckedByTheFormsWaysOutAlone) {
  WhileUp([&](FormUser& user) {
    form.StartDate.Text("2026");
    for (Button* way : {&form.Command2, &form.Command3}) {
      user.acts.Press(*way);
      EXPECT_EQ(FocusName(), way->Name());
      user.acts.Press(form.StartDate);
    }
    EXPECT_THAT(TakeTexts(), ElementsAre());
    user.acts.Press(form.Command1);
    EXPECT_THAT(TakeTexts(), ElementsAre("Invalid date value."));
    EXPECT_EQ(FocusName(), "StartDate");
    EXPECT_EQ(form.StartDate.Text(), "2026");
  });
}

TEST_F(DateEntryTest, EmptyDateCanBeLeft) {
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "EndDate");
    // Blanks are a text, and no date.
    form.EndDate.Text("  ");
    user.Key("Tab");
    EXPECT_THAT(TakeTexts(), ElementsAre("Invalid date value."));
    EXPECT_EQ(FocusName(), "EndDate");
    EXPECT_EQ(form.EndDate.Text(), "");
  });
}

TEST_F(DateEntryTest, DateThatIsLeftIsTrimmedAndStaysADate) {
  WhileUp([&](FormUser& user) {
    // Its eight characters move the focus on.
    form.StartDate.Text(" 20260615 ");
    EXPECT_EQ(FocusName(), "EndDate");
    EXPECT_EQ(form.StartDate.Text(), "20260615");
    form.EndDate.Text(" 20260615 ");
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "Invoice");
    EXPECT_EQ(form.EndDate.Text(), "20260615");
  });
}

TEST_F(DateEntryTest, DateThatCannotBeReadIsToldOnLeaving) {
  for (const char* text : {"2026ab15", "99991301", "20260431"}) {
    form.StartDate.Text(text);
    WhileUp([&](FormUser& user) {
      user.Key("Tab");
      EXPECT_THAT(TakeTexts(), ElementsAre("Invalid date value.")) << text;
      EXPECT_EQ(FocusName(), "StartDate") << text;
    });
    form.Unload();
  }
}

TEST_F(DateEntryTest, HasHandlersForWhatItDoesAlone) {
  WhileUp([&](FormUser& user) {
    user.Type("20260615");
    user.acts.Press(form.Invoice);
    user.Type("1");
    user.acts.Press(form.StartDate);
  });
  EXPECT_TRUE(form.HasRun("StartDate_Change"));
  EXPECT_TRUE(form.HasRun("StartDate_LostFocus"));
  EXPECT_TRUE(form.HasRun("Invoice_KeyPress"));
  EXPECT_FALSE(form.HasRun("Invoice_Change"));
  EXPECT_FALSE(form.HasRun("Invoice_LostFocus"));
}

TEST_F(DateEntryTest, DateThatCannotBeReadLeavesTheFormThatLetsFailuresOut) {
  EXPECT_EQ(ErrorOf([&] {
              WhileUp([&](FormUser& user) {
                form.Invoice.SetFocus();
                user.Paste(form.Invoice, "2026ab15");
                user.Key("Enter");
              });
            }),
            13);
}

TEST_F(DateEntryTest, RowsTellDates) {
  struct Row {
    bool (*test)(TestedDate&);
    std::string met;
    std::string notMet;
  };
  // Two years before and after today, June 15, 2026, are near.
  const Row rows[] = {{date::IsMissing, "  ", "1"},
                      {date::IsNotEightLong, "2026061", " 20260615 "},
                      {date::IsNotEightLong, "202606150", "abcdefgh"},
                      {date::IsInvalid, "20260229", "20260228"},
                      {date::IsInvalid, "20231231", "20240101"},
                      {date::IsInvalid, "20290101", "20281231"},
                      {date::IsInvalid, " 20260615", "20260615"},
                      {date::IsInvalid, "2026061x", "20260610"},
                      {date::IsInvalid, "99991301", "20260610"}};
  for (const Row& row : rows) {
    EXPECT_FALSE(Passes(row.met, {{*row.test}})) << row.met;
    EXPECT_TRUE(Passes(row.notMet, {{*row.test}})) << row.notMet;
  }
}

TEST_F(DateEntryTest, RowsRewriteDates) {
  EXPECT_TRUE(Passes(" 20260615 ", {{date::Trim}}));
  EXPECT_EQ(form.StartDate.Text(), "20260615");
  EXPECT_TRUE(Passes("615", {{date::ShowDigits}}));
  EXPECT_EQ(form.StartDate.Text(), "00000615");
}

TEST_F(DateEntryTest, DateWarningNamesTheDate) {
  toolkit.answers = {MessageAnswer::No, MessageAnswer::Yes};
  EXPECT_FALSE(Passes("20250101", {{date::YearIsRefused}}));
  EXPECT_TRUE(Passes("20250101", {{date::YearIsRefused}}));
  ASSERT_EQ(toolkit.boxes.size(), 2U);
  EXPECT_EQ(toolkit.boxes[0].text,
            "The year for 'Period From' entered does not correspond to the current year.\r\n"
            "Are you sure you want to use it?");
  EXPECT_EQ(toolkit.boxes[0].title, "Date Warning");
  EXPECT_TRUE(Passes("20260101", {{date::YearIsRefused}}));
  EXPECT_EQ(toolkit.boxes.size(), 2U);
}

}  // namespace
}  // namespace fiscalon
