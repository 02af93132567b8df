#include "frontends/win32/form_window.h"
#include "frontends/win32/played_win32_toolkit.h"
#include "tests/faults/allocation_fault.h"
#include "tests/faults/showing_host.h"
#include "tests/frontends/win32/held_object.h"
#include "tests/support/every_kind_form.h"

namespace fiscalon {
namespace {

TEST(Win32FrontEnd, TellsTheHostThatMemoryIsOutAndGoesOn) {
  PlayedWin32Toolkit frontEnd;
  // Windows take their time.
  ExpectAllocationsMayFailOn(frontEnd, 3);
}

TEST(Win32FrontEnd, KeepsNothingOfWhatWasAskedOfAFormThatHasGone) {
  EveryKindForm form;
  PlayedWin32Toolkit frontEnd;
  frontEnd.onForm = [&](Form&, UserDriver&) {
    const win32::HeldObject purpose(frontEnd.Window()->ViewOf(form.txtPurpose).Window());
    for (int asked = 0; asked < 100; ++asked) EXPECT_EQ(purpose.PutValue(L"Levies of the whole of May"), S_OK);
  };
  constexpr int kUntilCachesAreFull = 3;
  for (int shown = 0; shown < kUntilCachesAreFull; ++shown) form.ShowModal(frontEnd);
  form.TakeNotes();
  const size_t before = LiveAllocations();
  form.ShowModal(frontEnd);
  form.TakeNotes();
  EXPECT_EQ(LiveAllocations(), before);
  EXPECT_EQ(form.txtPurpose.Text(), "");
}

TEST(Win32FrontEnd, LeavesTheObjectToTheSystemThatMemoryIsOutFor) {
  EveryKindForm form;
  PlayedWin32Toolkit frontEnd;
  frontEnd.onForm = [&](Form&, UserDriver&) {
    const HWND period = frontEnd.Window()->ViewOf(form.txtPeriod).Window();
    {
      const AllocationFault fault(1);
      EXPECT_EQ(::SendMessageW(period, WM_GETOBJECT, 0, OBJID_CLIENT), 0);
      EXPECT_EQ(fault.Allocations(), 1U);
    }
    EXPECT_EQ(win32::HeldObject(period).Name(), "Period ends on") << "there is memory again";
  };
  EXPECT_NO_THROW(form.ShowModal(frontEnd));
  // It takes another apartment where none is left.
  EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
  ::CoUninitialize();
}

}  // namespace
}  // namespace fiscalon
