#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>

#include "frontends/qt/qt_text.h"
#include "tests/frontends/qt/played_form.h"

namespace fiscalon::qt {
namespace {

class Typing : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  QLineEdit& Period(const FormDialog& dialog) { return In<QLineEdit>(dialog, form.txtPeriod); }
  void ShowAtPeriod(const std::function<void(FormDialog& dialog, UserDriver& user)>& act) {
    form.when["Form_Activate"] = [this] { form.txtPeriod.SetFocus(); };
    Show(form, act);
  }
};

TEST_F(Typing, GoesIntoTheFieldAndTheForm) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    form.TakeNotes();
    Type(user, "20");
    EXPECT_EQ(Period(dialog).text(), "20");
    EXPECT_EQ(form.txtPeriod.Text(), "20");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtPeriod_Change", "txtPeriod_Change"}));
  });
}

TEST_F(Typing, PassesTheFormsKeyHandlersFirst) {
  form.notesKeys = true;
  ShowAtPeriod([&](FormDialog&, UserDriver& user) {
    form.TakeNotes();
    user.Type('.');
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 190", "txtPeriod_KeyDown 190", "Form_KeyPress 46",
                                       "txtPeriod_KeyPress 46", "txtPeriod_Change"}));
    Press(user, "Delete");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 46", "txtPeriod_KeyDown 46"}));
  });
}

TEST_F(Typing, IsDroppedByAKeyHandlerThatSaysZero) {
  form.whenKey["txtPeriod_KeyPress"] = [](int& character) { character = character == 'a' ? 0 : character; };
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "2a0");
    EXPECT_EQ(Period(dialog).text(), "20");
  });
}

TEST_F(Typing, TakesTheCharacterThatAKeyHandlerPutsThere) {
  form.whenKey["txtPeriod_KeyPress"] = [](int& character) { character = std::toupper(character); };
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "abc");
    EXPECT_EQ(Period(dialog).text(), "ABC");
    EXPECT_EQ(form.txtPeriod.Text(), "ABC");
  });
}

TEST_F(Typing, KeepsTheCaretWhereAFilterTakesACharacterAway) {
  form.when["txtPeriod_Change"] = [this] {
    std::string digits = form.txtPeriod.Text();
    std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
    form.txtPeriod.Text(digits);
  };
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "20a26");
    EXPECT_EQ(Period(dialog).text(), "2026");
    Press(user, "Home");
    Type(user, "x1");
    EXPECT_EQ(Period(dialog).text(), "12026");
    EXPECT_EQ(Period(dialog).cursorPosition(), 1);
    EXPECT_EQ(form.txtPeriod.Selected(), (Selection{.start = 1}));
  });
}

TEST_F(Typing, StopsAtTheLimit) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "2026123");
    EXPECT_EQ(Period(dialog).text(), "202612");
    EXPECT_EQ(form.txtPeriod.Text(), "202612");
  });
}

TEST_F(Typing, ShowsATextOfTheFormBeyondTheLimitWhole) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    form.txtPeriod.Text("20261231");
    EXPECT_EQ(Period(dialog).text(), "20261231");
    Type(user, "9");
    EXPECT_EQ(Period(dialog).text(), "20261231");
  });
}

TEST_F(Typing, MakesOneByteOfEachAccentedLetter) {
  form.when["Form_Activate"] = [this] { form.txtPurpose.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    Type(user, "H\xE9l\xE8ne C\xF4t\xE9");
    EXPECT_EQ(In<QPlainTextEdit>(dialog, form.txtPurpose).toPlainText(), QString::fromUtf8("Hélène Côté"));
    EXPECT_EQ(form.txtPurpose.Text(), "H\xE9l\xE8ne C\xF4t\xE9");
    EXPECT_EQ(form.txtPurpose.Text().size(), 11U);
  });
}

TEST_F(Typing, ShowsAQuestionMarkForACharacterOutsideTheCodePage) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver&) {
    QTest::sendKeyEvent(QTest::Press, dialog.windowHandle(), Qt::Key(0x150), QString(QChar(0x151)), Qt::NoModifier);
    EXPECT_EQ(Period(dialog).text(), "?");
    EXPECT_EQ(form.txtPeriod.Text(), "?");
  });
}

TEST_F(Typing, IsUndoneAndRedoneNatively) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "2026");
    form.TakeNotes();
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Period(dialog).text(), "");
    EXPECT_EQ(form.txtPeriod.Text(), "");
    EXPECT_EQ(form.TakeNotes(), Notes{"txtPeriod_Change"});
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(form.txtPeriod.Text(), "2026");
  });
}

TEST_F(Typing, UsesTheClipboardNatively) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "2026");
    QTest::keyClick(dialog.windowHandle(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.txtPeriod.Selected(), (Selection{.start = 0, .length = 4}));
    QTest::keyClick(dialog.windowHandle(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(form.txtPeriod.Text(), "");
    EXPECT_EQ(QApplication::clipboard()->text(), "2026");
    QTest::keyClick(dialog.windowHandle(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.txtPeriod.Text(), "2026");
  });
}

TEST_F(Typing, PastesWithAChangeAndWithoutKeyPresses) {
  form.notesKeys = true;
  ShowAtPeriod([&](FormDialog&, UserDriver& user) {
    form.TakeNotes();
    user.Paste("20");
    EXPECT_EQ(form.TakeNotes(), Notes{"txtPeriod_Change"});
  });
}

TEST_F(Typing, PastesTheFirstLineIntoAFieldOfOneLine) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "19");
    Press(user, "Left");
    user.Paste("20\r\n26\n");
    EXPECT_EQ(Period(dialog).text(), "1209");
    EXPECT_EQ(form.txtPeriod.Text(), "1209");
    EXPECT_EQ(Period(dialog).cursorPosition(), 3);
  });
}

TEST_F(Typing, CutsAPasteAtTheLimit) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "12");
    Press(user, "Home");
    user.Paste("3456789");
    EXPECT_EQ(Period(dialog).text(), "345612");
  });
  form.when["Form_Activate"] = [this] { form.txtPurpose.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Paste(std::string(70, 'x'));
    EXPECT_EQ(In<QPlainTextEdit>(dialog, form.txtPurpose).toPlainText().size(), 60);
    EXPECT_EQ(form.txtPurpose.Text().size(), 60U);
  });
}

TEST_F(Typing, EndsALineOnlyWhereThereAreSeveral) {
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "20");
    Press(user, "Enter");
    EXPECT_EQ(form.txtPeriod.Text(), "20");
    EXPECT_TRUE(form.IsUp());
    user.Click(form.txtPurpose);
    Type(user, "a");
    Press(user, "Enter");
    Type(user, "b");
    EXPECT_EQ(form.txtPurpose.Text(), "a\r\nb");
    EXPECT_EQ(In<QPlainTextEdit>(dialog, form.txtPurpose).toPlainText(), "a\nb");
  });
}

TEST_F(Typing, EndsALineByAnyEnterWhereThereAreSeveral) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPurpose);
    for (const char* name : {"Enter", "Shift+Enter", "Ctrl+Enter"}) {
      user.Type('a');
      Press(user, name);
    }
    EXPECT_EQ(form.txtPurpose.Text(), "a\r\na\r\na\r\n");
    EXPECT_EQ(form.txtPurpose.Selected(), Selection{.start = 9});
    EXPECT_EQ(In<QPlainTextEdit>(dialog, form.txtPurpose).document()->blockCount(), 4);
    Press(user, "Backspace");
    Press(user, "Left");
    EXPECT_EQ(form.txtPurpose.Text(), "a\r\na\r\na");
    EXPECT_EQ(form.txtPurpose.Selected(), Selection{.start = 6});
    Press(user, "Left");
    EXPECT_EQ(form.txtPurpose.Selected(), Selection{.start = 4}) << "a line end is one character to the caret";
  });
}

TEST_F(Typing, ShowsWhereAHandlerPutsTheCaretBehindLineEnds) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPurpose);
    form.txtPurpose.Text("a\r\nbc");
    form.txtPurpose.Select({.start = 3, .length = 2});
    EXPECT_EQ(user.SelectedText(form.txtPurpose), "bc");
    EXPECT_EQ(In<QPlainTextEdit>(dialog, form.txtPurpose).textCursor().position(), 4);
  });
}

TEST_F(Typing, GivesEditorCommandsAndModifiersToNoHandler) {
  form.notesKeys = true;
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    Type(user, "2026");
    form.TakeNotes();
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_A, Qt::ControlModifier), std::pair(Qt::Key_C, Qt::ControlModifier),
          std::pair(Qt::Key_Insert, Qt::ControlModifier), std::pair(Qt::Key_Shift, Qt::ShiftModifier),
          std::pair(Qt::Key_Control, Qt::ControlModifier), std::pair(Qt::Key_CapsLock, Qt::NoModifier)})
      QTest::keyClick(dialog.windowHandle(), key, modifier);
    EXPECT_EQ(form.TakeNotes(), Notes());
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(form.txtPeriod.Text(), "") << "cut";
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(form.txtPeriod.Text(), "2026") << "pasted";
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtPeriod_Change", "txtPeriod_Change"}));
  });
}

TEST_F(Typing, RunsComposedCharactersThroughTheKeyHandlers) {
  form.whenKey["txtPeriod_KeyPress"] = [](int& character) { character = character == 0xE9 ? 0 : character; };
  ShowAtPeriod([&](FormDialog& dialog, UserDriver&) {
    QInputMethodEvent composing(QString(QChar(0xB4)), {});
    QApplication::sendEvent(&Period(dialog), &composing);
    EXPECT_EQ(form.txtPeriod.Text(), "");
    QInputMethodEvent finished;
    finished.setCommitString(QString::fromUtf8("éô"));
    QApplication::sendEvent(&Period(dialog), &finished);
    EXPECT_EQ(form.txtPeriod.Text(), "\xF4");
    EXPECT_EQ(Period(dialog).text(), QString::fromUtf8("ô"));
  });
}

TEST_F(Typing, LeavesALockedFieldAlone) {
  form.when["Form_Activate"] = [this] { form.txtPayee.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    Type(user, "x");
    Press(user, "Backspace");
    user.Paste("y");
    EXPECT_EQ(In<QLineEdit>(dialog, form.txtPayee).text(), "Summit Levies");
    Press(user, "Home");
    EXPECT_EQ(form.txtPayee.Selected(), (Selection{.start = 0})) << "the caret moves in a locked field";
    QTest::keyClick(dialog.windowHandle(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(dialog.windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Summit Levies") << "and its text can be copied";
  });
}

TEST_F(Typing, NeverGivesDialogKeysToTheWidget) {
  form.notesKeys = true;
  ShowAtPeriod([&](FormDialog& dialog, UserDriver& user) {
    form.TakeNotes();
    Press(user, "Tab");
    EXPECT_EQ(user.FocusName(), "txtTotal");
    EXPECT_EQ(form.TakeNotes(), Notes{"txtPeriod_LostFocus"});
    Press(user, "Tab");
    Type(user, "\t");
    EXPECT_EQ(In<QPlainTextEdit>(dialog, form.txtPurpose).toPlainText(), "");
    Press(user, "Escape");
    EXPECT_EQ(form.TakeNotes().back(), "cmdCancel_Click");
    EXPECT_TRUE(dialog.isVisible()) << "the form decides whether Escape closes it";
  });
}

}  // namespace
}  // namespace fiscalon::qt
