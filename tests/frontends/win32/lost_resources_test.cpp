#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <system_error>
#include <thread>

#include "frontends/win32/dialog_fonts.h"
#include "tests/frontends/win32/played_form.h"

// What the system takes away or refuses in the middle of an act: fonts, and the clipboard, which others hold. Windows
// and allocations have tests of their own.

namespace fiscalon::win32 {
namespace {

using testing::ElementsAre;

/// Keeps the clipboard open for another window, as a program does that hangs over it.
class HeldClipboard {
 public:
  HeldClipboard() {
    std::promise<void> held;
    thread_ = std::thread([this, &held] {
      const HWND window = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
      EXPECT_NE(::OpenClipboard(window), FALSE);
      held.set_value();
      released_.get_future().wait();
      ::CloseClipboard();
      ::DestroyWindow(window);
    });
    held.get_future().wait();
  }
  ~HeldClipboard() {
    released_.set_value();
    thread_.join();
  }
  HeldClipboard(const HeldClipboard&) = delete;
  HeldClipboard& operator=(const HeldClipboard&) = delete;

 private:
  std::promise<void> released_;
  std::thread thread_;
};

class LostClipboard : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  static void WithControl(UserDriver& user, int key) {
    user.PressKey({.keyCode = key, .shift = shift_state::kControl});
  }
  void ShowAtPeriod(const std::function<void(UserDriver& user)>& act) {
    Show(form, [&](FormWindow&, UserDriver& user) {
      user.PressMouse(form.txtPeriod);
      Type(user, "2026");
      WithControl(user, 'A');
      act(user);
    });
  }
};

TEST_F(LostClipboard, PastesNothingAndKeepsWhatIsSelected) {
  ShowAtPeriod([&](UserDriver& user) {
    WithControl(user, 'C');
    {
      const HeldClipboard held;
      WithControl(user, 'V');
      EXPECT_EQ(user.Text(form.txtPeriod), "2026");
      EXPECT_EQ(user.SelectedText(form.txtPeriod), "2026");
    }
    Press(user, "Delete");
    WithControl(user, 'V');
    EXPECT_EQ(form.txtPeriod.Text(), "2026") << "it is there again";
  });
}

TEST_F(LostClipboard, CutsNothingThatItCanNotHold) {
  ShowAtPeriod([&](UserDriver& user) {
    {
      const HeldClipboard held;
      WithControl(user, 'X');
      EXPECT_EQ(user.Text(form.txtPeriod), "2026");
      EXPECT_EQ(form.txtPeriod.Text(), "2026");
    }
    WithControl(user, 'X');
    EXPECT_EQ(form.txtPeriod.Text(), "");
  });
}

TEST_F(LostClipboard, PastesNothingMoreWhereAHandlerEmptiesItInAPaste) {
  form.when["txtPeriod_Change"] = [] {
    if (::OpenClipboard(nullptr) != FALSE) {
      ::EmptyClipboard();
      ::CloseClipboard();
    }
  };
  ShowAtPeriod([&](UserDriver& user) {
    WithControl(user, 'C');
    Press(user, "End");
    WithControl(user, 'V');
    EXPECT_EQ(form.txtPeriod.Text(), "202620");
    EXPECT_EQ(::IsClipboardFormatAvailable(CF_UNICODETEXT), FALSE);
    WithControl(user, 'A');
    WithControl(user, 'V');
    EXPECT_EQ(form.txtPeriod.Text(), "202620");
    EXPECT_EQ(user.Text(form.txtPeriod), "202620");
  });
}

class LostFonts : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  ~LostFonts() override { GiveBack(); }

  /// From here on there is no room for a font, nor for anything else that is drawn with.
  void TakeAll() {
    while (const HGDIOBJ taken = ::CreateSolidBrush(0)) taken_.push_back(taken);
  }
  void GiveBack() {
    for (const HGDIOBJ taken : taken_) ::DeleteObject(taken);
    taken_.clear();
  }

 private:
  std::vector<HGDIOBJ> taken_;
};

TEST_F(LostFonts, AreAnErrorToTheHostWhereTheFormWouldOpen) {
  TakeAll();
  EXPECT_THROW(Show(form, [](FormWindow&, UserDriver&) {}), std::system_error);
  EXPECT_FALSE(form.IsUp());
  GiveBack();
  bool shown = false;
  Show(form, [&](FormWindow&, UserDriver&) { shown = true; });
  EXPECT_TRUE(shown);
}

TEST_F(LostFonts, LeaveTheFormAsItIsWhereTheScaleChangesInAnAct) {
  form.when["chkFinal_Click"] = [this] {
    TakeAll();
    ::SendMessageW(toolkit.Window()->Window(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
  };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    const int height = window.Fonts().FieldHeight();
    user.Click(form.chkFinal);
    EXPECT_EQ(window.Fonts().FieldHeight(), height);
    user.PressMouse(form.txtPeriod);
    Type(user, "2026");
    EXPECT_EQ(form.txtPeriod.Text(), "2026");
  });
}

TEST_F(LostFonts, AreDoneWithoutWhereTheyAreTakenAwayInAnAct) {
  form.when["chkFinal_Click"] = [this] {
    const FormWindow& window = *toolkit.Window();
    for (const FontKind kind : {FontKind::Plain, FontKind::Bold, FontKind::FixedPitch})
      ::DeleteObject(window.Fonts().Font(kind));
    form.lblPeriod.Caption("Since a day in the past:");
  };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.Click(form.chkFinal);
    ::RedrawWindow(window.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    user.PressMouse(form.txtPeriod);
    Type(user, "2026");
    EXPECT_EQ(form.txtPeriod.Text(), "2026");
    EXPECT_EQ(user.Text(form.lblPeriod), "Since a day in the past:");
    RECT place = {};
    ::GetWindowRect(In(window, form.txtPeriod), &place);
    EXPECT_GT(place.bottom, place.top);
  });
}

}  // namespace
}  // namespace fiscalon::win32
