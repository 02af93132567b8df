#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace fiscalon {

/// What a text of a known length is like: between which two each of its characters lies. Where nothing else is put,
/// that is any character but those for control.
template <size_t kLength>
class Stencil {
 public:
  constexpr Stencil() {
    lowest_.fill(' ');
    highest_.fill(0xFF);
  }

  constexpr void Put(size_t at, std::string_view lowest, std::string_view highest) {
    for (size_t i = 0; i < lowest.size(); ++i) {
      lowest_[at + i] = static_cast<unsigned char>(lowest[i]);
      highest_[at + i] = static_cast<unsigned char>(highest[i]);
    }
  }
  constexpr void Put(size_t at, std::string_view text) { Put(at, text, text); }

  constexpr size_t Length() const { return kLength; }
  constexpr const unsigned char* Lowest(size_t at) const { return lowest_.data() + at; }
  constexpr const unsigned char* Highest(size_t at) const { return highest_.data() + at; }

 private:
  std::array<unsigned char, kLength> lowest_ = {};
  std::array<unsigned char, kLength> highest_ = {};
};

/// Characters that are looked at in one step: compilers know such vectors, whatever the processor has for them.
using Sixteen = unsigned char __attribute__((vector_size(16)));

inline Sixteen LoadSixteen(const void* text) {
  Sixteen sixteen;
  std::memcpy(&sixteen, text, sizeof sixteen);
  return sixteen;
}

inline Sixteen Smaller(Sixteen one, Sixteen other) {
  return one < other ? one : other;
}

/// Has the processor fetch what is looked at a little later: it would do so by itself, but stops at each page.
template <size_t kBytes>
void FetchAhead(const char* at) {
  constexpr size_t kAhead = 8192;
  constexpr size_t kCacheLine = 64;
  for (size_t line = 0; line < kBytes; line += kCacheLine) __builtin_prefetch(at + kAhead + line);
}

/// What is known of a text after some steps.
struct Seen {
  /// The smallest characters where any may stand but those for control.
  Sixteen smallest = Sixteen{} + 0xFF;
  /// Not 0 where a character lies outside of its two.
  Sixteen outside = {};
};

template <const auto& kStencil, size_t kAt>
inline void LookAtSixteen(const char* text, Seen& seen) {
  constexpr bool kIsFree = [] {
    for (size_t i = kAt; i < kAt + sizeof(Sixteen); ++i)
      if (*kStencil.Lowest(i) != ' ' || *kStencil.Highest(i) != 0xFF)
        return false;
    return true;
  }();
  const Sixteen characters = LoadSixteen(text + kAt);
  if constexpr (kIsFree) {
    seen.smallest = Smaller(seen.smallest, characters);
  } else {
    const Sixteen lowest = LoadSixteen(kStencil.Lowest(kAt));
    const Sixteen above = characters - lowest;
    seen.outside |= above ^ Smaller(above, LoadSixteen(kStencil.Highest(kAt)) - lowest);
  }
}

/// Whether a text is like that. Each step is compiled for its part of the stencil; the last overlaps the one before.
template <const auto& kStencil>
inline bool Fits(const char* text) {
  constexpr size_t kWidth = sizeof(Sixteen);
  constexpr size_t kSteps = (kStencil.Length() + kWidth - 1) / kWidth;
  Seen seen;
  [&]<size_t... kStep>(std::index_sequence<kStep...>) {
    (LookAtSixteen<kStencil, std::min(kStep * kWidth, kStencil.Length() - kWidth)>(text, seen), ...);
  }
  (std::make_index_sequence<kSteps>());
  const Sixteen blank = Sixteen{} + ' ';
  const Sixteen wrong = seen.outside | (blank ^ Smaller(seen.smallest, blank));
  std::array<uint64_t, 2> halves = {};
  std::memcpy(halves.data(), &wrong, sizeof wrong);
  return (halves[0] | halves[1]) == 0;
}

}  // namespace fiscalon
