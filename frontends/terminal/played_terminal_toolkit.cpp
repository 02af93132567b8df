#include "frontends/terminal/played_terminal_toolkit.h"

#include <poll.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <vector>

#include "core/forms/among.h"
#include "frontends/played/seen_things.h"
#include "frontends/terminal/box_window.h"
#include "frontends/terminal/form_window.h"
#include "frontends/terminal/key_bytes.h"
#include "frontends/terminal/terminal.h"
#include "frontends/terminal/terminal_driver.h"
#include "frontends/terminal/virtual_terminal.h"
#include "frontends/terminal/windows.h"

namespace fiscalon {

struct PlayedTerminalToolkit::State {
  explicit State(terminal::Size size) : users(size) {}

  terminal::VirtualTerminal users;
  terminal::Terminal programs{
      users.ProgramsSide(), users.ProgramsSide(), {.name = "xterm-256color"}, terminal::Terminal::Signals::LeftAlone};
  terminal::Windows windows;
  std::vector<terminal::FormWindow*> forms;
  size_t sent = 0;

  /// Until what was sent has been read, and what came of it has been written and is seen.
  void Settle(std::string_view bytes);

 private:
  void Wait(bool hasMoreToSend) const;
};

void PlayedTerminalToolkit::State::Settle(std::string_view bytes) {
  programs.Enter();
  while (true) {
    const size_t gone = bytes.empty() ? 0 : users.Send(bytes);
    bytes.remove_prefix(gone);
    sent += gone;
    programs.Work();
    const bool allIsRead = bytes.empty() && programs.BytesRead() == sent;
    // The driver knows what a program can only guess: whether more comes at once.
    if (allIsRead)
      programs.NothingFollows();
    while (const auto input = programs.Next()) windows.Take(*input, programs.Extent());
    const bool isShown = programs.Show(windows.Drawn(programs.Extent())) && !programs.IsWriting();
    users.Receive();
    // A box may have come and gone in between, and with it have read what was sent for it.
    if (isShown && bytes.empty() && programs.BytesRead() == sent && users.BytesReceived() == programs.BytesWritten())
      return;
    Wait(!bytes.empty());
  }
}

void PlayedTerminalToolkit::State::Wait(bool hasMoreToSend) const {
  constexpr int kLongest = 20'000;
  std::array<pollfd, 2> waiting = {pollfd{.fd = users.ProgramsSide(), .events = POLLIN, .revents = 0},
                                   pollfd{.fd = users.UsersSide(), .events = POLLIN, .revents = 0}};
  if (hasMoreToSend)
    waiting[1].events |= POLLOUT;
  if (::poll(waiting.data(), waiting.size(), kLongest) == 0)
    throw std::runtime_error("the pseudo-terminal passes nothing on");
}

PlayedTerminalToolkit::PlayedTerminalToolkit(terminal::Size size) : state_(std::make_unique<State>(size)) {}
PlayedTerminalToolkit::~PlayedTerminalToolkit() = default;

terminal::FormWindow* PlayedTerminalToolkit::Window() const {
  return state_->forms.empty() ? nullptr : state_->forms.back();
}

const terminal::Screen& PlayedTerminalToolkit::Seen() const {
  return state_->users.Seen();
}

void PlayedTerminalToolkit::Send(std::string_view bytes) {
  state_->Settle(bytes);
}

void PlayedTerminalToolkit::Resize(terminal::Size size) {
  state_->users.Resize(size);
  state_->Settle({});
}

void PlayedTerminalToolkit::ServeModal(Form& form) {
  if (Watcher() != nullptr)
    Watcher()->Opened(form);
  terminal::FormWindow window(form, Watcher());
  window.onHandler = [this](std::string_view object, std::string_view event) { HandlerRuns(object, event); };
  const terminal::Windows::Up up(state_->windows, window);
  const Among listed(state_->forms, window);
  state_->Settle({});
  terminal::TerminalDriver user(*this, form, window);
  Drive(form, user);
}

MessageAnswer PlayedTerminalToolkit::ShowMessage(const BoxRequest& box) {
  terminal::BoxWindow window(box, std::string(kApplicationTitle));
  const terminal::Windows::Up up(state_->windows, window);
  state_->Settle({});
  const MessageAnswer answer = AnswerTo(window.Read(Seen()));
  const terminal::Point place = window.PlaceOf(answer);
  state_->Settle(terminal::BytesOf(terminal::MouseAct::Press, place));
  if (!window.Answer())
    throw std::runtime_error("the box has no button for its answer");
  return Answered(box, *window.Answer());
}

}  // namespace fiscalon
