#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tests/support/good_sessions.h"

namespace fiscalon {

/// A good session, and one way of its user to confirm it.
struct ScreenSession {
  const GoodSession& good;
  /// The button that confirms, or the field in which Enter does.
  std::string_view ok;
  OutputFailure failure;

  /// Screen code and confirming control, to tell one session from another.
  std::string Name() const { return std::string(good.code) + " by " + std::string(ok); }
};

/// Each good session by OK and, where its screen has one, by its confirming field.
std::span<const ScreenSession> ScreenSessions();

/// Sets the payment of a session on a host's object. Its records go where `WriteFile` then tells.
void SetPayment(Levyra& host, const ScreenSession& session);

/// What the user does on the form, once it is filled in.
void Confirm(const ScreenSession& session, Form& form, UserDriver& user);
void Cancel(Form& form, UserDriver& user);

}  // namespace fiscalon
