#include "tests/faults/screen_sessions.h"

#include "core/forms/button.h"

namespace fiscalon {
namespace {

using enum OutputFailure;

// clang-format off
constexpr ScreenSession kSessions[] = {
    {"01", "", "845230", "WCBperiodfrommm", "04062026" "4013207\r5210.75\r4520118\r2485.15\r8631004\r756.40\r", "Command3D6", ReachesHost, "TFF", 3},
    {"02", "", "1250000", "optRC100", "20261231", "Command3D6", Accepts, "TF", 2},
    {"03", "", "12345", "", "5000\r12\r20260531", "Command3D6", Accepts, "TF", 2},
    {"04", "", "318750", "", "2026\r", "Command3D6", ReachesHost, "TF", 2},
    {"04", "", "318750", "", "2026\r", "PaymentAmount", ReachesHost, "TF", 2},
    {"05", "", "427800", "", "20260301" "20260531" "184500\r1500.00\r120.50\r\r84.25\r9225.00\r3410.75\r", "Command1", ReachesHost, "TFFF", 4},
    {"06", "", "512640", "", "20260301" "20260531" "4200.00\r310.40\r25.00\r91.00\r500.00\r", "Command3D6", ReachesHost, "TFF", 3},
    {"06", "", "512640", "", "20260301" "20260531" "4200.00\r310.40\r25.00\r91.00\r500.00\r", "PaymentEnclosed", StaysUp, "TFF", 3},
    {"07", "", "248350", "", "20260401" "20260430" "20260515" "PF-4471209\r18250\r0.136\rR2\r2026-04\r", "Command3D6", Accepts, "TFF", 3},
    {"08", "", "72500", "InvoiceDate", "20260601\rINV-100\r250.00\r" "20260602\rINV-101\r225.00\r" "20260603\rINV-102\r250.00\r", "cmdOK", ReachesHost, "RR", 3},
    {"10", "", "25000", "", "HELENE COTE\t1420 RUE SAINT-DENIS\tMONTREAL\tQC\tH2X 3J8\t\t5145550142\t\t", "cmdOK", ReachesHost, "PPPPPPPP", 8},
    {"11", "", "47500", "InvoiceDate", "20260601\rINV-100\r250.00\r" "20260602\rINV-101\r225.00\r", "cmdOK", ReachesHost, "R", 2},
    {"14", "", "184275", "", "TOURISM LEVY\t20260531417", "cmdOK", ReachesHost, "TF", 2},
    {"15", "000015", "12345", "", "202612" "12345", "cmdOK", ReachesHost, "TF", 2},
    {"16", "001053", "845230", "", "20260101" "20260331" "185640.00\r18517.59\r7065.29\r3000.00\r0\r", "cmdOK", ReachesHost, "TFF", 3},
    {"17", "", "127550", "", "20260401" "20260630" "1275.50\t", "cmdOK", ReachesHost, "TF", 2},
    {"18", "001055", "1265230", "", "123456782RT0001" "20260101" "20260331" "20260101" "20260331"
                                    "9282.00\r3541.70\r1500.00\r40.30\r0\r18517.59\r7065.29\r3000.00\r0\r185640.00\r", "cmdOK", ReachesHost, "TFFFF", 5},
    {"19", "001051", "629000", "", "20260401" "20260630" "2100.00\r4190.00\r", "cmdOK", ReachesHost, "TF", 2},
    {"20", "001051", "12345", "", "202606" "100.00\r20.00\r3.45\r\r\r", "cmdOK", IsReported, "TFF", 3},
    {"25", "001051", "845230", "", "20260531", "cmdOK", ReachesHost, "TF", 2},
    {"26", "001051", "1250000", "", "20251231", "cmdOK", ReachesHost, "T", 1},
    {"27", "001051", "318075", "", "202605", "cmdOK", ReachesHost, "TF", 2},
    {"28", "001055", "420000", "", "20260101" "20260331"
                                   "185640.00\r9282.00\r3541.70\r1500.00\r40.30\r0\r12500.00\r64000.00\r125.50\r", "cmdOK", ReachesHost, "TFFF", 4},
};
// clang-format on

}  // namespace

std::span<const ScreenSession> ScreenSessions() {
  return kSessions;
}

void SetPayment(Levyra& host, const ScreenSession& session) {
  host.CompCode(session.biller);
  host.CompName("Summit Levies");
  host.PaidAmount(session.cents);
  host.PaidDate("06152026");
  host.EnterName("Jane Doe");
  host.EnterTitle("Clerk");
  host.SeqNumber("0001");
  host.NumberOfInfoCollect("5");
  host.GovFilename("payment.pc4");
}

void FillIn(const ScreenSession& session, Form& form, UserDriver& user) {
  if (*session.first != 0)
    user.Click(form.ControlNamed(session.first));
  for (const char* typed = session.typed; *typed != 0; ++typed) user.Type(*typed);
}

void Confirm(const ScreenSession& session, Form& form, UserDriver& user) {
  Control& control = form.ControlNamed(session.ok);
  if (dynamic_cast<Button*>(&control) != nullptr) {
    user.Click(control);
  } else {
    user.PressMouse(control);
    user.Type('\r');
  }
}

void Cancel(Form& form, UserDriver& user) {
  for (const char* name : {"cmdCancel", "Command3D5", "Command2"})
    if (Control* const cancel = form.FindControl(name))
      return user.Click(*cancel);
}

}  // namespace fiscalon
