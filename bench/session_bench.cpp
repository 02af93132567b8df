#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string_view>

#include "core/module_state.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "screens/general/due_date_amount.h"
#include "screens/general/invoice_payments.h"

/// A whole session of one screen: the host sets a payment and shows the screen, the user types and presses OK, and the
/// host reads the records. Nothing is constructed in it but what the session itself makes.
namespace fiscalon {
namespace {

void Type(UserDriver& user, std::string_view text) {
  for (const char character : text) user.Type(character);
}

void BM_DueDateAmountSession(benchmark::State& state) {
  ResetModule();
  TheModule().clock = std::make_shared<FixedClock>(DateTime{.date = {2026, 6, 15}});
  TheModule().locale = EnglishCanada();
  ScriptedToolkit toolkit;
  toolkit.onForm = [](Form& form, UserDriver& user) {
    Type(user, "202612");
    Type(user, "12345");
    user.Click(static_cast<frmDueDateAmount&>(form).cmdOK);
  };
  UseToolkit(&toolkit);
  Levyra session;
  for ([[maybe_unused]] auto _ : state) {
    session.CompCode("000015");
    session.CompName("Summit Levies");
    session.PaidAmount("12345");
    session.PaidDate("06152026");
    session.EnterName("Jane Doe");
    session.EnterTitle("Clerk");
    session.SeqNumber("0001");
    session.GovFilename("");
    session.WriteFile(kFalse);
    if (!session.ShowLevyraScreen("15") || session.PC4Records()->Count() != 2)
      throw std::logic_error("the session did not end with two records");
    for (const PC4& record : *session.PC4Records()) benchmark::DoNotOptimize(record.Description().data());
  }
  ResetModule();
}
BENCHMARK(BM_DueDateAmountSession)->Unit(benchmark::kMicrosecond);

/// The longest session of all screens: 50 invoices, each keyed and confirmed, in one payment.
void BM_InvoicePaymentsSession(benchmark::State& state) {
  constexpr int kInvoices = 50;
  ResetModule();
  TheModule().clock = std::make_shared<FixedClock>(DateTime{.date = {2026, 6, 15}});
  TheModule().locale = EnglishCanada();
  ScriptedToolkit toolkit;
  toolkit.onForm = [](Form& form, UserDriver& user) {
    auto& invoices = static_cast<InvoicePayments&>(form);
    user.PressMouse(invoices.InvoiceDate);
    for (int i = 0; i < kInvoices; ++i) Type(user, "20260601\rINV-100\r1.00\r");
    user.Click(invoices.cmdOK);
  };
  UseToolkit(&toolkit);
  Levyra session;
  for ([[maybe_unused]] auto _ : state) {
    session.CompName("Harbour Paper Mills");
    session.PaidAmount("5000");
    session.PaidDate("06152026");
    session.SeqNumber("0001");
    session.WriteFile(kFalse);
    if (!session.ShowLevyraScreen("08") || session.PC4Records()->Count() != kInvoices)
      throw std::logic_error("the session did not end with all invoices");
    for (const PC4& invoice : *session.PC4Records()) benchmark::DoNotOptimize(invoice.Amount().data());
  }
  ResetModule();
}
BENCHMARK(BM_InvoicePaymentsSession)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace fiscalon
