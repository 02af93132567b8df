#pragma once

#include "core/forms/control_array.h"
#include "tests/support/every_kind_form.h"

namespace fiscalon {

/// A form with a control of every kind, and handlers that do to them what those of screens do: check boxes that clear
/// each other from their own Click, a frame that is disabled with what it holds, checks on leaving, some of which pull
/// the focus from each other, a field that fills up, a choice that moves the focus on, a field that is closed and
/// selected.
class BusyForm : public EveryKindForm {
 public:
  ControlArray<CheckBox, 2> StatementOnly{*this,
                                          "StatementOnly",
                                          [](int index) {
                                            return ToggleDesign{.caption = index == 0 ? "Statement" : "Details",
                                                                .tabIndex = 8 + index,
                                                                .value = index == 1};
                                          },
                                          {.click = On(&BusyForm::StatementOnly_Click)}};

  BusyForm() {
    when["txtPeriod_Change"] = [this] {
      if (txtPeriod.Text().size() == 6)
        txtTotal.SetFocus();
    };
    when["txtPeriod_LostFocus"] = [this] {
      if (txtPeriod.Text() == "x" || StatementOnly[0].Value())
        KeepFocus(txtPeriod);
    };
    when["txtTotal_LostFocus"] = [this] {
      if (!txtTotal.Text().empty())
        txtTotal.Text("0.00");
      if (StatementOnly[0].Value())
        KeepFocus(txtTotal);
    };
    when["optSecond_Click"] = [this] { txtTotal.Locked(optSecond.Value()); };
    when["chkFinal_Click"] = [this] {
      fraKind.Enabled(!chkFinal.Value());
      lblTotal.Visible(!chkFinal.Value());
    };
    when["cmbProvince_Click"] = [this] {
      txtPurpose.Enabled(cmbProvince.Text() != "Manitoba");
      txtPurpose.SelectAll();
    };
    when["cmbProvince_Chosen"] = [this] {
      if (txtPurpose.Enabled())
        txtPurpose.SetFocus();
    };
    when["lstInvoices_Chosen"] = [this] { txtPurpose.Text(lstInvoices.Text() + "\r\nis paid"); };
    when["cmdOK_Click"] = [this] { fraKind.Visible(!fraKind.Visible()); };
    when["cmdCancel_Click"] = [this] {
      lstInvoices.AddItem(AsGiven("INV-" + std::to_string(lstInvoices.ListCount() + 1)));
    };
  }

 private:
  /// What a check does that refuses an entry.
  void KeepFocus(TextField& field) {
    if (ActiveControl() != &cmdCancel)
      field.SetFocus();
  }
  void StatementOnly_Click(int index) { StatementOnly[1 - index].Value(!StatementOnly[index].Value()); }
};

}  // namespace fiscalon
