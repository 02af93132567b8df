#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/runtime_error.h"
#include "core/session.h"
#include "frontends/played/scenario_folder.h"
#include "frontends/played/scenario_grammar.h"
#include "frontends/played/scenario_player.h"
#include "frontends/played/seen_things.h"

namespace fiscalon {

/// An expectation that was not met. It leaves the show like any foreign exception.
struct ScenarioFailure {
  int line = 0;
  std::string expected = {};
  std::string seen = {};
};

/// One scenario being played: its lines in turn, those behind a `show` while the form is up. The routines of the lines
/// find here what they act on. Texts are in UTF-8 unless said otherwise.
class ScenarioRun {
 public:
  ScenarioRun(const Scenario& scenario, DrivenToolkit& toolkit, const PlaySettings& settings,
              const PlayWatcher& watcher);
  ~ScenarioRun();

  /// Throws `ScenarioFailure`, `ScenarioError`.
  void Play();

  Levyra& Session() { return *session_; }
  /// Shows a screen, and plays the lines behind while it is up.
  void Show(const std::string& code);

  bool FormIsUp() const;
  /// What the form says without a box, in UTF-8; empty where none is up.
  std::string Status() const;
  /// Of the form that was shown last, which may be closed by now; empty before.
  const std::string& NameOfForm() const { return shownForm_; }
  /// The user at the form that is up. Fails where none is.
  UserDriver& User() const;
  /// Makes no sense where the form has no such control.
  Control& ControlNamed(const std::string& name) const;
  /// What the next box that nothing else answers is answered.
  void WillAnswer(MessageAnswer answer) { answers_.push_back(answer); }

  /// The first thing shown that no line has claimed.
  SeenThing Claim(const std::string& expected);
  /// How the last show ended, in the words of an `expect` line.
  std::string Ending() const;
  /// The error of the last show was expected.
  void ForgiveError() { error_.reset(); }
  /// The records that the host finds, in the code page.
  FoundRecords Found() const;
  std::vector<std::string> Records() const { return Found().records; }

  void Compare(const std::string& expected, const std::string& seen) const;
  void CompareTexts(const std::string& expected, std::string_view seenInCodePage) const;
  /// A text in UTF-8 without what scenarios do not tell apart.
  static std::string Comparable(const std::string& text);
  [[noreturn]] void Fail(const std::string& expected, const std::string& seen) const;
  /// The line makes no sense where it stands.
  [[noreturn]] void Senseless(const std::string& reason) const;

 private:
  void PlayLine();
  void BeginTurn(const ScenarioLine& line);
  void PlayWhileUp(Form& form, UserDriver& user);
  MessageAnswer AnswerBox(const BoxRequest& shown);
  void Notice(SeenThing thing);
  void RefuseUnclaimed() const;
  Arguments WithFolder(Arguments arguments);

  const Scenario& scenario_;
  DrivenToolkit& toolkit_;
  const PlayWatcher& watcher_;
  ScenarioFolder folder_;
  std::optional<Levyra> session_;
  size_t next_ = 0;
  const ScenarioLine* current_ = nullptr;
  Form* form_ = nullptr;
  UserDriver* user_ = nullptr;
  std::string shownForm_;
  std::deque<SeenThing> seen_;
  int seenAtLine_ = 0;
  std::deque<MessageAnswer> answers_;
  std::optional<bool> result_;
  std::optional<RuntimeError> error_;
};

}  // namespace fiscalon
