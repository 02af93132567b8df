#include "core/forms/laid_out.h"

#include <gtest/gtest.h>

#include "core/forms/form_misuse.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class LaidOutForm : public TestForm {
 public:
  // clang-format off
  Label        lblHead     {*this, "lblHead",     {.caption = " Period: "}};
  Label        lblFrom     {*this, "lblFrom",     {.caption = "From::"}};
  TextField    txtFrom     {*this, "txtFrom",     {}, Keeping(txtFrom)};
  Label        lblHint     {*this, "lblHint",     {.caption = "YYYYMM"}};
  TextField    txtTo       {*this, "txtTo",       {}};
  Label        lblTotal    {*this, "lblTotal",    {.caption = "Total", .bold = true}};
  TextField    txtTotal    {*this, "txtTotal",    {}, Keeping(txtTotal)};
  CheckBox     chk         {*this, "chk",         {.caption = "&Final"}};
  Frame        fra         {*this, "fra",         {.caption = "Kind"}};
  OptionButton optA        {*this, "optA",        {.caption = "A", .frame = &fra}};
  Frame        fraNoPlace  {*this, "fraNoPlace",  {}};
  TextField    txtInside   {*this, "txtInside",   {.frame = &fraNoPlace}};
  Label        lblParts    {*this, "lblParts",    {.caption = "Parts"}};
  TextField    txtPart1    {*this, "txtPart1",    {}};
  TextField    txtPart2    {*this, "txtPart2",    {}};
  Label        lblList     {*this, "lblList",     {.caption = "Date     Amount"}};
  ListBox      lst         {*this, "lst",         {}};
  TextField    txtForgot   {*this, "txtForgot",   {}, Keeping(txtForgot)};
  Button       cmdOK       {*this, "cmdOK",       {.caption = "&OK"}};
  Button       cmdForgot   {*this, "cmdForgot",   {.caption = "Forgotten"}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  /// The field that takes the focus back when it is left.
  TextField* keeps = nullptr;

 private:
  FieldEvents Keeping(TextField& field) {
    return {.lostFocus = [this, &field] {
      if (keeps == &field)
        field.SetFocus();
    }};
  }

  const Layout layout_ = {
      .groups = {{.heading = &lblHead,
                  .column = 1,
                  .rows = {{{{&lblFrom, &txtFrom, &lblHint}, {nullptr, &txtTo}}},
                           {{{&lblTotal, &txtTotal}}},
                           {{{nullptr, &txtTo}}},
                           {{{&lblFrom, &chk}}},
                           {{{.caption = &lblParts, .field = &txtPart1, .isClose = true},
                             {.field = &txtPart2, .isClose = true}}}}},
                 {.heading = &fra, .rows = {{{{nullptr, &optA}}}, {{{&lblList}}}, {{{nullptr, &lst}}}}},
                 {.rows = {{{{nullptr, &txtInside}}}}}},
      .buttons = {&cmdOK}};
};

TEST(LaidOut, NamesAFieldByWhatTheEyeReadsBeforeIt) {
  const LaidOutForm form;
  const LaidOutGroup group = LaidOut(form)[0];
  EXPECT_EQ(group.rows[0][0].name, "From (YYYYMM)") << "without the colons";
  EXPECT_EQ(group.rows[0][1].name, "From") << "the last caption in its row";
  EXPECT_EQ(group.rows[1][0].name, "Total");
  EXPECT_EQ(group.rows[2][0].name, "Period") << "the heading of its group";
}

TEST(LaidOut, DescribesAFieldByItsHint) {
  LaidOutForm form;
  form.lblHead.Caption("Until");
  EXPECT_EQ(LaidOut(form)[0].rows[0][0].description, "") << "the name says it, which two fields would have";
  EXPECT_EQ(LaidOut(form)[0].rows[3][0].description, "From");
}

TEST(LaidOut, TellsFieldsThatWouldHaveOneNameApart) {
  class PeriodsForm : public TestForm {
   public:
    Label lblLong{*this, "lblLong", {.caption = "Long:"}}, lblShort{*this, "lblShort", {.caption = "Short:"}};
    Label lblTo{*this, "lblTo", {.caption = "to"}}, lblYear{*this, "lblYear", {.caption = "YYYY"}};
    Label lblPhone{*this, "lblPhone", {.caption = "Phone"}};
    Label lblFirst{*this, "lblFirst", {.caption = "First"}}, lblSecond{*this, "lblSecond", {.caption = "Second"}};
    TextField txt1{*this, "txt1", {}}, txt2{*this, "txt2", {}}, txt3{*this, "txt3", {}}, txt4{*this, "txt4", {}};
    TextField txt5{*this, "txt5", {}}, txt6{*this, "txt6", {}}, txt7{*this, "txt7", {}}, txt8{*this, "txt8", {}};
    const Layout& FormLayout() const override { return layout_; }

   private:
    const Layout layout_ = {.groups = {{.rows = {{{{&lblLong, &txt1}, {&lblTo, &txt2}}},
                                                 {{{&lblShort, &txt3}, {&lblTo, &txt4}}},
                                                 {{{&lblPhone, &txt5}, {nullptr, &txt6}}}}},
                                       {.heading = &lblFirst, .rows = {{{{&lblYear, &txt7}}}}},
                                       {.heading = &lblSecond, .rows = {{{{&lblYear, &txt8}}}}}}};
  };
  const PeriodsForm form;
  std::vector<std::string> names;
  for (const LaidOutGroup& group : LaidOut(form))
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row) names.push_back(cell.name);
  EXPECT_EQ(names, (std::vector<std::string>{"Long", "Long, to", "Short", "Short, to", "Phone, 1 of 2", "Phone, 2 of 2",
                                             "First, YYYY", "Second, YYYY"}));
}

TEST(LaidOut, HeadsAListByTheCaptionAboveIt) {
  LaidOutForm form;
  const LaidOutCell list = LaidOut(form)[1].rows[2][0];
  EXPECT_EQ(list.head, &form.lblList);
  EXPECT_EQ(list.name, "Kind");
  EXPECT_EQ(list.description, "Date Amount") << "the names of its columns";
  EXPECT_EQ(LaidOut(form)[0].rows[2][0].head, nullptr) << "no list";
}

TEST(LaidOut, HeadsNothingButAListByTheCaptionAboveIt) {
  class HeadedForm : public TestForm {
   public:
    Label lblHead{*this, "lblHead", {.caption = "Heading"}};
    TextField txt{*this, "txt", {}};
    Label lblList{*this, "lblList", {.caption = "Rows"}};
    ListBox lst{*this, "lst", {}};
    const Layout& FormLayout() const override { return layout_; }

   private:
    const Layout layout_ = {
        .groups = {{.rows = {{{{&lblHead}}}, {{{nullptr, &txt}}}, {{{&lblHead}}}, {{{&lblList, &lst}}}}}}};
  };
  const HeadedForm form;
  const LaidOutGroup group = LaidOut(form)[0];
  EXPECT_EQ(group.rows[1][0].head, nullptr) << "no list";
  EXPECT_EQ(group.rows[1][0].name, "");
  EXPECT_EQ(group.rows[3][0].head, nullptr) << "it has a caption of its own";
  EXPECT_EQ(group.rows[3][0].name, "Rows");
}

TEST(LaidOut, LeavesTheNameToAFieldWithACaptionOfItsOwn) {
  const LaidOutForm form;
  const LaidOutCell cell = LaidOut(form)[0].rows[3][0];
  EXPECT_EQ(cell.name, "");
  EXPECT_EQ(cell.description, "From") << "what stands before it says more";
}

TEST(ToldFields, AreThoseOfTheLayoutInItsOrder) {
  const LaidOutForm form;
  std::vector<const Control*> fields;
  for (const ToldField& told : ToldFields(form)) fields.push_back(told.field);
  EXPECT_EQ(fields, (std::vector<const Control*>{&form.txtFrom, &form.txtTo, &form.txtTotal, &form.txtTo, &form.chk,
                                                 &form.txtPart1, &form.txtPart2, &form.optA, &form.lst, &form.txtInside,
                                                 &form.txtForgot, &form.cmdForgot}));
  EXPECT_EQ(ToldFields(form)[0].name, "From (YYYYMM)");
  EXPECT_EQ(ToldFields(form)[4].description, "From");
}

TEST(ToldFields, AreDescribedByTheStatusWhereTheyWait) {
  LaidOutForm form;
  Play(form, [&](FormUser& user) {
    form.txtFrom.SetFocus();
    form.keeps = &form.txtFrom;
    user.Key("Tab");
    form.keeps = nullptr;
    EXPECT_EQ(ToldFields(form)[0].description, "Please correct this entry: From (YYYYMM)");
    EXPECT_EQ(ToldFields(form)[4].description, "From") << "that of another stays";
  });
}

TEST(LaidOut, ReadsCaptionsAsTheyAreNow) {
  LaidOutForm form;
  form.lblFrom.Caption("Since");
  EXPECT_EQ(LaidOut(form)[0].rows[0][0].name, "Since (YYYYMM)");
}

TEST(LaidOut, SaysWhatStandsOut) {
  const LaidOutForm form;
  const LaidOutGroup group = LaidOut(form)[0];
  EXPECT_FALSE(group.rows[0][0].standsOut);
  EXPECT_TRUE(group.rows[1][0].standsOut);
}

TEST(StandingOut, AreHeadingsAndTheFieldsOfCaptionsThatDo) {
  const LaidOutForm form;
  EXPECT_EQ(StandingOut(form), (std::set<const Control*>{&form.lblHead, &form.fra, &form.txtTotal}));
}

TEST(LaidOut, SaysWhatStandsCloseBehindAnotherCell) {
  const LaidOutForm form;
  const LaidOutGroup group = LaidOut(form)[0];
  EXPECT_FALSE(group.rows[0][1].isClose);
  EXPECT_TRUE(group.rows[4][1].isClose);
  EXPECT_FALSE(group.rows[4][0].isClose) << "nothing stands before the first";
}

TEST(LaidOut, SaysInWhichFrameAGroupStands) {
  const LaidOutForm form;
  const auto groups = LaidOut(form);
  EXPECT_EQ(groups[0].frame, nullptr);
  EXPECT_EQ(groups[0].column, 1);
  EXPECT_EQ(groups[1].frame, &form.fra) << "its heading";
  EXPECT_EQ(groups[1].column, 0) << "where it names none";
  EXPECT_EQ(groups[2].frame, &form.fraNoPlace) << "that of its fields";
}

TEST(LaidOut, PutsForgottenControlsAtTheEndButNoForgottenFrame) {
  const LaidOutForm form;
  const LaidOutGroup last = LaidOut(form).back();
  ASSERT_EQ(last.rows.size(), 2U);
  EXPECT_EQ(last.rows[0][0].field, &form.txtForgot);
  EXPECT_EQ(last.rows[1][0].field, &form.cmdForgot);
  EXPECT_EQ(last.heading, nullptr);
}

TEST(LaidOut, RefusesAFrameWithinAFrame) {
  class NestedForm : public TestForm {
   public:
    Frame fraOut{*this, "fraOut", {}};
    Frame fraIn{*this, "fraIn", {}};
    const Layout& FormLayout() const override { return layout_; }

   private:
    const Layout layout_ = {.groups = {{.heading = &fraOut, .rows = {{{{nullptr, &fraIn}}}}}}};
  };
  const NestedForm form;
  try {
    LaidOut(form);
    ADD_FAILURE() << "a frame within a frame";
  } catch (const FormMisuse& error) {
    EXPECT_STREQ(error.what(), "frmTest.fraIn: is a frame within the frame fraOut");
  }
}

TEST(StatusOf, NamesTheEntryThatKeepsTheFocusInSilence) {
  LaidOutForm form;
  std::vector<std::string> seen;
  for (TextField* field : {&form.txtFrom, &form.txtTotal, &form.txtForgot}) {
    Play(form, [&](FormUser& user) {
      field->SetFocus();
      seen.push_back(StatusOf(form));
      form.keeps = field;
      user.Key("Tab");
      form.keeps = nullptr;
      seen.push_back(StatusOf(form));
    });
    form.Unload();
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"", "Please correct this entry: From (YYYYMM)", "",
                                            "Please correct this entry: Total", "", "Please correct this entry."}));
}

}  // namespace
}  // namespace fiscalon
