#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "core/values/format.h"
#include "core/values/leading_number.h"
#include "core/values/number_text.h"
#include "core/values/to_money.h"

/// The conversions of the library beside the C library's on the same inputs, in one run. Each benchmark goes
/// through all its inputs; the rate is conversions a second.
namespace fiscalon {
namespace {

/// What people type and records hold: amounts in cents and dollars, small and large.
const std::vector<std::string> kTexts = {
    "0",        "5",         "12345",     "123.45",      "-12.34",          "1200",
    "0.05",     "99999.99",  "1234567.8", "100",         "9999999.99",      "20260615",
    "  123.45", "1234.5000", "-0.01",     "12345678.90", "000000000012345", "123456789012.34",
};

const std::vector<double> kValues = {0,      0.05,       12.34,      123.45,          -12.34, 1200,  99.99,   99999.99,
                                     1234.5, 9999999.99, 12345678.9, 123456789012.34, 1.005,  0.285, 20260615};

template <typename Convert, typename Inputs>
void RunThrough(benchmark::State& state, const Inputs& inputs, Convert convert) {
  for ([[maybe_unused]] auto _ : state)
    for (const auto& input : inputs) benchmark::DoNotOptimize(convert(input));
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(inputs.size()));
}

void BM_LeadingNumber(benchmark::State& state) {
  RunThrough(state, kTexts, [](const std::string& text) { return LeadingNumber(text); });
}
BENCHMARK(BM_LeadingNumber);

void BM_ToMoney(benchmark::State& state) {
  const Locale locale = EnglishCanada();
  RunThrough(state, kTexts, [&](const std::string& text) { return ToMoney(text, locale).Units(); });
}
BENCHMARK(BM_ToMoney);

void BM_IsNumeric(benchmark::State& state) {
  const Locale locale = EnglishCanada();
  RunThrough(state, kTexts, [&](const std::string& text) { return IsNumeric(text, locale); });
}
BENCHMARK(BM_IsNumeric);

void BM_Strtod(benchmark::State& state) {
  RunThrough(state, kTexts, [](const std::string& text) { return std::strtod(text.c_str(), nullptr); });
}
BENCHMARK(BM_Strtod);

void BM_FormatFloat(benchmark::State& state) {
  const Locale locale = EnglishCanada();
  RunThrough(state, kValues, [&](double value) { return Format(value, "0.00", locale); });
}
BENCHMARK(BM_FormatFloat);

void BM_FormatFloatGrouped(benchmark::State& state) {
  const Locale locale = EnglishCanada();
  RunThrough(state, kValues, [&](double value) { return Format(value, "#,###,###0.00", locale); });
}
BENCHMARK(BM_FormatFloatGrouped);

void BM_FormatText(benchmark::State& state) {
  const Locale locale = EnglishCanada();
  RunThrough(state, kTexts, [&](const std::string& text) { return Format(text, "0.00", locale); });
}
BENCHMARK(BM_FormatText);

void BM_FormatRecordField(benchmark::State& state) {
  const Locale locale = EnglishCanada();
  RunThrough(state, kValues,
             [&](double value) { return Format(Money::FromDouble(value), "000000000000000000", locale); });
}
BENCHMARK(BM_FormatRecordField);

std::string Printed(const char* pattern, double value) {
  char text[64];
  const int length = std::snprintf(text, sizeof text, pattern, value);
  return {text, static_cast<size_t>(length)};
}

void BM_SnprintfFloat(benchmark::State& state) {
  RunThrough(state, kValues, [](double value) { return Printed("%.2f", value); });
}
BENCHMARK(BM_SnprintfFloat);

void BM_NumberText(benchmark::State& state) {
  RunThrough(state, kValues, [](double value) { return NumberText(value); });
}
BENCHMARK(BM_NumberText);

void BM_SnprintfGeneral(benchmark::State& state) {
  RunThrough(state, kValues, [](double value) { return Printed("%.15g", value); });
}
BENCHMARK(BM_SnprintfGeneral);

void BM_MoneyFromDouble(benchmark::State& state) {
  RunThrough(state, kValues, [](double value) { return Money::FromDouble(value).Units(); });
}
BENCHMARK(BM_MoneyFromDouble);

}  // namespace
}  // namespace fiscalon
