#pragma once

#include <concepts>
#include <functional>
#include <type_traits>
#include <utility>

namespace fiscalon {

/// A value that a form's table gives to a part: as it stands, or as a function that is asked each time it is needed.
///
///     .next = &txtQPP
///     .next = [this]() -> Control* { return cmbRemittanceType.Visible() ? &cmbRemittanceType : &cmdOK; }
///
/// A control inside a part that stands further down in the table is asked for too: the part is not made yet.
template <class T>
class Asked {
 public:
  Asked() = default;

  template <class Value>
  requires std::convertible_to<Value, T> Asked(Value value) : ask_([kept = T(std::move(value))] { return kept; }) {}

  template <class Ask>
  requires(!std::same_as<Ask, Asked> && !std::convertible_to<Ask, T> && std::is_invocable_r_v<T, const Ask&>)
      Asked(Ask ask)
      : ask_(std::move(ask)) {}

  /// The value now; the default of its type where the table gives none.
  T operator()() const {
    if (ask_)
      return ask_();
    return {};
  }
  bool IsGiven() const { return ask_ != nullptr; }

 private:
  std::function<T()> ask_;
};

}  // namespace fiscalon
