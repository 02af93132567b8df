#include <benchmark/benchmark.h>

#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bench/started_module.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "screens/general/invoice_payments.h"
#include "tests/support/good_sessions.h"

/// A whole session of each screen: the host sets a payment and shows the screen, the user types and presses OK, and the
/// host reads the records. Nothing is constructed in it but what the session itself makes.
namespace fiscalon {
namespace {

void BM_ScreenSession(benchmark::State& state) {
  const GoodSession& good = kGoodSessions[state.range(0)];
  state.SetLabel(std::string(good.code));
  StartModule();
  ScriptedToolkit toolkit;
  toolkit.onForm = [&good](Form& form, UserDriver& user) {
    FillIn(good, form, user);
    user.Click(form.ControlNamed(good.ok));
  };
  UseToolkit(&toolkit);
  Levyra session;
  for ([[maybe_unused]] auto _ : state) {
    SetUp(good, session);
    if (!session.ShowLevyraScreen(good.code) || session.PC4Records()->Count() != good.records)
      throw std::logic_error("the session of " + std::string(good.code) + " did not end with its records");
    for (const PC4& record : *session.PC4Records()) benchmark::DoNotOptimize(record.Description().data());
  }
  ResetModule();
}
BENCHMARK(BM_ScreenSession)->Unit(benchmark::kMicrosecond)->DenseRange(0, std::size(kGoodSessions) - 1);

/// The longest session of all screens: 50 invoices, each keyed and confirmed, in one payment.
void BM_InvoicePaymentsSession(benchmark::State& state) {
  constexpr int kInvoices = 50;
  StartModule();
  ScriptedToolkit toolkit;
  toolkit.onForm = [](Form& form, UserDriver& user) {
    auto& invoices = static_cast<InvoicePayments&>(form);
    user.PressMouse(invoices.InvoiceDate);
    for (int i = 0; i < kInvoices; ++i)
      for (const char character : std::string_view("20260601\rINV-100\r1.00\r")) user.Type(character);
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
