#pragma once

#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/platform/runtime_error.h"
#include "core/session.h"
#include "frontends/played/scenario_player.h"

namespace fiscalon {

/// An expectation that was not met. It leaves the show like any foreign exception.
struct ScenarioFailure {
  int line = 0;
  std::string expected = {};
  std::string seen = {};
};

/// The folder behind `$TMP`, which goes with its scenario.
class ScenarioFolder {
 public:
  ScenarioFolder();
  ~ScenarioFolder();
  ScenarioFolder(const ScenarioFolder&) = delete;
  ScenarioFolder& operator=(const ScenarioFolder&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// One scenario being played: its lines in turn, those behind a `show` while the form is up.
class ScenarioRun {
 public:
  ScenarioRun(const Scenario& scenario, DrivenToolkit& toolkit, const PlaySettings& settings,
              const PlayWatcher& watcher);
  ~ScenarioRun();

  /// Throws `ScenarioFailure`, `ScenarioError`.
  void Play();

 private:
  struct SeenBeep {};
  struct SeenHelp {
    std::string file = {};
    int32_t context = 0;
  };
  using SeenThing = std::variant<MessageBox, SeenBeep, SeenHelp>;

  void PlayLine();
  void PlayWhileUp(Form& form, UserDriver& user);
  void Notice(SeenThing thing);
  MessageAnswer AnswerBox(const MessageBox& box);

  void Host(const ScenarioLine& line);
  void Show(const ScenarioLine& line);
  void Act(const ScenarioLine& line);
  void TypeText(const ScenarioLine& line);

  // Expectations (scenario_expectations.cpp).
  void Expect(const ScenarioLine& line);
  bool ExpectOfForm(const ScenarioLine& line, const std::string& what);
  bool ExpectOfShow(const ScenarioLine& line, const std::string& what);
  bool ExpectOfRecords(const ScenarioLine& line, const std::string& what);
  void ExpectMessage(const ScenarioLine& line);
  SeenThing Claim(const std::string& expected);
  /// In the words of an `expect` line.
  static std::string Described(const SeenThing& thing);
  void RefuseUnclaimed() const;
  std::string Ending() const;
  void Compare(const std::string& expected, const std::string& seen) const;
  void CompareTexts(const std::string& expected, const std::string& seenInCodePage) const;

  std::vector<std::string> Records() const;
  const PC4& Member(const std::string& position) const;

  [[noreturn]] void Fail(const std::string& expected, const std::string& seen) const;
  [[noreturn]] void Senseless(const std::string& reason) const;
  UserDriver& User() const;
  Control& ControlNamed(const std::string& name) const;
  std::string Argument(const ScenarioLine& line, size_t i) const;

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
