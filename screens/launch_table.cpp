#include <array>

#include "core/launch_properties.h"
#include "screens/federal/source_deductions.h"
#include "screens/general/due_date_amount.h"
#include "screens/general/invoice_payments.h"
#include "screens/quebec/source_deductions.h"

namespace fiscalon {
namespace {

template <class FormClass>
std::shared_ptr<Screen> Make() {
  return std::make_shared<FormClass>();
}

constexpr LaunchProperty kZelmorNumber{"ZelmorNumber", [](const Levyra& from, std::string_view, Screen& to) {
                                         static_cast<InvoicePayments&>(to).ZelmorNumber(from.ZelmorNumber());
                                       }};
constexpr std::array kWithZelmorNumber = {kCompName,    kPaidAmount, kPaidDate,     kEnterName, kEnterTitle,
                                          kGovFilename, kSeqNumber,  kZelmorNumber, kAPHoldFlg, kWriteFile};

constexpr std::array kWithCompCode = {kCompName,    kPaidAmount, kPaidDate,  kEnterName, kEnterTitle,
                                      kGovFilename, kSeqNumber,  kAPHoldFlg, kCompCode,  kWriteFile};

void SetUpSourceDeduct(Screen& screen) {
  static_cast<frmQue_Rev_SourceDeduct&>(screen).SetupForm();
}

// clang-format off
constexpr std::array kLaunchTable = {
    LaunchRow{"01", "ShowAssessmentForm",          "Assessment",               "Workers' compensation: period, classifications and assessments",
              kCommonOrder},
    LaunchRow{"02", "ShowCorpIncomeForm",          "GOVCORPINCOME",            "Corporate income tax: amounts owing or an instalment (RC98, RC99, RC100)",
              kCommonOrder},
    LaunchRow{"03", "ShowSourceDeductionForm",     "GOVSOURCEDEDUCTION",       "Federal source deductions: gross payroll, employees, end of period",
              kCommonOrder, Make<GOVSOURCEDEDUCTION>},
    LaunchRow{"04", "ShowIndividualForm",          "GOVINDIDUAL",              "Individual income tax: year of the instalment",
              kCommonOrder},
    LaunchRow{"05", "ShowGST34Form",               "GOVGST34",                 "GST/HST return of a registrant (GST34)",
              kCommonOrder},
    LaunchRow{"06", "ShowGST58Form",               "GOVGST58",                 "GST remittance by category (GST58)",
              kCommonOrder},
    LaunchRow{"07", "ShowGenericForm",             "GENERICFORM",              "Any biller: period, due date and up to twelve coded items",
              kCommonOrder},
    LaunchRow{"08", "ShowInvPaymentsForm",         "InvoicePayments",          "The invoices that a payment settles",
              kWithZelmorNumber, Make<InvoicePayments>},
    LaunchRow{"10", "ShowPaymentFrom",             "frmDonation",              "A donor's name and address",
              kCommonOrder},
    LaunchRow{"11", "ShowInvPaymentsForm",         "InvoicePayments",          "The invoices that a payment settles",
              kWithZelmorNumber, Make<InvoicePayments>},
    LaunchRow{"14", "ShowAlbertaRevenueForm",      "frmAlbertaRevenue",        "Alberta Finance: tax program and period",
              kCommonOrder},
    LaunchRow{"15", "ShowDueDateAmountForm",       "frmDueDateAmount",         "Any biller: end of the taxation year and amount payable",
              kWithCompCode, Make<frmDueDateAmount>},
    LaunchRow{"16", "ShowQue_Rev_QSTForm",         "frmQue_Rev_QST",           "Revenue Quebec: QST, or GST/HST, return",
              kWithCompCode},
    LaunchRow{"17", "ShowInstalmentForm",          "frmInstalments",           "Any biller: an instalment for a period",
              kWithCompCode},
    LaunchRow{"18", "ShowQue_Rev_QSTGSTReturnForm","frmQue_Rev_QSTGSTComb",    "Revenue Quebec: combined GST/HST and QST return",
              kWithCompCode},
    LaunchRow{"19", "ShowQue_Rev_QSTGSTInstForm",  "frmQue_Rev_QSTGSTInst",    "Revenue Quebec: GST/HST and QST instalment",
              kWithCompCode},
    LaunchRow{"20", "ShowQue_Rev_SourceDeductForm","frmQue_Rev_SourceDeduct",  "Revenue Quebec: source deductions by kind",
              kWithCompCode, Make<frmQue_Rev_SourceDeduct>, SetUpSourceDeduct},
    LaunchRow{"25", "ShowQue_Rev_CSST_Payments",   "frmQue_Rev_CSST_Payments", "Revenue Quebec: CSST payment",
              kWithCompCode},
    LaunchRow{"26", "ShowQue_Rev_CSST_Payments",   "frmQue_Rev_CSST_Payments", "Revenue Quebec: CSST payment",
              kWithCompCode},
    LaunchRow{"27", "ShowQue_Rev_CSST_Payments",   "frmQue_Rev_CSST_Payments", "Revenue Quebec: CSST payment",
              kWithCompCode},
    LaunchRow{"28", "ShowQue_Rev_GSTForm",         "frmQue_Rev_GST",           "Revenue Quebec: GST/HST return",
              kWithCompCode},
};
// clang-format on

}  // namespace

std::span<const LaunchRow> LaunchTable() {
  return kLaunchTable;
}

}  // namespace fiscalon
