#include "validation/judge_payment.h"

#include "bindings/c/answer.h"
#include "bindings/c/verdicts.h"

/// Payments that are judged one by one.
namespace fiscalon::c {

namespace {

struct HostJudge {
  PaymentJudge judge = {};
  Verdicts verdict = {};
};

}  // namespace

template <>
struct HandleOf<fiscalon_judge> {
  using Object = HostJudge;
};

}  // namespace fiscalon::c

using namespace fiscalon::c;

extern "C" {

int fiscalon_judge_create(fiscalon_judge** judge) {
  return AnswerAt(judge, [] { return NewHandle<fiscalon_judge>(std::make_shared<HostJudge>()); });
}
int fiscalon_judge_destroy(fiscalon_judge** judge) {
  return Destroy(judge);
}

int fiscalon_judge_payment(fiscalon_judge* judge, const char* screen_code, const char* biller_code, int64_t cents,
                           const char* const* records, size_t count, int32_t wants_faults, fiscalon_verdict* verdict) {
  return Answer([&] {
    ExpectStruct(verdict);
    *verdict = fiscalon_verdict();
    verdict->size = sizeof(fiscalon_verdict);
    const auto own = Of(judge);
    if (records == nullptr && count > 0)
      Fail(FISCALON_ERROR_NULL_POINTER, "NULL was given for the records.");
    const std::string screen = FromHost(screen_code);
    const std::string biller = FromHost(biller_code);
    std::vector<std::string> texts;
    texts.reserve(count);
    for (size_t i = 0; i < count; ++i) texts.push_back(FromHost(records[i]));
    const std::vector<std::string_view> lines(texts.begin(), texts.end());
    const fiscalon::PaymentFigures figures = {.screenCode = screen, .billerCode = biller, .cents = cents};
    std::string reason;
    std::vector<fiscalon::Fault> faults;
    if (!own->judge.Judge(figures, lines, reason) && wants_faults != 0)
      faults = own->judge.FaultsOf(figures, lines);
    own->verdict.Clear();
    own->verdict.Add({.screen = screen, .reason = reason, .faults = faults});
    *verdict = own->verdict.Get().front();
  });
}

}  // extern "C"
