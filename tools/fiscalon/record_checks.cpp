#include "tools/fiscalon/record_checks.h"

#include <algorithm>

#include "core/records/record_reader.h"
#include "core/values/text.h"
#include "tools/fiscalon/visible_text.h"

namespace fiscalon {
namespace {

bool HasKnownKind(std::string_view record) {
  return !LayoutOf(KindOf(record)).empty();
}

/// Whether a character of two or more bytes of UTF-8 stands in the text.
bool HoldsUtf8(std::string_view text) {
  for (size_t i = 0; i + 1 < text.size(); ++i) {
    const auto first = static_cast<unsigned char>(text[i]);
    const auto second = static_cast<unsigned char>(text[i + 1]);
    if (first >= 0xC2 && first <= 0xF4 && (second & 0xC0) == 0x80)
      return true;
  }
  return false;
}

std::string NameOfControl(char character) {
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  if (character == '\0')
    return "NUL";
  if (character == '\t')
    return "a tab";
  if (character == '\r')
    return "CR, half of a line end";
  const auto code = static_cast<unsigned char>(character);
  return std::string("control character 0x") + kHexDigits[code >> 4] + kHexDigits[code & 0xF];
}

void CheckLength(std::string_view record, const PlacedFields& placed, std::vector<Note>& problems) {
  if (record.size() == kRecordLength || record.size() == placed.Length())
    return;
  const std::string is = std::to_string(record.size()) + " characters long, not " + std::to_string(kRecordLength);
  if (record.size() < kRecordLength)
    problems.push_back({.text = is + ": " + std::to_string(kRecordLength - record.size()) + " short"});
  else
    problems.push_back({.text = is + ": " + std::to_string(record.size() - kRecordLength) + " too many" +
                                (HoldsUtf8(record) ? "; it holds UTF-8, and records are in Windows-1252" : "")});
}

void CheckControlCharacters(std::string_view record, std::vector<Note>& problems) {
  constexpr size_t kMostNamed = 5;
  size_t found = 0;
  for (size_t i = 0; i < record.size(); ++i) {
    if (!IsControlCharacter(record[i]))
      continue;
    const int column = static_cast<int>(i) + 1;
    if (++found <= kMostNamed)
      problems.push_back({.from = column, .to = column, .text = NameOfControl(record[i])});
  }
  if (found > kMostNamed)
    problems.push_back({.text = "and " + Counted(found - kMostNamed, "more control character")});
}

void CheckHead(std::string_view record, std::vector<Note>& problems) {
  const std::string_view mark = TextIn(record, kRecordHead.front());
  if (mark != kRecordMark)
    problems.push_back({.from = kRecordHead.front().from,
                        .to = kRecordHead.front().to,
                        .text = DottedText(mark) + " stands where \"" + std::string(kRecordMark) + "\" should"});
  const RecordField kind = FieldNamed(kRecordHead, "Kind");
  if (!HasKnownKind(record))
    problems.push_back(
        {.from = kind.from,
         .to = kind.to,
         .text = "unknown record kind " + DottedText(TextIn(record, kind)) + "; the kinds are T, F, G, P, R and I"});
}

void SayWhatForeignLineIs(std::string_view record, std::vector<Note>& problems) {
  constexpr size_t kMostQuoted = 20;
  if (record.empty())
    problems.push_back({.text = "the line is empty"});
  else if (record.starts_with(kRecordMark))
    problems.push_back({.text = "no record: " + Counted(record.size(), "character") + ", and the head alone takes " +
                                std::to_string(kHeadLength)});
  else
    problems.push_back({.text = "no record: the line begins with \"" + VisibleText(record.substr(0, kMostQuoted)) +
                                "\", not with \"" + std::string(kRecordMark) + "\""});
}

/// Whether the body of a "G" record stands in it, alone or behind slots.
bool HoldsDetails(const ShownRecord& record) {
  return std::any_of(record.fields.begin(), record.fields.end(),
                     [](const ShownField& field) { return field.name == "Details"; });
}

}  // namespace

bool LooksLikeRecord(std::string_view record) {
  return HasRecordHead(record) || (record.size() == kRecordLength && HasKnownKind(record));
}

void CheckLine(const RecordLine& line, std::vector<Note>& problems) {
  if (line.hasByteOrderMark)
    problems.push_back({.text = "a byte-order mark stands in front; record files are plain Windows-1252"});
  if (line.opensWithQuote && !line.closesWithQuote)
    problems.push_back({.text = "no closing quote; a line end inside the record would cut it in two"});
  if (line.closesWithQuote && !line.opensWithQuote)
    problems.push_back({.text = "no opening quote"});
  if (line.opensWithQuote && line.end == LineEnd::None)
    problems.push_back({.text = "no CR LF behind it; the file may have been cut off"});
}

void CheckRecord(std::string_view record, const PlacedFields& placed, std::vector<Note>& problems) {
  if (!LooksLikeRecord(record))
    return SayWhatForeignLineIs(record, problems);
  CheckLength(record, placed, problems);
  CheckHead(record, problems);
  CheckControlCharacters(record, problems);
}

Note NoteOf(const Overrun& overrun) {
  const RecordField& place = overrun.place;
  std::string text;
  switch (overrun.kind) {
    case Overrun::Kind::LongNumber:
      text = std::string(place.name) + ": a minus sign and " + Counted(place.Width() - 1, "digit") + " take " +
             Counted(static_cast<size_t>(overrun.shift), "column") +
             " more than the field has; what follows stands as " + "much further right";
      break;
    case Overrun::Kind::JoinedDetails:
      text = "the body of a G record stands behind " + Counted(overrun.slotCount, "slot") +
             ", as the collection of the generic remittance screen has it";
      break;
  }
  return {.from = place.from, .to = place.to, .text = text};
}

void OrderCheck::Follow(ShownRecord& record) {
  if (!inPayment_ || record.seq != seq_)
    *this = OrderCheck();
  const bool first = !inPayment_;
  inPayment_ = true;
  seq_ = record.seq;
  if (record.kind == RecordKind::Government) {
    if (!first)
      record.problems.push_back({.text = hasGovernment_ ? "a second T record in the payment; there is one, and first"
                                                        : "a T record behind others; it comes first in its payment"});
    // What follows is judged from here, so that one record out of place is one problem.
    hasGovernment_ = true;
    hasDetails_ = false;
    lastNumber_.clear();
    return;
  }
  const bool needsGovernment = record.kind == RecordKind::FreeFormat || record.kind == RecordKind::GenericDetails;
  if (needsGovernment && first)
    record.problems.push_back({.text = "no T record before it; a payment with F or G records begins with one"});
  if (record.kind == RecordKind::FreeFormat) {
    if (hasDetails_)
      record.problems.push_back({.text = "an F record behind a G record"});
    CheckFieldNumbers(record);
  }
  hasDetails_ = hasDetails_ || HoldsDetails(record);
}

void OrderCheck::CheckFieldNumbers(ShownRecord& record) {
  constexpr std::string_view kNoNumber = "00";
  std::string number;
  bool numberIsBlank = false;
  for (const ShownField& field : record.fields) {
    if (field.name == "FieldNum") {
      number = field.sense == Sense::FieldNumber && field.text != kNoNumber ? field.text : "";
      numberIsBlank = field.sense == Sense::Blank;
      if (number.empty())
        continue;
      if (number <= lastNumber_)
        record.problems.push_back(
            {.from = field.from,
             .to = field.to,
             .text = "field number " + number + " behind " + lastNumber_ + "; a payment's field numbers go up"});
      lastNumber_ = number;
    } else if (field.name == "FieldValue" && numberIsBlank && field.sense != Sense::Blank &&
               field.sense != Sense::Missing) {
      record.problems.push_back({.from = field.from, .to = field.to, .text = "a value without a field number"});
    }
  }
}

}  // namespace fiscalon
