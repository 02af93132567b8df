#include "frontends/terminal/terminal_toolkit.h"

#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>
#include <utility>

#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "frontends/terminal/box_window.h"
#include "frontends/terminal/form_window.h"
#include "frontends/terminal/help_viewer.h"
#include "frontends/terminal/terminal.h"
#include "frontends/terminal/windows.h"

namespace fiscalon {

struct TerminalToolkit::State {
  terminal::Terminal terminal{STDIN_FILENO, STDOUT_FILENO, terminal::TerminalKind::OfUser()};
  terminal::Windows windows;
  std::string application = "Fiscalon";
  ActWatcher* watcher = nullptr;

  /// Shows what is up and takes in what the user does, until something is so.
  template <class IsOver>
  void Serve(terminal::Window& window, IsOver&& isOver);
  MessageAnswer Ask(const BoxRequest& box);
  void Tell(const Wording& text, MessageStyle style);
};

namespace {

/// Has the terminal for itself; the outermost window gives it back.
class Entered {
 public:
  explicit Entered(terminal::Terminal& terminal) : terminal_(terminal), isOutermost_(!terminal.IsEntered()) {
    terminal_.Enter();
  }
  ~Entered() {
    if (isOutermost_)
      terminal_.Leave();
  }
  Entered(const Entered&) = delete;
  Entered& operator=(const Entered&) = delete;

 private:
  terminal::Terminal& terminal_;
  bool isOutermost_;
};

bool IsKeyWithControl(const terminal::Input& input, int keyCode) {
  const auto* stroke = std::get_if<KeyStroke>(&input);
  return stroke != nullptr && stroke->keyCode == keyCode && stroke->shift == shift_state::kControl;
}

/// Where keys come by number the terminal does not see those that are its own.
bool IsTerminalsOwn(const terminal::Input& input) {
  const std::pair<int, int> own[] = {{'C', SIGINT}, {'Z', SIGTSTP}, {key::kBackslash, SIGQUIT}};
  for (const auto& [keyCode, signal] : own) {
    const auto* stroke = std::get_if<KeyStroke>(&input);
    // Ctrl and the underscore is undo, which has the code of Ctrl+Z and no character.
    if (!IsKeyWithControl(input, keyCode) || (keyCode == 'Z' && stroke->character == 0))
      continue;
    ::kill(0, signal);
    return true;
  }
  return false;
}

}  // namespace

template <class IsOver>
void TerminalToolkit::State::Serve(terminal::Window& window, IsOver&& isOver) {
  const Entered entered(terminal);
  const terminal::Windows::Up up(windows, window);
  while (!isOver()) {
    if (const auto input = terminal.Next()) {
      if (!IsTerminalsOwn(*input))
        windows.Take(*input, terminal.Extent());
      continue;
    }
    terminal.Show(windows.Drawn(terminal.Extent()));
    terminal.WaitForWork();
  }
}

MessageAnswer TerminalToolkit::State::Ask(const BoxRequest& box) {
  terminal::BoxWindow window(box, application);
  Serve(window, [&] { return window.Answer().has_value(); });
  return *window.Answer();
}

void TerminalToolkit::State::Tell(const Wording& text, MessageStyle style) {
  const Language language = windows.ShownIn();
  Ask({.text = text.In(language), .style = style, .language = language});
}

TerminalToolkit::TerminalToolkit() {
  if (const std::string hindrance = Hindrance(); !hindrance.empty())
    throw std::runtime_error(hindrance);
  state_ = std::make_unique<State>();
}

TerminalToolkit::~TerminalToolkit() = default;

std::string TerminalToolkit::Hindrance() {
  if (::isatty(STDIN_FILENO) == 0 || ::isatty(STDOUT_FILENO) == 0)
    return std::string("standard ") + (::isatty(STDIN_FILENO) == 0 ? "input" : "output") +
           " is no terminal; start it in one, without a pipe";
  try {
    const auto kind = terminal::TerminalKind::OfUser();
    const terminal::Terminal tried(STDIN_FILENO, STDOUT_FILENO, kind);
    return {};
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

void TerminalToolkit::NameApplication(const std::string& name) {
  state_->application = name;
}

void TerminalToolkit::Watch(ActWatcher* watcher) {
  state_->watcher = watcher;
}

void TerminalToolkit::ServeModal(Form& form) {
  if (state_->watcher != nullptr)
    state_->watcher->Opened(form);
  terminal::FormWindow window(form, state_->watcher);
  state_->Serve(window, [&] { return !form.IsUp(); });
}

MessageAnswer TerminalToolkit::ShowMessage(const BoxRequest& box) {
  const MessageAnswer answer = state_->Ask(box);
  if (state_->watcher != nullptr)
    state_->watcher->BoxAnswered(box, answer);
  return answer;
}

void TerminalToolkit::Beep() {
  if (state_->watcher != nullptr)
    state_->watcher->Beeped();
  state_->terminal.Beep();
}

void TerminalToolkit::OpenHelp(std::string_view file, int32_t context) {
  if (state_->watcher != nullptr)
    state_->watcher->HelpOpened(file, context);
  const std::string path(file.substr(0, file.find('>')));
  const auto place = Utf8Path(ToUtf8(path));
  std::error_code ignored;
  if (!std::filesystem::exists(place, ignored))
    state_->Tell(Filled("The help file {1} is missing.", AsGiven(path)), MessageStyle::Exclamation);
  else if (const std::string whole = Utf8Of(std::filesystem::absolute(place, ignored)); !terminal::OpenOnDesktop(whole))
    state_->Tell(Filled("The help is in the file {1}.", AsGiven(FromUtf8(whole))), MessageStyle::Information);
}

}  // namespace fiscalon
