#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/records/record_line.h"
#include "validation/expectation.h"

/// Payments as screens write them, as nearly all of a batch are: looked at as a whole, where their lines lie, before it
/// is known what their rows say.
namespace fiscalon {

/// What stands around the 160 characters of a line.
struct LineFrame {
  /// The quotes on each side.
  size_t quotes = 1;
  /// The characters of the line end.
  size_t end = 2;

  constexpr size_t LineLength() const { return quotes + kRecordLength + quotes + end; }
  constexpr std::string_view Front() const { return {&kRecordQuote, quotes}; }
  constexpr std::string_view Back() const {
    constexpr std::string_view kBacks[] = {"\n", "\r\n", "\"\n", "\"\r\n"};
    return kBacks[Index()];
  }
  constexpr size_t Index() const { return quotes * 2 + end - 1; }
};

/// The usual payments of a screen under one frame.
struct UsualForm {
  /// How many lines each has.
  size_t lines = 0;
  /// The amount that a payment is good for, if its lines stand there; `kNoCents` says nothing.
  uint64_t (*goodFor)(const char* lines, const JudgingDay& day) = nullptr;
};

/// Those under each frame, by `LineFrame::Index`.
using UsualForms = std::array<UsualForm, 4>;

}  // namespace fiscalon
