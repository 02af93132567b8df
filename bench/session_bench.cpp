#include <benchmark/benchmark.h>

#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/module_state.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "screens/general/invoice_payments.h"

/// A whole session of each screen: the host sets a payment and shows the screen, the user types and presses OK, and the
/// host reads the records. Nothing is constructed in it but what the session itself makes.
namespace fiscalon {
namespace {

void Type(UserDriver& user, std::string_view text) {
  for (const char character : text) user.Type(character);
}

/// A payment, and what is typed into its screen until OK is clicked. "\r" is Enter, "\t" is Tab.
struct ScreenSession {
  const char* code;
  const char* biller;
  const char* cents;
  /// Clicked before anything is typed; empty for the first focus of the form.
  const char* first;
  const char* typed;
  const char* ok;
  int32_t records;
};

// clang-format off
constexpr ScreenSession kSessions[] = {
    {"01", "", "845230", "WCBperiodfrommm", "04062026" "4013207\r5210.75\r4520118\r2485.15\r8631004\r756.40\r", "Command3D6", 3},
    {"02", "", "1250000", "optRC100", "20261231", "Command3D6", 2},
    {"03", "", "12345", "", "5000\r12\r20260531", "Command3D6", 2},
    {"04", "", "318750", "", "2026\r", "Command3D6", 2},
    {"05", "", "427800", "", "20260301" "20260531" "184500\r1500.00\r120.50\r\r84.25\r9225.00\r3410.75\r", "Command1", 4},
    {"06", "", "512640", "", "20260301" "20260531" "4200.00\r310.40\r25.00\r91.00\r500.00\r", "Command3D6", 3},
    {"07", "", "248350", "", "20260401" "20260430" "20260515" "PF-4471209\r18250\r0.136\rR2\r2026-04\r", "Command3D6", 3},
    {"10", "", "25000", "", "HELENE COTE\t1420 RUE SAINT-DENIS\tMONTREAL\tQC\tH2X 3J8\t\t5145550142\t\t", "cmdOK", 8},
    {"14", "", "184275", "", "TOURISM LEVY\t20260531417", "cmdOK", 2},
    {"15", "000015", "12345", "", "202612" "12345", "cmdOK", 2},
    {"16", "001053", "845230", "", "20260101" "20260331" "185640.00\r18517.59\r7065.29\r3000.00\r0\r", "cmdOK", 3},
    {"17", "", "127550", "", "20260401" "20260630" "1275.50\t", "cmdOK", 2},
    {"18", "001055", "1265230", "", "123456782RT0001" "20260101" "20260331" "20260101" "20260331"
                                    "9282.00\r3541.70\r1500.00\r40.30\r0\r18517.59\r7065.29\r3000.00\r0\r185640.00\r", "cmdOK", 5},
    {"19", "001051", "629000", "", "20260401" "20260630" "2100.00\r4190.00\r", "cmdOK", 2},
    {"20", "001051", "12345", "", "202606" "100.00\r20.00\r3.45\r\r\r", "cmdOK", 3},
    {"25", "001051", "845230", "", "20260531", "cmdOK", 2},
    {"26", "001051", "1250000", "", "20251231", "cmdOK", 1},
    {"27", "001051", "318075", "", "202605", "cmdOK", 2},
    {"28", "001055", "420000", "", "20260101" "20260331"
                                   "185640.00\r9282.00\r3541.70\r1500.00\r40.30\r0\r12500.00\r64000.00\r125.50\r", "cmdOK", 4},
};
// clang-format on

void BM_ScreenSession(benchmark::State& state) {
  const ScreenSession& screen = kSessions[state.range(0)];
  state.SetLabel(screen.code);
  ResetModule();
  TheModule().clock = std::make_shared<FixedClock>(DateTime{.date = {2026, 6, 15}});
  TheModule().locale = EnglishCanada();
  ScriptedToolkit toolkit;
  toolkit.onForm = [&screen](Form& form, UserDriver& user) {
    if (*screen.first != 0)
      user.Click(form.ControlNamed(screen.first));
    Type(user, screen.typed);
    user.Click(form.ControlNamed(screen.ok));
  };
  UseToolkit(&toolkit);
  Levyra session;
  for ([[maybe_unused]] auto _ : state) {
    session.CompCode(screen.biller);
    session.CompName("Summit Levies");
    session.PaidAmount(screen.cents);
    session.PaidDate("06152026");
    session.EnterName("Jane Doe");
    session.EnterTitle("Clerk");
    session.SeqNumber("0001");
    session.NumberOfInfoCollect("5");
    session.GovFilename("");
    session.WriteFile(kFalse);
    if (!session.ShowLevyraScreen(screen.code) || session.PC4Records()->Count() != screen.records)
      throw std::logic_error(std::string("the session of ") + screen.code + " did not end with its records");
    for (const PC4& record : *session.PC4Records()) benchmark::DoNotOptimize(record.Description().data());
  }
  ResetModule();
}
BENCHMARK(BM_ScreenSession)->Unit(benchmark::kMicrosecond)->DenseRange(0, std::size(kSessions) - 1);

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
