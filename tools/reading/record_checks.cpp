#include "tools/reading/record_checks.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "core/records/record_reader.h"
#include "core/values/text.h"
#include "tools/reading/visible_text.h"

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

Wording InDigits(uint64_t number) {
  return AsGiven(std::to_string(number));
}

Wording NameOfControl(char character) {
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  if (character == '\0')
    return "a NUL byte";
  if (character == '\t')
    return "a tab";
  if (character == '\r')
    return "CR, half of a line end";
  const auto code = static_cast<unsigned char>(character);
  return Filled("control character 0x{1}", AsGiven({kHexDigits[code >> 4], kHexDigits[code & 0xF]}));
}

void CheckLength(const ShownRecord& shown, size_t lengthOfFields, std::vector<Note>& problems) {
  const bool isCut = shown.length != shown.record.size();
  if (shown.length == kRecordLength || shown.length == lengthOfFields || isCut)
    return;
  const Wording length = InDigits(shown.length);
  const Wording wanted = InDigits(kRecordLength);
  if (shown.length < kRecordLength)
    problems.push_back({.text = Filled("{1} characters long, not {2}: {3} short", length, wanted,
                                       InDigits(kRecordLength - shown.length))});
  else
    problems.push_back({.text = Filled(HoldsUtf8(shown.record) ? "{1} characters long, not {2}: {3} too many; it holds "
                                                                 "UTF-8, and records are in Windows-1252"
                                                               : "{1} characters long, not {2}: {3} too many",
                                       length, wanted, InDigits(shown.length - kRecordLength))});
}

void CheckControlCharacters(std::string_view record, std::vector<Note>& problems) {
  constexpr size_t kMostNamed = 5;
  if (IsPlain(record))
    return;
  size_t found = 0;
  for (size_t i = 0; i < record.size(); ++i) {
    if (!IsControlCharacter(record[i]))
      continue;
    const int column = static_cast<int>(i) + 1;
    if (++found <= kMostNamed)
      problems.push_back({.from = column, .to = column, .text = NameOfControl(record[i])});
  }
  if (found > kMostNamed)
    problems.push_back(
        {.text = Filled(found == kMostNamed + 1 ? "and {1} more control character" : "and {1} more control characters",
                        InDigits(found - kMostNamed))});
}

void CheckHead(std::string_view record, std::vector<Note>& problems) {
  const std::string_view mark = TextIn(record, kRecordHead.front());
  if (mark != kRecordMark)
    problems.push_back({.from = kRecordHead.front().from,
                        .to = kRecordHead.front().to,
                        .text = Filled(R"("{1}" stands where "{2}" should)", AsGiven(WithDots(mark)),
                                       AsGiven(std::string(kRecordMark)))});
  const RecordField kind = FieldNamed(kRecordHead, "Kind");
  if (!HasKnownKind(record))
    problems.push_back({.from = kind.from,
                        .to = kind.to,
                        .text = Filled("unknown record kind \"{1}\"; the kinds are T, F, G, P, R and I",
                                       AsGiven(WithDots(TextIn(record, kind))))});
}

void SayWhatForeignLineIs(const ShownRecord& shown, std::vector<Note>& problems) {
  constexpr size_t kMostQuoted = 20;
  const std::string_view record = shown.record;
  if (record.empty())
    problems.push_back({.text = "an empty line"});
  else if (record.starts_with(kRecordMark))
    problems.push_back({.text = Filled("no record: {1} characters, and the head alone takes {2}",
                                       InDigits(record.size()), InDigits(kHeadLength))});
  else
    problems.push_back(
        {.text = Filled(R"(no record: the line begins with "{1}", not with "{2}")",
                        AsGiven(std::string(record.substr(0, kMostQuoted))), AsGiven(std::string(kRecordMark)))});
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

void CheckLine(const RecordLine& line, ShownRecord& shown) {
  for (const std::string_view what : WrongAround(line))
    shown.problems.push_back({.text = Filled(what, InDigits(line.record.size()))});
  if (line.opensWithQuote && line.end == LineEnd::None)
    shown.oddities.push_back({.text = "no CR LF behind it, as screens write it; more may have stood there"});
}

void CheckRecord(ShownRecord& shown, size_t lengthOfFields) {
  if (!LooksLikeRecord(shown.record))
    return SayWhatForeignLineIs(shown, shown.problems);
  CheckLength(shown, lengthOfFields, shown.problems);
  CheckHead(shown.record, shown.problems);
  CheckControlCharacters(shown.record, shown.problems);
}

Note NoteOf(const Overrun& overrun) {
  const RecordField& place = overrun.place;
  Wording text;
  switch (overrun.kind) {
    case Overrun::Kind::LongNumber:
      text = Filled(overrun.shift == 1 ? "{1}: a minus sign and {2} digits take {3} column more than the field has; "
                                         "what follows stands as much further right"
                                       : "{1}: a minus sign and {2} digits take {3} columns more than the field has; "
                                         "what follows stands as much further right",
                    AsGiven(std::string(place.name)), InDigits(place.Width() - 1),
                    InDigits(static_cast<size_t>(overrun.shift)));
      break;
    case Overrun::Kind::JoinedDetails:
      text = Filled(overrun.slotCount == 1
                        ? "the body of a G record stands behind {1} slot, as the collection of the generic remittance "
                          "screen has it"
                        : "the body of a G record stands behind {1} slots, as the collection of the generic "
                          "remittance screen has it",
                    InDigits(overrun.slotCount));
      break;
  }
  return {.from = place.from, .to = place.to, .text = text};
}

void OrderCheck::Follow(ShownRecord& record) {
  const bool first = !inPayment_ || record.Seq() != seq_;
  if (first) {
    *this = OrderCheck();
    inPayment_ = true;
    seq_ = record.Seq();
  }
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
  bool numberIsBlank = false;
  for (const ShownField& field : record.fields) {
    if (field.name == "FieldNum") {
      numberIsBlank = field.sense == Sense::Blank;
      const std::string_view number = record.TextOf(field);
      if (field.sense != Sense::FieldNumber || number == kNoNumber)
        continue;
      if (number <= lastNumber_)
        record.problems.push_back({.from = field.from,
                                   .to = field.to,
                                   .text = Filled("field number {1} behind {2}; a payment's field numbers go up",
                                                  AsGiven(std::string(number)), AsGiven(lastNumber_))});
      lastNumber_ = number;
    } else if (field.name == "FieldValue" && numberIsBlank && field.sense != Sense::Blank &&
               field.sense != Sense::Missing) {
      record.problems.push_back({.from = field.from, .to = field.to, .text = "a value without a field number"});
    }
  }
}

}  // namespace fiscalon
