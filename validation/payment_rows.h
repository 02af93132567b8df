#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <list>
#include <string>
#include <string_view>

#include "validation/byte_source.h"
#include "validation/quick_digits.h"

namespace fiscalon {

inline constexpr std::string_view kPaymentsHeader = "seq,screen,biller,amount";

/// One row of a payments list. Texts are in Windows-1252.
struct PaymentRow {
  std::string_view seq = {};
  std::string_view screen = {};
  std::string_view biller = {};
  int64_t cents = 0;
};

/// Reads a whole number of cents. What is wrong with it, empty where nothing is; then `cents` is 0.
std::string ReadCents(std::string_view text, int64_t& cents);

/// Reads rows one by one out of a stretch of a payments list: CSV in UTF-8, fields in quotes where need be.
class RowReader {
 public:
  /// Begins a stretch.
  void Read(std::string_view bytes);

  /// Reads the next row if it has the usual form, like "0001,03,001052,12345"; else reads nothing.
  bool NextQuickly(PaymentRow& row);

  /// Reads the next row if it has the usual form and says that, whatever its biller; else reads nothing. The texts are
  /// digits.
  bool NextIs(std::string_view seq, std::string_view screen, uint64_t cents);

  /// Reads the next row. What is wrong with it, empty where nothing is; an amount that can't be read is 0.
  std::string Next(PaymentRow& row);

  /// What is left of the stretch.
  std::string_view Rest() const { return rest_; }

 private:
  /// "0001,03," is eight characters; so much as a biller and an amount take must follow, or else the end is near.
  static constexpr size_t kHead = 8;
  static constexpr size_t kRoom = 40;

  std::string_view rest_;
  /// Texts that do not stand in the list as they are.
  std::list<std::string> texts_;
};

/// Hands out the rows of a payments list, in order.
class RowFeed {
 public:
  explicit RowFeed(ByteSource& source) : source_(source), line_(source.LinesBefore() + 1) {}

  /// Whether the list's header comes next.
  bool IsAtStart() const { return source_.IsFromTheStart() && line_ == 1; }

  /// Takes the header. Throws `BatchError` where the list has another one.
  void TakeHeader();

  /// The bytes of the next rows, up to `count`, and in `count` how many they are; other rows may stand behind
  /// them. `storage` holds them where the source does not keep them.
  std::string_view Take(size_t& count, std::string& storage);

  /// The line of the next row, from 1.
  uint64_t Line() const { return line_; }

 private:
  ByteSource& source_;
  uint64_t line_;
};

/// The first one to eight digits of eight characters at their end, with zeros in front.
constexpr uint64_t MovedToTheEnd(uint64_t eight, int digits) {
  const int shift = 8 * (8 - digits);
  return eight << shift | InAllEight('0') >> 8 >> (56 - shift);
}

/// Takes a number of 1 to 15 digits; sixteen characters may be read from there.
inline bool TakeDigits(const char*& at, int64_t& number) {
  static constexpr int64_t kPowersOfTen[] = {1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000};
  number = 0;
  for (int eights = 0; eights < 2; ++eights) {
    const uint64_t eight = LoadEight(at);
    const uint64_t other = OtherThanDigits(eight);
    if (other == 0) {
      number = static_cast<int64_t>(DigitsValue(eight));
      at += 8;
      continue;
    }
    const int digits = std::countr_zero(other) / 8;
    if (digits > 0) {
      number = number * kPowersOfTen[digits] + static_cast<int64_t>(DigitsValue(MovedToTheEnd(eight, digits)));
      at += digits;
    }
    return eights > 0 || digits > 0;
  }
  return false;
}

/// Takes a number of 1 to 15 digits if it is that one; with zeros in front it may be left. Sixteen characters may be
/// read from there.
inline bool TakeNumber(const char*& at, uint64_t number) {
  if (number > 99'999'999) {
    int64_t taken = 0;
    return TakeDigits(at, taken) && static_cast<uint64_t>(taken) == number;
  }
  const uint64_t eight = LoadEight(at);
  const uint64_t other = OtherThanDigits(eight);
  const int digits = other == 0 ? 8 : std::countr_zero(other) / 8;
  if (digits == 0)
    return false;
  at += digits;
  return DigitsValue(MovedToTheEnd(eight, digits)) == number;
}

/// Takes a biller, which is empty or six digits, and the comma behind it.
inline bool TakeBiller(const char*& at, std::string_view& biller) {
  constexpr uint64_t kSix = 0x0000FFFFFFFFFFFFu;
  const char* const start = at;
  if (*at != ',') {
    if (at[6] != ',' || !AreDigits((LoadEight(at) & kSix) | (InAllEight('0') & ~kSix)))
      return false;
    at += 6;
  }
  biller = {start, static_cast<size_t>(at - start)};
  ++at;
  return true;
}

inline bool TakeRowEnd(const char*& at) {
  at += *at == '\r' ? 1 : 0;
  return *at++ == '\n';
}

inline bool RowReader::NextQuickly(PaymentRow& row) {
  if (rest_.size() < kRoom)
    return false;
  const char* const start = rest_.data();
  const char* at = start + kHead;
  constexpr uint64_t kSeparators = uint64_t{0xFF} << 32 | uint64_t{0xFF} << 56;
  const uint64_t head = LoadEight(start);
  if ((head & kSeparators) != (InAllEight(',') & kSeparators) ||
      !AreDigits((head & ~kSeparators) | (InAllEight('0') & kSeparators)))
    return false;
  row.seq = {start, 4};
  row.screen = {start + 5, 2};
  int64_t cents = 0;
  if (!TakeBiller(at, row.biller) || !TakeDigits(at, cents) || !TakeRowEnd(at))
    return false;
  row.cents = cents;
  rest_.remove_prefix(static_cast<size_t>(at - start));
  return true;
}

inline bool RowReader::NextIs(std::string_view seq, std::string_view screen, uint64_t cents) {
  if (rest_.size() < kRoom)
    return false;
  const char* const start = rest_.data();
  const char* at = start + kHead;
  if (std::memcmp(start, seq.data(), 4) != 0 || start[4] != ',' || std::memcmp(start + 5, screen.data(), 2) != 0 ||
      start[7] != ',')
    return false;
  std::string_view biller;
  if (!TakeBiller(at, biller) || !TakeNumber(at, cents) || !TakeRowEnd(at))
    return false;
  rest_.remove_prefix(static_cast<size_t>(at - start));
  return true;
}

}  // namespace fiscalon
