#pragma once

#include "screens/quebec/source_deductions.h"
#include "tests/support/screen_test.h"

namespace fiscalon {

/// 1.00 + 2.00 + 3.00 + 4.00 + 5.00 dollars.
inline void FillIn(frmQue_Rev_SourceDeduct& form, UserDriver& user) {
  user.PressMouse(form.txtRemittancePeriod);
  Type(user,
       "202606"
       "100\r200\r300\r400\r500\r");
}

}  // namespace fiscalon
