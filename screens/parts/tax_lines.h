#pragma once

#include <string>
#include <vector>

#include "core/forms/label.h"
#include "core/forms/layout.h"
#include "screens/parts/amount_entry.h"
#include "screens/parts/asked.h"
#include "screens/parts/calculated_total.h"

namespace fiscalon {

/// A line of a return as a form's table gives it to its part: the field bears its name behind "txt", the label behind
/// "lbl".
struct ReturnLine {
  std::string name = {};
  Wording caption = {};
};

struct TaxLinesDesign {
  ReturnLine collectible = {};
  ReturnLine credits = {};
  ReturnLine instalments = {};
  ReturnLine rebates = {};
  ReturnLine payable = {};
  /// Of the first line; those up to the rebates follow.
  int tabIndex = 0;
  int payableTabIndex = 0;
  /// Where the focus goes from full rebates.
  Asked<Control*> next = {};
};

/// The lines of one tax on a return to Revenue Quebec: the tax collectible, from which credits, instalments and rebates
/// are taken, and what is payable or, below zero, a refund.
class TaxLines {
 public:
  TaxLines(Form& form, const AmountRule& rule, const TaxLinesDesign& design);

  /// What is payable, anew. With resume-next.
  void Recalculate();

  /// All lines in one column, with the form's own that stand ahead of them and ahead of what is payable.
  Group Rows(std::vector<Row> ahead, const std::vector<Row>& aheadOfPayable);

  Label CollectibleCaption;
  AmountEntry Collectible;
  Label CreditsCaption;
  AmountEntry Credits;
  Label InstalmentsCaption;
  AmountEntry Instalments;
  Label RebatesCaption;
  AmountEntry Rebates;
  Label PayableCaption;
  CalculatedTotal Payable;
};

}  // namespace fiscalon
