#include "tools/reading/known_fields.h"

#include <algorithm>
#include <bit>

#include "validation/quick_digits.h"

namespace fiscalon {
namespace {

/// Where two records differ first from there on, eight characters at a time; behind the shorter one where they do not.
size_t FirstDifference(std::string_view record, std::string_view other, size_t from) {
  constexpr size_t kEight = sizeof(uint64_t);
  const size_t end = std::min(record.size(), other.size());
  for (; from + kEight <= end; from += kEight)
    if (const uint64_t differ = LoadEight(record.data() + from) ^ LoadEight(other.data() + from); differ != 0)
      return from + static_cast<size_t>(std::countr_zero(differ)) / 8;
  while (from < end && record[from] == other[from]) ++from;
  return from;
}

}  // namespace

void KnownFields::Follow(std::span<const RecordField> rows, const LaunchRow* screen, ShownRecord& shown) {
  if (roles_.empty())
    for (const RecordField& row : rows) roles_.push_back(RoleOf(row.name));
  fields_.resize(rows.size());
  slots_.resize(rows.size());
  const size_t problems = shown.problems.size();
  size_t differs = FirstDifference(shown.record, record_, rows.front().Offset());
  for (size_t i = 0; i < rows.size(); ++i) {
    const auto end = static_cast<size_t>(rows[i].to);
    const bool isSameText = differs >= end;
    // A value is read as the number in front of it tells.
    const size_t number = roles_[i] == Role::FieldValue ? i - 1 : i;
    if (isSameText && fields_[number].since != shown.number)
      continue;
    ShownField field = UnderstandField(shown.record, rows[i], roles_[i], screen, slots_[number], shown.problems);
    const bool isSame = isSameText && field.sense == fields_[i].sense && field.nameOnScreen == fields_[i].nameOnScreen;
    field.since = isSame ? fields_[i].since : shown.number;
    fields_[i] = field;
    if (!isSameText)
      differs = FirstDifference(shown.record, record_, end);
  }
  shown.fields = fields_;
  if (shown.problems.size() == problems)
    record_ = shown.record;
  else
    record_.clear();
}

}  // namespace fiscalon
