#include <array>

#include "core/forms/list_control.h"
#include "core/platform/code_page.h"
#include "frontends/played/scenario_run.h"

/// What a user does at a form.
namespace fiscalon {
namespace {

void Type(ScenarioRun& run, const Arguments& arguments) {
  const std::string text = FromUtf8(arguments[0]);
  for (size_t i = 0; i < text.size(); ++i) {
    if (!run.FormIsUp())
      run.Fail("a form to type into", "the form was closed before \"" + ToUtf8(text.substr(i)) + "\"");
    run.User().Type(text[i]);
  }
}

void PressKey(ScenarioRun& run, const Arguments& arguments) {
  run.User().PressKey(*StrokeNamed(arguments[0]));
}

void PressMouse(ScenarioRun& run, const Arguments& arguments) {
  run.User().PressMouse(run.ControlNamed(arguments[0]));
}

void Click(ScenarioRun& run, const Arguments& arguments) {
  run.User().Click(run.ControlNamed(arguments[0]));
}

void Choose(ScenarioRun& run, const Arguments& arguments) {
  Control& control = run.ControlNamed(arguments[0]);
  auto* const asList = dynamic_cast<ListControl*>(&control);
  if (asList == nullptr)
    run.Senseless("\"" + control.Name() + "\" of \"" + run.NameOfForm() + "\" is no list");
  ListControl& list = *asList;
  const std::string wanted = ScenarioRun::Comparable(arguments[1]);
  std::string rows;
  for (int row = 0; row < list.ListCount(); ++row) {
    if (ScenarioRun::Comparable(ToUtf8(list.ShownRow(row))) == wanted)
      return run.User().Choose(list, row);
    rows += (row == 0 ? "" : ", ") + QuotedArgument(ToUtf8(list.ShownRow(row)));
  }
  run.Fail("a row " + QuotedArgument(arguments[1]) + " in \"" + control.Name() + "\" of \"" + run.NameOfForm() + "\"",
           rows.empty() ? "no rows" : "the rows " + rows);
}

void Paste(ScenarioRun& run, const Arguments& arguments) {
  run.User().Paste(FromUtf8(arguments[0]));
}

void Close(ScenarioRun& run, const Arguments& arguments) {
  run.User().CloseWindow(static_cast<CloseReason>(*ParseNumber(arguments[0])));
}

void Answer(ScenarioRun& run, const Arguments& arguments) {
  const std::string& button = arguments[0];
  run.WillAnswer(button == "OK"       ? MessageAnswer::Ok
                 : button == "Cancel" ? MessageAnswer::Cancel
                 : button == "Yes"    ? MessageAnswer::Yes
                                      : MessageAnswer::No);
}

// clang-format off
constexpr std::array kUserLines = {
    LineForm{"type",   Turn::User,   {&argument::kText}, {}, Type},
    LineForm{"key",    Turn::User,   {&argument::kKey}, {}, PressKey},
    LineForm{"focus",  Turn::User,   {&argument::kControl}, {}, PressMouse},
    LineForm{"click",  Turn::User,   {&argument::kControl}, {}, Click},
    LineForm{"choose", Turn::User,   {&argument::kControl, &argument::kText}, {}, Choose},
    LineForm{"paste",  Turn::User,   {&argument::kText}, {}, Paste},
    LineForm{"close",  Turn::User,   {&argument::kReason}, {}, Close},
    LineForm{"answer", Turn::Answer, {&argument::kButton}, {}, Answer},
};
// clang-format on

}  // namespace

std::span<const LineForm> UserLines() {
  return kUserLines;
}

}  // namespace fiscalon
