#include "screens/federal/gst34_line.h"

#include <utility>

#include "core/module_state.h"
#include "core/resume_next.h"
#include "core/values/leading_number.h"
#include "screens/parts/key_filter.h"

namespace fiscalon {
namespace {

/// Whether what stands there is at most so long, without its minus sign.
bool IsAtMost(std::string_view part, int length) {
  return static_cast<int>(part.size()) <= length + (LeadingNumber(part) < 0 ? 1 : 0);
}

bool HasRoomFor(int key, const TextField& box, int maxDigits) {
  const std::string_view text = box.Text();
  const Selection selected = box.Selected();
  // The key will take the place of everything.
  if (selected.length == static_cast<int>(text.size()))
    return true;
  const size_t point = text.find('.');
  if (key == '-' || (key == '.' && point != text.npos))
    return true;
  if (point == text.npos)
    return IsAtMost(text, key == '.' ? maxDigits - 2 : maxDigits - 1);
  if (selected.start > static_cast<int>(point))
    return text.size() - point - 1 <= 1;
  return IsAtMost(text.substr(0, point), maxDigits - 3);
}

bool NeverMet(TestedAmount& /*entry*/) {
  return false;
}

/// An amount of 0 is shown, and passes whatever else stands in the field.
constexpr auto RowsOf(const AmountRow& read, const AmountRow& belowZero) {
  return std::to_array<AmountRow>({{amount::Trim},
                                   read,
                                   belowZero,
                                   {amount::ShowZero},
                                   {amount::IsZero, {}, Reaction::Passes},
                                   {amount::IsNoAmount},
                                   {amount::ShowInCents}});
}

AmountRow BelowZeroOnLeaving(const Gst34LineDesign& design) {
  if (design.filledBy == LineFilledBy::Form)
    return {NeverMet};
  return {amount::IsNegative, design.belowZero, design.belowZeroOnLeaving};
}

FieldDesign FieldOf(const Gst34LineDesign& design) {
  const bool open = design.filledBy == LineFilledBy::User;
  return {
      .tabIndex = design.tabIndex, .maxLength = 12, .alignment = Alignment::Right, .tabStop = open, .locked = !open};
}

}  // namespace

void LimitAmountKey(const TextField& box, int& key, int maxDigits) {
  const std::string_view text = box.Text();
  const Selection selected = box.Selected();
  const std::string_view replaced =
      text.substr(static_cast<size_t>(selected.start), static_cast<size_t>(selected.length));
  if (key == '.' && text.find('.') != text.npos && replaced.find('.') == text.npos) {
    key = 0;
    return;
  }
  const bool belongsToNumber = IsDigitKey(key) || key == '.' || key == '-';
  if (!belongsToNumber || HasRoomFor(key, box, maxDigits))
    return;
  key = 0;
  TheToolkit().Beep();
}

Gst34LineRows::Gst34LineRows(const Gst34LineDesign& design)
    : onLeaving(RowsOf({amount::ReadMoney}, BelowZeroOnLeaving(design))),
      onOk(RowsOf({amount::ReadNumber}, {amount::IsNegative, design.belowZero, Reaction::Empties})) {}

Gst34Line::Gst34Line(fiscalon::Form& form, std::string name, const Handler& recalculate, const Gst34LineDesign& design)
    : Gst34LineRows(design),
      TypedAmount(form, std::move(name), FieldOf(design),
                  {.next = design.next, .onLeaving = onLeaving, .left = recalculate},
                  {.keyPress = [this](int& key) { ResumeNext::Run([&] { LimitAmountKey(*this, key, 11); }); }}) {}

}  // namespace fiscalon
