#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/forms/laid_out.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// A language in which letters are others, so that nothing fits by accident.
std::optional<std::string> OtherWords(std::string_view english) {
  constexpr std::pair<std::string_view, const char*> kWords[] = {
      {"Payment", "Zahlung"},
      {"&OK", "&Gut"},
      {"Amount:", "Betrag\xA0:"},
      {"Weekly", "Zweimal"},
      {"Monthly", "Woche"},
      {"Please correct this entry: {1}", "{1}: bitte berichtigen"},
      {"{1}, {2} of {3}", "{2}/{3} {1}"},
  };
  for (const auto& [text, words] : kWords)
    if (text == english)
      return words;
  return std::nullopt;
}
constexpr Language kOther = {"other", OtherWords};

class WordedForm : public TestForm {
 public:
  // clang-format off
  Label        lblAmount {*this, "lblAmount", {.caption = "Amount:"}};
  TextField    txtAmount {*this, "txtAmount", {.tabIndex = 0}, Noted("txtAmount")};
  DropDownList cmbKind   {*this, "cmbKind",   {.tabIndex = 1}, Noted("cmbKind")};
  TextField    txtPart1  {*this, "txtPart1",  {.tabIndex = 2}};
  TextField    txtPart2  {*this, "txtPart2",  {.tabIndex = 3}};
  Label        lblNote   {*this, "lblNote",   {.caption = "Untranslated"}};
  Button       cmdOK     {*this, "cmdOK",     {.caption = "&OK"}, Noted("cmdOK")};
  // clang-format on

  WordedForm() {
    when["Form_Load"] = [this] {
      Caption("Payment");
      cmbKind.AddItem("Weekly");
      cmbKind.AddItem("Monthly");
      cmbKind.AddItem(AsGiven("Weekly"));
    };
  }

  const Layout& FormLayout() const override { return layout_; }

 private:
  const Layout layout_ = {.groups = {{.rows = {{{{&lblAmount, &txtAmount}}},
                                               {{{nullptr, &cmbKind}}},
                                               {{{&lblAmount, &txtPart1}, {nullptr, &txtPart2}}}}}},
                          .buttons = {&cmdOK}};
};

class FormLanguage : public testing::Test {
 protected:
  /// Shows the form in the language, with a user at it.
  void Show(const std::function<void(FormUser& user)>& acts) {
    toolkit.serve = [&] {
      FormUser user(form);
      form.TakeNotes();
      acts(user);
    };
    form.ShowModal(toolkit, kOther);
  }

  ServingToolkit toolkit;
  WordedForm form;
};

TEST_F(FormLanguage, ShowsCaptionsTitleAndRowsInItsWords) {
  Show([&](FormUser& /*user*/) {
    EXPECT_EQ(form.ShownCaption(), "Zahlung");
    EXPECT_EQ(form.lblAmount.ShownCaption(), "Betrag\xA0:");
    EXPECT_EQ(form.cmdOK.PlainCaption(), "Gut");
    EXPECT_EQ(form.cmbKind.ShownRow(0), "Zweimal");
    form.cmbKind.ListIndex(1);
    EXPECT_EQ(form.cmbKind.ShownText(), "Woche");
  });
}

TEST_F(FormLanguage, ComparesInEnglish) {
  Show([&](FormUser& /*user*/) {
    EXPECT_EQ(form.Caption(), "Payment");
    EXPECT_EQ(form.lblAmount.Caption(), "Amount:");
    EXPECT_EQ(form.cmdOK.ValueInComparisons(), "&OK");
    form.cmbKind.ListIndex(1);
    EXPECT_EQ(form.cmbKind.Text(), "Monthly");
    EXPECT_EQ(form.cmbKind.ValueInComparisons(), "Monthly");
  });
}

TEST_F(FormLanguage, ShowsInEnglishWhatHasNoWords) {
  Show([&](FormUser& /*user*/) { EXPECT_EQ(form.lblNote.ShownCaption(), "Untranslated"); });
}

TEST_F(FormLanguage, LeavesWhatIsGivenAlone) {
  Show([&](FormUser& /*user*/) { EXPECT_EQ(form.cmbKind.ShownRow(2), "Weekly"); });
}

TEST_F(FormLanguage, AccessKeysAreThoseThatAreShown) {
  Show([&](FormUser& user) {
    user.Key("Alt+O");
    EXPECT_THAT(form.TakeNotes(), testing::IsEmpty());
    user.Key("Alt+G");
    EXPECT_THAT(form.TakeNotes(), testing::Contains("cmdOK_Click"));
  });
}

TEST_F(FormLanguage, ListsAreTypedInByWhatIsShown) {
  Show([&](FormUser& user) {
    form.cmbKind.SetFocus();
    user.Type("wo");
    EXPECT_EQ(form.cmbKind.Text(), "Monthly");
    user.Key("Backspace");
    user.Type("z");
    EXPECT_EQ(form.cmbKind.ListIndex(), 0);
  });
}

TEST_F(FormLanguage, NamesOfFieldsAreInItsWords) {
  Show([&](FormUser& /*user*/) {
    const auto groups = LaidOut(form);
    // The colon is no part of a name, and neither is the blank before it.
    EXPECT_EQ(groups[0].rows[0][0].name, "1/3 Betrag");
    EXPECT_EQ(groups[0].rows[2][1].name, "3/3 Betrag");
  });
}

TEST_F(FormLanguage, StatusIsInItsWords) {
  form.when["txtAmount_LostFocus"] = [&] { form.txtAmount.SetFocus(); };
  Show([&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(StatusOf(form), "1/3 Betrag: bitte berichtigen");
  });
}

TEST_F(FormLanguage, IsEnglishAgainWithTheNextShow) {
  Show([](FormUser& /*user*/) {});
  PlayAt(form, [&](FormUser& /*user*/) { EXPECT_EQ(form.cmdOK.ShownCaption(), "&OK"); });
}

}  // namespace
}  // namespace fiscalon
