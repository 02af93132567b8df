#include <gtest/gtest.h>

#include <QTest>
#include <cstdlib>
#include <random>

#include "core/found_records.h"
#include "core/host_setup.h"
#include "core/launch.h"
#include "core/session.h"
#include "frontends/played/scenario_player.h"
#include "frontends/played/session_recorder.h"
#include "frontends/qt/form_dialog.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "frontends/scripted/scripted_toolkit.h"

namespace fiscalon::qt {
namespace {

/// A session at real widgets that is written down, and played back from there.
class Recording : public testing::Test {
 protected:
  PlayedQtToolkit toolkit;
  SessionRecorder recorder;

  void Record(std::string_view code,
              const std::function<void(Form& form, UserDriver& user, FormDialog& dialog)>& acts) {
    ResetModule();
    recorder = SessionRecorder();
    const DateTime today{.date = {.year = 2026, .month = 6, .day = 15}};
    UseFixedClock(today);
    UseLocale(EnglishCanada());
    recorder.Today(today);
    recorder.UsesLocale("en-CA");
    Levyra session;
    const auto host = [&](std::string_view property, const char* value, auto set) {
      set(value);
      recorder.Host(property, value);
    };
    host("CompCode", "001052", [&](const char* value) { session.CompCode(value); });
    host("CompName", "Summit Levies", [&](const char* value) { session.CompName(value); });
    host("PaidAmount", "12345", [&](const char* value) { session.PaidAmount(value); });
    host("PaidDate", "06152026", [&](const char* value) { session.PaidDate(value); });
    recorder.Shows(code);
    toolkit.Watch(&recorder);
    toolkit.onForm = [&](Form& form, UserDriver& user) { acts(form, user, *toolkit.Dialog()); };
    UseToolkit(&toolkit);
    const bool result = session.ShowLevyraScreen(code);
    recorder.Result(result);
    recorder.Records(FindRecords(session).records);
    ResetModule();
  }

  /// What is wrong when the recording is played by a front end; empty where nothing is.
  static std::string PlayBack(const std::string& text, DrivenToolkit& by) {
    const PlayResult result = ScenarioPlayer(by).Play(ParseScenario("recorded", text));
    return result.passed
               ? std::string()
               : "line " + std::to_string(result.line) + ": expected " + result.expected + ", saw " + result.seen;
  }

  static void Type(UserDriver& user, std::string_view text) {
    for (const char character : text) user.Type(character);
  }

  std::string ActsOf(std::string_view code) const {
    const std::string text = recorder.Text();
    const std::string show = "show " + std::string(code) + "\n";
    const size_t from = text.find(show) + show.size();
    return text.substr(from, text.find("expect result") - from);
  }
};

TEST_F(Recording, SaysWhatWasTypedKeyByKey) {
  Record("15", [](Form& form, UserDriver& user, FormDialog&) {
    Type(user, "202613");
    Type(user, "202612");
    Type(user, "12345");
    user.Click(*form.FindControl("cmdOK"));
  });
  EXPECT_EQ(ActsOf("15"),
            "type 202613\n"
            "expect message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry can range from "
            "199001 to 202705.\"\n"
            "type 20261212345\n"
            "click cmdOK\n");
  ScriptedToolkit scripted;
  EXPECT_EQ(PlayBack(recorder.Text(), scripted), "");
}

TEST_F(Recording, SaysWhatWasPastedClickedAndClosed) {
  Record("15", [](Form& form, UserDriver& user, FormDialog&) {
    user.Paste("2026");
    user.PressKey(*StrokeNamed("Enter"));
    user.PressMouse(*form.FindControl("cmdCancel"));
    user.Click(*form.FindControl("txtAmountPayable"));
    user.CloseWindow(CloseReason::CloseBox);
  });
  EXPECT_EQ(ActsOf("15"),
            "paste 2026\nkey Enter\n"
            "expect message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry "
            "can range from 199001 to 202705.\"\n"
            "focus cmdCancel\nclick txtAmountPayable\nclose 0\n");
}

TEST_F(Recording, BringsACaretThatTheMouseHasPlaced) {
  Record("15", [](Form& form, UserDriver& user, FormDialog& dialog) {
    Control& amount = *form.FindControl("txtAmountPayable");
    user.Click(amount);
    Type(user, "1345");
    const QWidget& line = dialog.WidgetOf(amount);
    // Behind the first digit of a text that stands at the right.
    const int width = line.fontMetrics().horizontalAdvance(QStringLiteral("345"));
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {},
                      line.mapTo(&dialog, QPoint(line.width() - 5 - width, line.height() / 2)));
    Type(user, "2");
    EXPECT_EQ(user.Text(amount), "12345");
    user.CloseWindow(CloseReason::CloseBox);
  });
  EXPECT_EQ(
      ActsOf("15"),
      "click txtAmountPayable\ntype 1345\nclick txtAmountPayable\nkey Left\nkey Left\nkey Left\ntype 2\nclose 0\n");
}

TEST_F(Recording, PutsAnUndoIntoKeys) {
  Record("15", [](Form&, UserDriver& user, FormDialog& dialog) {
    Type(user, "2026");
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    Type(user, "1");
    user.CloseWindow(CloseReason::CloseBox);
  });
  EXPECT_EQ(ActsOf("15"), "type 2026\nkey Backspace\nkey Backspace\nkey Backspace\nkey Backspace\ntype 1\nclose 0\n");
}

TEST_F(Recording, GivesAnAnswerBeforeTheLineThatAsks) {
  Record("03", [this](Form& form, UserDriver& user, FormDialog&) {
    toolkit.onMessage = [](const BoxRequest& box) {
      return box.buttons == MessageButtons::YesNo ? MessageAnswer::No : box.DefaultAnswer();
    };
    Type(user, "1000\t5\t20251231");
    user.Click(*form.FindControl("Command3D6"));
    user.CloseWindow(CloseReason::CloseBox);
  });
  const std::string acts = ActsOf("03");
  EXPECT_NE(acts.find("answer No\n"), std::string::npos) << acts;
  EXPECT_LT(acts.find("answer No\n"), acts.find("expect message question")) << acts;
  ScriptedToolkit scripted;
  EXPECT_EQ(PlayBack(recorder.Text(), scripted), "");
}

/// Acts that only a native editor knows.
void ActNatively(QWindow* window, int choice) {
  struct NativeKey {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
  };
  static const std::vector<NativeKey> kKeys = {
      {Qt::Key_Z, Qt::ControlModifier},  {Qt::Key_A, Qt::ControlModifier},    {Qt::Key_X, Qt::ControlModifier},
      {Qt::Key_Left, Qt::ShiftModifier}, {Qt::Key_Home, Qt::ShiftModifier},   {Qt::Key_Left, Qt::ControlModifier},
      {Qt::Key_Y, Qt::ControlModifier},  {Qt::Key_Delete, Qt::ShiftModifier}, {Qt::Key_Backspace, Qt::ControlModifier}};
  const NativeKey& key = kKeys[static_cast<size_t>(choice) % kKeys.size()];
  QTest::keyClick(window, key.key, key.modifiers);
}

TEST_F(Recording, PlaysBackWhateverWasDone) {
  const unsigned sessions = std::getenv("FISCALON_LONG") != nullptr ? 300 : 10;
  ScriptedToolkit scripted;
  PlayedQtToolkit played;
  static const std::vector<std::string> kTexts = {"202612", "20261231", "12345", "1", "5", ".", "x", "123.45", "\t"};
  static const std::vector<std::string> kKeys = {"Tab",   "Tab",  "Shift+Tab", "Enter", "Backspace", "Delete", "Left",
                                                 "Right", "Home", "End",       "Down",  "Alt+C",     "Space"};
  for (const char* code : {"15", "03", "20"}) {
    for (unsigned seed = 1; seed <= sessions; ++seed) {
      std::mt19937 random(seed);
      const auto below = [&](size_t limit) { return static_cast<size_t>(random() % limit); };
      Record(code, [&](Form& form, UserDriver& user, FormDialog& dialog) {
        for (int acts = 40; acts > 0 && form.IsUp(); --acts) {
          Control& control = *form.Controls()[below(form.Controls().size())];
          switch (below(9)) {
            case 0:
              user.Click(control);
              break;
            case 1:
              user.PressMouse(control);
              break;
            case 2:
              user.Paste(kTexts[below(kTexts.size())]);
              break;
            case 3:
              ActNatively(dialog.windowHandle(), static_cast<int>(below(9)));
              break;
            case 4:
              if (auto* list = dynamic_cast<ListControl*>(&control); list != nullptr && list->ListCount() > 0)
                user.Choose(*list, static_cast<int>(below(static_cast<size_t>(list->ListCount()))));
              break;
            case 5:
            case 6:
              user.PressKey(*StrokeNamed(kKeys[below(kKeys.size())]));
              break;
            default:
              for (const char character : kTexts[below(kTexts.size())])
                if (form.IsUp())
                  user.Type(character);
          }
        }
        if (form.IsUp())
          user.CloseWindow(CloseReason::CloseBox);
      });
      const std::string text = recorder.Text();
      ASSERT_EQ(PlayBack(text, scripted), "") << "screen " << code << ", seed " << seed << "\n" << text;
      ASSERT_EQ(PlayBack(text, played), "") << "screen " << code << ", seed " << seed << "\n" << text;
    }
  }
}

}  // namespace
}  // namespace fiscalon::qt
