#include "frontends/win32/form_window.h"

#include <commctrl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/host_setup.h"
#include "core/launch.h"
#include "core/platform/runtime_error.h"
#include "core/platform/windows/wide_text.h"
#include "core/session.h"
#include "tests/frontends/win32/played_form.h"

namespace fiscalon::win32 {
namespace {

bool HasStyle(HWND window, LONG_PTR style) {
  return (::GetWindowLongPtrW(window, GWL_STYLE) & style) != 0;
}

/// What the thread's hint window would show over a control; empty for nothing.
std::wstring HintOver(HWND form, HWND control) {
  HWND hints = nullptr;
  while ((hints = ::FindWindowExW(nullptr, hints, TOOLTIPS_CLASSW, nullptr)) != nullptr)
    if (::GetWindow(hints, GW_OWNER) == form)
      break;
  std::wstring text(200, L'\0');
  TTTOOLINFOW entry = {};
  entry.cbSize = TTTOOLINFOW_V1_SIZE;
  entry.hwnd = form;
  entry.uId = reinterpret_cast<UINT_PTR>(control);
  entry.lpszText = text.data();
  if (hints != nullptr)
    ::SendMessageW(hints, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&entry));
  text.resize(std::wcslen(text.c_str()));
  return text;
}

class Windows : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;
};

TEST_F(Windows, AreTheSystemsOwnControls) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    const auto classOf = [&](const Control& control) {
      std::wstring name(32, L'\0');
      name.resize(static_cast<size_t>(::GetClassNameW(In(window, control), name.data(), 32)));
      return name;
    };
    EXPECT_EQ(classOf(form.lblPayee), L"Static");
    EXPECT_EQ(classOf(form.txtPeriod), L"Edit");
    EXPECT_EQ(classOf(form.cmdOK), L"Button");
    EXPECT_EQ(classOf(form.chkFinal), L"Button");
    EXPECT_EQ(classOf(form.fraKind), L"Button");
    EXPECT_EQ(classOf(form.cmbProvince), L"ComboBox");
    EXPECT_EQ(classOf(form.lstInvoices), L"ListBox");
    EXPECT_TRUE(HasStyle(In(window, form.txtTotal), ES_RIGHT));
    EXPECT_FALSE(HasStyle(In(window, form.txtPeriod), ES_RIGHT));
  });
}

TEST_F(Windows, HoldTheirTextsWhole) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    const DialogFonts fonts(DotsPerInchOf(window.Window()));
    for (const Control* control : form.Controls()) {
      const auto* captioned = dynamic_cast<const Captioned*>(control);
      if (captioned == nullptr)
        continue;
      RECT area = {};
      ::GetClientRect(In(window, *control), &area);
      const std::string caption = captioned->PlainCaption();
      const SIZE text = fonts.Extent(std::wstring(caption.begin(), caption.end()), FontKind::Plain);
      EXPECT_GE(area.right, text.cx) << control->Name();
      EXPECT_GE(area.bottom, text.cy) << control->Name();
    }
  });
}

TEST_F(Windows, HaveScaleAndMeasuresOfTheirOwn) {
  SIZE usual = {};
  Show(form, [&](FormWindow& window, UserDriver&) {
    RECT area = {};
    ::GetClientRect(In(window, form.txtPeriod), &area);
    usual = {area.right, area.bottom};
  });
  PlayedWin32Toolkit large(144);
  large.onForm = [&](Form&, UserDriver&) {
    RECT area = {};
    ::GetClientRect(In(*large.Window(), form.txtPeriod), &area);
    // Fonts have whole pixels: half as much again, more or less.
    EXPECT_NEAR(area.right, usual.cx * 1.5, usual.cx * 0.2);
    EXPECT_NEAR(area.bottom, usual.cy * 1.5, usual.cy * 0.2);
  };
  form.ShowModal(large);
}

TEST_F(Windows, HoldAllWithoutAScrollBarWhereTheFrameIsAnotherThanForetold) {
  // A system draws the frame at the scale of the screen, which is not that of these forms.
  for (const int dotsPerInch : {72, 96}) {
    PlayedWin32Toolkit scaled(dotsPerInch);
    bool isSeen = false;
    scaled.onForm = [&](Form&, UserDriver&) {
      isSeen = true;
      EXPECT_FALSE(HasStyle(::GetParent(In(*scaled.Window(), form.txtPeriod)), WS_VSCROLL)) << dotsPerInch;
    };
    form.ShowModal(scaled);
    EXPECT_TRUE(isSeen);
  }
}

TEST_F(Windows, ShadeAndLockWhatTheFormLocks) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    EXPECT_TRUE(HasStyle(In(window, form.txtPayee), ES_READONLY));
    form.txtTotal.Locked(true);
    EXPECT_TRUE(user.Locked(form.txtTotal));
    form.txtTotal.Locked(false);
    EXPECT_FALSE(user.Locked(form.txtTotal));
  });
}

TEST_F(Windows, ShowHowALongLockedTextBeginsAndAllOfItAsAHint) {
  const std::string longName = "Workers' Compensation Board of the Northwest Territories & Nunavut, Yellowknife";
  Show(form, [&](FormWindow& window, UserDriver&) {
    const HWND payee = In(window, form.txtPayee);
    const auto hintOver = [&](const Control& control) { return HintOver(window.Window(), In(window, control)); };
    EXPECT_EQ(hintOver(form.txtPayee), L"") << "all of it is seen";
    form.txtPayee.Text(longName);
    EXPECT_EQ(hintOver(form.txtPayee), ToWide(longName));
    const auto firstIsSeen = [&] {
      return static_cast<short>(LOWORD(::SendMessageW(payee, EM_POSFROMCHAR, 0, 0))) >= 0;
    };
    EXPECT_TRUE(firstIsSeen());
    // Another program has selected in it, and scrolled it so.
    ::SendMessageW(payee, EM_SETSEL, longName.size(), static_cast<LPARAM>(longName.size()));
    ::SendMessageW(payee, EM_SCROLLCARET, 0, 0);
    form.txtPayee.Enabled(false);
    EXPECT_TRUE(firstIsSeen());
    form.txtPayee.Text("Summit Levies");
    EXPECT_EQ(hintOver(form.txtPayee), L"");
    // A field that can be edited shows where it is edited.
    form.txtTotal.Text(longName);
    EXPECT_EQ(hintOver(form.txtTotal), L"");
  });
}

TEST_F(Windows, MakeRoomForWhatAppearsAndNotForWhatIsHidden) {
  form.when["Form_Load"] = [this] { form.fraKind.Visible(false); };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    const auto topOf = [&](const Control& control) {
      RECT place = {};
      ::GetWindowRect(In(window, control), &place);
      ::MapWindowPoints(nullptr, window.Window(), reinterpret_cast<POINT*>(&place), 2);
      return place.top;
    };
    EXPECT_FALSE(user.Visible(form.optFirst));
    const LONG before = topOf(form.txtPeriod);
    form.fraKind.Visible(true);
    EXPECT_TRUE(user.Visible(form.optFirst));
    EXPECT_GT(topOf(form.txtPeriod), before);
    EXPECT_GT(topOf(form.optFirst), topOf(form.fraKind));
  });
}

TEST_F(Windows, TellWhichButtonEnterPresses) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    const auto isDefault = [&](const Control& control) {
      return (::GetWindowLongPtrW(In(window, control), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    };
    user.PressMouse(form.cmdCancel);
    EXPECT_TRUE(isDefault(form.cmdCancel));
    Press(user, "Shift+Tab");
    EXPECT_TRUE(isDefault(form.cmdOK));
    EXPECT_FALSE(isDefault(form.cmdCancel));
  });
}

TEST_F(Windows, LetTheEditorCopyCutPasteAndUndo) {
  const auto control = [](UserDriver& user, int key) {
    user.PressKey({.keyCode = key, .shift = shift_state::kControl});
  };
  form.notesKeys = true;
  Show(form, [&](FormWindow&, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    Type(user, "2026");
    form.TakeNotes();
    control(user, 'A');
    EXPECT_EQ(user.SelectedText(form.txtPeriod), "2026");
    control(user, 'C');
    control(user, 'X');
    EXPECT_EQ(user.Text(form.txtPeriod), "");
    control(user, 'V');
    EXPECT_EQ(form.txtPeriod.Text(), "2026");
    // No handler hears of such keys.
    EXPECT_THAT(form.TakeNotes(), testing::ElementsAre("txtPeriod_Change", "txtPeriod_Change"));
    user.PressMouse(form.txtTotal);
    Type(user, "12");
    control(user, 'Z');
    EXPECT_EQ(form.txtTotal.Text(), "");
    EXPECT_EQ(user.Text(form.txtTotal), "");
  });
}

TEST_F(Windows, KeepTheCaretWhereAFilterWorksInTheMiddle) {
  form.when["txtPurpose_Change"] = [this] {
    std::string kept = form.txtPurpose.Text();
    std::erase(kept, 'x');
    form.txtPurpose.Text(kept);
  };
  Show(form, [&](FormWindow&, UserDriver& user) {
    user.PressMouse(form.txtPurpose);
    Type(user, "acd");
    Press(user, "Left");
    Press(user, "Left");
    Type(user, "xbx");
    EXPECT_EQ(user.Text(form.txtPurpose), "abcd");
  });
}

TEST_F(Windows, EndWithAnErrorThatLeavesAHandler) {
  form.when["chkFinal_Click"] = [] { throw RuntimeError(13, "Type mismatch"); };
  EXPECT_THROW(Show(form, [&](FormWindow&, UserDriver& user) { user.Click(form.chkFinal); }), RuntimeError);
  EXPECT_EQ(toolkit.Window(), nullptr);
}

TEST_F(Windows, StandOverEachOther) {
  TwoFieldForm inner;
  HWND outerWindow = nullptr;
  form.when["cmdOK_Click"] = [&] {
    outerWindow = toolkit.Window()->Window();
    inner.ShowModal(toolkit);
    EXPECT_NE(::IsWindowEnabled(outerWindow), FALSE);
  };
  bool seen = false;
  toolkit.onForm = [&](Form& shown, UserDriver& user) {
    if (&shown == &form)
      return user.Click(form.cmdOK);
    seen = true;
    EXPECT_EQ(::IsWindowEnabled(outerWindow), FALSE);
    EXPECT_EQ(::GetWindow(toolkit.Window()->Window(), GW_OWNER), outerWindow);
  };
  form.ShowModal(toolkit);
  EXPECT_TRUE(seen);
}

TEST_F(Windows, NameTheEntryThatKeepsTheFocusInSilence) {
  form.when["txtPeriod_LostFocus"] = [this] {
    if (form.txtPeriod.Text().empty())
      form.txtPeriod.SetFocus();
  };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    // Of the window itself only buttons, the body and the line are children.
    const HWND status = ::FindWindowExW(window.Window(), nullptr, L"Static", nullptr);
    ASSERT_NE(status, nullptr);
    EXPECT_FALSE(HasStyle(status, WS_VISIBLE));
    const auto placeOf = [&](HWND control) {
      RECT place = {};
      ::GetWindowRect(control, &place);
      return place;
    };
    user.PressMouse(form.txtPeriod);
    const RECT before = placeOf(window.Window()), button = placeOf(In(window, form.cmdOK));
    Press(user, "Tab");
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_TRUE(HasStyle(status, WS_VISIBLE));
    EXPECT_EQ(TextOfWindow(status), L"Please correct this entry: Period ends on (YYYYMM)");
    EXPECT_GT(placeOf(window.Window()).bottom, before.bottom);
    EXPECT_GT(placeOf(status).top, button.bottom);
    EXPECT_GT(placeOf(status).bottom, placeOf(status).top);
    EXPECT_LT(placeOf(status).bottom, placeOf(window.Window()).bottom);
    const auto staysInPlace = [&] {
      const RECT now = placeOf(In(window, form.cmdOK));
      return ::EqualRect(&now, &button) != FALSE;
    };
    EXPECT_TRUE(staysInPlace()) << "a button would move under the mouse that presses it";
    Type(user, "202606");
    Press(user, "Tab");
    EXPECT_EQ(TextOfWindow(status), L"");
    EXPECT_TRUE(staysInPlace());
  });
}

TEST_F(Windows, ShowBoxesWithTitleIconAndButtons) {
  BoxRequest asked;
  BoxRequest shown;
  MessageAnswer answer = MessageAnswer::Ok;
  toolkit.onMessage = [&](const BoxRequest& box) {
    shown = box;
    return MessageAnswer::Yes;
  };
  form.when["chkFinal_Click"] = [&] { answer = toolkit.ShowMessage(asked); };
  for (const MessageStyle style : {MessageStyle::Critical, MessageStyle::Question, MessageStyle::Exclamation,
                                   MessageStyle::Information, MessageStyle::Plain})
    for (const DefaultButton button : {DefaultButton::First, DefaultButton::Second}) {
      asked = {.text = "Really?\r\nThe balance is 5.00.",
               .style = style,
               .buttons = MessageButtons::YesNo,
               .defaultButton = button,
               .title = "Date Warning"};
      Show(form, [&](FormWindow& window, UserDriver& user) {
        user.Click(form.chkFinal);
        EXPECT_EQ(user.FocusName(), "chkFinal");
        EXPECT_NE(::IsWindowEnabled(window.Window()), FALSE);
      });
      EXPECT_EQ(shown.text, asked.text);
      EXPECT_EQ(shown.style, asked.style);
      EXPECT_EQ(shown.buttons, asked.buttons);
      EXPECT_EQ(shown.defaultButton, asked.defaultButton);
      EXPECT_EQ(shown.title, asked.title);
      EXPECT_EQ(answer, MessageAnswer::Yes);
    }
}

/// Every form of the product at the usual scales: each caption has the room that its words take.
TEST(FormsOnWindows, HaveRoomForTheirWordsInEveryLanguage) {
  size_t captions = 0;
  for (const std::string_view language : LanguageNames()) {
    for (const int dotsPerInch : {96, 144, 192}) {
      ResetModule();
      UseLanguage(language);
      PlayedWin32Toolkit toolkit(dotsPerInch);
      UseToolkit(&toolkit);
      const DialogFonts fonts(dotsPerInch);
      toolkit.onForm = [&](Form& form, UserDriver&) {
        for (const Control* control : form.Controls()) {
          const ControlView& view = toolkit.Window()->ViewOf(*control);
          if (dynamic_cast<const Captioned*>(control) == nullptr || ::IsWindowVisible(view.Window()) == FALSE)
            continue;
          SCOPED_TRACE(form.Name() + " " + control->Name() + " in " + std::string(language));
          ++captions;
          RECT place = {};
          ::GetWindowRect(view.Window(), &place);
          const SIZE wanted = view.Wanted(fonts);
          EXPECT_GE(place.right - place.left, wanted.cx) << dotsPerInch;
          EXPECT_GE(place.bottom - place.top, wanted.cy) << dotsPerInch;
        }
      };
      for (const LaunchRow& row : LaunchTable()) {
        Levyra session;
        session.PaidAmount("12345");
        session.ShowLevyraScreen(row.code);
      }
      ResetModule();
    }
  }
  EXPECT_GT(captions, LaunchTable().size() * LanguageNames().size() * 3 * 5);
}

}  // namespace
}  // namespace fiscalon::win32
