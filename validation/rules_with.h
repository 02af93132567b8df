#pragma once

#include <span>
#include <string_view>

#include "validation/rule_sets.h"
#include "validation/usual_rules.h"

namespace fiscalon {

/// What a rule set has beside its fields.
struct RuleSetTexts {
  std::string_view screenCode = {};
  std::string_view routine = {};
  std::string_view noFieldsMessage = {};
  const TrialRecipe* trial = nullptr;
};

constexpr bool AreNumberedFromOne(std::span<const FieldRule> fields) {
  for (size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].number.size() != 2 || fields[i].number[0] != '0' || fields[i].number[1] != static_cast<char>('1' + i))
      return false;
  }
  return fields.size() <= 9;
}

/// A rule set and its quick test, from one and the same rules.
template <const auto& kFields, Periods kPeriods, Total kTotal>
consteval RuleSet RulesWith(const RuleSetTexts& texts) {
  static_assert(AreNumberedFromOne(kFields), "fields are numbered 01, 02 and so on without a gap");
  if (texts.screenCode.size() != kScreenCodeLength || texts.noFieldsMessage.empty())
    throw "rules have a screen, and a message for a payment without fields";
  if (texts.trial == nullptr)
    throw "rules have trial payments";
  return {.screenCode = texts.screenCode,
          .routine = texts.routine,
          .noFieldsMessage = texts.noFieldsMessage,
          .fields = kFields,
          .periods = kPeriods,
          .total = kTotal,
          .quickTest = RecordsPassQuickly<kFields, kPeriods, kTotal>,
          .usual = UsualForms{TakeUsual<kFields, kPeriods, kTotal, LineFrame{0, 1}>,
                              TakeUsual<kFields, kPeriods, kTotal, LineFrame{0, 2}>,
                              TakeUsual<kFields, kPeriods, kTotal, LineFrame{1, 1}>,
                              TakeUsual<kFields, kPeriods, kTotal, LineFrame{1, 2}>},
          .trial = texts.trial};
}

}  // namespace fiscalon
