#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>

#include "validation/byte_source.h"

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

  /// Reads the next row. What is wrong with it, empty where nothing is; an amount that can't be read is 0.
  std::string Next(PaymentRow& row);

  /// What is left of the stretch.
  std::string_view Rest() const { return rest_; }

 private:
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

}  // namespace fiscalon
