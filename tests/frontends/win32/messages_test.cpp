#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "frontends/played/session_recorder.h"
#include "tests/frontends/win32/played_form.h"

// What other programs do to a form by messages of their own: assistive ones, and those that fill forms in.

namespace fiscalon::win32 {
namespace {

using testing::ElementsAre;

constexpr DWORD kLongEnough = 15'000;

/// How often a message is sent to a window while this lives; the only one at a time.
class TimesSent {
 public:
  TimesSent(HWND window, UINT message) : window_(window), message_(message) {
    the = this;
    hook_ = ::SetWindowsHookExW(WH_CALLWNDPROC, &Hear, nullptr, ::GetCurrentThreadId());
  }
  ~TimesSent() { ::UnhookWindowsHookEx(hook_); }
  TimesSent(const TimesSent&) = delete;
  TimesSent& operator=(const TimesSent&) = delete;

  int Count() const { return count_; }

 private:
  static LRESULT CALLBACK Hear(int code, WPARAM wide, LPARAM extra) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(extra);
    if (sent.hwnd == the->window_ && sent.message == the->message_)
      ++the->count_;
    return ::CallNextHookEx(nullptr, code, wide, extra);
  }

  static inline TimesSent* the = nullptr;
  const HWND window_;
  const UINT message_;
  int count_ = 0;
  HHOOK hook_ = nullptr;
};

class SentMessages : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  static void SetText(HWND window, const wchar_t* text) {
    ::SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
  }
  /// What was posted is done.
  static void Settle() {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
  }
  /// What another program is answered.
  static LRESULT AnswerElsewhere(HWND window, UINT message) {
    LRESULT answer = -1;
    const HANDLE back = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
    std::thread sender([&] {
      answer = ::SendMessageW(window, message, 0, 0);
      ::SetEvent(back);
    });
    while (::MsgWaitForMultipleObjects(1, &back, FALSE, kLongEnough, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) Settle();
    sender.join();
    ::CloseHandle(back);
    return answer;
  }
};

TEST_F(SentMessages, TypeIntoAField) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    for (const wchar_t character : std::wstring(L"2026"))
      ::SendMessageW(In(window, form.txtPeriod), WM_CHAR, character, 1);
    EXPECT_EQ(form.txtPeriod.Text(), "2026");
    EXPECT_EQ(user.Text(form.txtPeriod), "2026");
  });
}

TEST_F(SentMessages, BringTheFocusToTheFieldTheyAreFor) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    form.TakeNotes();
    ::SendMessageW(In(window, form.txtTotal), WM_CHAR, L'7', 1);
    EXPECT_THAT(form.TakeNotes(), ElementsAre("txtPeriod_LostFocus", "txtTotal_Change"));
    EXPECT_EQ(user.FocusName(), "txtTotal");
  });
}

TEST_F(SentMessages, AreKeysToHandlersWhenKeyAndCharacterComeApart) {
  form.notesKeys = true;
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    form.TakeNotes();
    ::SendMessageW(In(window, form.txtPeriod), WM_KEYDOWN, 'A', 1);
    ::SendMessageW(In(window, form.txtPeriod), WM_CHAR, L'a', 1);
    EXPECT_THAT(form.TakeNotes(), ElementsAre("Form_KeyDown 65", "txtPeriod_KeyDown 65", "Form_KeyPress 97",
                                              "txtPeriod_KeyPress 97", "txtPeriod_Change"));
  });
}

TEST_F(SentMessages, LoseTheCharacterOfAKeyThatAHandlerHasEnded) {
  form.whenKey["txtPeriod_KeyDown"] = [](int& key) { key = 0; };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    ::SendMessageW(In(window, form.txtPeriod), WM_KEYDOWN, 'A', 1);
    ::SendMessageW(In(window, form.txtPeriod), WM_CHAR, L'a', 1);
    EXPECT_EQ(user.Text(form.txtPeriod), "");
  });
}

TEST_F(SentMessages, SetATextAsAnEditWithTheFocus) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    std::string before = "optFirst";
    for (TextField* field : {&form.txtPeriod, &form.txtPurpose}) {
      form.TakeNotes();
      SetText(In(window, *field), L"C\u00F4t\u00E9");
      EXPECT_EQ(field->Text(), "C\xF4t\xE9");
      EXPECT_THAT(form.TakeNotes(),
                  ElementsAre(std::exchange(before, field->Name()) + "_LostFocus", field->Name() + "_Change"));
      EXPECT_EQ(user.FocusName(), field->Name());
    }
    // The form's limits hold.
    SetText(In(window, form.txtPeriod), L"20261231");
    EXPECT_EQ(user.Text(form.txtPeriod), "202612");
    SetText(In(window, form.txtPayee), L"Somebody Else");
    EXPECT_EQ(user.Text(form.txtPayee), "Summit Levies");
    form.txtTotal.Enabled(false);
    SetText(In(window, form.txtTotal), L"12.50");
    EXPECT_EQ(form.txtTotal.Text() + user.Text(form.txtTotal), "");
  });
}

TEST_F(SentMessages, SetNoTextWhereACheckKeepsTheFocus) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    SetText(In(window, form.txtTotal), L"12.50");
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_EQ(form.txtTotal.Text() + user.Text(form.txtTotal), "");
  });
}

TEST_F(SentMessages, ReplaceASelectionAsAnEdit) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    for (TextField* field : {&form.txtPeriod, &form.txtPurpose}) {
      ::SendMessageW(In(window, *field), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"2026"));
      EXPECT_EQ(field->Text(), "2026");
      ::SendMessageW(In(window, *field), EM_SETSEL, 0, 2);
      ::SendMessageW(In(window, *field), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"19"));
      EXPECT_EQ(field->Text(), "1926");
      EXPECT_EQ(user.Text(*field), "1926");
    }
  });
}

TEST_F(SentMessages, LeaveCaptionsAsTheyAre) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    for (const Control* control :
         {static_cast<const Control*>(&form.lblPeriod), static_cast<const Control*>(&form.cmdOK),
          static_cast<const Control*>(&form.chkFinal), static_cast<const Control*>(&form.fraKind)}) {
      const std::string caption = user.Text(*control);
      SetText(In(window, *control), L"Something else");
      EXPECT_EQ(user.Text(*control), caption);
    }
  });
}

TEST_F(SentMessages, SetAMarkAsAClick) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    form.TakeNotes();
    ::SendMessageW(In(window, form.chkFinal), BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_TRUE(form.chkFinal.Value());
    EXPECT_TRUE(user.Checked(form.chkFinal));
    EXPECT_THAT(form.TakeNotes(), ElementsAre("chkFinal_MouseDown", "optFirst_LostFocus", "chkFinal_Click"));
    ::SendMessageW(In(window, form.chkFinal), BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_THAT(form.TakeNotes(), ElementsAre()) << "it is on";
    ::SendMessageW(In(window, form.chkFinal), BM_SETCHECK, BST_UNCHECKED, 0);
    EXPECT_FALSE(form.chkFinal.Value());
    EXPECT_FALSE(user.Checked(form.chkFinal));
  });
}

TEST_F(SentMessages, ChooseOneOptionOfThoseThatExcludeEachOther) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    for (const OptionButton* chosen : {&form.optSecond, &form.optFirst}) {
      ::SendMessageW(In(window, *chosen), BM_SETCHECK, BST_CHECKED, 0);
      for (const OptionButton* option : {&form.optFirst, &form.optSecond}) {
        EXPECT_EQ(option->Value(), option == chosen) << option->Name();
        EXPECT_EQ(user.Checked(*option), option == chosen) << option->Name();
      }
    }
    ::SendMessageW(In(window, form.optFirst), BM_SETCHECK, BST_UNCHECKED, 0);
    EXPECT_TRUE(form.optFirst.Value()) << "one is given up by choosing another one";
    EXPECT_TRUE(user.Checked(form.optFirst));
  });
}

TEST_F(SentMessages, PickTheRowsThatTheySelect) {
  struct Row {
    ListControl& list;
    UINT select, find;
    const wchar_t* words;
    int found;
  };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    for (const Row& row : {Row{form.lstInvoices, LB_SETCURSEL, LB_SELECTSTRING, L"INV-3", 2},
                           Row{form.cmbProvince, CB_SETCURSEL, CB_SELECTSTRING, L"Que", 2}}) {
      const HWND list = In(window, row.list);
      form.TakeNotes();
      EXPECT_EQ(::SendMessageW(list, row.select, 1, 0), 1);
      EXPECT_EQ(row.list.ListIndex(), 1);
      EXPECT_EQ(user.Text(row.list), row.list.List(1));
      EXPECT_EQ(user.FocusName(), row.list.Name());
      EXPECT_THAT(form.TakeNotes(), testing::IsSupersetOf({row.list.Name() + "_Click", row.list.Name() + "_Chosen"}));
      // Some programs tell the list's window too, as Windows would.
      const auto code = static_cast<WPARAM>(row.select == LB_SETCURSEL ? LBN_SELCHANGE : CBN_SELCHANGE);
      ::SendMessageW(::GetParent(list), WM_COMMAND, code << 16U, reinterpret_cast<LPARAM>(list));
      Settle();
      EXPECT_THAT(form.TakeNotes(), ElementsAre()) << "it is one pick";
      EXPECT_EQ(::SendMessageW(list, row.find, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(row.words)),
                row.found);
      EXPECT_EQ(row.list.ListIndex(), row.found);
      ::SendMessageW(list, row.select, static_cast<WPARAM>(-1), 0);
      EXPECT_EQ(row.list.ListIndex(), row.found) << "a row is given up by picking another one";
      EXPECT_EQ(user.Text(row.list), row.list.List(row.found));
    }
  });
}

TEST_F(SentMessages, PickTheRowsThatTheySelectAmongThoseThatDropDown) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    ASSERT_TRUE(::GetComboBoxInfo(In(window, form.cmbProvince), &info));
    form.TakeNotes();
    for (const int row : {2, 1}) {
      ::SendMessageW(info.hwndList, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
      EXPECT_EQ(form.cmbProvince.ListIndex(), row);
      EXPECT_EQ(user.Text(form.cmbProvince), form.cmbProvince.List(row));
      EXPECT_EQ(form.TakeNotes().back(), "cmbProvince_Chosen");
    }
    ::SendMessageW(info.hwndList, LB_DELETESTRING, 0, 0);
    ::SendMessageW(info.hwndList, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_EQ(user.Items(form.cmbProvince), 3);
    EXPECT_EQ(user.Text(form.cmbProvince), "Manitoba");
    EXPECT_THAT(form.TakeNotes(), ElementsAre());
  });
}

TEST_F(SentMessages, PickNoRowWhereACheckKeepsTheFocus) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    ::SendMessageW(In(window, form.lstInvoices), LB_SETCURSEL, 1, 0);
    ::SendMessageW(In(window, form.cmbProvince), CB_SETCURSEL, 1, 0);
    EXPECT_EQ(form.lstInvoices.ListIndex(), ListControl::kNothingSelected);
    EXPECT_EQ(form.cmbProvince.ListIndex(), ListControl::kNothingSelected);
    EXPECT_EQ(user.Text(form.lstInvoices) + user.Text(form.cmbProvince), "");
  });
}

TEST_F(SentMessages, LeaveTheRowsOfListsAsTheyAre) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    const auto text = reinterpret_cast<LPARAM>(L"Another");
    ::SendMessageW(In(window, form.lstInvoices), LB_ADDSTRING, 0, text);
    ::SendMessageW(In(window, form.lstInvoices), LB_DELETESTRING, 0, 0);
    ::SendMessageW(In(window, form.cmbProvince), CB_INSERTSTRING, 0, text);
    EXPECT_EQ(user.Items(form.lstInvoices), 3);
    EXPECT_EQ(user.Items(form.cmbProvince), 3);
    ::SendMessageW(In(window, form.cmbProvince), CB_SETCURSEL, 0, 0);
    EXPECT_EQ(form.cmbProvince.Text(), "Alberta");
    ::SendMessageW(In(window, form.cmbProvince), CB_RESETCONTENT, 0, 0);
    EXPECT_EQ(user.Text(form.cmbProvince), "Alberta");
  });
}

TEST_F(SentMessages, MakeADropDownListSendItselfNone) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    const HWND provinces = In(window, form.cmbProvince);
    const TimesSent asked(provinces, CB_GETDROPPEDSTATE);
    EXPECT_EQ(::SendMessageW(provinces, CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(asked.Count(), 0);
    EXPECT_EQ(::SendMessageW(provinces, CB_GETDROPPEDSTATE, 0, 0), FALSE);
    EXPECT_EQ(asked.Count(), 1) << "that of this test";
  });
}

TEST_F(SentMessages, ClickAButtonWithThePressBeforeIt) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    form.TakeNotes();
    ::SendMessageW(In(window, form.chkFinal), BM_CLICK, 0, 0);
    EXPECT_THAT(form.TakeNotes(), ElementsAre("chkFinal_MouseDown", "optFirst_LostFocus", "chkFinal_Click"));
    EXPECT_TRUE(form.chkFinal.Value());
  });
}

TEST_F(SentMessages, ClickNothingWhereACheckTakesTheFocusBack) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    form.TakeNotes();
    ::SendMessageW(In(window, form.cmdOK), BM_CLICK, 0, 0);
    EXPECT_THAT(form.TakeNotes(), testing::Not(testing::Contains("cmdOK_Click")));
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_EQ(::SendMessageW(In(window, form.cmdOK), BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
  });
}

TEST_F(SentMessages, BringTheFocus) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    form.TakeNotes();
    ::SetFocus(In(window, form.txtTotal));
    EXPECT_EQ(form.ActiveControl(), &form.txtTotal);
    EXPECT_THAT(form.TakeNotes(), ElementsAre("optFirst_LostFocus"));
  });
}

TEST_F(SentMessages, TakeTheFocusNowhereFromACheckThatKeepsIt) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    ::SetFocus(In(window, form.txtTotal));
    EXPECT_EQ(::GetFocus(), In(window, form.txtPeriod));
  });
}

TEST_F(SentMessages, AreWrittenDownAsKeys) {
  SessionRecorder recorder;
  toolkit.Watch(&recorder);
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPurpose);
    const HWND purpose = In(window, form.txtPurpose);
    const std::vector<std::pair<int, wchar_t>> keys = {{'A', L'a'}, {VK_RETURN, L'\r'}, {VK_BACK, L'\b'}};
    for (const auto& [key, character] : keys) {
      ::SendMessageW(purpose, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
      ::SendMessageW(purpose, WM_CHAR, character, 1);
    }
    ::SendMessageW(purpose, WM_CHAR, L'b', 1);
  });
  EXPECT_THAT(recorder.Text(), testing::HasSubstr("click txtPurpose\ntype a\nkey Enter\nkey Backspace\ntype b\n"));
}

TEST_F(SentMessages, CloseTheWindowForTheReasonTheyStandFor) {
  struct Row {
    UINT message;
    WPARAM wide;
    const char* note;
  };
  // The close box and its key come as a command, the session's end as a question; any other program just closes.
  for (const Row& row : {Row{WM_SYSCOMMAND, SC_CLOSE, "Form_QueryUnload 0"},
                         Row{WM_QUERYENDSESSION, 0, "Form_QueryUnload 2"}, Row{WM_CLOSE, 0, "Form_QueryUnload 3"}}) {
    Show(form, [&](FormWindow& window, UserDriver&) { ::SendMessageW(window.Window(), row.message, row.wide, 0); });
    EXPECT_THAT(form.TakeNotes(), testing::Contains(row.note));
  }
}

TEST_F(SentMessages, HoldUpTheSessionsEndWhereTheFormStays) {
  form.whenClosing = [](bool& cancel, CloseReason) { cancel = true; };
  Show(form, [&](FormWindow& window, UserDriver&) {
    EXPECT_EQ(::SendMessageW(window.Window(), WM_QUERYENDSESSION, 0, 0), FALSE);
    EXPECT_TRUE(form.IsUp());
  });
}

TEST_F(SentMessages, AreNotAnsweredByTheRowsThatTheFormChangesMeanwhile) {
  form.whenClosing = [this](bool& cancel, CloseReason) {
    form.cmbProvince.ListIndex(2);
    cancel = true;
  };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    EXPECT_EQ(AnswerElsewhere(window.Window(), WM_QUERYENDSESSION), FALSE);
    EXPECT_EQ(user.Text(form.cmbProvince), "Quebec");
  });
}

TEST_F(SentMessages, DoNothingToAFormThatWaitsInAHandler) {
  form.when["chkFinal_Click"] = [this] {
    const HWND period = In(*toolkit.Window(), form.txtPeriod);
    ::SendMessageW(period, WM_CHAR, L'1', 1);
    ::SendMessageW(toolkit.Window()->Window(), WM_CLOSE, 0, 0);
  };
  Show(form, [&](FormWindow&, UserDriver& user) {
    user.Click(form.chkFinal);
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(user.Text(form.txtPeriod), "");
    EXPECT_EQ(user.FocusName(), "chkFinal");
  });
}

}  // namespace
}  // namespace fiscalon::win32
