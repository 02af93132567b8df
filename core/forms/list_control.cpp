#include "core/forms/list_control.h"

#include <algorithm>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/form_misuse.h"
#include "core/platform/code_page.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {
namespace {

bool BeginsWith(std::string_view row, std::string_view text) {
  // A blank that ends no line is typed as any other.
  const auto plain = [](char c) { return c == '\xA0' ? ' ' : UpperCase(c); };
  const auto same = [&](char a, char b) { return plain(a) == plain(b); };
  return row.size() >= text.size() && std::equal(text.begin(), text.end(), row.begin(), same);
}

}  // namespace

void ListControl::Reset(PassKey<fiscalon::Form> key) {
  Control::Reset(key);
  rows_.clear();
  Select(kNothingSelected);
}

void ListControl::AddItem(Wording text) {
  Touch();
  rows_.push_back(std::move(text));
  Changed();
}

void ListControl::RemoveItem(int row) {
  Touch();
  if (row < 0 || row >= ListCount())
    Raise(error_number::kInvalidProcedureCall);
  rows_.erase(rows_.begin() + row);
  if (selected_ == row)
    Select(kNothingSelected);
  else if (selected_ > row)
    --selected_;
  Changed();
}

void ListControl::Clear() {
  Touch();
  rows_.clear();
  Select(kNothingSelected);
  Changed();
}

void ListControl::ExpectRow(int row) const {
  if (row < 0 || row >= ListCount())
    throw FormMisuse(Owner().Name(), Name(), "has no row " + std::to_string(row));
}

int ListControl::ListCount() const {
  Touch();
  return static_cast<int>(rows_.size());
}

Wording ListControl::WordedRow(int row) const {
  Touch();
  return row >= 0 && row < ListCount() ? rows_[static_cast<size_t>(row)] : Wording();
}

std::string ListControl::List(int row) const {
  return WordedRow(row).English();
}

std::string ListControl::ShownRow(int row) const {
  return WordedRow(row).In(Owner().ShownIn());
}

int ListControl::ListIndex() const {
  Touch();
  return selected_;
}

void ListControl::ListIndex(int row) {
  Touch();
  if (row < kNothingSelected || row >= ListCount())
    Raise(error_number::kInvalidProcedureCall);
  Select(row);
  Changed();
}

void ListControl::Select(int row) {
  selected_ = row;
  typed_.clear();
}

void ListControl::Pick(PassKey<UserActs> /*key*/, int row) {
  ListIndex(row);
  Fire("Click", click_);
  if (Owner().IsUp())
    Fire("Chosen", chosen_);
}

void ListControl::Step(int row) {
  if (row == selected_ || row < 0)
    return;
  selected_ = row;
  Changed();
  Fire("Click", click_);
}

KeyOutcome ListControl::KeyMeans(PassKey<UserActs> /*key*/, int keyCode, int character) {
  const int last = ListCount() - 1;
  int row = selected_;
  switch (keyCode) {
    case key::kUp:
      row = std::min(std::max(row - 1, 0), last);
      break;
    case key::kDown:
      row = std::min(row + 1, last);
      break;
    case key::kHome:
      row = std::min(0, last);
      break;
    case key::kEnd:
      row = last;
      break;
    default:
      if (character == key::kBackspace)
        typed_.clear();
      else if (character >= ' ')
        Type(static_cast<char>(character));
      return {};
  }
  if (row != selected_)
    typed_.clear();
  Step(row);
  return {};
}

void ListControl::Type(char character) {
  // A row that fits already is kept, so that more of its text can be typed. The letter alone goes on to the next row.
  if (const int row = RowThatBeginsWith(typed_ + character, std::max(selected_, 0)); row != kNothingSelected) {
    typed_ += character;
    return Step(row);
  }
  const std::string alone(1, character);
  const int next = RowThatBeginsWith(alone, selected_ + 1);
  if (next == kNothingSelected || next == selected_)
    return;
  typed_ = alone;
  Step(next);
}

int ListControl::RowThatBeginsWith(std::string_view text, int from) const {
  const int count = ListCount();
  for (int i = 0; i < count; ++i)
    if (const int row = (from + i) % count; BeginsWith(ShownRow(row), text))
      return row;
  return kNothingSelected;
}

}  // namespace fiscalon
