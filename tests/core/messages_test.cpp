#include "core/messages.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/host_setup.h"
#include "core/module_to_change.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

TEST(ShowMessage, TellsFormsThatAreUpThatTheirUserWasToldSomething) {
  const auto form = std::make_shared<TwoFieldForm>();
  ModuleToChange().shown = {form.get()};
  ServingToolkit toolkit;
  UseToolkit(&toolkit);
  bool isSilent = true;
  form->when["txtA_LostFocus"] = [&] {
    if (!isSilent) {
      EXPECT_EQ(ShowMessage("Invalid date value.", MessageStyle::Critical), MessageAnswer::Ok);
    }
    form->txtA.SetFocus();
  };
  toolkit.serve = [&] {
    form->Acts().Key(*StrokeNamed("Tab"));
    EXPECT_EQ(form->WaitingControl(), &form->txtA);
    isSilent = false;
    form->Acts().Key(*StrokeNamed("Tab"));
    EXPECT_EQ(form->ActiveControl(), &form->txtA);
    EXPECT_EQ(form->WaitingControl(), nullptr);
  };
  form->ShowModal(toolkit);
  ResetModule();
}

TEST(ShowMessage, SpeaksTheLanguageOfTheFormThatIsUp) {
  const auto form = std::make_shared<TwoFieldForm>();
  ModuleToChange().shown = {form.get()};
  ServingToolkit toolkit;
  UseToolkit(&toolkit);
  std::vector<std::string> told;
  toolkit.whenBoxIsUp = [&](const BoxRequest& box) { told.push_back(box.text); };
  toolkit.serve = [&] {
    UseLanguage("en");
    ShowMessage("Cancel", MessageStyle::Plain);
  };
  UseLanguage("fr");
  form->ShowModal(toolkit, TheModule().language);
  ShowMessage("Cancel", MessageStyle::Plain);
  EXPECT_EQ(told, (std::vector<std::string>{"Annuler", "Cancel"}));
  ResetModule();
}

}  // namespace
}  // namespace fiscalon
