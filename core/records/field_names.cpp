#include "core/records/field_names.h"

namespace fiscalon {
namespace {

// clang-format off
constexpr FieldName kAssessment[] = {
    {"01", "Classification"},
    {"02", "Assessment"},
    {"03", "Classification"},
    {"04", "Assessment"},
    {"05", "Classification"},
    {"06", "Assessment"},
    {"07", "Classification"},
    {"08", "Assessment"},
    {"09", "Classification"},
    {"10", "Assessment"},
    {"11", "Classification"},
    {"12", "Assessment"},
};

constexpr FieldName kCorporateIncome[] = {
    {"01", "Instalment Payment"},
    {"02", "Remittance Period Ending"},
    {"03", "Amounts Owing Payment"},
};

constexpr FieldName kFederalSourceDeductions[] = {
    {"01", "Amount of Payment"},
    {"02", "End of Remitting Period"},
    {"03", "Gross Payroll in Remitting Period"},
    {"04", "Number of Employees"},
};

constexpr FieldName kIndividualTax[] = {
    {"01", "Instalment Payment for"},
    {"02", "Amount of Payment"},
};

constexpr FieldName kGst34[] = {
    {"01", "Sales and Other Revenue (101)"},
    {"02", "Total GST/HST and adjustments for period (105)"},
    {"03", "Instalments and Other Annual Filer Payments (110)"},
    {"04", "Total ITCs and adjustments (108)"},
    {"05", "Rebates (111)"},
    {"06", "Net tax (109)"},
    {"07", "GST/HST due on acquisition of taxable real property (205)"},
    {"08", "Refund claimed (114)"},
    {"09", "Other GST/HST to be self-assessed (405)"},
    {"10", "Payment enclosed (115)"},
};

constexpr FieldName kGst58[] = {
    {"01", "Instalment Payment"},
    {"02", "Arrears Payment"},
    {"03", "Audit Assessment"},
    {"04", "Other Payment"},
    {"05", "Total Payment Enclosed"},
    {"06", "Net Tax Remittance"},
};

constexpr FieldName kGenericRemittance[] = {
    {"01", "A-01"},
    {"02", "B-02"},
    {"03", "C-03"},
    {"04", "D-04"},
    {"05", "E-05"},
    {"06", "F-06"},
    {"07", "G-07"},
    {"08", "H-08"},
    {"09", "I-09"},
    {"10", "J-10"},
    {"11", "K-11"},
    {"12", "L-12"},
};

constexpr FieldName kAlbertaFinance[] = {
    {"01", "Tax Program"},
    {"02", "Facility Number"},
};

constexpr FieldName kDueDateAmount[] = {
    {"01", "Amount payable"},
};

// For one biller the same screen is a GST/HST return, with lines of its own.
constexpr FieldName kQstReturn[] = {
    {"01", "Supplies (sales figure) (201, GST/HST 101)"},
    {"02", "Tax collectible and adjustments (205, GST/HST 105)"},
    {"03", "ITRs and adjustments (208, GST/HST ITCs 108)"},
    {"04", "Instalments (210, GST/HST 110)"},
    {"05", "Payable or refund (213, GST/HST 113)"},
    {"06", "Other Rebates (211, GST/HST 111)"},
    {"07", "New Housing Rebate Included in the ITCs (135)"},
};

constexpr FieldName kInstalments[] = {
    {"01", "Instalment Amount"},
};

constexpr FieldName kCombinedReturn[] = {
    {"01", "Supplies (sales figure) (101)"},
    {"02", "QST collectible and adjustments (205)"},
    {"03", "ITRs payable and adjustments (208)"},
    {"04", "QST instalment (210)"},
    {"05", "QST payable or refund (213)"},
    {"06", "GST/HST collectible and adjustments (105)"},
    {"07", "ITCs payable and adjustments (108)"},
    {"08", "GST/HST instalment (110)"},
    {"09", "GST/HST payable or refund (113)"},
    {"10", "GST account number"},
    {"11", "GST/HST From"},
    {"12", "GST/HST To"},
    {"13", "Other QST Rebates (211)"},
    {"14", "Other GST/HST Rebates (111)"},
    {"15", "New Housing Rebate Included in the ITCs (135)"},
};

constexpr FieldName kQstGstInstalment[] = {
    {"01", "QST Instalment"},
    {"02", "GST/HST Instalment"},
};

constexpr FieldName kQuebecSourceDeductions[] = {
    {"01", "Income tax withheld and compensation tax"},
    {"02", "QPP contributions"},
    {"03", "Contribution to the health services fund"},
    {"04", "QPIP premiums"},
    {"05", "Remittance Type"},
    {"06", "CSST payments"},
};

constexpr FieldName kCsstPayment[] = {
    {"01", "CSST Payable"},
};

constexpr FieldName kNonResidentTax[] = {
    {"01", "Month for which non-resident tax was withheld"},
};

constexpr FieldName kGstReturn[] = {
    {"01", "Supplies (sales figure) (101)"},
    {"02", "GST/HST collectible and adjustments (105)"},
    {"03", "ITCs and adjustments (108)"},
    {"04", "GST/HST instalments (110)"},
    {"05", "GST/HST payable or refund (113)"},
    {"06", "Other GST/HST Rebates (111)"},
    {"07", "New Housing Rebate Included in the ITCs (135)"},
    {"08", "Pension plan rebate included in the ITCs (136)"},
    {"09", "Exempt supplies, zero-rated exports, and other sales (91)"},
    {"10", "Associates' taxable sales made in Canada (102)"},
};

struct ScreenFields {
  std::string_view code = {};
  std::span<const FieldName> names = {};
};

constexpr ScreenFields kScreenFields[] = {
    {"01", kAssessment},
    {"02", kCorporateIncome},
    {"03", kFederalSourceDeductions},
    {"04", kIndividualTax},
    {"05", kGst34},
    {"06", kGst58},
    {"07", kGenericRemittance},
    {"14", kAlbertaFinance},
    {"15", kDueDateAmount},
    {"16", kQstReturn},
    {"17", kInstalments},
    {"18", kCombinedReturn},
    {"19", kQstGstInstalment},
    {"20", kQuebecSourceDeductions},
    {"25", kCsstPayment},
    {"27", kNonResidentTax},
    {"28", kGstReturn},
};
// clang-format on

}  // namespace

std::span<const FieldName> FieldNamesOf(std::string_view screenCode) {
  for (const ScreenFields& screen : kScreenFields)
    if (screen.code == screenCode)
      return screen.names;
  return {};
}

std::string_view FieldNameOf(std::string_view screenCode, std::string_view number) {
  for (const FieldName& field : FieldNamesOf(screenCode))
    if (field.number == number)
      return field.name;
  return {};
}

}  // namespace fiscalon
