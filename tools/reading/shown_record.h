#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/launch.h"
#include "core/records/pc4_records.h"
#include "core/records/record_layout.h"
#include "core/records/record_line.h"
#include "core/wording/wording.h"

namespace fiscalon {

/// What a field's text was understood as.
enum class Sense {
  /// Nothing stands in it.
  Blank,
  Text,
  /// An amount in cents; its meaning is dollars, "123.45".
  Cents,
  /// The same of an amount that has no cents.
  Dollars,
  /// A free-format value of digits, on a screen that is not known: cents in most fields, a plain count in some. Its
  /// meaning is that of cents.
  Digits,
  /// A whole number that is no amount; its meaning has no zeros in front.
  Count,
  /// "2026-12-31"
  Date,
  /// "2026-12"
  Month,
  /// "2026"
  Year,
  /// A free-format field number; its meaning is the field's name on the screen, where that is known.
  FieldNumber,
  /// The record ends before the field, or inside it.
  Missing,
  /// It should be one of these and is not.
  Wrong,
};

/// One field of a record. Columns count from 1, both ends included.
struct ShownField {
  std::string_view name = {};
  int from = 0;
  int to = 0;
  Sense sense = Sense::Blank;
  /// What a field number stands for on the screen; empty where that is not known.
  std::string_view nameOnScreen = {};
  /// The number of the record since which the same stands in this field of the records of the kind, and is understood
  /// so; 0 where that is not known.
  uint64_t since = 0;
};

/// Something to be said of a record, in words for the user. Columns 0 mean the record as a whole.
struct Note {
  int from = 0;
  int to = 0;
  /// What it quotes of the record stands in it as it is.
  Wording text = {};

  /// The words to be shown, in UTF-8.
  std::string In(const Language& language) const;
};

/// The longest line that is held whole. No record comes near it.
inline constexpr size_t kLongestLine = 4096;

/// One record, one line that is none, or one invoice of a collection, taken apart.
struct ShownRecord {
  uint64_t number = 0;
  /// In the code page; only its beginning where the line is too long to be held.
  std::string record = {};
  /// How many characters it has in truth.
  uint64_t length = 0;
  /// Whether it is a record at all; the rest stays empty for a line that is none.
  bool isRecord = false;
  /// Whether it is an invoice, which a collection holds in three texts, without head or kind. They are its fields, and
  /// its columns count from the date's.
  bool isInvoice = false;
  /// What stands in column 8.
  RecordKind kind = {};
  /// What lies behind the head, in order.
  std::vector<ShownField> fields = {};
  std::vector<Note> problems = {};
  /// What is out of the common, though screens write it so: nothing is wrong with it.
  std::vector<Note> oddities = {};

  /// Whether the fields stand where the table of the kind has them.
  bool FollowsTable() const { return isRecord && length <= kRecordLength; }
  /// What stands in columns 4-7; empty for a line that is no record.
  std::string_view Seq() const;
  /// In the code page.
  std::string_view TextOf(const ShownField& field) const {
    return TextIn(record, {.from = field.from, .to = field.to, .name = {}, .fill = Fill::Blank});
  }
};

/// Takes the lines of a record file apart. `screen` tells what the fields are; it may be null.
std::vector<ShownRecord> TakeApart(std::string_view bytes, const LaunchRow* screen);

/// The same for whole records without quotes, and for what a screen hands back.
std::vector<ShownRecord> TakeApart(const std::vector<std::string>& records, const LaunchRow* screen);
std::vector<ShownRecord> TakeApart(const PC4s& records, const LaunchRow* screen);

/// "government format" for "T"; empty for an unknown letter.
std::string_view NameOf(RecordKind kind);

}  // namespace fiscalon
