#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "core/forms/control.h"

namespace fiscalon {

// The handlers of one member of a control array.
FieldEvents EventsOf(int index, const FieldHandlers<int>& events);
ButtonEvents EventsOf(int index, const ButtonHandlers<int>& events);
ListEvents EventsOf(int index, const ListHandlers<int>& events);

/// Error 9 of the array that has the neighbour as a member.
[[noreturn]] void RaiseNoSuchMember(const Control& neighbour, const std::string& member);

/// Controls of one kind that share a name and its handlers, which are told the member's index first. The members are
/// named "Box(0)", "Box(1)" and so on:
///
///     ControlArray<TextField, 6> WCBclass {*this, "WCBclass",
///                                          [](int i) { return FieldDesign{.tabIndex = 8 + 2 * i, .maxLength = 18}; },
///                                          {.keyPress = On(&Self::WCBclass_KeyPress)}};
template <class T, int kSize>
class ControlArray {
 public:
  using Design = typename T::Design;
  using Events = typename T::ArrayEvents;

  ControlArray(Form& form, std::string_view name, const std::function<Design(int index)>& design,
               const Events& events = {})
      : ControlArray(form, name, design, events, std::make_integer_sequence<int, kSize>()) {}

  static constexpr int Size() { return kSize; }

  /// The members count from 0. Error 9 for an index that is not there; its description names form and member.
  T& operator[](int index) { return members_[Checked(index)]; }
  const T& operator[](int index) const { return members_[Checked(index)]; }

  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }
  auto begin() const { return members_.begin(); }
  auto end() const { return members_.end(); }

 private:
  template <int... kIndex>
  ControlArray(Form& form, std::string_view name, const std::function<Design(int index)>& design, const Events& events,
               std::integer_sequence<int, kIndex...> /*all*/)
      : name_(name), members_{{Member(form, name, design(kIndex), events, kIndex)...}} {}

  static std::string NameOf(std::string_view name, int index) {
    return std::string(name) + "(" + std::to_string(index) + ")";
  }

  static T Member(Form& form, std::string_view name, const Design& design, const Events& events, int index) {
    if constexpr (std::is_same_v<Events, NoEvents>)
      return T(form, NameOf(name, index), design);
    else
      return T(form, NameOf(name, index), design, EventsOf(index, events));
  }

  size_t Checked(int index) const {
    if (index < 0 || index >= kSize)
      RaiseNoSuchMember(members_[0], NameOf(name_, index));
    return static_cast<size_t>(index);
  }

  std::string name_;
  std::array<T, kSize> members_;
};

}  // namespace fiscalon
