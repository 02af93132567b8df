#include "tools/fiscalon/files/progress_line.h"

#include <cmath>
#include <cstdio>
#include <iostream>

#include "tools/fiscalon/files/terminal.h"

namespace fiscalon {
namespace {

/// With commas between groups of three.
std::string Grouped(uint64_t number) {
  std::string digits = std::to_string(number);
  for (size_t from = digits.size(); from > 3; from -= 3) digits.insert(from - 3, 1, ',');
  return digits;
}

template <typename... Values>
std::string Printed(const char* pattern, Values... values) {
  char text[64];
  std::snprintf(text, sizeof text, pattern, values...);
  return text;
}

}  // namespace

std::string ProgressText(const Progress& progress, double seconds) {
  std::string text = Grouped(progress.count).append(" ").append(progress.things);
  const double share = progress.totalBytes.value_or(0) == 0
                           ? 0
                           : static_cast<double>(progress.bytes) / static_cast<double>(*progress.totalBytes);
  if (share > 0)
    text += Printed("  %.0f %%", share * 100);
  if (seconds > 0)
    text += Printed("  %.1f million a second", static_cast<double>(progress.count) / seconds / 1e6);
  if (share > 0) {
    const auto left = std::lround(seconds / share - seconds);
    text += Printed("  %ld:%02ld left", left / 60, left % 60);
  }
  return text;
}

void WipeProgress() {
  if (ComplaintsAreSeen())
    std::cerr << kWipedLine << std::flush;
}

ProgressLine::ProgressLine() : isShown_(ComplaintsAreSeen()) {}

ProgressLine::~ProgressLine() {
  if (isDirty_)
    WipeProgress();
}

void ProgressLine::Show(const Progress& progress) {
  constexpr auto kPause = std::chrono::milliseconds(200);
  if (!isShown_)
    return;
  const auto now = Clock::now();
  if (now < next_)
    return;
  next_ = now + kPause;
  isDirty_ = true;
  std::cerr << '\r' << ProgressText(progress, std::chrono::duration<double>(now - start_).count()) << "\x1B[K"
            << std::flush;
}

}  // namespace fiscalon
