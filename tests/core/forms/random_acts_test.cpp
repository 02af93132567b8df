#include <gtest/gtest.h>

#include <random>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// Every kind of control, with handlers that do what handlers do, and worse.
class UnrulyForm : public TestForm {
 public:
  // clang-format off
  TextField    txtA    {*this, "txtA",    {.tabIndex = 0, .maxLength = 6}, Noted("txtA")};
  TextField    txtB    {*this, "txtB",    {.tabIndex = 1, .tabStop = false}, Noted("txtB")};
  TextField    txtC    {*this, "txtC",    {.tabIndex = 2, .locked = true, .multiLine = true}, Noted("txtC")};
  Frame        fraAll  {*this, "fraAll",  {.caption = "Frame"}};
  CheckBox     chkA    {*this, "chkA",    {.caption = "&A", .tabIndex = 3, .frame = &fraAll}, Noted("chkA")};
  OptionButton optA    {*this, "optA",    {.caption = "&B", .tabIndex = 4, .frame = &fraAll}, Noted("optA")};
  OptionButton optB    {*this, "optB",    {.caption = "&C", .tabIndex = 5, .frame = &fraAll}, Noted("optB")};
  DropDownList cmbA    {*this, "cmbA",    {.tabIndex = 6}, Noted("cmbA")};
  ListBox      lstA    {*this, "lstA",    {.tabIndex = 7}, Noted("lstA")};
  Button       cmdA    {*this, "cmdA",    {.caption = "&D"}, Noted("cmdA")};
  Button       cmdBack {*this, "cmdBack", {.caption = "&E", .cancel = true}, Noted("cmdBack")};
  // clang-format on

  explicit UnrulyForm(std::mt19937& random) : random_(random) {
    for (const Control* control : Controls())
      for (const char* event : {"_Change", "_LostFocus", "_MouseDown", "_Click"})
        when[control->Name() + event] = [this] { DoSomething(); };
    for (const char* event : {"Form_KeyDown", "Form_KeyPress", "txtA_KeyDown", "txtA_KeyPress", "cmbA_KeyDown"})
      whenKey[event] = [this](int& key) {
        key = Below(10) == 0 ? 0 : key;
        DoSomething();
      };
    for (const char* event : {"Form_Load", "Form_Activate"}) when[event] = [this] { DoSomething(); };
    whenClosing = [this](bool& cancel, CloseReason /*reason*/) { cancel = Below(4) == 0; };
  }

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  Control& AnyControl() { return *Controls()[static_cast<size_t>(Below(static_cast<int>(Controls().size())))]; }

 private:
  void DoSomething() {
    // Handlers that set off each other end somewhere, as those of real forms do.
    if (depth_ > 5)
      return;
    ++depth_;
    switch (Below(16)) {
      case 0:
        if (Control& control = AnyControl(); control.CanTakeFocus())
          control.SetFocus();
        break;
      case 1:
        txtA.Text(std::to_string(Below(10'000'000)));
        break;
      case 2:
        AnyControl().Enabled(Below(3) != 0);
        break;
      case 3:
        AnyControl().Visible(Below(3) != 0);
        break;
      case 4:
        chkA.Value(!chkA.Value());
        break;
      case 5:
        optA.Value(Below(2) == 0);
        break;
      case 6:
        SendKeys("{TAB}");
        break;
      case 7:
        DoEvents();
        break;
      case 8:
        (Below(2) == 0 ? static_cast<ListControl&>(cmbA) : lstA).AddItem(AsGiven(std::string(1, "abc"[Below(3)])));
        break;
      case 9:
        if (lstA.ListCount() > 0)
          lstA.RemoveItem(Below(lstA.ListCount()));
        break;
      case 10:
        if (Below(20) == 0)
          Hide();
        break;
      case 11:
        if (Below(40) == 0)
          Unload();
        break;
      default:
        break;
    }
    --depth_;
  }

  std::mt19937& random_;
  int depth_ = 0;
};

constexpr std::array kKeys = {"Tab",   "Shift+Tab", "Enter", "Escape", "Backspace", "Delete", "Space", "Left",
                              "Right", "Up",        "Down",  "Home",   "End",       "Alt+A",  "Alt+D", "Alt+Z"};

void ActSomehow(UnrulyForm& form, FormUser& user) {
  switch (form.Below(9)) {
    case 0:
      return user.acts.Click(form.AnyControl());
    case 1:
      user.acts.Press(form.AnyControl());
      return;
    case 2: {
      ListControl& list = form.Below(2) == 0 ? static_cast<ListControl&>(form.cmbA) : form.lstA;
      return list.ListCount() == 0 ? void() : user.acts.Choose(list, form.Below(list.ListCount()));
    }
    case 3:
      return user.acts.EditText(form.txtA, std::to_string(form.Below(100'000'000)), {.start = form.Below(12) - 2});
    case 4:
      return user.acts.BringFocus(form.AnyControl());
    case 5:
      if (form.Below(50) == 0)
        user.acts.Close(static_cast<CloseReason>(form.Below(6)));
      return;
    case 6:
      return user.Key(kKeys[static_cast<size_t>(form.Below(static_cast<int>(kKeys.size())))]);
    default:
      return user.Type(std::string(1, "0aZ. \xE9"[form.Below(6)]));
  }
}

TEST(UserActs, LeaveAnyFormWithItsPromisesKept) {
  constexpr int kActs = 50'000;
  std::mt19937 random(20260615);
  UnrulyForm form(random);
  int acts = 0;
  size_t handlers = 0;
  while (acts < kActs) {
    ServingToolkit toolkit;
    toolkit.serve = [&] {
      FormUser user(form);
      while (form.IsUp() && acts < kActs) {
        ++acts;
        ActSomehow(form, user);
        if (!form.IsUp())
          break;
        const Control* active = form.ActiveControl();
        ASSERT_TRUE(active == nullptr || active->CanTakeFocus()) << active->Name() << ", act " << acts;
        ASSERT_FALSE(form.optA.Value() && form.optB.Value()) << "act " << acts;
        const Selection selection = form.txtA.Selected();
        ASSERT_LE(selection.End(), static_cast<int>(form.txtA.Text().size())) << "act " << acts;
        handlers += form.TakeNotes().size();
      }
    };
    ++acts;
    form.ShowModal(toolkit);
    ASSERT_FALSE(form.IsUp());
    if (::testing::Test::HasFatalFailure())
      return;
  }
  EXPECT_GT(handlers, static_cast<size_t>(kActs) / 4) << "too little happened for the promises to be tried";
}

}  // namespace
}  // namespace fiscalon
