#include <array>

#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "frontends/played/scenario_run.h"

/// What a user must see.
namespace fiscalon {
namespace {

std::string YesNo(bool value) {
  return value ? "yes" : "no";
}

/// Where a system has two separators of folders, either stands for the other.
std::string WithOwnSeparators(const std::string& file) {
  return Utf8Of(Utf8Path(file).make_preferred());
}

void ExpectMessage(ScenarioRun& run, const Arguments& arguments) {
  const bool withTitle = arguments.size() > 2;
  std::string expected = "message " + arguments[0] + " " + QuotedArgument(WithPlainLineEnds(arguments[1]));
  if (withTitle)
    expected += " title " + QuotedArgument(WithPlainLineEnds(arguments[3]));
  SeenThing seen = run.Claim(expected);
  if (auto* box = std::get_if<BoxRequest>(&seen)) {
    if (!withTitle)
      box->title.clear();
    else if (box->title.empty())
      box->title = kApplicationTitle;
  }
  run.Compare(ScenarioRun::Comparable(expected), ScenarioRun::Comparable(Described(seen)));
}

void ExpectBeep(ScenarioRun& run, const Arguments& /*arguments*/) {
  const std::string expected = Described(SeenBeep{});
  run.Compare(expected, Described(run.Claim(expected)));
}

void ExpectHelp(ScenarioRun& run, const Arguments& arguments) {
  // Numbers above the range of 31 bits are the same number without a sign.
  const auto context = static_cast<int32_t>(*ParseNumber(arguments[1]));
  const std::string expected = DescribedHelp(WithOwnSeparators(arguments[0]), context);
  SeenThing seen = run.Claim(expected);
  if (auto* help = std::get_if<SeenHelp>(&seen))
    help->file = FromUtf8(WithOwnSeparators(ToUtf8(help->file)));
  run.Compare(expected, Described(seen));
}

void ExpectFocus(ScenarioRun& run, const Arguments& arguments) {
  run.Compare(run.ControlNamed(arguments[0]).Name(), run.User().FocusName());
}

void ExpectTitle(ScenarioRun& run, const Arguments& arguments) {
  run.CompareTexts(arguments[0], run.User().Title());
}

void ExpectOpen(ScenarioRun& run, const Arguments& arguments) {
  run.Compare(arguments[0], YesNo(run.FormIsUp()));
}

void ExpectText(ScenarioRun& run, const Arguments& arguments) {
  run.CompareTexts(arguments[1], run.User().Text(run.ControlNamed(arguments[0])));
}

void ExpectSelection(ScenarioRun& run, const Arguments& arguments) {
  run.CompareTexts(arguments[1], run.User().SelectedText(run.ControlNamed(arguments[0])));
}

void ExpectItems(ScenarioRun& run, const Arguments& arguments) {
  run.Compare(std::to_string(*ParseNumber(arguments[1])),
              std::to_string(run.User().Items(run.ControlNamed(arguments[0]))));
}

/// How a control is, yes or no.
template <bool (UserDriver::*state)(const Control&)>
void ExpectState(ScenarioRun& run, const Arguments& arguments) {
  run.Compare(arguments[1], YesNo((run.User().*state)(run.ControlNamed(arguments[0]))));
}

// clang-format off
constexpr std::array kShownExpectations = {
    LineForm{"expect message",   Turn::Watcher, {&argument::kStyle, &argument::kText}, {&argument::kTitleWord, &argument::kTitle}, ExpectMessage},
    LineForm{"expect beep",      Turn::Watcher, {}, {}, ExpectBeep},
    LineForm{"expect help",      Turn::Watcher, {&argument::kFile, &argument::kContext}, {}, ExpectHelp},
    LineForm{"expect focus",     Turn::Watcher, {&argument::kControl}, {}, ExpectFocus},
    LineForm{"expect title",     Turn::Watcher, {&argument::kText}, {}, ExpectTitle},
    LineForm{"expect open",      Turn::Watcher, {&argument::kYesNo}, {}, ExpectOpen},
    LineForm{"expect text",      Turn::Watcher, {&argument::kControl, &argument::kText}, {}, ExpectText},
    LineForm{"expect selection", Turn::Watcher, {&argument::kControl, &argument::kText}, {}, ExpectSelection},
    LineForm{"expect items",     Turn::Watcher, {&argument::kControl, &argument::kCount}, {}, ExpectItems},
    LineForm{"expect enabled",   Turn::Watcher, {&argument::kControl, &argument::kYesNo}, {}, ExpectState<&UserDriver::Enabled>},
    LineForm{"expect visible",   Turn::Watcher, {&argument::kControl, &argument::kYesNo}, {}, ExpectState<&UserDriver::Visible>},
    LineForm{"expect checked",   Turn::Watcher, {&argument::kControl, &argument::kYesNo}, {}, ExpectState<&UserDriver::Checked>},
    LineForm{"expect locked",    Turn::Watcher, {&argument::kControl, &argument::kYesNo}, {}, ExpectState<&UserDriver::Locked>},
};
// clang-format on

}  // namespace

std::span<const LineForm> ShownExpectations() {
  return kShownExpectations;
}

}  // namespace fiscalon
