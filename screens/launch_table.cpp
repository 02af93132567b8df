#include <algorithm>
#include <array>
#include <functional>

#include "core/launch_properties.h"
#include "screens/federal/assessment.h"
#include "screens/federal/corporate_income.h"
#include "screens/federal/gst34.h"
#include "screens/federal/gst58.h"
#include "screens/federal/individual_tax.h"
#include "screens/federal/source_deductions.h"
#include "screens/general/alberta_finance.h"
#include "screens/general/donation.h"
#include "screens/general/due_date_amount.h"
#include "screens/general/generic_remittance.h"
#include "screens/general/instalments.h"
#include "screens/general/invoice_payments.h"
#include "screens/quebec/combined_return.h"
#include "screens/quebec/csst_payments.h"
#include "screens/quebec/gst_return.h"
#include "screens/quebec/qst_gst_instalment.h"
#include "screens/quebec/qst_return.h"
#include "screens/quebec/source_deductions.h"

namespace fiscalon {
namespace {

template <class FormClass>
std::shared_ptr<Screen> Make() {
  return std::make_shared<FormClass>();
}

constexpr std::array kWithCompCode = {kCompName,    kPaidAmount, kPaidDate,  kEnterName, kEnterTitle,
                                      kGovFilename, kSeqNumber,  kAPHoldFlg, kCompCode,  kWriteFile};

// clang-format off

// What only one form receives.
constexpr LaunchProperty kNumberOfInfoCollect{"NumberOfInfoCollect", [](const Levyra& from, std::string_view, Screen& to) { static_cast<GENERICFORM&>(to).NumberOfInfoCollect(from.NumberOfInfoCollect()); }};
constexpr LaunchProperty kZelmorNumber{"ZelmorNumber", [](const Levyra& from, std::string_view, Screen& to) { static_cast<InvoicePayments&>(to).ZelmorNumber(from.ZelmorNumber()); }};
constexpr LaunchProperty kBusinessName{"BusinessName", [](const Levyra& from, std::string_view, Screen& to) { static_cast<frmDonation&>(to).BusinessName(from.BusinessName()); }};
constexpr LaunchProperty kScreenType{"ScreenType", [](const Levyra&, std::string_view code, Screen& to) { static_cast<frmQue_Rev_CSST_Payments&>(to).ScreenType(code); }};

// clang-format on

constexpr std::array kWithNumberOfInfoCollect = {kCompName,   kPaidAmount,  kPaidDate,  kEnterName,
                                                 kEnterTitle, kGovFilename, kSeqNumber, kNumberOfInfoCollect,
                                                 kAPHoldFlg,  kWriteFile};
constexpr std::array kWithZelmorNumber = {kCompName,    kPaidAmount, kPaidDate,     kEnterName, kEnterTitle,
                                          kGovFilename, kSeqNumber,  kZelmorNumber, kAPHoldFlg, kWriteFile};
constexpr std::array kWithBusinessName = {kCompName,    kPaidAmount, kPaidDate,  kEnterName,    kEnterTitle,
                                          kGovFilename, kSeqNumber,  kAPHoldFlg, kBusinessName, kWriteFile};
constexpr std::array kWithScreenType = {kCompName,  kPaidAmount, kPaidDate, kEnterName, kEnterTitle, kGovFilename,
                                        kSeqNumber, kAPHoldFlg,  kCompCode, kWriteFile, kScreenType};

void SetUpSourceDeduct(Screen& screen) {
  static_cast<frmQue_Rev_SourceDeduct&>(screen).SetupForm();
}

// clang-format off
constexpr std::array kLaunchTable = {
    LaunchRow{"01", "ShowAssessmentForm",          "Assessment",               "Workers' compensation: period, classifications and assessments",
              kCommonOrder, Make<Assessment>},
    LaunchRow{"02", "ShowCorpIncomeForm",          "GOVCORPINCOME",            "Corporate income tax: amounts owing or an instalment (RC98, RC99, RC100)",
              kCommonOrder, Make<GOVCORPINCOME>},
    LaunchRow{"03", "ShowSourceDeductionForm",     "GOVSOURCEDEDUCTION",       "Federal source deductions: gross payroll, employees, end of period",
              kCommonOrder, Make<GOVSOURCEDEDUCTION>},
    LaunchRow{"04", "ShowIndividualForm",          "GOVINDIDUAL",              "Individual income tax: year of the instalment",
              kCommonOrder, Make<GOVINDIDUAL>},
    LaunchRow{"05", "ShowGST34Form",               "GOVGST34",                 "GST/HST return of a registrant (GST34)",
              kCommonOrder, Make<GOVGST34>},
    LaunchRow{"06", "ShowGST58Form",               "GOVGST58",                 "GST remittance by category (GST58)",
              kCommonOrder, Make<GOVGST58>},
    LaunchRow{"07", "ShowGenericForm",             "GENERICFORM",              "Any biller: period, due date and up to twelve coded items",
              kWithNumberOfInfoCollect, Make<GENERICFORM>},
    LaunchRow{"08", "ShowInvPaymentsForm",         "InvoicePayments",          "The invoices that a payment settles",
              kWithZelmorNumber, Make<InvoicePayments>},
    LaunchRow{"10", "ShowPaymentFrom",             "frmDonation",              "A donor's name and address",
              kWithBusinessName, Make<frmDonation>},
    LaunchRow{"11", "ShowInvPaymentsForm",         "InvoicePayments",          "The invoices that a payment settles",
              kWithZelmorNumber, Make<InvoicePayments>},
    LaunchRow{"14", "ShowAlbertaRevenueForm",      "frmAlbertaRevenue",        "Alberta Finance: tax program and period",
              kCommonOrder, Make<frmAlbertaRevenue>},
    LaunchRow{"15", "ShowDueDateAmountForm",       "frmDueDateAmount",         "Any biller: end of the taxation year and amount payable",
              kWithCompCode, Make<frmDueDateAmount>},
    LaunchRow{"16", "ShowQue_Rev_QSTForm",         "frmQue_Rev_QST",           "Revenue Quebec: QST, or GST/HST, return",
              kWithCompCode, Make<frmQue_Rev_QST>},
    LaunchRow{"17", "ShowInstalmentForm",          "frmInstalments",           "Any biller: an instalment for a period",
              kWithCompCode, Make<frmInstalments>},
    LaunchRow{"18", "ShowQue_Rev_QSTGSTReturnForm","frmQue_Rev_QSTGSTComb",    "Revenue Quebec: combined GST/HST and QST return",
              kWithCompCode, Make<frmQue_Rev_QSTGSTComb>},
    LaunchRow{"19", "ShowQue_Rev_QSTGSTInstForm",  "frmQue_Rev_QSTGSTInst",    "Revenue Quebec: GST/HST and QST instalment",
              kWithCompCode, Make<frmQue_Rev_QSTGSTInst>},
    LaunchRow{"20", "ShowQue_Rev_SourceDeductForm","frmQue_Rev_SourceDeduct",  "Revenue Quebec: source deductions by kind",
              kWithCompCode, Make<frmQue_Rev_SourceDeduct>, SetUpSourceDeduct},
    LaunchRow{"25", "ShowQue_Rev_CSST_Payments",   "frmQue_Rev_CSST_Payments", "Revenue Quebec: CSST payment",
              kWithScreenType, Make<frmQue_Rev_CSST_Payments>},
    LaunchRow{"26", "ShowQue_Rev_CSST_Payments",   "frmQue_Rev_CSST_Payments", "Revenue Quebec: end of a remittance period",
              kWithScreenType, Make<frmQue_Rev_CSST_Payments>},
    LaunchRow{"27", "ShowQue_Rev_CSST_Payments",   "frmQue_Rev_CSST_Payments", "Revenue Quebec: month for which non-resident tax was withheld",
              kWithScreenType, Make<frmQue_Rev_CSST_Payments>},
    LaunchRow{"28", "ShowQue_Rev_GSTForm",         "frmQue_Rev_GST",           "Revenue Quebec: GST/HST return",
              kWithCompCode, Make<frmQue_Rev_GST>},
};
// clang-format on

static_assert(std::ranges::adjacent_find(kLaunchTable, std::ranges::greater_equal(), &LaunchRow::code) ==
                  std::ranges::end(kLaunchTable),
              "the codes stand in order, each once");

}  // namespace

std::span<const LaunchRow> LaunchTable() {
  return kLaunchTable;
}

}  // namespace fiscalon
