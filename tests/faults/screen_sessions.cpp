#include "tests/faults/screen_sessions.h"

#include <vector>

#include "core/forms/button.h"

namespace fiscalon {
namespace {

/// More invoices than a line of the file holds, so that a line before the failing one is written.
// clang-format off
constexpr GoodSession kThreeInvoices = {
    "08", "", "72500", "InvoiceDate", "20260601\rINV-100\r250.00\r" "20260602\rINV-101\r225.00\r" "20260603\rINV-102\r250.00\r", "cmdOK", 3, "RR"};
// clang-format on

std::vector<ScreenSession> EveryWayToConfirm() {
  std::vector<ScreenSession> sessions;
  const auto add = [&sessions](const GoodSession& good) {
    sessions.push_back({good, good.ok, good.failure});
    if (!good.confirming.name.empty())
      sessions.push_back({good, good.confirming.name, good.confirming.failure});
  };
  for (const GoodSession& good : kGoodSessions) add(good);
  add(kThreeInvoices);
  return sessions;
}

}  // namespace

std::span<const ScreenSession> ScreenSessions() {
  static const std::vector<ScreenSession> kSessions = EveryWayToConfirm();
  return kSessions;
}

void SetPayment(Levyra& host, const ScreenSession& session) {
  SetUp(session.good, host);
  host.GovFilename("payment.pc4");
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
