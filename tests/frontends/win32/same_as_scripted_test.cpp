#include <gtest/gtest.h>

#include <cstdlib>

#include "frontends/win32/played_win32_toolkit.h"
#include "tests/support/wanderer.h"

namespace fiscalon {
namespace {

unsigned Walks(unsigned usual, unsigned many) {
  return std::getenv("FISCALON_LONG") != nullptr ? many : usual;
}

TEST(Win32FrontEnd, DoesWhatTheScriptedOneDoes) {
  PlayedWin32Toolkit played;
  EXPECT_EQ(FirstDifferenceAtScreens(played, Walks(2, 300)), "");
}

TEST(Win32FrontEnd, DoesWhatTheScriptedOneDoesWithEveryKindOfControl) {
  PlayedWin32Toolkit played;
  std::string everything;
  EXPECT_EQ(FirstDifferenceAtEveryKind(played, Walks(20, 1000), everything), "");
  // Otherwise the walks would say nothing of these.
  for (const char* handler :
       {"optSecond_Click", "StatementOnly(0)_Click", "chkFinal_Click", "cmbProvince_Chosen", "lstInvoices_Chosen",
        "cmbProvince_Click", "txtPurpose_Change", "txtPeriod_LostFocus", "Form_QueryUnload"})
    EXPECT_NE(everything.find(std::string("  ") + handler + "\n"), std::string::npos) << handler;
}

}  // namespace
}  // namespace fiscalon
