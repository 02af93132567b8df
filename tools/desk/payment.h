#pragma once

#include <QString>

#include "core/session.h"

namespace fiscalon {

/// A payment as the desk knows it, before a screen asks for the rest.
struct Payment {
  enum class Destination { Collection, File };

  QString customerNumber = {};
  QString billerCode = {};
  QString billerName = {};
  QString cents = {};
  /// Month, day, year.
  QString date = {};
  QString enteredBy = {};
  QString title = {};
  bool onHold = false;
  QString sequence = {};
  int items = 1;
  QString businessName = {};
  Destination destination = Destination::Collection;
  QString file = {};
};

/// A payment that a newcomer can show screens with at once.
Payment ExamplePayment();

/// Sets the session's properties. Raises what they raise.
void Give(const Payment& payment, Levyra& session);

/// Cents as dollars with a point, "12345" as "123.45"; and back, with a point or a comma. Empty for a text that is no
/// such amount.
QString DollarsOf(const QString& cents);
QString CentsOf(const QString& dollars);

}  // namespace fiscalon
