#include <benchmark/benchmark.h>
#include <fiscalon/c.h>

#include <stdexcept>
#include <string>

#include "bench/started_module.h"
#include "core/platform/code_page.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"

/// A session of screen "15" through the C interface, and beside it the same in C++: the host sets the payment and shows
/// the screen, the user types and presses OK, and the host reads both records in UTF-8. A library of its own lies
/// behind each, so that neither is warmed by the other.
namespace fiscalon {
namespace {

constexpr const char* kTyped = "20261212345";

void BM_SessionInCpp(benchmark::State& state) {
  StartModule();
  ScriptedToolkit toolkit;
  toolkit.onForm = [](Form& form, UserDriver& user) {
    for (const char key : std::string_view(kTyped)) user.Type(key);
    user.Click(form.ControlNamed("cmdOK"));
  };
  UseToolkit(&toolkit);
  Levyra payment;
  for ([[maybe_unused]] auto _ : state) {
    payment.CompCode(FromUtf8("000015"));
    payment.CompName(FromUtf8("Summit Levies"));
    payment.PaidAmount(FromUtf8("12345"));
    payment.PaidDate(FromUtf8("06152026"));
    payment.EnterName(FromUtf8("Jane Doe"));
    payment.EnterTitle(FromUtf8("Clerk"));
    payment.SeqNumber(FromUtf8("0001"));
    payment.WriteFile(kFalse);
    if (!payment.ShowLevyraScreen(FromUtf8("15")) || payment.PC4Records()->Count() != 2)
      throw std::logic_error("the session did not end with its records");
    for (const PC4& record : *payment.PC4Records()) benchmark::DoNotOptimize(ToUtf8(record.Description()).data());
  }
  ResetModule();
}
BENCHMARK(BM_SessionInCpp)->Unit(benchmark::kMicrosecond);

void Expect(bool done) {
  if (done)
    return;
  fiscalon_error error = {};
  error.size = sizeof error;
  fiscalon_last_error(&error);
  throw std::logic_error(error.description);
}

void BM_SessionThroughC(benchmark::State& state) {
  Expect(fiscalon_reset() == 0 && fiscalon_use_locale("en-CA") == 0 &&
         fiscalon_use_fixed_clock(2026, 6, 15, 0, 0, 0) == 0);
  fiscalon_scripted_user user = {};
  user.size = sizeof user;
  user.on_form = [](void*, fiscalon_form* form) {
    return fiscalon_form_type(form, kTyped) == 0 ? fiscalon_form_click(form, "cmdOK") : -1;
  };
  fiscalon_payment* payment = nullptr;
  Expect(fiscalon_use_scripted_user(&user) == 0 && fiscalon_payment_create(&payment) == 0);
  for ([[maybe_unused]] auto _ : state) {
    int32_t chosen = 0, count = 0;
    fiscalon_records* records = nullptr;
    Expect(fiscalon_payment_set_comp_code(payment, "000015") == 0 &&
           fiscalon_payment_set_comp_name(payment, "Summit Levies") == 0 &&
           fiscalon_payment_set_paid_amount(payment, "12345") == 0 &&
           fiscalon_payment_set_paid_date(payment, "06152026") == 0 &&
           fiscalon_payment_set_enter_name(payment, "Jane Doe") == 0 &&
           fiscalon_payment_set_enter_title(payment, "Clerk") == 0 &&
           fiscalon_payment_set_seq_number(payment, "0001") == 0 && fiscalon_payment_set_write_file(payment, 0) == 0 &&
           fiscalon_payment_show(payment, "15", &chosen) == 0 && chosen == 1 &&
           fiscalon_payment_get_pc4_records(payment, &records) == 0 && fiscalon_records_count(records, &count) == 0 &&
           count == 2);
    for (int32_t i = 1; i <= count; ++i) {
      fiscalon_record* record = nullptr;
      const char* text = nullptr;
      Expect(fiscalon_records_item_at(records, i, &record) == 0 && fiscalon_record_get_description(record, &text) == 0);
      benchmark::DoNotOptimize(text);
      fiscalon_record_destroy(&record);
    }
    fiscalon_records_destroy(&records);
  }
  fiscalon_payment_destroy(&payment);
  Expect(fiscalon_reset() == 0);
}
BENCHMARK(BM_SessionThroughC)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace fiscalon
