#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frontends/played/session_recorder.h"
#include "tests/frontends/win32/played_form.h"

// What other programs do to a form by messages of their own: assistive ones, and those that fill forms in.

namespace fiscalon::win32 {
namespace {

using testing::ElementsAre;

class SentMessages : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;
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

TEST_F(SentMessages, SetATextAsAnEdit) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    for (TextField* field : {&form.txtPeriod, &form.txtPurpose}) {
      form.TakeNotes();
      ::SendMessageW(In(window, *field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"C\u00F4t\u00E9"));
      EXPECT_EQ(field->Text(), "C\xF4t\xE9");
      EXPECT_THAT(form.TakeNotes(), ElementsAre(field->Name() + "_Change"));
    }
    // The form's limits hold.
    ::SendMessageW(In(window, form.txtPeriod), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"20261231"));
    EXPECT_EQ(user.Text(form.txtPeriod), "202612");
    ::SendMessageW(In(window, form.txtPayee), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Somebody Else"));
    EXPECT_EQ(user.Text(form.txtPayee), "Summit Levies");
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
