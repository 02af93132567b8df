#pragma once

#include <cstdint>
#include <string_view>

#include "core/forms/form.h"
#include "core/session.h"
#include "frontends/played/user_driver.h"

namespace fiscalon {

/// What becomes of a failure while the records are written.
enum class OutputFailure {
  /// The form's show ends with the error, which the host gets. The form stays loaded.
  ReachesHost,
  /// Nobody hears of it: the payment counts as confirmed.
  Accepts,
  /// The user is told, and the error log; then the payment counts as confirmed.
  IsReported,
  /// Nobody hears of it, and the form stays up.
  StaysUp,
};

/// The field in which Enter confirms as OK does. Most screens have none.
struct ConfirmingField {
  std::string_view name = {};
  OutputFailure failure = OutputFailure::ReachesHost;
};

/// A payment and what a user does for it until OK writes its records, for each screen.
struct GoodSession {
  std::string_view code = {};
  std::string_view biller = {};
  std::string_view cents = {};
  /// The control that is clicked before anything is typed; empty for the first focus of the form.
  std::string_view first = {};
  /// "\r" is Enter, "\t" is Tab.
  std::string_view typed = {};
  std::string_view ok = {};
  /// How many records the collection holds.
  int32_t records = 0;
  /// The record kinds that the file holds instead, line by line.
  std::string_view kinds = {};
  /// What becomes of a failure behind OK.
  OutputFailure failure = OutputFailure::ReachesHost;
  ConfirmingField confirming = {};
};

// clang-format off
inline constexpr GoodSession kGoodSessions[] = {
    {"01", "", "845230", "WCBperiodfrommm", "04062026" "4013207\r5210.75\r4520118\r2485.15\r8631004\r756.40\r", "Command3D6", 3, "TFF"},
    {"02", "", "1250000", "optRC100", "20261231", "Command3D6", 2, "TF", OutputFailure::Accepts},
    {"03", "", "12345", "", "5000\r12\r20260531", "Command3D6", 2, "TF", OutputFailure::Accepts},
    {"04", "", "318750", "", "2026\r", "Command3D6", 2, "TF", {}, {"PaymentAmount"}},
    {"05", "", "427800", "", "20260301" "20260531" "184500\r1500.00\r120.50\r\r84.25\r9225.00\r3410.75\r", "Command1", 4, "TFFF"},
    {"06", "", "512640", "", "20260301" "20260531" "4200.00\r310.40\r25.00\r91.00\r500.00\r", "Command3D6", 3, "TFF", {}, {"PaymentEnclosed", OutputFailure::StaysUp}},
    {"07", "", "248350", "", "20260401" "20260430" "20260515" "PF-4471209\r18250\r0.136\rR2\r2026-04\r", "Command3D6", 3, "TFF", OutputFailure::Accepts},
    {"08", "", "99950", "InvoiceDate", "20260601\rINV-100\r400.00\r" "20260602\rINV-101\r599.50\r", "cmdOK", 2, "R"},
    {"10", "", "25000", "", "HELENE COTE\t1420 RUE SAINT-DENIS\tMONTREAL\tQC\tH2X 3J8\t\t5145550142\t\t", "cmdOK", 8, "PPPPPPPP"},
    {"11", "", "12345", "InvoiceDate", "20260601\rINV-100\r123.45\r", "cmdOK", 1, "R"},
    {"14", "", "184275", "", "TOURISM LEVY\t20260531417", "cmdOK", 2, "TF"},
    {"15", "000015", "12345", "", "202612" "12345", "cmdOK", 2, "TF"},
    {"16", "001053", "845230", "", "20260101" "20260331" "185640.00\r18517.59\r7065.29\r3000.00\r0\r", "cmdOK", 3, "TFF"},
    {"17", "", "127550", "", "20260401" "20260630" "1275.50\t", "cmdOK", 2, "TF"},
    {"18", "001055", "1265230", "", "123456782RT0001" "20260101" "20260331" "20260101" "20260331"
                                    "9282.00\r3541.70\r1500.00\r40.30\r0\r18517.59\r7065.29\r3000.00\r0\r185640.00\r", "cmdOK", 5, "TFFFF"},
    {"19", "001051", "629000", "", "20260401" "20260630" "2100.00\r4190.00\r", "cmdOK", 2, "TF"},
    {"20", "001051", "12345", "", "202606" "100.00\r20.00\r3.45\r\r\r", "cmdOK", 3, "TFF", OutputFailure::IsReported},
    {"25", "001051", "845230", "", "20260531", "cmdOK", 2, "TF"},
    {"26", "001051", "1250000", "", "20251231", "cmdOK", 1, "T"},
    {"27", "001051", "318075", "", "202605", "cmdOK", 2, "TF"},
    {"28", "001055", "420000", "", "20260101" "20260331"
                                   "185640.00\r9282.00\r3541.70\r1500.00\r40.30\r0\r12500.00\r64000.00\r125.50\r", "cmdOK", 4, "TFFF"},
};
// clang-format on

/// The payment of June 15, 2026, whose records go to the collection.
inline void SetUp(const GoodSession& good, Levyra& session) {
  session.CompCode(good.biller);
  session.CompName("Summit Levies");
  session.PaidAmount(good.cents);
  session.PaidDate("06152026");
  session.EnterName("Jane Doe");
  session.EnterTitle("Clerk");
  session.SeqNumber("0001");
  session.NumberOfInfoCollect("5");
  session.GovFilename("");
  session.WriteFile(kFalse);
}

/// The user's part before OK, of which no more than the first keys.
inline void FillIn(const GoodSession& good, Form& form, UserDriver& user, size_t keys = std::string_view::npos) {
  if (!good.first.empty())
    user.Click(form.ControlNamed(good.first));
  for (const char character : good.typed.substr(0, keys))
    if (form.IsUp())
      user.Type(character);
}

}  // namespace fiscalon
