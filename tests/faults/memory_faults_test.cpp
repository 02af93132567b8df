// What a host is left with when memory fails it in the middle of a session: std::bad_alloc, no leak, and a library
// that does the same session as if nothing had been.

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "core/forms/text_field.h"
#include "core/host_setup.h"
#include "core/module_state.h"
#include "core/module_to_change.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/faults/every_allocation.h"
#include "tests/faults/faulty_files.h"
#include "tests/faults/screen_sessions.h"

namespace fiscalon {
namespace {

/// How a host does a session.
struct Setting {
  Boolean writeFile = kTrue;
  /// The play-by-play log is on, and the T record can't be composed.
  bool fails = false;
  /// What the user does on the form.
  void (*acts)(const ScreenSession& session, Form& form, UserDriver& user) = nullptr;
};

void FillInAndConfirm(const ScreenSession& session, Form& form, UserDriver& user) {
  FillIn(session.good, form, user);
  Confirm(session, form, user);
}

/// A user who gets everything wrong, and gives up.
void BlunderAndCancel(const ScreenSession& session, Form& form, UserDriver& user) {
  constexpr const char* kWrong[] = {"99991301", "abc", "-7.5"};
  size_t fields = 0;
  Confirm(session, form, user);
  for (Control* control : form.TabOrder()) {
    if (!form.IsUp())
      return;
    if (dynamic_cast<TextField*>(control) == nullptr)
      continue;
    user.PressMouse(*control);
    user.Paste(kWrong[fields++ % std::size(kWrong)]);
    user.Type('\r');
  }
  Confirm(session, form, user);
  Cancel(form, user);
}

/// A host that collects the records of one payment, from its first statement to its last.
class CollectingHost : public HostWork {
 public:
  CollectingHost(const ScreenSession& session, const Setting& setting) : session_(session), setting_(setting) {
    UseFixedClock({.date = {2026, 6, 15}, .hour = 13, .minute = 5, .second = 9});
    UseLocale(EnglishCanada());
    ModuleToChange().files = files_;
    UseToolkit(&frontEnd_);
    frontEnd_.onForm = [this](Form& form, UserDriver& user) { setting_.acts(session_, form, user); };
    frontEnd_.onMessage = [this](const BoxRequest& box) {
      evidence_ += box.text + "\n";
      return box.DefaultAnswer();
    };
  }
  ~CollectingHost() override {
    // No more than what this host has set: a whole reset asks for the system's locale, thousands of times.
    ModuleToChange().forms.clear();
    ModuleToChange().files = std::make_shared<SystemFiles>();
    ModuleToChange().playByPlayEnabled = 0;
    UseToolkit(nullptr);
  }
  CollectingHost(const CollectingHost&) = delete;
  CollectingHost& operator=(const CollectingHost&) = delete;

  std::string Do() override {
    EXPECT_TRUE(files_->open.empty()) << "the session before has left a file open";
    files_->contents.clear();
    evidence_.clear();
    if (!host_)
      host_ = std::make_unique<Levyra>();
    SetPayment(*host_, session_);
    host_->WriteFile(setting_.writeFile);
    host_->MainPath("logs");
    host_->PlayByPlayEnabled(setting_.fails ? kTrue : kFalse);
    if (setting_.fails)
      host_->EnterName("Bartholomew Featherstonehaugh-X");
    Show();
    for (const auto& [path, content] : files_->contents) evidence_.append(path).append("\n").append(content);
    if (const auto records = host_->PC4Records())
      for (const PC4& record : *records) evidence_ += record.TheDate() + record.Amount() + record.Description() + "\n";
    return evidence_;
  }

 private:
  void Show() {
    const char* ending = "";
    try {
      ending = host_->ShowLevyraScreen(session_.good.code) ? "confirmed\n" : "cancelled\n";
    } catch (const RuntimeError&) {
      ending = "an error\n";
    }
    // A form that has come to an end of its own remembers some answers of its user.
    ModuleToChange().forms.clear();
    evidence_ += ending;
  }

  const ScreenSession& session_;
  const Setting setting_;
  std::shared_ptr<FaultyFiles> files_ = std::make_shared<FaultyFiles>();
  ScriptedToolkit frontEnd_;
  std::unique_ptr<Levyra> host_;
  std::string evidence_;
};

void ExpectSessionWithstands(const ScreenSession& session, const Setting& setting, FaultLasts lasts) {
  SCOPED_TRACE(session.Name());
  ExpectEachAllocationMayFail(lasts, [&] { return std::make_unique<CollectingHost>(session, setting); });
}

/// The usual run tries a fault of one kind, the long one both.
std::vector<FaultLasts> Tried(FaultLasts usual) {
  if (std::getenv("FISCALON_LONG") != nullptr)
    return {FaultLasts::Once, FaultLasts::FromThenOn};
  return {usual};
}

void ExpectAllSessionsWithstand(const Setting& setting, FaultLasts usual) {
  ResetModule();
  for (const ScreenSession& session : ScreenSessions())
    for (const FaultLasts lasts : Tried(usual)) ExpectSessionWithstands(session, setting, lasts);
}

TEST(MemoryFaults, EachAllocationOfASessionMayFail) {
  ExpectAllSessionsWithstand({.writeFile = kTrue, .acts = FillInAndConfirm}, FaultLasts::Once);
}

TEST(MemoryFaults, MemoryMayStayAwayUntilTheHostHears) {
  ExpectAllSessionsWithstand({.writeFile = kFalse, .acts = FillInAndConfirm}, FaultLasts::FromThenOn);
}

TEST(MemoryFaults, EachAllocationOfWrongEntriesMayFail) {
  ExpectAllSessionsWithstand({.acts = BlunderAndCancel}, FaultLasts::Once);
}

TEST(MemoryFaults, EachAllocationOfAFailureThatIsLoggedAndToldMayFail) {
  ResetModule();
  for (const ScreenSession& session : ScreenSessions())
    if (session.failure == OutputFailure::IsReported)
      for (const FaultLasts lasts : Tried(FaultLasts::Once))
        ExpectSessionWithstands(session, {.fails = true, .acts = FillInAndConfirm}, lasts);
}

}  // namespace
}  // namespace fiscalon
