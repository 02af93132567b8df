#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "core/forms/scoped_value.h"
#include "core/platform/windows/wide_text.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/played_win32_toolkit.h"
#include "tests/frontends/win32/assistive_user.h"

// All that assistive programs are told of each form is held against its layout, and each form is filled in by them.

namespace fiscalon::win32 {
namespace {

using testing::UnorderedElementsAreArray;

/// Of those states that these objects have; that a field has several lines is none.
std::vector<std::string> StatesOf(const AccessibleThing& thing, ControlKind kind) {
  std::vector<std::string> states;
  const auto tell = [&](bool is, const char* state) {
    if (is)
      states.emplace_back(state);
  };
  tell(!thing.Is(STATE_SYSTEM_UNAVAILABLE), "enabled");
  tell(!thing.Is(STATE_SYSTEM_INVISIBLE), "showing");
  tell(thing.Is(STATE_SYSTEM_FOCUSED), "focused");
  tell(thing.Is(STATE_SYSTEM_FOCUSABLE), "focusable");
  // A label is never to be edited, which is nothing that a user asks.
  tell(thing.Is(STATE_SYSTEM_READONLY) && kind != ControlKind::Label, "locked");
  tell(thing.Is(STATE_SYSTEM_CHECKED), "checked");
  return states;
}

/// Forms with real windows, whose user has an assistive program. Before the scenario plays, what is told of the form is
/// compared, and what of too early an OK.
class AssistedToolkit final : public DrivenToolkit {
 public:
  explicit AssistedToolkit(const ToldScreen& expected) : expected_(expected) {
    windows_.onForm = [this](Form& form, UserDriver& native) {
      AssistiveUser user(program_, windows_.Window()->Window(), expected_, native);
      if (testing::Test::HasFailure())
        return form.Hide();
      Compare(user);
      LeaveThePayeeAsItIs(user);
      PressOkTooEarly(form, user);
      Drive(form, user);
    };
    windows_.onMessage = [this](const BoxRequest& shown) {
      ExpectAnnounced(shown);
      return tooEarly_ ? Refused(shown) : AnswerTo(shown);
    };
  }

  void ServeModal(Form& form) override { windows_.ServeModal(form); }
  MessageAnswer ShowMessage(const BoxRequest& box) override { return windows_.ShowMessage(box); }

 private:
  void Serve() const {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
      if (const auto* form = windows_.Window(); form == nullptr)
        ::DispatchMessageW(&message);
      else
        windows_.Window()->Dispatch(message);
  }

  void Compare(AssistiveUser& user) {
    const AccessibleThing form = program_.Told(windows_.Window()->Window());
    EXPECT_EQ(form.role, ROLE_SYSTEM_DIALOG);
    EXPECT_EQ(user.Title(), FromUtf8(expected_.title));
    const auto parts = program_.PartsOf(windows_.Window()->Window());
    const std::vector<HWND> inOrder = program_.Within(windows_.Window()->Window());
    std::set<std::string> names;
    for (const ToldScreen::Told& told : expected_.controls) {
      SCOPED_TRACE(told.name);
      const AccessibleThing thing = program_.Told(user.WindowOf(told.name));
      EXPECT_THAT(parts, testing::Contains(std::pair(thing.role, thing.name)));
      EXPECT_EQ(FromWide(thing.description), FromUtf8(told.description));
      EXPECT_EQ(FromWide(thing.key), told.key.empty() ? "" : "Alt+" + told.key);
      std::vector<std::string> states = told.states;
      std::erase(states, "several_lines");
      EXPECT_THAT(StatesOf(thing, told.kind), UnorderedElementsAreArray(states));
      // Windows has no other word for what a label is the label of than the place before it.
      if (!told.label.empty()) {
        const auto place = std::find(inOrder.begin(), inOrder.end(), user.WindowOf(told.label));
        ASSERT_LT(place - inOrder.begin(), std::ssize(inOrder) - 1) << told.label << " has nothing behind it";
        EXPECT_EQ(place[1], user.WindowOf(told.name)) << "behind " << told.label;
      }
      const bool isEntry = thing.Is(STATE_SYSTEM_FOCUSABLE) && !thing.Is(STATE_SYSTEM_INVISIBLE);
      EXPECT_TRUE(!isEntry || names.insert(told.told).second) << "two are named " << told.told;
    }
  }

  /// A field that is locked takes no text.
  void LeaveThePayeeAsItIs(AssistiveUser& user) {
    for (const ToldScreen::Told& told : expected_.controls) {
      const bool isLocked = std::find(told.states.begin(), told.states.end(), "locked") != told.states.end();
      if (!isLocked || told.told != "Payment to")
        continue;
      const std::string began = user.FocusName();
      const std::wstring before = program_.Told(user.WindowOf(told.name)).value;
      program_.PutValue(user.WindowOf(told.name), L"Somebody Else");
      EXPECT_EQ(program_.Told(user.WindowOf(told.name)).value, before);
      EXPECT_EQ(user.FocusName(), began);
    }
  }

  /// What is missing is told by boxes or by the status, and by the focus. A form that has all is left alone.
  void PressOkTooEarly(Form& form, AssistiveUser& user) {
    if (expected_.focus.empty())
      return;
    const std::string began = user.FocusName();
    program_.Forget();
    {
      const ScopedValue early(tooEarly_, true);
      user.Click(*form.FormLayout().buttons.front());
    }
    std::vector<std::string> boxes;
    for (const auto& box : expected_.boxes) boxes.push_back(FromUtf8(box.text));
    EXPECT_EQ(refusals_, boxes);
    EXPECT_EQ(user.FocusName(), expected_.focus);
    if (!expected_.status.empty()) {
      EXPECT_TRUE(program_.Hears([](const auto& event) { return event.kind == EVENT_SYSTEM_ALERT; }));
      const AccessibleThing status = program_.Told(program_.LastOf(EVENT_SYSTEM_ALERT));
      EXPECT_EQ(status.role, ROLE_SYSTEM_ALERT);
      EXPECT_EQ(FromWide(status.name), FromUtf8(expected_.status));
      EXPECT_EQ(FromWide(program_.Told(user.WindowOf(expected_.focus)).description), FromUtf8(expected_.status));
      EXPECT_TRUE(program_.Hears([&](const auto& event) {
        return event.kind == EVENT_OBJECT_DESCRIPTIONCHANGE && event.window == user.WindowOf(expected_.focus);
      }));
    }
    user.GoTo(began);
  }

  MessageAnswer Refused(const BoxRequest& shown) {
    refusals_.push_back(shown.text);
    return shown.DefaultAnswer();
  }

  /// The box has the focus, which is what programs that read aloud go by, and its text is an object of its own.
  void ExpectAnnounced(const BoxRequest& shown) {
    const HWND box = ::GetActiveWindow();
    EXPECT_TRUE(program_.Hears([&](const auto& event) {
      return event.kind == EVENT_OBJECT_FOCUS && ::IsChild(box, event.window) != FALSE;
    })) << shown.text;
    const AccessibleThing focus = program_.Told(program_.LastOf(EVENT_OBJECT_FOCUS));
    EXPECT_EQ(FromWide(focus.name), ButtonCaption(shown.DefaultAnswer(), shown.language));
    EXPECT_TRUE(focus.Is(STATE_SYSTEM_FOCUSED));
    EXPECT_EQ(FromWide(program_.Told(box).name), shown.title);
    std::vector<std::string> texts;
    for (const HWND part : program_.Within(box)) texts.push_back(FromWide(program_.Told(part).name));
    EXPECT_THAT(texts, testing::Contains(shown.text));
    program_.Forget();
  }

  const ToldScreen& expected_;
  PlayedWin32Toolkit windows_;
  AssistiveProgram program_{[this] { Serve(); }};
  bool tooEarly_ = false;
  std::vector<std::string> refusals_;
};

TEST(AssistiveForms, AreToldAsTheyAreLaidOutAndFilledIn) {
  const auto scenarios = AssistedScenarios(std::filesystem::path(FISCALON_SOURCE_DIR) / "tests/scenarios");
  ASSERT_GE(scenarios.size(), 18U);
  for (const AssistedScenario& scenario : scenarios) {
    SCOPED_TRACE(scenario.file);
    const ToldScreen expected = ToldScreenOf(scenario);
    AssistedToolkit toolkit(expected);
    const PlayResult result = ScenarioPlayer(toolkit).Play(scenario.Read());
    EXPECT_TRUE(result.passed) << result.line << ": " << result.expected << ", seen: " << result.seen;
  }
}

}  // namespace
}  // namespace fiscalon::win32
