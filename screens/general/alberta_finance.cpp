#include "screens/general/alberta_finance.h"

#include <array>
#include <cstdint>

#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "screens/parts/key_filter.h"
#include "screens/parts/refusal.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

struct TaxProgram {
  int16_t code = 0;
  std::string_view name = {};
};

/// The one program that is paid by facility.
constexpr std::string_view kTourismLevy = "Tourism Levy";

constexpr std::array kTaxPrograms = {
    TaxProgram{1, "Corporate Income Tax"},
    TaxProgram{10, "Fuel Tax Collectors"},
    TaxProgram{13, "Fuel Tax: Railway Companies"},
    TaxProgram{23, "Health Cost Recovery"},
    TaxProgram{3, "Insurance Tax"},
    TaxProgram{7, "International Fuel Tax Agreement (IFTA)"},
    TaxProgram{21, "Propane Tax: Collectors"},
    TaxProgram{11, "Tobacco Tax"},
    TaxProgram{5, kTourismLevy},
};

constexpr const char* kAskDate = "Please enter the Period End Date.";

constexpr DateRow kDateOnOk[] = {{date::IsMissing, kAskDate},
                                 {date::IsNotEightLong, kInvalidDate},
                                 {date::Trim},
                                 {date::IsInvalid, kInvalidDate},
                                 {date::ShowDigits}};

// Enter alone is Tab; Shift+Enter comes here, and stays in the field.
constexpr DateRow kDateOnEnterRows[] = {{date::IsMissing, kAskDate}, {date::IsNotEightLong}};

}  // namespace

constinit const DateRows frmAlbertaRevenue::kDateOnEnter = kDateOnEnterRows;

void frmAlbertaRevenue::SetupForm() {
  for (const TaxProgram& program : kTaxPrograms) cmbTaxProgram.AddItem(program.name);
  head.Show(Payment());
}

void frmAlbertaRevenue::cmbTaxProgram_Click() {
  txtFacilityNumber.Enabled(cmbTaxProgram.Text() == kTourismLevy);
}

Control* frmAlbertaRevenue::BehindPeriodEndDate() {
  return txtFacilityNumber.Enabled() ? static_cast<Control*>(&txtFacilityNumber) : &cmdOK;
}

void frmAlbertaRevenue::txtFacilityNumber_KeyPress(int& character) {
  FilterKey(txtFacilityNumber, character, kDigitsAlone);
}

bool frmAlbertaRevenue::CheckValues() {
  if (cmbTaxProgram.Text().empty())
    return Refuse(cmbTaxProgram, "Please select the tax program you wish to remit for.", MessageStyle::Information);
  if (!txtPeriodEndDate.Passes(kDateOnOk))
    return false;
  // Whether the field is open says whether the number counts.
  if (txtFacilityNumber.Enabled() && Trim(txtFacilityNumber.Text()).size() < 3)
    return Refuse(txtFacilityNumber, "Please enter your facility number.", MessageStyle::Information);
  return true;
}

void frmAlbertaRevenue::DoWrite() {
  const TaxProgram& program = kTaxPrograms.at(static_cast<size_t>(cmbTaxProgram.ListIndex()));
  BeginRecords();
  SendRecord(GovernmentRecord({.periodEndDate = txtPeriodEndDate.Text()}));
  // A number keyed before another program closed its field is written too.
  SendRecord(FreeRecord({NumberSlot("01", program.code),
                         NumberSlot("02", Money::FromDouble(LeadingNumber(txtFacilityNumber.Text()))), ZeroSlot("03"),
                         ZeroSlot("04")}));
  EndRecords();
}

}  // namespace fiscalon
