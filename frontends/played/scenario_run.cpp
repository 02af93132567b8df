#include "frontends/played/scenario_run.h"

#include <stdlib.h>

#include <system_error>

#include "core/launch.h"
#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "frontends/played/host_properties.h"
#include "frontends/played/scenario_grammar.h"

namespace fiscalon {
namespace {

MessageAnswer AnswerNamed(const std::string& button) {
  return button == "OK"       ? MessageAnswer::Ok
         : button == "Cancel" ? MessageAnswer::Cancel
         : button == "Yes"    ? MessageAnswer::Yes
                              : MessageAnswer::No;
}

bool IsAct(const ScenarioLine& line) {
  constexpr std::array<std::string_view, 7> kActs = {"type", "key", "focus", "click", "choose", "paste", "close"};
  return std::find(kActs.begin(), kActs.end(), line.verb) != kActs.end();
}

}  // namespace

ScenarioFolder::ScenarioFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "fiscalon-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "no temporary folder could be made at " + name);
  path_ = name;
}

ScenarioFolder::~ScenarioFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

ScenarioRun::ScenarioRun(const Scenario& scenario, DrivenToolkit& toolkit, const PlaySettings& settings,
                         const PlayWatcher& watcher)
    : scenario_(scenario), toolkit_(toolkit), watcher_(watcher) {
  ResetModule();
  UseToolkit(&toolkit_);
  TheModule().locale = *NamedLocale(settings.locale);
  if (settings.today)
    TheModule().clock = std::make_shared<FixedClock>(*settings.today);
  session_.emplace();
  toolkit_.onForm = [this](Form& form, UserDriver& user) { PlayWhileUp(form, user); };
  toolkit_.onMessage = [this](const BoxRequest& box) { return AnswerBox(box); };
  toolkit_.onBeep = [this] { Notice(SeenBeep{}); };
  toolkit_.onHelp = [this](std::string_view file, int32_t context) {
    Notice(SeenHelp{.file = std::string(file), .context = context});
  };
  toolkit_.onEvent = watcher_.handlerRuns;
}

ScenarioRun::~ScenarioRun() {
  toolkit_.onForm = nullptr;
  toolkit_.onMessage = nullptr;
  toolkit_.onBeep = nullptr;
  toolkit_.onHelp = nullptr;
  toolkit_.onEvent = nullptr;
  // However the run ended: its forms, and the front end that may be gone before the next one.
  ResetModule();
}

void ScenarioRun::Play() {
  while (next_ < scenario_.lines.size()) PlayLine();
  RefuseUnclaimed();
  if (error_)
    Fail("no error", Ending());
  if (watcher_.ended)
    watcher_.ended(Records());
}

void ScenarioRun::PlayLine() {
  const ScenarioLine& line = scenario_.lines[next_++];
  current_ = &line;
  if (watcher_.lineBegins)
    watcher_.lineBegins(line);
  if (IsAct(line))
    Act(line);
  else if (line.verb == "expect")
    Expect(line);
  else if (line.verb == "answer")
    answers_.push_back(AnswerNamed(line.arguments[0]));
  else if (form_ != nullptr)
    Fail("the form to be closed before \"" + line.verb + "\"", "\"" + shownForm_ + "\" is still open");
  else if (line.verb == "show")
    Show(line);
  else
    Host(line);
  if (watcher_.lineEnds)
    watcher_.lineEnds(line, form_ != nullptr && form_->IsUp() ? form_ : nullptr);
}

void ScenarioRun::Host(const ScenarioLine& line) {
  if (line.verb == "today") {
    const std::string time = line.arguments.size() > 1 ? line.arguments[1] : std::string();
    TheModule().clock = std::make_shared<FixedClock>(*ParseDateTime(line.arguments[0], time));
  } else if (line.verb == "locale") {
    TheModule().locale = *NamedLocale(line.arguments[0]);
    QueryDecimalSeparator();
  } else {
    try {
      SetHostProperty(*session_, line.arguments[0], Argument(line, 1));
    } catch (const RuntimeError& error) {
      Fail("the property to take its value", "error " + std::to_string(error.Number()) + ", " + error.Description());
    }
  }
}

void ScenarioRun::Show(const ScenarioLine& line) {
  RefuseUnclaimed();
  if (error_)
    Fail("no error of the show before", Ending());
  const std::string code = FromUtf8(Argument(line, 0));
  const LaunchRow* row = FindLaunchRow(code);
  shownForm_ = row == nullptr ? std::string() : std::string(row->form);
  result_.reset();
  seenAtLine_ = line.number;
  try {
    result_ = session_->ShowLevyraScreen(code);
  } catch (const RuntimeError& error) {
    error_ = error;
  }
  if (watcher_.showEnded)
    watcher_.showEnded(Ending());
}

void ScenarioRun::PlayWhileUp(Form& form, UserDriver& user) {
  form_ = &form;
  user_ = &user;
  if (watcher_.lineEnds)
    watcher_.lineEnds(*current_, form_);
  try {
    while (form.IsUp() && next_ < scenario_.lines.size()) PlayLine();
    if (form.IsUp())
      Fail("the form to be closed", "\"" + shownForm_ + "\" is still open where the scenario ends");
  } catch (...) {
    form_ = nullptr;
    user_ = nullptr;
    throw;
  }
  form_ = nullptr;
  user_ = nullptr;
}

MessageAnswer ScenarioRun::AnswerBox(const BoxRequest& box) {
  seen_.push_back(box);
  MessageAnswer answer = box.DefaultAnswer();
  if (!answers_.empty()) {
    answer = answers_.front();
    answers_.pop_front();
    if (!box.Offers(answer))
      Fail("a box with the button that was to be answered", "the box \"" + ToUtf8(box.text) + "\" has no such button");
  }
  if (watcher_.boxAnswered)
    watcher_.boxAnswered(box, answer, form_);
  return answer;
}

void ScenarioRun::Notice(SeenThing thing) {
  if (watcher_.noticed)
    watcher_.noticed(Described(thing));
  seen_.push_back(std::move(thing));
}

void ScenarioRun::Act(const ScenarioLine& line) {
  RefuseUnclaimed();
  seenAtLine_ = line.number;
  UserDriver& user = User();
  if (line.verb == "type")
    return TypeText(line);
  if (line.verb == "key")
    return user.PressKey(*StrokeNamed(line.arguments[0]));
  if (line.verb == "paste")
    return user.Paste(FromUtf8(Argument(line, 0)));
  if (line.verb == "close")
    return user.CloseWindow(static_cast<int>(*ParseNumber(line.arguments[0])));
  Control& control = ControlNamed(line.arguments[0]);
  if (line.verb == "focus")
    return user.PressMouse(control);
  if (line.verb == "click")
    return user.Click(control);
  if (control.Kind() != ControlKind::DropDownList && control.Kind() != ControlKind::ListBox)
    Senseless("\"" + control.Name() + "\" is no list");
  auto& list = static_cast<ListControl&>(control);
  const std::string wanted = FromUtf8(Argument(line, 1));
  for (int row = 0; row < list.ListCount(); ++row)
    if (list.List(row) == wanted)
      return user.Choose(list, row);
  Fail("a row \"" + Argument(line, 1) + "\" in " + control.Name(), "no such row");
}

void ScenarioRun::TypeText(const ScenarioLine& line) {
  const std::string text = FromUtf8(Argument(line, 0));
  for (size_t i = 0; i < text.size(); ++i) {
    if (form_ == nullptr || !form_->IsUp())
      Fail("a form to type into", "the form was closed before \"" + ToUtf8(text.substr(i)) + "\"");
    if (text[i] == '\t')
      user_->PressKey(*StrokeNamed("Tab"));
    else
      user_->Type(text[i]);
  }
}

void ScenarioRun::Fail(const std::string& expected, const std::string& seen) const {
  throw ScenarioFailure{.line = current_ == nullptr ? 0 : current_->number, .expected = expected, .seen = seen};
}

void ScenarioRun::Senseless(const std::string& reason) const {
  throw ScenarioError(scenario_.name, current_->number, reason);
}

UserDriver& ScenarioRun::User() const {
  if (user_ == nullptr || form_ == nullptr || !form_->IsUp())
    Fail("a form to be open", "no form is open");
  return *user_;
}

Control& ScenarioRun::ControlNamed(const std::string& name) const {
  User();
  if (Control* control = form_->FindControl(name))
    return *control;
  std::string names;
  for (const Control* control : form_->Controls()) names.append(names.empty() ? "" : ", ").append(control->Name());
  Senseless("\"" + form_->Name() + "\" has no control \"" + name + "\"; it has " + names);
}

std::string ScenarioRun::Argument(const ScenarioLine& line, size_t i) const {
  constexpr std::string_view kFolder = "$TMP";
  std::string argument = line.arguments[i];
  const std::string folder = folder_.Path().string();
  for (size_t at = argument.find(kFolder); at != std::string::npos; at = argument.find(kFolder, at + folder.size()))
    argument.replace(at, kFolder.size(), folder);
  return argument;
}

}  // namespace fiscalon
