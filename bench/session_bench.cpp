#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string_view>

#include "core/module_state.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "screens/general/due_date_amount.h"

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

}  // namespace
}  // namespace fiscalon
