#pragma once

#include <string>
#include <vector>

#include "screens/general/invoice_payments.h"
#include "tests/support/ruled_record.h"
#include "tests/support/screen_test.h"

namespace fiscalon {

/// An invoice as it is typed.
struct Invoice {
  std::string date = "20260601";
  std::string number = "INV-100";
  std::string amount = {};
};

/// Types an invoice up to its amount.
inline void Begin(UserDriver& user, const Invoice& invoice) {
  Type(user, invoice.date + '\r' + invoice.number + '\r' + invoice.amount);
}

/// Types invoices and confirms each, starting in the date.
inline void Enter(InvoicePayments& form, UserDriver& user, const std::vector<Invoice>& invoices) {
  user.PressMouse(form.InvoiceDate);
  for (const Invoice& invoice : invoices) {
    Begin(user, invoice);
    Type(user, "\r");
  }
}

/// Invoices of a dollar each, numbered from 1 on.
inline std::vector<Invoice> Dollars(int count) {
  std::vector<Invoice> invoices;
  for (int i = 1; i <= count; ++i) invoices.push_back({.number = std::to_string(i), .amount = "1.00"});
  return invoices;
}

/// A record as a line of the file.
inline std::string Line(const std::string& record) {
  return '"' + Ruled(record) + "\"\r\n";
}

}  // namespace fiscalon
