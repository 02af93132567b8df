#include "frontends/terminal/virtual_terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vterm.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace fiscalon::terminal {
namespace {

Ink InkOf(const VTermColor& colour) {
  constexpr int kRed = 1;
  constexpr int kCyan = 6;
  constexpr int kGrey = 8;
  if (VTERM_COLOR_IS_DEFAULT_FG(&colour) || !VTERM_COLOR_IS_INDEXED(&colour))
    return Ink::Normal;
  return colour.indexed.idx == kGrey   ? Ink::Faint
         : colour.indexed.idx == kCyan ? Ink::Accent
         : colour.indexed.idx == kRed  ? Ink::Alarm
                                       : Ink::Normal;
}

void Close(int& descriptor) {
  if (descriptor >= 0)
    ::close(std::exchange(descriptor, -1));
}

}  // namespace

struct VirtualTerminal::State {
  int usersSide = -1;
  int programsSide = -1;
  VTerm* emulator = nullptr;
  VTermScreen* cells = nullptr;
  Screen seen;
  Point cursor;
  bool showsCursor = true;
  bool isOnOtherScreen = false;
  int rings = 0;
  size_t received = 0;

  ~State() {
    if (emulator != nullptr)
      ::vterm_free(emulator);
    Close(programsSide);
    Close(usersSide);
  }

  void Look(VTermRect rect) {
    for (int y = rect.start_row; y < rect.end_row; ++y)
      for (int x = rect.start_col; x < rect.end_col; ++x) {
        VTermScreenCell cell = {};
        ::vterm_screen_get_cell(cells, {.row = y, .col = x}, &cell);
        seen.Put({x, y}, {.character = cell.chars[0] == 0 ? U' ' : static_cast<char32_t>(cell.chars[0]),
                          .style = {.bold = cell.attrs.bold != 0,
                                    .underline = cell.attrs.underline != 0,
                                    .reverse = cell.attrs.reverse != 0,
                                    .ink = InkOf(cell.fg)}});
      }
  }

  void Attend(Size size) {
    static constexpr VTermScreenCallbacks kCallbacks = {
        .damage =
            [](VTermRect rect, void* self) {
              static_cast<State*>(self)->Look(rect);
              return 1;
            },
        .moverect = nullptr,
        .movecursor =
            [](VTermPos at, VTermPos, int, void* self) {
              static_cast<State*>(self)->cursor = {.x = at.col, .y = at.row};
              return 1;
            },
        .settermprop =
            [](VTermProp property, VTermValue* value, void* self) {
              if (property == VTERM_PROP_CURSORVISIBLE)
                static_cast<State*>(self)->showsCursor = value->boolean != 0;
              if (property == VTERM_PROP_ALTSCREEN)
                static_cast<State*>(self)->isOnOtherScreen = value->boolean != 0;
              return 1;
            },
        .bell =
            [](void* self) {
              ++static_cast<State*>(self)->rings;
              return 1;
            },
        .resize = nullptr,
        .sb_pushline = nullptr,
        .sb_popline = nullptr};
    emulator = ::vterm_new(size.height, size.width);
    ::vterm_set_utf8(emulator, 1);
    cells = ::vterm_obtain_screen(emulator);
    ::vterm_screen_set_callbacks(cells, &kCallbacks, this);
    ::vterm_screen_enable_altscreen(cells, 1);
    ::vterm_screen_set_damage_merge(cells, VTERM_DAMAGE_ROW);
    ::vterm_screen_reset(cells, 1);
  }
};

VirtualTerminal::VirtualTerminal(Size size) : state_(std::make_unique<State>()) {
  std::array<char, 128> name = {};
  state_->usersSide = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  const bool made = state_->usersSide >= 0 && ::grantpt(state_->usersSide) == 0 && ::unlockpt(state_->usersSide) == 0 &&
                    ::ptsname_r(state_->usersSide, name.data(), name.size()) == 0;
  if (made)
    state_->programsSide = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (state_->programsSide < 0)
    throw std::runtime_error("the system has no pseudo-terminal to play on");
  ::fcntl(state_->usersSide, F_SETFL, ::fcntl(state_->usersSide, F_GETFL) | O_NONBLOCK);
  state_->Attend(size);
  Resize(size);
}

VirtualTerminal::~VirtualTerminal() = default;

int VirtualTerminal::ProgramsSide() const {
  return state_->programsSide;
}

int VirtualTerminal::UsersSide() const {
  return state_->usersSide;
}

void VirtualTerminal::LetGoOfProgramsSide() {
  Close(state_->programsSide);
}

void VirtualTerminal::HangUp() {
  Close(state_->usersSide);
}

void VirtualTerminal::Resize(Size size) {
  winsize window = {};
  window.ws_col = static_cast<unsigned short>(size.width);
  window.ws_row = static_cast<unsigned short>(size.height);
  ::ioctl(state_->usersSide, TIOCSWINSZ, &window);
  state_->seen = Screen(size);
  ::vterm_set_size(state_->emulator, size.height, size.width);
  ::vterm_screen_flush_damage(state_->cells);
  state_->Look({.start_row = 0, .end_row = size.height, .start_col = 0, .end_col = size.width});
}

size_t VirtualTerminal::Send(std::string_view bytes) const {
  const auto sent = ::write(state_->usersSide, bytes.data(), bytes.size());
  return sent > 0 ? static_cast<size_t>(sent) : 0;
}

bool VirtualTerminal::Receive() {
  std::array<char, 8192> bytes = {};
  while (true) {
    const auto count = ::read(state_->usersSide, bytes.data(), bytes.size());
    if (count <= 0) {
      ::vterm_screen_flush_damage(state_->cells);
      return count < 0 && (errno == EAGAIN || errno == EINTR);
    }
    state_->received += static_cast<size_t>(count);
    ::vterm_input_write(state_->emulator, bytes.data(), static_cast<size_t>(count));
  }
}

size_t VirtualTerminal::BytesReceived() const {
  return state_->received;
}

const Screen& VirtualTerminal::Seen() const {
  state_->seen.Cursor(state_->showsCursor ? std::optional(state_->cursor) : std::nullopt);
  return state_->seen;
}

int VirtualTerminal::Rings() const {
  return state_->rings;
}

bool VirtualTerminal::IsOnOtherScreen() const {
  return state_->isOnOtherScreen;
}

}  // namespace fiscalon::terminal
