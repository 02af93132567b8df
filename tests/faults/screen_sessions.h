#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/platform/runtime_error.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"

namespace fiscalon {

/// What becomes of a failure while the records are written.
enum class OutputFailure {
  /// The form's show ends with the error, which the host gets. The form stays loaded.
  ReachesHost,
  /// Nobody hears of it: the payment counts as confirmed.
  Accepts,
  /// The user is told, and the error log; then the payment counts as confirmed.
  IsReported,
  /// Nobody hears of it, and the form stays up.
  StaysUp,
};

/// A payment, and what is typed into its screen until its records are written.
struct ScreenSession {
  const char* code;
  const char* biller;
  const char* cents;
  /// Clicked before anything is typed; empty for the first focus of the form.
  const char* first;
  /// "\r" is Enter, "\t" is Tab.
  const char* typed;
  /// The button that confirms, or the field in which Enter does.
  const char* ok;
  OutputFailure failure;
  /// The record kinds that the file then holds, line by line.
  const char* kinds;
  /// How many records the collection holds.
  int32_t members;

  /// Screen code and confirming control, to tell one session from another.
  std::string Name() const { return std::string(code) + " by " + ok; }
};

/// At least one session for each screen code, and one for each other way to confirm.
std::span<const ScreenSession> ScreenSessions();

/// Sets the payment of a session on a host's object.
void SetPayment(Levyra& host, const ScreenSession& session);

/// What the user does on the form.
void FillIn(const ScreenSession& session, Form& form, UserDriver& user);
void Confirm(const ScreenSession& session, Form& form, UserDriver& user);
void Cancel(Form& form, UserDriver& user);

}  // namespace fiscalon
