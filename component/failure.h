#pragma once

#include <ole2.h>

#include <exception>
#include <string>
#include <string_view>

#include "component/turn.h"

/// How a failure leaves the library: as a result code, with source and description in the thread's error information.
namespace fiscalon::component {

/// A failure that has a result code of the component model or of the system.
class ComponentError : public std::exception {
 public:
  ComponentError(HRESULT code, std::string_view description) : code_(code), description_(description) {}

  HRESULT Code() const { return code_; }
  /// The description.
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  HRESULT code_;
  std::string description_;
};

/// Of the exception being handled, the result code: numbers with the high bit set as they are, the platform's own
/// run-time errors as 0x800A0000 and the number, which script hosts show as the number. Anything unforeseen is E_FAIL.
/// Says all else in the error information of that interface.
HRESULT ReportFailure(REFIID interfaceId) noexcept;

/// Runs one call of a host, in its turn, and lets no exception out.
template <typename Act>
HRESULT Answer(REFIID interfaceId, Act&& act) noexcept {
  // What an earlier call left there is no word about this one.
  SetErrorInfo(0, nullptr);
  try {
    const Turn turn;
    act();
    return S_OK;
  } catch (...) {
    return ReportFailure(interfaceId);
  }
}

/// The same for a call that returns a value, at a place that stays empty where it fails. E_POINTER where a host gives
/// no place.
template <typename Result, typename Act>
HRESULT Answer(REFIID interfaceId, Result* place, Act&& act) {
  return Answer(interfaceId, [&] {
    if (place == nullptr)
      throw ComponentError(E_POINTER, "The call returns a value, and NULL was given for its place.");
    *place = Result{};
    *place = act();
  });
}

}  // namespace fiscalon::component
