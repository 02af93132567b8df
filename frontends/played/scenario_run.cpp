#include "frontends/played/scenario_run.h"

#include <filesystem>

#include "core/forms/laid_out.h"
#include "core/found_records.h"
#include "core/launch.h"
#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"

namespace fiscalon {
namespace {

/// The controls of a form by name; for a member that an array does not have, those of the array.
std::string NamesLike(const std::string& name, const Form& form) {
  const std::string array = name.substr(0, name.find('(') + 1);
  std::string all, members;
  for (const Control* control : form.Controls()) {
    all.append(all.empty() ? "" : ", ").append(control->Name());
    if (!array.empty() && control->Name().starts_with(array))
      members.append(members.empty() ? "" : ", ").append(control->Name());
  }
  return members.empty() ? all : members;
}

}  // namespace

ScenarioRun::ScenarioRun(const Scenario& scenario, DrivenToolkit& toolkit, const PlaySettings& settings,
                         const PlayWatcher& watcher)
    : scenario_(scenario), toolkit_(toolkit), watcher_(watcher) {
  ResetModule();
  UseToolkit(&toolkit_);
  UseLocale(settings.locale);
  UseLanguage(settings.language);
  if (settings.today)
    UseFixedClock(*settings.today);
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
    watcher_.ended(Found());
  if (watcher_.folderGoes && folder_.IsMade())
    watcher_.folderGoes(folder_.Path());
}

void ScenarioRun::PlayLine() {
  const ScenarioLine& line = scenario_.lines[next_++];
  current_ = &line;
  if (watcher_.lineBegins)
    watcher_.lineBegins(line);
  BeginTurn(line);
  const std::string statusBefore = Status();
  line.form->play(*this, WithFolder(line.arguments));
  if (const std::string status = Status(); watcher_.statusCame && !status.empty() && status != statusBefore)
    watcher_.statusCame(status);
  if (watcher_.lineEnds)
    watcher_.lineEnds(line, FormIsUp() ? form_ : nullptr);
}

void ScenarioRun::BeginTurn(const ScenarioLine& line) {
  switch (line.form->turn) {
    case Turn::Host:
      if (form_ != nullptr)
        Fail("the form to be closed before \"" + line.verb + "\"", "\"" + shownForm_ + "\" is still open");
      break;
    case Turn::User:
      RefuseUnclaimed();
      seenAtLine_ = line.number;
      User();
      break;
    case Turn::Heading:
    case Turn::Answer:
    case Turn::Watcher:
      break;
  }
}

void ScenarioRun::Show(const std::string& code) {
  RefuseUnclaimed();
  if (error_)
    Fail("no error of the show before", Ending());
  const std::string codeInCodePage = FromUtf8(code);
  const LaunchRow* row = FindLaunchRow(codeInCodePage);
  shownForm_ = row == nullptr ? std::string() : std::string(row->form);
  result_.reset();
  seenAtLine_ = current_->number;
  try {
    result_ = session_->ShowLevyraScreen(codeInCodePage);
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

MessageAnswer ScenarioRun::AnswerBox(const BoxRequest& shown) {
  BoxRequest box = shown;
  // A window has a title in any case; what a box has none of its own bears is the same everywhere.
  if (box.title == kApplicationTitle)
    box.title.clear();
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

bool ScenarioRun::FormIsUp() const {
  return form_ != nullptr && form_->IsUp();
}

std::string ScenarioRun::Status() const {
  return FormIsUp() ? ToUtf8(StatusOf(*form_)) : std::string();
}

UserDriver& ScenarioRun::User() const {
  if (!FormIsUp())
    Fail("a form to be open", "no form is open");
  return *user_;
}

Control& ScenarioRun::ControlNamed(const std::string& name) const {
  User();
  if (Control* control = form_->FindControl(name))
    return *control;
  Senseless("\"" + form_->Name() + "\" has no control \"" + name + "\"; it has " + NamesLike(name, *form_));
}

SeenThing ScenarioRun::Claim(const std::string& expected) {
  if (seen_.empty())
    Fail(expected, "nothing was shown");
  SeenThing first = seen_.front();
  seen_.pop_front();
  return first;
}

void ScenarioRun::RefuseUnclaimed() const {
  if (seen_.empty())
    return;
  throw ScenarioFailure{
      .line = seenAtLine_, .expected = "nothing that no line expects", .seen = Described(seen_.front())};
}

std::string ScenarioRun::Ending() const {
  if (error_)
    return "error " + std::to_string(error_->Number()) + " " + QuotedArgument(ToUtf8(error_->Source())) + " " +
           QuotedArgument(ToUtf8(error_->Description()));
  return result_ ? std::string("result ") + (*result_ ? "True" : "False") : "no screen was shown";
}

FoundRecords ScenarioRun::Found() const {
  FoundRecords found = FindRecords(*session_);
  if (found.foreignLine)
    Fail("each line of the record file in double quotes and ended by CR LF",
         QuotedArgument(ToUtf8(*found.foreignLine)));
  return found;
}

void ScenarioRun::Compare(const std::string& expected, const std::string& seen) const {
  if (expected != seen)
    Fail(expected, seen);
}

void ScenarioRun::CompareTexts(const std::string& expected, std::string_view seenInCodePage) const {
  Compare(QuotedArgument(Comparable(expected)), QuotedArgument(Comparable(ToUtf8(seenInCodePage))));
}

std::string ScenarioRun::Comparable(const std::string& text) {
  std::string plain = WithPlainLineEnds(text);
  // English texts have none of these blanks, so whatever has them is compared to the letter.
  return TheModule().language.IsEnglish() ? plain : WithPlainBlanks(std::move(plain));
}

void ScenarioRun::Fail(const std::string& expected, const std::string& seen) const {
  throw ScenarioFailure{.line = current_ == nullptr ? 0 : current_->number, .expected = expected, .seen = seen};
}

void ScenarioRun::Senseless(const std::string& reason) const {
  throw ScenarioError(scenario_.file, current_->number, reason);
}

Arguments ScenarioRun::WithFolder(Arguments arguments) {
  constexpr std::string_view kFolder = "$TMP";
  for (std::string& argument : arguments) {
    for (size_t at = argument.find(kFolder); at != std::string::npos;) {
      const std::string folder = Utf8Of(folder_.Path());
      argument.replace(at, kFolder.size(), folder);
      at = argument.find(kFolder, at + folder.size());
    }
  }
  return arguments;
}

}  // namespace fiscalon
