#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "core/forms/control.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

/// The handlers that a form has for the events of a control array: each is told the member's index first.
struct ArrayEvents {
  std::function<void(int index)> change = {};
  std::function<void(int index, int& keyCode, int shift)> keyDown = {};
  std::function<void(int index, int& character)> keyPress = {};
  std::function<void(int index)> lostFocus = {};
  std::function<void(int index)> mouseDown = {};
  std::function<void(int index)> click = {};

  /// The handlers of one member.
  Events Of(int index) const;
};

/// Controls of one kind that share a name and its handlers. The members are named "Box(0)", "Box(1)" and so on:
///
///     ControlArray<TextField, 6> WCBclass {*this, "WCBclass",
///                                          [](int i) { return Design{.tabIndex = 8 + 2 * i, .maxLength = 18}; },
///                                          {.keyPress = On(&Self::WCBclass_KeyPress)}};
template <class T, int kSize>
class ControlArray {
 public:
  ControlArray(Form& form, std::string_view name, const std::function<Design(int index)>& design,
               const ArrayEvents& events = {})
      : ControlArray(form, name, design, events, std::make_integer_sequence<int, kSize>()) {}

  static constexpr int Size() { return kSize; }

  /// The members count from 0. Error 9 for an index that is not there.
  T& operator[](int index) { return members_[Checked(index)]; }
  const T& operator[](int index) const { return members_[Checked(index)]; }

  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }
  auto begin() const { return members_.begin(); }
  auto end() const { return members_.end(); }

 private:
  template <int... kIndex>
  ControlArray(Form& form, std::string_view name, const std::function<Design(int index)>& design,
               const ArrayEvents& events, std::integer_sequence<int, kIndex...> /*all*/)
      : members_{{Member(form, name, design(kIndex), events, kIndex)...}} {}

  static T Member(Form& form, std::string_view name, const Design& design, const ArrayEvents& events, int index) {
    std::string memberName = std::string(name) + "(" + std::to_string(index) + ")";
    if constexpr (std::is_constructible_v<T, Form&, std::string, const Design&, Events>)
      return T(form, std::move(memberName), design, events.Of(index));
    else
      return T(form, std::move(memberName), design);
  }

  static size_t Checked(int index) {
    if (index < 0 || index >= kSize)
      Raise(error_number::kSubscriptOutOfRange);
    return static_cast<size_t>(index);
  }

  std::array<T, kSize> members_;
};

}  // namespace fiscalon
