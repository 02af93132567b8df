#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/found_records.h"
#include "core/host_setup.h"
#include "core/launch.h"
#include "core/module_to_change.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/arbitrary_user.h"
#include "tests/support/busy_form.h"
#include "tests/support/memory_files.h"

namespace fiscalon {

struct WalkSettings {
  /// Called as the form comes up.
  std::function<void()> begins = [] {};
  Texts texts = Texts::Any;
};

/// A walk over a form, by choices, and a protocol of what was done and what was seen.
class Walk {
 public:
  Walk(unsigned seed, size_t choices, WalkSettings settings = {})
      : bytes_(RandomBytes(seed, choices)), begins_(std::move(settings.begins)), texts_(settings.texts) {}
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;

  /// Over a screen that a host shows.
  std::vector<std::string> At(DrivenToolkit& toolkit, const GoodSession& screen) {
    const auto files = std::make_shared<MemoryFiles>();
    ResetModule();
    UseFixedClock({.date = {.year = 2026, .month = 6, .day = 15}});
    UseLocale(EnglishCanada());
    ModuleToChange().files = files;
    UseToolkit(&toolkit);
    Levyra session;
    SetUpSomehow(choices_, screen, session);
    Attend(toolkit, [&](Form& form, UserDriver& user) { walker_.Begin(screen, form, user); });
    try {
      Note(session.ShowLevyraScreen(screen.code) ? "True" : "False");
    } catch (const RuntimeError& error) {
      Note("error: " + error.Description());
    }
    if (const std::shared_ptr<PC4s> records = session.PC4Records())
      for (const PC4& record : *records) Note(record.TheDate() + record.Amount() + record.Description());
    for (const auto& [name, content] : files->contents) Note(name + ": " + content);
    ResetModule();
    return protocol_;
  }

  /// Over a form of its own.
  std::vector<std::string> At(DrivenToolkit& toolkit, Form& form) {
    Attend(toolkit, [](Form&, UserDriver&) {});
    form.ShowModal(toolkit);
    return protocol_;
  }

 private:
  void Attend(DrivenToolkit& toolkit, const std::function<void(Form& form, UserDriver& user)>& begin) {
    toolkit.onMessage = [this](const BoxRequest& box) {
      Note("box: " + box.text);
      return box.buttons == MessageButtons::YesNo && choices_.Below(2) == 0 ? MessageAnswer::No : box.DefaultAnswer();
    };
    toolkit.onEvent = [this](const std::string& handler) { Note("  " + handler); };
    toolkit.onHelp = [this](std::string_view file, int32_t) { Note("help: " + std::string(file)); };
    toolkit.onForm = [this, begin](Form& form, UserDriver& user) {
      begins_();
      begin(form, user);
      while (form.IsUp() && !choices_.AreUsedUp()) {
        Look(form, user);
        walker_.Act(form, user);
      }
      if (!form.IsUp())
        return;
      Look(form, user);
      user.CloseWindow(CloseReason::CloseBox);
    };
  }

  void Note(const std::string& line) { protocol_.push_back(line); }

  void Look(const Form& form, UserDriver& user) {
    const std::string focus = user.FocusName();
    std::string seen = "title " + user.Title() + " | focus " + focus;
    for (Control* control : form.Controls()) {
      seen.append(" | ").append(control->Name()).append(" ").append(user.Text(*control));
      if (!user.Enabled(*control))
        seen += " disabled";
      if (!user.Visible(*control))
        seen += " hidden";
      if (user.Checked(*control))
        seen += " checked";
      if (user.Locked(*control))
        seen += " locked";
      if (const int rows = user.Items(*control); rows != 0)
        seen.append(" rows ").append(std::to_string(rows));
      // A field that was left may keep its selection or not, unseen.
      const bool isClosed = control->Kind() == ControlKind::TextField && !control->CanTakeFocus();
      if (focus == control->Name() || isClosed)
        seen.append(" <").append(user.SelectedText(*control)).append(">");
    }
    Note(WithPlainLineEnds(seen));
  }

  /// Widgets know one kind of line end.
  static std::string WithPlainLineEnds(std::string text) {
    for (size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at))
      text.replace(at, text.compare(at, 2, "\r\n") == 0 ? 2 : 1, "\n");
    return text;
  }

  const std::string bytes_;
  const std::function<void()> begins_;
  const Texts texts_;
  Choices choices_{bytes_};
  ArbitraryUser walker_{choices_, [this](const std::string& act) { Note(act); }, texts_};
  std::vector<std::string> protocol_;
};

/// Where two protocols part, with what led there.
inline std::string Difference(const std::vector<std::string>& scripted, const std::vector<std::string>& shown) {
  size_t i = 0;
  while (i < scripted.size() && i < shown.size() && scripted[i] == shown[i]) ++i;
  if (i == scripted.size() && i == shown.size())
    return {};
  std::string story;
  for (size_t before = i - std::min<size_t>(i, 30); before < i; ++before) story += scripted[before] + "\n";
  return story + "scripted: " + (i < scripted.size() ? scripted[i] : "(end)") +
         "\nshown:    " + (i < shown.size() ? shown[i] : "(end)");
}

/// A form's walks start from the screens that it serves, in turns.
inline std::vector<GoodSession> ScreensOf(std::string_view form) {
  std::vector<GoodSession> screens;
  for (const GoodSession& screen : kGoodSessions)
    if (FindLaunchRow(screen.code)->form == form)
      screens.push_back(screen);
  return screens;
}

inline std::vector<std::string> AllForms() {
  std::vector<std::string> forms;
  for (const LaunchRow& row : LaunchTable())
    if (std::find(forms.begin(), forms.end(), row.form) == forms.end())
      forms.emplace_back(row.form);
  return forms;
}

/// Walks over one form through both front ends at once: what is done and seen must be the same.
inline void WalkOverForm(DrivenToolkit& played, const std::string& form, unsigned walks,
                         const WalkSettings& settings = {}) {
  constexpr size_t kChoices = 90;
  const std::vector<GoodSession> screens = ScreensOf(form);
  ASSERT_FALSE(screens.empty());
  ScriptedToolkit scripted;
  unsigned accepted = 0;
  for (unsigned seed = 1; seed <= walks; ++seed) {
    const GoodSession& screen = screens[seed % screens.size()];
    const std::vector<std::string> protocol = Walk(seed, kChoices, {.texts = settings.texts}).At(scripted, screen);
    const std::string difference = Difference(protocol, Walk(seed, kChoices, settings).At(played, screen));
    ASSERT_TRUE(difference.empty()) << difference << "\nscreen " << screen.code << ", seed " << seed;
    accepted += std::find(protocol.begin(), protocol.end(), "True") == protocol.end() ? 0 : 1;
  }
  // Otherwise the walks would hardly compare records.
  EXPECT_GE(accepted, walks / 50);
}

/// The same over a form with every kind of control.
inline void WalkOverEveryKind(DrivenToolkit& played, unsigned walks, const WalkSettings& settings = {}) {
  constexpr size_t kChoices = 240;
  constexpr unsigned kTold = 100;
  ScriptedToolkit scripted;
  std::string everything;
  for (unsigned seed = 1; seed <= walks; ++seed) {
    BusyForm form;
    const std::vector<std::string> protocol = Walk(seed, kChoices, {.texts = settings.texts}).At(scripted, form);
    BusyForm shown;
    const std::string difference = Difference(protocol, Walk(seed, kChoices, settings).At(played, shown));
    ASSERT_TRUE(difference.empty()) << difference << "\nseed " << seed;
    if (seed <= kTold)
      for (const std::string& line : protocol) everything += line + "\n";
  }
  // Otherwise the walks would say nothing of these.
  for (const char* handler :
       {"optSecond_Click", "StatementOnly(0)_Click", "chkFinal_Click", "cmbProvince_Chosen", "lstInvoices_Chosen",
        "cmbProvince_Click", "txtPurpose_Change", "txtPeriod_LostFocus", "Form_QueryUnload"})
    EXPECT_NE(everything.find(std::string("  ") + handler + "\n"), std::string::npos) << handler;
}

}  // namespace fiscalon
