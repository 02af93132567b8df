#include "core/records/field_names.h"

namespace fiscalon {

/// Apart, since the kinds' short names mean something else in other sources.
namespace field_names {
namespace {

using enum FieldKind;

// clang-format off
constexpr FieldName kAssessment[] = {
    {"01", "Classification", Text},
    {"02", "Assessment",     Amount},
    {"03", "Classification", Text},
    {"04", "Assessment",     Amount},
    {"05", "Classification", Text},
    {"06", "Assessment",     Amount},
    {"07", "Classification", Text},
    {"08", "Assessment",     Amount},
    {"09", "Classification", Text},
    {"10", "Assessment",     Amount},
    {"11", "Classification", Text},
    {"12", "Assessment",     Amount},
};

constexpr FieldName kCorporateIncome[] = {
    {"01", "Instalment Payment",       Amount},
    {"02", "Remittance Period Ending", Date},
    {"03", "Amounts Owing Payment",    Amount},
};

constexpr FieldName kFederalSourceDeductions[] = {
    {"01", "Amount of Payment",                 Amount},
    {"02", "End of Remitting Period",           Date},
    {"03", "Gross Payroll in Remitting Period", WholeDollars},
    {"04", "Number of Employees",               Count},
};

constexpr FieldName kIndividualTax[] = {
    {"01", "Instalment Payment for", Year},
    {"02", "Amount of Payment",      Amount},
};

constexpr FieldName kGst34[] = {
    {"01", "Sales and Other Revenue (101)",                             WholeDollars},
    {"02", "Total GST/HST and adjustments for period (105)",            Amount},
    {"03", "Instalments and Other Annual Filer Payments (110)",         Amount},
    {"04", "Total ITCs and adjustments (108)",                          Amount},
    {"05", "Rebates (111)",                                             Amount},
    {"06", "Net tax (109)",                                             Amount},
    {"07", "GST/HST due on acquisition of taxable real property (205)", Amount},
    {"08", "Refund claimed (114)",                                      Amount},
    {"09", "Other GST/HST to be self-assessed (405)",                   Amount},
    {"10", "Payment enclosed (115)",                                    Amount},
};

constexpr FieldName kGst58[] = {
    {"01", "Instalment Payment",     Amount},
    {"02", "Arrears Payment",        Amount},
    {"03", "Audit Assessment",       Amount},
    {"04", "Other Payment",          Amount},
    {"05", "Total Payment Enclosed", Amount},
    {"06", "Net Tax Remittance",     Amount},
};

constexpr FieldName kGenericRemittance[] = {
    {"01", "A-01", Text},
    {"02", "B-02", Text},
    {"03", "C-03", Text},
    {"04", "D-04", Text},
    {"05", "E-05", Text},
    {"06", "F-06", Text},
    {"07", "G-07", Text},
    {"08", "H-08", Text},
    {"09", "I-09", Text},
    {"10", "J-10", Text},
    {"11", "K-11", Text},
    {"12", "L-12", Text},
};

constexpr FieldName kAlbertaFinance[] = {
    {"01", "Tax Program",     Count},
    {"02", "Facility Number", Count},
};

constexpr FieldName kDueDateAmount[] = {
    {"01", "Amount payable", Amount},
};

// For one biller the same screen is a GST/HST return, with lines of its own.
constexpr FieldName kQstReturn[] = {
    {"01", "Supplies (sales figure) (201, GST/HST 101)",         Amount},
    {"02", "Tax collectible and adjustments (205, GST/HST 105)", Amount},
    {"03", "ITRs and adjustments (208, GST/HST ITCs 108)",       Amount},
    {"04", "Instalments (210, GST/HST 110)",                     Amount},
    {"05", "Payable or refund (213, GST/HST 113)",               Amount},
    {"06", "Other Rebates (211, GST/HST 111)",                   Amount},
    {"07", "New Housing Rebate Included in the ITCs (135)",      Amount},
};

constexpr FieldName kInstalments[] = {
    {"01", "Instalment Amount", Amount},
};

constexpr FieldName kCombinedReturn[] = {
    {"01", "Supplies (sales figure) (101)",                 Amount},
    {"02", "QST collectible and adjustments (205)",         Amount},
    {"03", "ITRs payable and adjustments (208)",            Amount},
    {"04", "QST instalment (210)",                          Amount},
    {"05", "QST payable or refund (213)",                   Amount},
    {"06", "GST/HST collectible and adjustments (105)",     Amount},
    {"07", "ITCs payable and adjustments (108)",            Amount},
    {"08", "GST/HST instalment (110)",                      Amount},
    {"09", "GST/HST payable or refund (113)",               Amount},
    {"10", "GST account number",                            Text},
    {"11", "GST/HST From",                                  Date},
    {"12", "GST/HST To",                                    Date},
    {"13", "Other QST Rebates (211)",                       Amount},
    {"14", "Other GST/HST Rebates (111)",                   Amount},
    {"15", "New Housing Rebate Included in the ITCs (135)", Amount},
};

constexpr FieldName kQstGstInstalment[] = {
    {"01", "QST Instalment",     Amount},
    {"02", "GST/HST Instalment", Amount},
};

constexpr FieldName kQuebecSourceDeductions[] = {
    {"01", "Income tax withheld and compensation tax", Amount},
    {"02", "QPP contributions",                        Amount},
    {"03", "Contribution to the health services fund", Amount},
    {"04", "QPIP premiums",                            Amount},
    {"05", "Remittance Type",                          Count},
    {"06", "CSST payments",                            Amount},
};

constexpr FieldName kCsstPayment[] = {
    {"01", "CSST Payable", Amount},
};

constexpr FieldName kNonResidentTax[] = {
    {"01", "Month for which non-resident tax was withheld", Month},
};

constexpr FieldName kGstReturn[] = {
    {"01", "Supplies (sales figure) (101)",                             Amount},
    {"02", "GST/HST collectible and adjustments (105)",                 Amount},
    {"03", "ITCs and adjustments (108)",                                Amount},
    {"04", "GST/HST instalments (110)",                                 Amount},
    {"05", "GST/HST payable or refund (113)",                           Amount},
    {"06", "Other GST/HST Rebates (111)",                               Amount},
    {"07", "New Housing Rebate Included in the ITCs (135)",             Amount},
    {"08", "Pension plan rebate included in the ITCs (136)",            Amount},
    {"09", "Exempt supplies, zero-rated exports, and other sales (91)", Amount},
    {"10", "Associates' taxable sales made in Canada (102)",            Amount},
};

constexpr ScreenFields kFieldTable[] = {
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
}  // namespace field_names

std::span<const ScreenFields> FieldTable() {
  return field_names::kFieldTable;
}

}  // namespace fiscalon
