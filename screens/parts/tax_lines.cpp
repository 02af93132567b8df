#include "screens/parts/tax_lines.h"

#include <utility>

#include "core/resume_next.h"

namespace fiscalon {
namespace {

AmountEntryDesign Line(const Label& caption, int tabIndex, Asked<Control*> next) {
  return {.tabIndex = tabIndex, .name = CaptionOf(caption), .next = std::move(next)};
}

}  // namespace

// clang-format off
TaxLines::TaxLines(Form& form, const AmountRule& rule, const TaxLinesDesign& design)
    : CollectibleCaption(form, "lbl" + design.collectible.name, {.caption = design.collectible.caption}),
      Collectible       (form, "txt" + design.collectible.name, rule, Line(CollectibleCaption, design.tabIndex,     &Credits)),
      CreditsCaption    (form, "lbl" + design.credits.name,     {.caption = design.credits.caption}),
      Credits           (form, "txt" + design.credits.name,     rule, Line(CreditsCaption,     design.tabIndex + 1, &Instalments)),
      InstalmentsCaption(form, "lbl" + design.instalments.name, {.caption = design.instalments.caption}),
      Instalments       (form, "txt" + design.instalments.name, rule, Line(InstalmentsCaption, design.tabIndex + 2, &Rebates)),
      RebatesCaption    (form, "lbl" + design.rebates.name,     {.caption = design.rebates.caption}),
      Rebates           (form, "txt" + design.rebates.name,     rule, Line(RebatesCaption,     design.tabIndex + 3, design.next)),
      PayableCaption    (form, "lbl" + design.payable.name,     {.caption = design.payable.caption, .bold = true}),
      Payable           (form, "txt" + design.payable.name,     design.payableTabIndex) {}
// clang-format on

void TaxLines::Recalculate() {
  ResumeNext::Run(
      [&] { Payable.Show(Collectible.Amount() - Credits.Amount() - Instalments.Amount() - Rebates.Amount()); });
}

Group TaxLines::Rows(std::vector<Row> ahead, const std::vector<Row>& aheadOfPayable) {
  Group group = {.rows = std::move(ahead)};
  group.rows.insert(group.rows.end(), {{{{&CollectibleCaption, &Collectible}}},
                                       {{{&CreditsCaption, &Credits}}},
                                       {{{&InstalmentsCaption, &Instalments}}},
                                       {{{&RebatesCaption, &Rebates}}}});
  group.rows.insert(group.rows.end(), aheadOfPayable.begin(), aheadOfPayable.end());
  group.rows.push_back({{{&PayableCaption, &Payable}}});
  return group;
}

}  // namespace fiscalon
