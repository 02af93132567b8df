#include "frontends/played/session_recorder.h"

#include <variant>

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class RecordedForm : public PartForm {
 public:
  // clang-format off
  Label     lblA    {*this, "lblA",    {.caption = "A"}};
  TextField txtA    {*this, "txtA",    {.tabIndex = 0}};
  TextField txtB    {*this, "txtB",    {.tabIndex = 1}, {.keyPress = [](int& character) { if (character == 'x') character = 0; }}};
  ListBox   lst     {*this, "lst",     {.tabIndex = 2}};
  CheckBox  chk     {*this, "chk",     {.caption = "Checked", .tabIndex = 3}};
  Button    cmdAsk  {*this, "cmdAsk",  {.caption = "&Ask"}, {.click = [this] { whenAsked(); }}};
  // clang-format on

  std::function<void()> whenAsked = [] {};

 private:
  void Form_Load() override {
    for (const char* row : {"One", "Two words", "Three"}) lst.AddItem(row);
  }
};

/// The user selects, or places the caret, in a way that no scenario can say.
struct Selects {
  TextField* field = nullptr;
  Selection selection = {};
};
using Step = std::variant<UserAct, Selects>;

KeyAct Stroke(std::string_view name) {
  return {.stroke = *StrokeNamed(name)};
}
KeyAct Stroke(char character) {
  return {.stroke = StrokeOf(character)};
}

/// A user at a form, whose acts a front end passes on to the form and the recorder hears of.
class SessionRecorderTest : public PartTest<RecordedForm> {
 protected:
  /// The lines of these acts.
  std::string Recorded(const std::vector<Step>& steps) {
    recorder = SessionRecorder();
    WhileUp([&](FormUser& /*user*/) {
      recorder.Opened(form);
      for (const Step& step : steps)
        if (const auto* selects = std::get_if<Selects>(&step))
          form.Acts().SelectText(*selects->field, selects->selection);
        else
          Perform(std::get<UserAct>(step));
    });
    form.Unload();
    return recorder.Text();
  }

  /// What a character of plain typing leads to: the key, and what the field's editor makes of it.
  std::vector<Step> Types(TextField& field, char character, const std::string& text, int caret) {
    return {Stroke(character), EditAct{&field, text, {.start = caret}, EditAct::Origin::Key}};
  }

  static std::vector<Step> Joined(const std::vector<std::vector<Step>>& parts) {
    std::vector<Step> all;
    for (const std::vector<Step>& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  /// "1345" in the first field, typed.
  std::vector<Step> Typed1345() {
    return Joined({Types(form.txtA, '1', "1", 1), Types(form.txtA, '3', "13", 2), Types(form.txtA, '4', "134", 3),
                   Types(form.txtA, '5', "1345", 4)});
  }

  SessionRecorder recorder;

 private:
  void Perform(const UserAct& act) {
    UserActs& acts = form.Acts();
    recorder.ActBegins(act);
    if (const auto* key = std::get_if<KeyAct>(&act))
      PerformKey(*key);
    else if (const auto* edit = std::get_if<EditAct>(&act))
      acts.EditText(*edit->field, edit->text, edit->selection);
    else if (const auto* press = std::get_if<PressAct>(&act))
      acts.Press(*press->control);
    else if (const auto* release = std::get_if<ReleaseAct>(&act))
      acts.Release(*release->control);
    else if (const auto* click = std::get_if<ClickAct>(&act))
      acts.Click(*click->control);
    else if (const auto* choose = std::get_if<ChooseAct>(&act))
      acts.Choose(*choose->list, choose->row);
    else if (const auto* bring = std::get_if<BringFocusAct>(&act))
      acts.BringFocus(*bring->control);
    else
      acts.Close(std::get<CloseAct>(act).reason);
    recorder.ActEnded();
  }

  void PerformKey(const KeyAct& key) {
    UserActs& acts = form.Acts();
    if (key.half == KeyAct::Half::Key)
      acts.KeyDown(key.stroke.keyCode, key.stroke.shift);
    else if (key.half == KeyAct::Half::Character)
      acts.Character(key.stroke.character);
    else
      acts.Key(key.stroke);
  }
};

TEST_F(SessionRecorderTest, WritesDownWhatTheHostHasSet) {
  recorder.Today({.date = {.year = 2026, .month = 6, .day = 5}, .hour = 9, .minute = 4, .second = 3});
  recorder.UsesLocale("en-CA");
  recorder.Host("CompName", "Summit Levies");
  recorder.Host("GovFilename", "/home/clerk/pay/out/run/records.pc4");
  recorder.Host("MainPath", "C:\\LEVYRA");
  recorder.Shows("15");
  EXPECT_EQ(recorder.Text(),
            "today 2026-06-05 09:04:03\nlocale en-CA\nhost CompName \"Summit Levies\"\n"
            "host GovFilename $TMP/././records.pc4\nhost MainPath $TMP\nshow 15\n");
}

TEST_F(SessionRecorderTest, WritesDownHowTheShowEnded) {
  recorder.Result(true);
  recorder.Records({"PC40001T  "});
  EXPECT_EQ(recorder.Text(),
            "expect result True\nexpect records 1\nexpect record 1 \"PC40001T  \"\nexpect length 1 10\n");
  recorder = SessionRecorder();
  recorder.Error(RuntimeError(5, "Invalid procedure call or argument"));
  EXPECT_EQ(recorder.Text(), "expect error 5 Fiscalon \"Invalid procedure call or argument\"\n");
}

TEST_F(SessionRecorderTest, PutsWhatIsTypedIntoOneLine) {
  EXPECT_EQ(Recorded(Joined({Typed1345(), {Stroke("Tab")}, Types(form.txtB, '2', "2", 1)})),
            "type 1345\nkey Tab\ntype 2\n");
}

TEST_F(SessionRecorderTest, LeavesTheSpaceOfACheckBoxAKey) {
  EXPECT_EQ(Recorded({BringFocusAct{&form.chk}, Stroke("Space")}), "focus chk\nkey Space\n");
}

TEST_F(SessionRecorderTest, NamesEachKeyThatAScenarioKnows) {
  for (const std::string name : {"Tab", "Shift+Tab", "Enter", "Escape", "Backspace", "Delete", "Space", "Left", "Right",
                                 "Up", "Down", "Home", "End", "Shift+Enter", "Ctrl+Enter", "Alt+A", "Alt+Z"})
    EXPECT_EQ(Recorded({BringFocusAct{&form.lst}, Stroke(name)}), "focus lst\nkey " + name + "\n");
}

TEST_F(SessionRecorderTest, TakesAKeyAndItsCharacterThatComeApartForOne) {
  const auto half = [](KeyStroke stroke, KeyAct::Half which) { return KeyAct{.stroke = stroke, .half = which}; };
  const KeyStroke enter = *StrokeNamed("Enter");
  EXPECT_EQ(Recorded({half({.keyCode = '7'}, KeyAct::Half::Key), half(StrokeOf('7'), KeyAct::Half::Character),
                      EditAct{&form.txtA, "7", {.start = 1}, EditAct::Origin::Key},
                      half({.keyCode = enter.keyCode}, KeyAct::Half::Key), half(enter, KeyAct::Half::Character)}),
            "type 7\nkey Enter\n");
}

TEST_F(SessionRecorderTest, CallsAnEditThatNoKeyMadeAPaste) {
  EXPECT_EQ(Recorded({EditAct{&form.txtA, "20 26", {.start = 5}}}), "paste \"20 26\"\n");
}

TEST_F(SessionRecorderTest, PutsAnUndoIntoKeys) {
  // The caret stands behind the four characters that go.
  EXPECT_EQ(Recorded(Joined({Typed1345(), {EditAct{&form.txtA, "", {}}}})),
            "type 1345\nkey Backspace\nkey Backspace\nkey Backspace\nkey Backspace\n");
}

TEST_F(SessionRecorderTest, PutsAnUndoOfOneOfSeveralLikeCharactersIntoAKey) {
  EXPECT_EQ(
      Recorded(Joined(
          {Types(form.txtA, '1', "1", 1), Types(form.txtA, '1', "11", 2), {EditAct{&form.txtA, "1", {.start = 1}}}})),
      "type 11\nkey Backspace\n");
}

TEST_F(SessionRecorderTest, PutsWhatIsTakenOutOfTheMiddleIntoKeys) {
  // The "3" goes: from behind the 5 two to the left, then one character back.
  EXPECT_EQ(Recorded(Joined({Typed1345(), {EditAct{&form.txtA, "145", {.start = 1}}}})),
            "type 1345\nkey Left\nkey Left\nkey Backspace\n");
}

TEST_F(SessionRecorderTest, PastesWhatReplacesTheMiddle) {
  EXPECT_EQ(Recorded(Joined({Typed1345(), {EditAct{&form.txtA, "1945", {.start = 2}}}})),
            "type 1345\nkey Left\nkey Left\nkey Backspace\npaste 9\n");
}

TEST_F(SessionRecorderTest, PastesOneOfSeveralLikeCharactersWhereTheCaretIs) {
  EXPECT_EQ(Recorded(Joined({Types(form.txtA, '1', "1", 1),
                             Types(form.txtA, '1', "11", 2),
                             {Selects{&form.txtA, {.start = 0}}, EditAct{&form.txtA, "111", {.start = 1}}}})),
            "type 11\nkey Left\nkey Left\npaste 1\n");
}

TEST_F(SessionRecorderTest, PastesBehindAKeyThatTheFormDropped) {
  EXPECT_EQ(Recorded({BringFocusAct{&form.txtB}, Stroke('x'), EditAct{&form.txtB, "77", {.start = 2}}}),
            "focus txtB\ntype x\npaste 77\n");
}

TEST_F(SessionRecorderTest, HasThePlayersCaretAtTheUsersBehindAnEdit) {
  // The user's caret stays behind the 1, where the player's comes by the keys that take the "3" away.
  EXPECT_EQ(Recorded(Joined({Typed1345(),
                             {Selects{&form.txtA, {.start = 1}}, EditAct{&form.txtA, "145", {.start = 1}}},
                             Types(form.txtA, '9', "1945", 2)})),
            "type 1345\nkey Left\nkey Left\nkey Backspace\ntype 9\n");
}

TEST_F(SessionRecorderTest, BringsThePlayersCaretToWhereAKeyErases) {
  EXPECT_EQ(Recorded(Joined({Typed1345(),
                             {Selects{&form.txtA, {.start = 1}}, Stroke("Delete"),
                              EditAct{&form.txtA, "145", {.start = 1}, EditAct::Origin::Key}}})),
            "type 1345\nkey Left\nkey Left\nkey Left\nkey Delete\n");
}

TEST_F(SessionRecorderTest, BringsThePlayersCaretToWhereTheMousePlacedIt) {
  // Three to the left, from behind the 5 to behind the 1.
  EXPECT_EQ(Recorded(Joined({Typed1345(), {Selects{&form.txtA, {.start = 1}}}, Types(form.txtA, '2', "12345", 2)})),
            "type 1345\nkey Left\nkey Left\nkey Left\ntype 2\n");
}

TEST_F(SessionRecorderTest, SaysNothingOfACaretThatIsNotUsed) {
  EXPECT_EQ(Recorded(Joined({Typed1345(), {Selects{&form.txtA, {.start = 1}}, Stroke("Left"), Stroke("Tab")}})),
            "type 1345\nkey Tab\n");
}

TEST_F(SessionRecorderTest, ErasesWhatAKeyReplacedOfASelectionByMouse) {
  // The key has come and the edit has not: where the player's caret is by then nobody knows, so it begins at the end.
  // "34" goes: from behind the 5 one to the left, then two characters back.
  EXPECT_EQ(Recorded(Joined(
                {Typed1345(), {Selects{&form.txtA, {.start = 1, .length = 2}}}, Types(form.txtA, '9', "195", 2)})),
            "type 1345\nkey End\nkey Left\nkey Backspace\nkey Backspace\ntype 9\n");
}

TEST_F(SessionRecorderTest, ErasesTheLastCharacterOfASelectionByTheKeyItself) {
  EXPECT_EQ(Recorded(Joined({Typed1345(),
                             {Selects{&form.txtA, {.start = 1, .length = 2}}, Stroke("Delete"),
                              EditAct{&form.txtA, "15", {.start = 1}, EditAct::Origin::Key}}})),
            "type 1345\nkey End\nkey Left\nkey Backspace\nkey Backspace\n");
}

TEST_F(SessionRecorderTest, LeavesASelectionAloneWhereTheFormDropsTheKey) {
  // Where the player's caret is nobody knows after the "x", so the next key begins at the end.
  EXPECT_EQ(Recorded(Joined({{BringFocusAct{&form.txtB}},
                             Types(form.txtB, '1', "1", 1),
                             Types(form.txtB, '2', "12", 2),
                             {Selects{&form.txtB, {.start = 0, .length = 2}}, Stroke('x')},
                             Types(form.txtB, '3', "3", 1)})),
            "focus txtB\ntype 12\ntype x\nkey End\nkey Backspace\nkey Backspace\ntype 3\n");
}

TEST_F(SessionRecorderTest, TellsACharacterThatWasTypedOverItself) {
  // The text is what it was, so that no editor tells of it: the caret alone has moved behind the character.
  EXPECT_EQ(Recorded(Joined({Types(form.txtA, '1', "1", 1),
                             {Selects{&form.txtA, {.start = 0, .length = 1}}, Stroke('1'),
                              Selects{&form.txtA, {.start = 1}}, Stroke("Tab")}})),
            "type 1\nkey End\nkey Backspace\ntype 1\nkey Tab\n");
}

TEST_F(SessionRecorderTest, TakesAPressAndItsReleaseForAClick) {
  EXPECT_EQ(Recorded({PressAct{&form.cmdAsk}, ReleaseAct{&form.cmdAsk}, PressAct{&form.chk}, PressAct{&form.txtA},
                      PressAct{&form.lblA}, ClickAct{&form.chk}}),
            "click cmdAsk\nfocus chk\nclick txtA\nclick chk\n");
}

TEST_F(SessionRecorderTest, NamesTheRowThatIsChosen) {
  EXPECT_EQ(Recorded({PressAct{&form.lst}, ChooseAct{&form.lst, 1}, Stroke("Down"), ChooseAct{&form.lst, 0}}),
            "choose lst \"Two words\"\nkey Down\nchoose lst One\n");
}

TEST_F(SessionRecorderTest, TellsHowTheWindowWasClosed) {
  EXPECT_EQ(Recorded({CloseAct{CloseReason::CloseBox}}), "close 0\n");
}

TEST_F(SessionRecorderTest, GivesAnAnswerBeforeTheLineThatAsks) {
  form.whenAsked = [this] {
    const BoxRequest question = {
        .text = "Sure?", .style = MessageStyle::Question, .buttons = MessageButtons::YesNo, .title = "Warning"};
    recorder.BoxAnswered(question, MessageAnswer::No);
    recorder.Beeped();
  };
  EXPECT_EQ(Recorded({ClickAct{&form.cmdAsk}}),
            "answer No\nclick cmdAsk\nexpect message question Sure? title Warning\nexpect beep\n");
}

TEST_F(SessionRecorderTest, BeginsALineBehindWhatWasSeen) {
  form.whenAsked = [this] {
    recorder.BoxAnswered({.text = "No.", .style = MessageStyle::Critical}, MessageAnswer::Ok);
  };
  EXPECT_EQ(Recorded(Joined({Typed1345(), {Stroke("Alt+A")}, {PressAct{&form.txtB}}, Types(form.txtB, '2', "2", 1)})),
            "type 1345\nkey Alt+A\nexpect message critical No.\nclick txtB\ntype 2\n");
}

TEST_F(SessionRecorderTest, LooksForHelpWhereThePlayersFilesAre) {
  recorder.Host("GovFilename", "/home/clerk/pay/out/run/records.pc4");
  recorder.Shows("15");
  recorder.HelpOpened("/home/clerk/LEVYRA.HLP", 12);
  EXPECT_EQ(recorder.Text(), "host GovFilename $TMP/././records.pc4\nshow 15\nexpect help $TMP/LEVYRA.HLP 12\n");
}

}  // namespace
}  // namespace fiscalon
