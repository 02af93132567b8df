#include "core/forms/list_control.h"

#include "core/platform/runtime_error.h"

namespace fiscalon {

void ListControl::Reset() {
  Control::Reset();
  rows_.clear();
  selected_ = kNothingSelected;
}

void ListControl::AddItem(std::string_view text) {
  Touch();
  rows_.emplace_back(text);
  Changed();
}

void ListControl::RemoveItem(int row) {
  Touch();
  if (row < 0 || row >= ListCount())
    Raise(error_number::kInvalidProcedureCall);
  rows_.erase(rows_.begin() + row);
  if (selected_ == row)
    selected_ = kNothingSelected;
  else if (selected_ > row)
    --selected_;
  Changed();
}

void ListControl::Clear() {
  Touch();
  rows_.clear();
  selected_ = kNothingSelected;
  Changed();
}

int ListControl::ListCount() const {
  Touch();
  return static_cast<int>(rows_.size());
}

std::string ListControl::List(int row) const {
  Touch();
  return row >= 0 && row < ListCount() ? rows_[static_cast<size_t>(row)] : std::string();
}

int ListControl::ListIndex() const {
  Touch();
  return selected_;
}

void ListControl::ListIndex(int row) {
  Touch();
  if (row < kNothingSelected || row >= ListCount())
    Raise(error_number::kInvalidProcedureCall);
  selected_ = row;
  Changed();
}

void ListControl::Pick(int row) {
  ListIndex(row);
  Fire("Click", Handlers().click);
}

}  // namespace fiscalon
