#include "frontends/scripted/text_picture.h"

#include <gtest/gtest.h>

#include "core/platform/code_page.h"
#include "screens/general/due_date_amount.h"
#include "tests/support/module_test.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class TextPicture : public ModuleTest {
 protected:
  /// Draws a form while it is up, after the user's acts.
  template <class FormClass>
  static std::string Draw(FormClass& form, const std::function<void(FormUser& user)>& acts = {}) {
    std::string picture;
    ServingToolkit frontEnd;
    frontEnd.serve = [&] {
      FormUser user(form);
      if (acts)
        acts(user);
      picture = DrawForm(form);
    };
    form.ShowModal(frontEnd);
    return "\n" + picture;
  }
};

TEST_F(TextPicture, ShowsTheFormAsTheUserFindsIt) {
  frmDueDateAmount form;
  form.CompName("Summit Levies");
  form.PaidAmount("123.45");
  form.PaidDate("06152026");
  EXPECT_EQ(Draw(form), R"(
┌─ Summit Levies ───────────────────────────────┐
│  Payment Date:         15/06/2026             │
│  Amount to be paid:    $123.45                │
│                                               │
│  Taxation year ends on:  > [      ] YYYYMM    │
│  Amount payable:           [            ]     │
│                                               │
│    [ OK ]    [ Cancel ]                       │
└───────────────────────────────────────────────┘
)");
}

TEST_F(TextPicture, ShowsWhatWasTypedAndWhereTheFocusIs) {
  frmDueDateAmount form;
  form.CompName(FromUtf8("Côté & fils, une société dont le nom est plus long"));
  form.PaidAmount("1234.5");
  form.PaidDate("");
  const auto type = [](FormUser& user) {
    user.Type("202612");
    user.Type("1234");
  };
  EXPECT_EQ(Draw(form, type), R"(
┌─ Côté & fils, une société dont le nom est plus long ───┐
│  Payment Date:         //                              │
│  Amount to be paid:    $1,234.50                       │
│                                                        │
│  Taxation year ends on:    [202612] YYYYMM             │
│  Amount payable:         > [        1234]              │
│                                                        │
│    [ OK ]    [ Cancel ]                                │
└────────────────────────────────────────────────────────┘
)");
}

/// One control of each kind, in two columns.
class GalleryForm : public TestForm {
 public:
  // clang-format off
  Label        lblLeft   {*this, "lblLeft",   {.caption = "Left side"}};
  Label        lblName   {*this, "lblName",   {.caption = "Name"}};
  TextField    txtFrom   {*this, "txtFrom",   {.tabIndex = 0, .maxLength = 4}};
  TextField    txtTo     {*this, "txtTo",     {.tabIndex = 1, .maxLength = 4, .locked = true}};
  TextField    txtNote   {*this, "txtNote",   {.tabIndex = 2}};
  CheckBox     chk       {*this, "chk",       {.caption = "R&&D", .tabIndex = 3}};
  OptionButton optOne    {*this, "optOne",    {.caption = "&One", .tabIndex = 4}};
  OptionButton optTwo    {*this, "optTwo",    {.caption = "Two", .tabIndex = 5}};
  DropDownList cmb       {*this, "cmb",       {.tabIndex = 6}};
  ListBox      lst       {*this, "lst",       {.tabIndex = 7}};
  Frame        fra       {*this, "fra",       {.caption = "Frame"}};
  TextField    txtInside {*this, "txtInside", {.tabIndex = 8, .maxLength = 2, .frame = &fra}};
  Button       cmdOK     {*this, "cmdOK",     {.caption = "&OK"}, {}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  const Layout layout_ = {
      .groups = {{.heading = &lblLeft,
                  .rows = {{{{&lblName, &txtFrom, &lblName}, {&lblName, &txtTo}}}, {{{nullptr, &chk}}}}},
                 {.column = 1, .rows = {{{{nullptr, &optOne}}}, {{{nullptr, &optTwo}}}, {{{&lblName, &cmb}}}}},
                 {.rows = {{{{&lblName, &lst}}}}},
                 {.heading = &fra, .column = 1, .rows = {{{{&lblName, &txtInside}}}}}},
      .buttons = {&cmdOK}};
};

/// What the pictures below have in the gallery.
void Fill(GalleryForm& form) {
  for (const char* row : {"First", "Second"}) {
    form.cmb.AddItem(row);
    form.lst.AddItem(row);
  }
  form.cmb.ListIndex(0);
  form.lst.ListIndex(1);
  form.txtFrom.Text("20");
  form.chk.Value(true);
  form.optOne.Value(true);
}

TEST_F(TextPicture, ShowsEachKindOfControl) {
  GalleryForm form;
  Fill(form);
  EXPECT_EQ(Draw(form), R"(
┌─ A form under test ──────────────────────────────────────────────────────────────────┐
│  Left side                                      (o) One                              │
│  Name  > [20  ] Name  Name    ‹    ›            ( ) Two                              │
│          [x] R&D                        Name    [First                         ▼]    │
│                                                                                      │
│  Name    Second                         Frame                                        │
│      First                              Name    [  ]                                 │
│    * Second                                                                          │
│                                                                                      │
│    [                              ]                                                  │
│                                                                                      │
│    [ OK ]                                                                            │
└──────────────────────────────────────────────────────────────────────────────────────┘
)");
}

/// A telephone number of two parts, and a city with its province.
class CloseForm : public TestForm {
 public:
  // clang-format off
  Label     lblName     {*this, "lblName",     {.caption = "Name:"}};
  TextField txtName     {*this, "txtName",     {.tabIndex = 0, .maxLength = 20}};
  Label     lblPhone    {*this, "lblPhone",    {.caption = "Phone:"}};
  TextField txtPhone1   {*this, "txtPhone1",   {.tabIndex = 1, .maxLength = 3}};
  TextField txtPhone2   {*this, "txtPhone2",   {.tabIndex = 2, .maxLength = 4}};
  Label     lblCity     {*this, "lblCity",     {.caption = "City:"}};
  TextField txtCity     {*this, "txtCity",     {.tabIndex = 3, .maxLength = 5}};
  Label     lblProvince {*this, "lblProvince", {.caption = "Province:"}};
  TextField txtProvince {*this, "txtProvince", {.tabIndex = 4, .maxLength = 2}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  const Layout layout_ = {
      .groups = {
          {.rows = {{{{&lblName, &txtName}}},
                    {{{&lblPhone, &txtPhone1}, {.field = &txtPhone2, .isClose = true}}},
                    {{{&lblCity, &txtCity}, {.caption = &lblProvince, .field = &txtProvince, .isClose = true}}}}}}};
};

TEST_F(TextPicture, ShowsCellsCloseBehindEachOther) {
  CloseForm form;
  const std::string picture = Draw(form);
  EXPECT_NE(picture.find("Phone:    [   ]  [    ]"), std::string::npos) << picture;
  EXPECT_NE(picture.find("City:     [     ]  Province:  [  ]"), std::string::npos) << picture;
}

// The layout of the gallery has no place for its note.
TEST_F(TextPicture, ShowsWhatTheLayoutForgetsAtTheEnd) {
  GalleryForm form;
  form.Load();
  form.txtNote.Text("one\r\ntwo");
  EXPECT_NE(Draw(form).find("[one\u21B5two                       ]"), std::string::npos) << Draw(form);
}

TEST_F(TextPicture, LeavesThePlaceOfWhatIsHiddenBlank) {
  GalleryForm form;
  Fill(form);
  form.fra.Visible(false);
  EXPECT_EQ(Draw(form), R"(
┌─ A form under test ──────────────────────────────────────────────────────────────────┐
│  Left side                                      (o) One                              │
│  Name  > [20  ] Name  Name    ‹    ›            ( ) Two                              │
│          [x] R&D                        Name    [First                         ▼]    │
│                                                                                      │
│  Name    Second                                                                      │
│      First                              Name                                         │
│    * Second                                                                          │
│                                                                                      │
│    [                              ]                                                  │
│                                                                                      │
│    [ OK ]                                                                            │
└──────────────────────────────────────────────────────────────────────────────────────┘
)");
}

TEST_F(TextPicture, ShowsAnAmpersandOfALabelAsItIs) {
  frmDueDateAmount form;
  form.Load();
  form.Label9.Caption("Smith & Sons");
  EXPECT_NE(Draw(form).find(" Smith & Sons "), std::string::npos);
}

TEST_F(TextPicture, ShowsABoxWithItsIconAndTheAnsweredButton) {
  EXPECT_EQ("\n" + DrawMessageBox({.text = "Invalid date value.", .style = MessageStyle::Critical}, MessageAnswer::Ok),
            R"(
  ╔═ Fiscalon ══════════════╗
  ║ (x) Invalid date value. ║
  ║ >[ OK ]                 ║
  ╚═════════════════════════╝
)");
  EXPECT_EQ("\n" + DrawMessageBox({.text = "Not the\r\ncurrent year\x85",
                                   .style = MessageStyle::Exclamation,
                                   .buttons = MessageButtons::YesNo,
                                   .title = "Date Warning"},
                                  MessageAnswer::No),
            R"(
  ╔═ Date Warning ════╗
  ║ (!) Not the       ║
  ║ current year…     ║
  ║  [ Yes ]  >[ No ] ║
  ╚═══════════════════╝
)");
}

TEST_F(TextPicture, SaysBelowTheButtonsWhichEntryKeepsTheFocus) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] { form.txtA.SetFocus(); };
  const std::string kept = Draw(form, [](FormUser& user) { user.Key("Tab"); });
  EXPECT_NE(kept.find("│  Please correct this entry.  "), std::string::npos) << kept;
  form.Unload();
  EXPECT_EQ(Draw(form).find("Please"), std::string::npos);
}

}  // namespace
}  // namespace fiscalon
