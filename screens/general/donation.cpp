#include "screens/general/donation.h"

#include "core/email_address.h"
#include "core/messages.h"
#include "core/provinces.h"
#include "core/values/text.h"

namespace fiscalon {
namespace {

/// Silent, always false.
bool RefuseWhole(TextField& field) {
  field.SelectAll();
  FocusIfAble(field);
  return false;
}

/// Whether the text is no longer than what can be typed: with its label it then fits a line of the records. What the
/// host offers can be longer.
bool IsWithinLimit(TextField& field) {
  return static_cast<int>(field.Text().size()) <= field.MaxLength() || RefuseWhole(field);
}

}  // namespace

void frmDonation::Form_Load() {
  lblBillerName.Caption(AsGiven(Payment().compName));
  head.Show(Payment());
  txtAmount.Text(head.AmountPaid.Caption());
  LoadProvinces(cmbProvince);
  if (!Trim(businessName_).empty()) {
    txtName.Text(businessName_);
    txtName.Enabled(false);
  }
}

void frmDonation::TypedInCapitals(int& character) {
  DropQuote(character);
  Capitalize(character);
}

bool frmDonation::ValidateForm() {
  return IsWithinLimit(txtName) && IsWithinLimit(txtAddress) && IsWithinLimit(txtCity) &&
         IsWithinLimit(txtPostalCode) && EmailIsValid() && IsWithinLimit(txtPurpose);
}

bool frmDonation::EmailIsValid() {
  std::string message;
  const bool isAddress = IsValidEmail(txtEmail.Text(), message, Required::No);
  if (!message.empty())
    ShowMessage({.text = std::string_view(message), .style = MessageStyle::Critical, .title = "E-mail Address entry"});
  return isAddress ? IsWithinLimit(txtEmail) : RefuseWhole(txtEmail);
}

void frmDonation::DoWrite() {
  BeginRecords();
  for (const std::string& line :
       {"NAME: " + txtName.Text(), "ADDRESS: " + txtAddress.Text(),
        "         " + txtCity.Text() + " " + cmbProvince.Text(), "POSTAL CODE: " + txtPostalCode.Text(),
        "EMAIL: " + txtEmail.Text(),
        "PHONE NO: " + txtPhoneNo1.Text() + "-" + txtPhoneNo2.Text() + "-" + txtPhoneNo3.Text(),
        "AMOUNT: " + txtAmount.Text(), "PURPOSE: " + txtPurpose.Text()})
    SendRecord(ComposePrintableLine(Payment().seqNumber, line));
  EndRecords();
}

}  // namespace fiscalon
