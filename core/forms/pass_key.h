#pragma once

namespace fiscalon {

/// Opens a member function to one class alone: `FocusCame(PassKey<Focus> key, FocusBy by)` is for `Focus` and for
/// nobody else, since nobody else can make the key. `Focus` writes `{}`:
///
///     control.FocusCame({}, by);
///
/// So a header tells what the classes around may do to it, and which of them. A friend may do everything.
template <class Holder>
class PassKey {
 private:
  friend Holder;

  constexpr PassKey() = default;
};

}  // namespace fiscalon
