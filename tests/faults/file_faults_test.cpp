// What hosts, users, files and collections are left with when a file operation fails while a screen writes its records.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/host_setup.h"
#include "core/launch.h"
#include "core/module_to_change.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/faults/faulty_files.h"
#include "tests/faults/screen_sessions.h"

namespace fiscalon {
namespace {

constexpr const char* kFile = "payment.pc4";
constexpr const char* kOldContent = "records of the payment before\r\n";
constexpr const char* kErrorLog = "error.log";

struct Kind {
  int32_t number;
  const char* description;
};
constexpr Kind kDiskFull = {61, "Disk full"};
constexpr Kind kKinds[] = {
    kDiskFull, {70, "Permission denied"}, {75, "Path/File access error"}, {76, "Path not found"}};

/// How a show ended for the host, and what the user saw of it.
struct Shown {
  bool result = false;
  std::optional<RuntimeError> error = {};
  std::vector<BoxRequest> boxes = {};
};

/// A host that collects one payment's records, over and over, in a library freshly loaded.
class Host {
 public:
  using Acts = std::function<void(Form& form, UserDriver& user)>;

  Host(const ScreenSession& session, Boolean writeFile) : session_(session) {
    ResetModule();
    UseFixedClock({.date = {2026, 6, 15}, .hour = 13, .minute = 5, .second = 9});
    UseLocale(EnglishCanada());
    ModuleToChange().files = files_;
    UseToolkit(&frontEnd_);
    SetPayment(levyra, session);
    levyra.WriteFile(writeFile);
  }
  ~Host() { ResetModule(); }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  Shown Show(const Acts& acts) {
    Shown shown;
    frontEnd_.onForm = acts;
    frontEnd_.onMessage = [&](const BoxRequest& box) {
      shown.boxes.push_back(box);
      return box.DefaultAnswer();
    };
    try {
      shown.result = levyra.ShowLevyraScreen(session_.good.code);
    } catch (const RuntimeError& error) {
      shown.error = error;
    }
    return shown;
  }

  void FillIn(Form& form, UserDriver& user) const { fiscalon::FillIn(session_.good, form, user); }
  void Confirm(Form& form, UserDriver& user) const { fiscalon::Confirm(session_, form, user); }
  Acts WholeSession() const {
    return [this](Form& form, UserDriver& user) {
      FillIn(form, user);
      Confirm(form, user);
    };
  }
  Acts ConfirmAlone() const {
    return [this](Form& form, UserDriver& user) { Confirm(form, user); };
  }
  FaultyFiles& Files() { return *files_; }
  /// How many records the host finds in its collection; 0 where it has none.
  int32_t MemberCount() const { return levyra.PC4Records() ? levyra.PC4Records()->Count() : 0; }

  Levyra levyra;

 private:
  const ScreenSession& session_;
  std::shared_ptr<FaultyFiles> files_ = std::make_shared<FaultyFiles>();
  ScriptedToolkit frontEnd_;
};

void ExpectAccepted(const Shown& shown) {
  EXPECT_TRUE(shown.result);
  EXPECT_FALSE(shown.error) << shown.error->Number() << ' ' << shown.error->Description();
  EXPECT_TRUE(shown.boxes.empty()) << shown.boxes.front().text;
}

void ExpectError(const Shown& shown, const Kind& kind) {
  EXPECT_FALSE(shown.result);
  ASSERT_TRUE(shown.error);
  EXPECT_EQ(shown.error->Number(), kind.number);
  EXPECT_EQ(shown.error->Description(), kind.description);
  EXPECT_EQ(shown.error->Source(), "Fiscalon.ShowLevyraScreen");
}

void ExpectReport(const Shown& shown, const std::string& description, const std::string& number) {
  ASSERT_EQ(shown.boxes.size(), 1u);
  EXPECT_EQ(shown.boxes[0].text, "The following error: '" + description + " (Error " + number +
                                     ")' occurred in procedure 'frmQue_Rev_SourceDeduct.DoWrite'.");
  EXPECT_EQ(shown.boxes[0].style, MessageStyle::Critical);
}

std::string ErrorLine(const std::string& description, const std::string& number) {
  return "2026-06-15 1:05:09 p.m.,Fiscalon,,0," + number + ",\"" + description +
         "\",\"frmQue_Rev_SourceDeduct.DoWrite\"\r\n";
}

/// What an undisturbed output to the file does, where the file is there already.
std::vector<FaultyFiles::Step> StepsOf(const ScreenSession& session) {
  std::vector<FaultyFiles::Step> steps = {
      {FileStep::Exists, kFile}, {FileStep::Delete, kFile}, {FileStep::Open, kFile}};
  steps.insert(steps.end(), session.good.kinds.size(), FaultyFiles::Step{FileStep::Print, kFile});
  steps.push_back({FileStep::Close, kFile});
  return steps;
}

/// The lines of the file, each with its end.
std::vector<std::string> LinesOf(const std::string& content) {
  std::vector<std::string> lines;
  for (size_t from = 0; from < content.size();) {
    const size_t end = std::min(content.find("\r\n", from), content.size() - 2) + 2;
    lines.push_back(content.substr(from, end - from));
    from = end;
  }
  return lines;
}

/// The file of a session that nothing disturbs.
std::vector<std::string> WrittenBy(const ScreenSession& session) {
  Host host(session, kTrue);
  host.Files().contents[kFile] = kOldContent;
  host.Files().Mend();
  ExpectAccepted(host.Show(host.WholeSession()));
  EXPECT_EQ(host.Files().steps, StepsOf(session));
  EXPECT_TRUE(host.Files().open.empty());
  const std::vector<std::string> lines = LinesOf(host.Files().Content(kFile).value_or(""));
  std::string kinds;
  for (const std::string& line : lines) {
    EXPECT_EQ(line.size(), 164u) << line;
    EXPECT_TRUE(line.starts_with("\"PC40001") && line.ends_with("\"\r\n")) << line;
    kinds += line[8];
  }
  EXPECT_EQ(kinds, session.good.kinds);
  return lines;
}

std::string Joined(const std::vector<std::string>& lines, size_t count) {
  std::string content;
  for (size_t i = 0; i < count; ++i) content += lines[i];
  return content;
}

/// One step of one session fails.
struct Disturbance {
  size_t nth = 0;
  Kind kind = kDiskFull;
  FileFailure failure = {};
  FaultLasts lasts = FaultLasts::Once;
};

/// One session, and one disturbance of it after the other.
class DisturbedOutput {
 public:
  explicit DisturbedOutput(const ScreenSession& session)
      : session_(session), steps_(StepsOf(session)), lines_(WrittenBy(session)) {}

  size_t StepCount() const { return steps_.size(); }
  FileStep StepAt(size_t nth) const { return steps_[nth - 1].what; }

  void Expect(const Disturbance& disturbance) const {
    SCOPED_TRACE(session_.Name() + ", step " + std::to_string(disturbance.nth) + ", error " +
                 std::to_string(disturbance.kind.number) + (disturbance.failure.hides ? ", hidden" : "") +
                 (disturbance.failure.tears ? ", torn" : "") +
                 (disturbance.lasts == FaultLasts::FromThenOn ? ", from then on" : ""));
    ExpectThen(disturbance, Then::ConfirmsAgain);
    ExpectThen(disturbance, Then::Cancels);
  }

 private:
  /// What the user does when the screen comes up again.
  enum class Then { ConfirmsAgain, Cancels };

  void ExpectThen(const Disturbance& disturbance, Then then) const {
    Host host(session_, kTrue);
    const auto before = std::make_shared<PC4s>();
    before->Add("", "", "a record of the payment before");
    host.levyra.PC4Records(before);
    FaultyFiles& files = host.Files();
    files.contents[kFile] = kOldContent;

    bool staysUp = false;
    const Shown disturbed = host.Show([&](Form& form, UserDriver& user) {
      host.FillIn(form, user);
      files.FailAt(disturbance.nth, disturbance.failure, disturbance.lasts);
      host.Confirm(form, user);
      EXPECT_TRUE(files.HasFailed());
      staysUp = form.IsUp();
      if (staysUp)
        LeaveUp(host, disturbance, then, form, user);
    });
    EXPECT_EQ(staysUp, session_.failure == OutputFailure::StaysUp);
    EXPECT_EQ(host.levyra.PC4Records(), before);
    EXPECT_EQ(before->Count(), 1);
    if (staysUp)
      return ExpectEndOfFormThatStayedUp(host, disturbance, then, disturbed);
    ExpectEnding(host, disturbance, disturbed);
    files.Mend();
    if (then == Then::Cancels) {
      EXPECT_FALSE(host.Show(Cancel).result);
      EXPECT_TRUE(files.open.empty());
      EXPECT_EQ(files.Content(kFile), ContentAfter(disturbance));
    }
    // A form whose show ended with an error is still loaded, with all that was typed.
    const bool isFilledIn = then == Then::ConfirmsAgain && disturbed.error;
    ExpectAccepted(host.Show(isFilledIn ? host.ConfirmAlone() : host.WholeSession()));
    ExpectWhole(files);
  }

  void LeaveUp(Host& host, const Disturbance& disturbance, Then then, Form& form, UserDriver& user) const {
    FaultyFiles& files = host.Files();
    EXPECT_EQ(files.Content(kFile), ContentAfter(disturbance));
    EXPECT_EQ(files.open.size(), LeavesOpen(disturbance) ? 1u : 0u);
    files.Mend();
    if (then == Then::ConfirmsAgain)
      host.Confirm(form, user);
    else
      Cancel(form, user);
  }

  void ExpectEndOfFormThatStayedUp(Host& host, const Disturbance& disturbance, Then then, const Shown& shown) const {
    if (then == Then::ConfirmsAgain)
      return ExpectAccepted(shown), ExpectWhole(host.Files());
    EXPECT_FALSE(shown.result);
    EXPECT_FALSE(shown.error);
    EXPECT_TRUE(shown.boxes.empty());
    EXPECT_TRUE(host.Files().open.empty());
    EXPECT_EQ(host.Files().Content(kFile), ContentAfter(disturbance));
    ExpectAccepted(host.Show(host.WholeSession()));
    ExpectWhole(host.Files());
  }

  void ExpectEnding(Host& host, const Disturbance& disturbance, const Shown& shown) const {
    FaultyFiles& files = host.Files();
    EXPECT_EQ(files.Content(kFile), ContentAfter(disturbance));
    const bool reported = session_.failure == OutputFailure::IsReported;
    const std::string number = std::to_string(disturbance.kind.number);
    if (reported)
      ExpectReport(shown, disturbance.kind.description, number);
    else
      EXPECT_TRUE(shown.boxes.empty());
    // What keeps the error log from being written ends the report itself.
    const bool reportFails = reported && disturbance.lasts == FaultLasts::FromThenOn;
    if (session_.failure == OutputFailure::ReachesHost || reportFails) {
      ExpectError(shown, disturbance.kind);
      EXPECT_EQ(files.open.size(), LeavesOpen(disturbance) ? 1u : 0u);
      EXPECT_EQ(files.Content(kErrorLog), std::nullopt);
      return;
    }
    EXPECT_FALSE(shown.error);
    EXPECT_TRUE(shown.result);
    EXPECT_TRUE(files.open.empty());
    EXPECT_EQ(files.Content(kErrorLog),
              reported ? std::optional(ErrorLine(disturbance.kind.description, number)) : std::nullopt);
  }

  void ExpectWhole(const FaultyFiles& files) const {
    EXPECT_EQ(files.Content(kFile), Joined(lines_, lines_.size()));
    EXPECT_TRUE(files.open.empty());
    EXPECT_FALSE(files.shared);
  }

  /// What the file holds where that step has failed.
  std::optional<std::string> ContentAfter(const Disturbance& disturbance) const {
    constexpr size_t kFirstPrint = 4;
    switch (StepAt(disturbance.nth)) {
      case FileStep::Exists:
      case FileStep::Delete:
        return kOldContent;
      case FileStep::Open:
        return std::nullopt;
      case FileStep::Print: {
        const size_t printed = disturbance.nth - kFirstPrint;
        const std::string whole = Joined(lines_, printed);
        return disturbance.failure.tears ? whole + lines_[printed].substr(0, 82) : whole;
      }
      case FileStep::Close:
        break;
    }
    return Joined(lines_, lines_.size());
  }

  bool LeavesOpen(const Disturbance& disturbance) const {
    const FileStep step = StepAt(disturbance.nth);
    return step == FileStep::Print || step == FileStep::Close;
  }

  const ScreenSession& session_;
  std::vector<FaultyFiles::Step> steps_;
  std::vector<std::string> lines_;
};

TEST(FileFaults, EachStepOfAnOutputThatFailsIsHandledAsTheScreenDoes) {
  for (const ScreenSession& session : ScreenSessions()) {
    const DisturbedOutput output(session);
    for (size_t nth = 1; nth <= output.StepCount(); ++nth)
      for (const Kind& kind : kKinds)
        for (const FaultLasts lasts : {FaultLasts::Once, FaultLasts::FromThenOn})
          output.Expect({.nth = nth, .kind = kind, .failure = {.number = kind.number}, .lasts = lasts});
  }
}

TEST(FileFaults, ADiskThatTakesHalfALineKeepsTheHalf) {
  for (const ScreenSession& session : ScreenSessions()) {
    const DisturbedOutput output(session);
    for (size_t nth = 1; nth <= output.StepCount(); ++nth)
      if (output.StepAt(nth) == FileStep::Print)
        output.Expect({.nth = nth, .failure = {.tears = true}});
  }
}

TEST(FileFaults, EveryScreenIsAmongTheSessions) {
  for (const LaunchRow& row : LaunchTable())
    EXPECT_TRUE(std::any_of(ScreenSessions().begin(), ScreenSessions().end(), [&](const ScreenSession& session) {
      return session.good.code == row.code;
    })) << row.code;
}

TEST(FileFaults, AFileThatSeemsToBeMissingIsWrittenAnewAllTheSame) {
  for (const ScreenSession& session : ScreenSessions()) {
    SCOPED_TRACE(session.Name());
    const std::vector<std::string> lines = WrittenBy(session);
    Host host(session, kTrue);
    host.Files().contents[kFile] = kOldContent;
    host.Files().FailAt(1, {.hides = true});
    ExpectAccepted(host.Show(host.WholeSession()));
    EXPECT_EQ(host.Files().Content(kFile), Joined(lines, lines.size()));
  }
}

TEST(FileFaults, TheCollectionNeedsNoFile) {
  for (const ScreenSession& session : ScreenSessions()) {
    SCOPED_TRACE(session.Name());
    Host host(session, kFalse);
    host.Files().contents[kFile] = kOldContent;
    host.Files().FailAt(1, {}, FaultLasts::FromThenOn);
    ExpectAccepted(host.Show(host.WholeSession()));
    EXPECT_EQ(host.MemberCount(), session.good.records);
    EXPECT_TRUE(host.Files().steps.empty());
    EXPECT_EQ(host.Files().Content(kFile), kOldContent);
  }
}

/// A name that has one character more than its columns, so that no T record can be composed.
constexpr const char* kLongName = "Bartholomew Featherstonehaugh-X";
constexpr Kind kLongNameFails = {5, "Invalid procedure call or argument"};

bool NamesContact(const ScreenSession& session) {
  return session.good.kinds.front() == 'T';
}

TEST(FileFaults, ARecordThatCantBeComposedIsHandledLikeAFullDisk) {
  for (const ScreenSession& session : ScreenSessions())
    for (const Boolean writeFile : {kTrue, kFalse}) {
      SCOPED_TRACE(session.Name() + (writeFile == kTrue ? " to the file" : " to the collection"));
      Host host(session, writeFile);
      host.levyra.EnterName(kLongName);
      host.Files().contents[kFile] = kOldContent;
      bool staysUp = false;
      const Shown shown = host.Show([&](Form& form, UserDriver& user) {
        host.WholeSession()(form, user);
        staysUp = form.IsUp();
      });
      if (!NamesContact(session)) {
        ExpectAccepted(shown);
        continue;
      }
      EXPECT_EQ(staysUp, session.failure == OutputFailure::StaysUp);
      EXPECT_EQ(host.Files().Content(kFile), writeFile == kTrue ? "" : kOldContent);
      const bool handsOver = writeFile == kFalse && (session.failure == OutputFailure::Accepts ||
                                                     session.failure == OutputFailure::IsReported);
      EXPECT_EQ(host.levyra.PC4Records() != nullptr, handsOver);
      EXPECT_EQ(host.MemberCount(), 0);
      if (session.failure == OutputFailure::ReachesHost)
        ExpectError(shown, kLongNameFails);
      if (session.failure == OutputFailure::IsReported)
        ExpectReport(shown, kLongNameFails.description, "5");
      else
        EXPECT_TRUE(shown.boxes.empty());
      // The name is what was wrong: with another one the same entries pass.
      host.levyra.EnterName("Jane Doe");
      ExpectAccepted(host.Show(shown.error ? host.ConfirmAlone() : host.WholeSession()));
      EXPECT_TRUE(host.Files().open.empty());
      EXPECT_EQ(host.MemberCount(), writeFile == kFalse ? session.good.records : 0);
    }
}

const ScreenSession& LoggingSession() {
  return *std::find_if(ScreenSessions().begin(), ScreenSessions().end(),
                       [](const ScreenSession& session) { return session.failure == OutputFailure::IsReported; });
}

TEST(FileFaults, WhatKeepsTheErrorLogFromBeingWrittenReachesTheHost) {
  const ScreenSession& session = LoggingSession();
  size_t logSteps = 0;
  for (size_t nth = 1;; ++nth) {
    SCOPED_TRACE(nth);
    Host host(session, kTrue);
    host.levyra.EnterName(kLongName);
    FaultyFiles& files = host.Files();
    files.FailAt(nth, {.number = 75});
    const Shown shown = host.Show(host.WholeSession());
    if (!files.HasFailed())
      break;
    EXPECT_EQ(shown.boxes.size(), 1u);
    if (files.steps[nth - 1].path == kErrorLog) {
      ++logSteps;
      ExpectError(shown, {75, "Path/File access error"});
      // The form's own file is still the form's; the log is nobody's.
      EXPECT_EQ(files.open, std::vector<std::string>{kFile});
    } else {
      EXPECT_TRUE(shown.result);
      EXPECT_EQ(files.Content(kErrorLog), ErrorLine("Path/File access error", "75"));
    }
  }
  EXPECT_EQ(logSteps, 3u) << "opening, printing, closing";
}

TEST(FileFaults, NoStepOfThePlayByPlayLogDisturbsASession) {
  constexpr const char* kLog = "logs/Zelmor/PBP.txt";
  const ScreenSession& session = LoggingSession();
  const std::vector<std::string> lines = WrittenBy(session);
  const auto show = [&](Host& host, size_t nth) {
    host.levyra.MainPath("logs");
    host.levyra.PlayByPlayEnabled(kTrue);
    host.Files().FailAt(nth, {.number = 70});
    return host.Show(host.WholeSession());
  };
  Host undisturbed(session, kTrue);
  ExpectAccepted(show(undisturbed, 0));
  const size_t logged = LinesOf(*undisturbed.Files().Content(kLog)).size();
  for (size_t nth = 1; nth <= undisturbed.Files().steps.size(); ++nth) {
    SCOPED_TRACE(nth);
    Host host(session, kTrue);
    const Shown shown = show(host, nth);
    ASSERT_TRUE(host.Files().HasFailed());
    EXPECT_TRUE(shown.result);
    EXPECT_TRUE(host.Files().open.empty());
    const FaultyFiles::Step& failed = host.Files().steps[nth - 1];
    if (failed.path != kLog) {
      EXPECT_EQ(shown.boxes.size(), 1u);
      EXPECT_EQ(host.Files().Content("logs/error.log"), ErrorLine("Permission denied", "70"));
      continue;
    }
    ExpectAccepted(shown);
    EXPECT_EQ(host.Files().Content(kFile), Joined(lines, lines.size()));
    const size_t lost = failed.what == FileStep::Close ? 0 : 1;
    EXPECT_EQ(LinesOf(host.Files().Content(kLog).value_or("")).size(), logged - lost);
  }
}

}  // namespace
}  // namespace fiscalon
