#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/launch.h"
#include "core/records/pc4_records.h"
#include "core/records/record_layout.h"

namespace fiscalon {

/// What a field's text was understood as.
enum class Sense {
  /// Nothing stands in it.
  Blank,
  Text,
  /// An amount in cents; its meaning is dollars, "123.45".
  Cents,
  /// A free-format value of digits: cents in most fields, a plain count in some. Its meaning is that of cents.
  Digits,
  /// "2026-12-31"
  Date,
  /// "2026-12"
  Month,
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
  /// In the code page.
  std::string text = {};
  Sense sense = Sense::Blank;
  /// UTF-8, the same under any locale; empty where there is none.
  std::string meaning = {};
};

/// Something to be said of a record, in words for the user (UTF-8). Columns 0 mean the record as a whole.
struct Note {
  int from = 0;
  int to = 0;
  std::string text = {};
};

/// One record, one line that is none, or one invoice of a collection, taken apart.
struct ShownRecord {
  size_t number = 0;
  /// In the code page.
  std::string record = {};
  /// Whether it is a record at all; the rest stays empty for a line that is none.
  bool isRecord = false;
  /// Whether it is an invoice, which a collection holds in three texts, without head or kind. They are its fields, and
  /// its columns count from the date's.
  bool isInvoice = false;
  /// What stands in column 8 and in columns 4-7.
  RecordKind kind = {};
  std::string seq = {};
  /// What lies behind the head, in order.
  std::vector<ShownField> fields = {};
  std::vector<Note> problems = {};
  /// What is out of the common, though screens write it so: nothing is wrong with it.
  std::vector<Note> oddities = {};
};

/// Takes the lines of a record file apart. `screen` names the fields; it may be null.
std::vector<ShownRecord> TakeApart(std::string_view bytes, const LaunchRow* screen);

/// The same for whole records without quotes, and for what a screen hands back.
std::vector<ShownRecord> TakeApart(const std::vector<std::string>& records, const LaunchRow* screen);
std::vector<ShownRecord> TakeApart(const PC4s& records, const LaunchRow* screen);

/// How many problems, and how many oddities, there are.
size_t ProblemsIn(const std::vector<ShownRecord>& records);
size_t OdditiesIn(const std::vector<ShownRecord>& records);

/// "government format" for "T"; empty for an unknown letter.
std::string_view NameOf(RecordKind kind);

}  // namespace fiscalon
