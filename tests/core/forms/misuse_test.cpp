#include <gtest/gtest.h>

#include "core/forms/control_array.h"
#include "core/forms/form_misuse.h"
#include "core/platform/runtime_error.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class ListForm : public TestForm {
 public:
  // clang-format off
  ListBox                     lst {*this, "lst", {.tabIndex = 0}, Noted("lst")};
  ControlArray<TextField, 3>  Box {*this, "Box", [](int index) { return FieldDesign{.tabIndex = 1 + index}; }};
  // clang-format on

 protected:
  void Form_Load() override { lst.AddItem("The only row"); }
};

/// What comes out of a show in which that is done.
std::string MisuseOf(Form& form, const std::function<void()>& act) {
  ServingToolkit toolkit;
  toolkit.serve = [&] {
    act();
    EXPECT_FALSE(form.IsUp());
  };
  try {
    form.ShowModal(toolkit);
  } catch (const FormMisuse& error) {
    return error.what();
  }
  return "(nothing)";
}

TEST(FormMisuse, NamesFormAndControlThatTheFormHasNot) {
  ListForm form;
  EXPECT_EQ(&form.ControlNamed("Box(2)"), &form.Box[2]);
  for (const char* name : {"txtNone", "Box(3)", "Box(-1)", "Box", ""}) {
    EXPECT_EQ(form.FindControl(name), nullptr);
    try {
      form.ControlNamed(name);
      ADD_FAILURE() << name;
    } catch (const FormMisuse& error) {
      EXPECT_EQ(error.what(), std::string("frmTest.") + name + ": the form has no such control");
    }
  }
}

TEST(FormMisuse, NamesFormAndListWhereTheRowIsNotThere) {
  for (const int row : {-1, 1, 100}) {
    ListForm form;
    const std::string misuse = "frmTest.lst: has no row " + std::to_string(row);
    EXPECT_EQ(MisuseOf(form, [&] { form.Acts().Choose(form.lst, row); }), misuse);
    EXPECT_EQ(MisuseOf(form, [&] { form.Acts().Pick(form.lst, row); }), misuse);
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_Activate", "Form_Activate"})) << "nothing of the list";
  }
}

TEST(FormMisuse, NamesTheControlOfAnotherForm) {
  class OtherForm : public TestForm {
   public:
    TextField txtOther{*this, "txtOther", {}};
  };
  OtherForm other;
  const std::vector<std::function<void(ListForm&)>> acts = {
      [&](ListForm& form) { form.Acts().Press(other.txtOther); },
      [&](ListForm& form) { form.Acts().BringFocus(other.txtOther); },
      [&](ListForm& form) { form.Acts().EditText(other.txtOther, "x", {}); },
  };
  for (const auto& act : acts) {
    ListForm form;
    EXPECT_EQ(MisuseOf(form, [&] { act(form); }), "frmTest.txtOther: is a control of frmTest");
  }
}

TEST(ControlArray, NamesFormAndMemberInErrorNine) {
  ListForm form;
  try {
    form.Box[3];
    ADD_FAILURE() << "a fourth member";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 9);
    EXPECT_EQ(error.Description(), "Subscript out of range: frmTest.Box(3)");
  }
}

}  // namespace
}  // namespace fiscalon
