#include "frontends/terminal/terminal_description.h"

#define NCURSES_NOMACROS
#include <curses.h>
#include <term.h>

#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace fiscalon::terminal {
namespace {

constexpr std::string_view kAskFor =
    "\x1B[?2004h"             // pastes between marks
    "\x1B[?1002h\x1B[?1006h"  // the mouse, with places of any size
    "\x1B[>4;1m\x1B[>1u";     // keys with modifiers, by either protocol
constexpr std::string_view kTakeBack =
    "\x1B[<u\x1B[>4m"
    "\x1B[?1006l\x1B[?1002l"
    "\x1B[?2004l";

/// The terminal that is asked about, while it is asked.
class Asked {
 public:
  explicit Asked(const std::string& name) {
    int status = 0;
    if (::setupterm(name.c_str(), 1, &status) != 0)
      throw std::runtime_error(Complaint(name, status));
    asked_ = ::cur_term;
  }
  ~Asked() { ::del_curterm(asked_); }
  Asked(const Asked&) = delete;
  Asked& operator=(const Asked&) = delete;

  static std::string Text(const char* capability) {
    const char* const text = ::tigetstr(capability);
    // Minus one is the answer for what is no text.
    return text == nullptr || reinterpret_cast<intptr_t>(text) == -1 ? std::string() : WithoutDelays(text);
  }
  static int Number(const char* capability) { return ::tigetnum(capability); }

 private:
  static std::string Complaint(const std::string& name, int status) {
    if (status < 0)
      return "the terminal database is missing; it comes with ncurses";
    return "the terminal \"" + name + "\" is not known here; set TERM to one that is, such as xterm-256color";
  }

  /// Delays were for terminals that could not keep up.
  static std::string WithoutDelays(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
      if (const size_t end = text.find('>'); text.starts_with("$<") && end != std::string_view::npos) {
        text.remove_prefix(end + 1);
        continue;
      }
      plain += text.front();
      text.remove_prefix(1);
    }
    return plain;
  }

  TERMINAL* asked_ = nullptr;
};

std::string Colour(const std::string& capability, int colour) {
  return capability.empty() ? std::string() : ::tiparm(capability.c_str(), colour);
}

}  // namespace

TerminalDescription::TerminalDescription(const std::string& name, Colours colours) {
  const Asked asked(name);
  cursorTo_ = Asked::Text("cup");
  if (cursorTo_.empty())
    throw std::runtime_error("the terminal \"" + name +
                             "\" can't place its cursor; set TERM to what it really is, such as xterm-256color");
  clear = Asked::Text("clear");
  showCursor = Asked::Text("cnorm");
  hideCursor = Asked::Text("civis");
  ring = Asked::Text("bel");
  plain_ = Asked::Text("sgr0");
  bold_ = Asked::Text("bold");
  underline_ = Asked::Text("smul");
  reverse_ = Asked::Text("rev");
  faint_ = Asked::Text("dim");
  const int count = Asked::Number("colors");
  if (const std::string setColour = Asked::Text("setaf"); colours == Colours::Yes && count >= 8) {
    constexpr int kRed = 1;
    constexpr int kCyan = 6;
    constexpr int kGrey = 8;
    if (count > kGrey)
      faint_ = Colour(setColour, kGrey);
    accent_ = Colour(setColour, kCyan);
    alarm_ = Colour(setColour, kRed);
  }
  enter = Asked::Text("smcup");
  leave = Asked::Text("rmcup");
  // The system's own console takes what it does not know for text.
  if (!Asked::Text("kmous").empty() && !std::string_view(name).starts_with("linux")) {
    enter += kAskFor;
    leave.insert(0, kTakeBack);
  }
  // Without a screen of our own there is nothing to go back to.
  if (Asked::Text("rmcup").empty())
    leave += clear;
  leave.insert(0, plain_);
  leave += showCursor;
  if (const Size size = {.width = Asked::Number("cols"), .height = Asked::Number("lines")};
      size.width > 0 && size.height > 0)
    usualSize = size;
}

std::string TerminalDescription::CursorTo(Point point) const {
  return ::tiparm(cursorTo_.c_str(), point.y, point.x);
}

std::string TerminalDescription::Look(Style style) const {
  std::string look = plain_;
  if (style.bold)
    look += bold_;
  if (style.underline)
    look += underline_;
  if (style.reverse)
    look += reverse_;
  switch (style.ink) {
    case Ink::Normal:
      break;
    case Ink::Faint:
      look += faint_;
      break;
    case Ink::Accent:
      look += accent_;
      break;
    case Ink::Alarm:
      look += alarm_;
      break;
  }
  return look;
}

}  // namespace fiscalon::terminal
