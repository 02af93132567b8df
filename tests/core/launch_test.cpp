#include "core/launch.h"

#include <gmock/gmock.h>

#include <array>
#include <functional>

#include "core/launch_properties.h"
#include "core/messages.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

/// A screen without controls that notes what a launch does to it.
class NotingScreen : public Screen {
 public:
  explicit NotingScreen(std::string_view name) : Screen(name, "A screen under test") { notes.push_back("made"); }

  const Layout& FormLayout() const override { return layout_; }

  void OwnText(std::string_view text) { notes.push_back("own " + std::string(text)); }
  void SetUp() { notes.push_back("set up"); }

  void PressOk() {
    BeginRecords();
    SendRecord("record of " + Payment().seqNumber);
    EndRecords();
    Chosen(kTrue);
    Hide();
  }
  void PressCancel() { Cancelled(); }

  /// What launches did, in order.
  static inline std::vector<std::string> notes;
  static inline std::function<void()> whenLoading;

 protected:
  void Accessed(std::string_view access, std::string_view property) const override {
    if (access == "Let")
      notes.emplace_back(property);
  }
  void Form_Load() override {
    notes.push_back("Form_Load");
    if (whenLoading)
      whenLoading();
  }
  void Unloaded() override {
    Screen::Unloaded();
    notes.push_back("Unloaded");
  }

 private:
  Layout layout_;
};

std::shared_ptr<Screen> MakeScreen() {
  return std::make_shared<NotingScreen>("frmNoting");
}

constexpr LaunchProperty kInfoCount{"NumberOfInfoCollect", [](const Levyra& from, std::string_view, Screen& to) {
                                      static_cast<NotingScreen&>(to).OwnText(from.NumberOfInfoCollect());
                                    }};
constexpr LaunchProperty kScreenType{"ScreenType", [](const Levyra&, std::string_view code, Screen& to) {
                                       static_cast<NotingScreen&>(to).OwnText(code);
                                     }};

constexpr std::array kOwnBehindSequence = {kCompName,    kPaidAmount, kPaidDate,  kEnterName, kEnterTitle,
                                           kGovFilename, kSeqNumber,  kInfoCount, kAPHoldFlg, kWriteFile};
constexpr std::array kTwoOwn = {kCompName,  kPaidAmount, kPaidDate, kEnterName, kEnterTitle, kGovFilename,
                                kSeqNumber, kAPHoldFlg,  kCompCode, kWriteFile, kScreenType};

constexpr std::array kTable = {
    LaunchRow{"01", "ShowPlainForm", "frmPlain", "", kCommonOrder, MakeScreen},
    LaunchRow{"07", "ShowOwnForm", "frmOwn", "", kOwnBehindSequence, MakeScreen},
    LaunchRow{"20", "ShowSetUpForm", "frmSetUp", "", kCommonOrder, MakeScreen,
              [](Screen& screen) { static_cast<NotingScreen&>(screen).SetUp(); }},
    LaunchRow{"25", "ShowSharedForm", "frmShared", "", kTwoOwn, MakeScreen},
    LaunchRow{"26", "ShowSharedForm", "frmShared", "", kTwoOwn, MakeScreen},
};

}  // namespace

// The core knows no screens: these tests bring their own.
std::span<const LaunchRow> LaunchTable() {
  return kTable;
}

namespace {

class LaunchTest : public ModuleTest {
 protected:
  LaunchTest() {
    NotingScreen::notes.clear();
    NotingScreen::whenLoading = nullptr;
    UseToolkit(&frontEnd);
  }

  static NotingScreen& ScreenOf(const std::string& form) {
    return static_cast<NotingScreen&>(*TheModule().forms.at(form));
  }

  /// Shows a screen on which the user does that.
  bool Show(std::string_view code, const std::string& form, void (NotingScreen::*act)()) {
    frontEnd.serve = [form, act] { (ScreenOf(form).*act)(); };
    return session.ShowLevyraScreen(code);
  }
  bool PressOk() { return Show("01", "frmPlain", &NotingScreen::PressOk); }
  bool PressCancel() { return Show("01", "frmPlain", &NotingScreen::PressCancel); }
  /// The window closes, and the screen does nothing about it.
  bool CloseWindow() { return Show("01", "frmPlain", &NotingScreen::Unload); }

  ServingToolkit frontEnd;
  Levyra session;
};

TEST_F(LaunchTest, LaunchSetsNinePropertiesInOrderThenShows) {
  EXPECT_FALSE(PressCancel());
  EXPECT_THAT(NotingScreen::notes,
              ElementsAre("made", "CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                          "SeqNumber", "APHoldFlg", "WriteFile", "Form_Load", "Unloaded"));
}

TEST_F(LaunchTest, LaunchSetsWhatAFormHasOfItsOwnInItsPlace) {
  session.NumberOfInfoCollect("4");
  Show("07", "frmOwn", &NotingScreen::PressCancel);
  EXPECT_THAT(NotingScreen::notes,
              ElementsAre("made", "CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                          "SeqNumber", "own 4", "APHoldFlg", "WriteFile", "Form_Load", "Unloaded"));
}

TEST_F(LaunchTest, LaunchMayPassTheScreenCodeBehindTheLastProperty) {
  session.CompCode("001052");
  Show("26", "frmShared", &NotingScreen::PressCancel);
  EXPECT_THAT(NotingScreen::notes,
              ElementsAre("made", "CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                          "SeqNumber", "APHoldFlg", "CompCode", "WriteFile", "own 26", "Form_Load", "Unloaded"));
  EXPECT_EQ(ScreenOf("frmShared").CompCode(), "001052");
}

TEST_F(LaunchTest, LaunchMaySetAFormUpBeforeItIsShown) {
  Show("20", "frmSetUp", &NotingScreen::PressCancel);
  EXPECT_THAT(NotingScreen::notes,
              ElementsAre("made", "CompName", "PaidAmount", "PaidDate", "EnterName", "EnterTitle", "GovFilename",
                          "SeqNumber", "APHoldFlg", "WriteFile", "set up", "Form_Load", "Unloaded"));
}

TEST_F(LaunchTest, LaunchPassesTheValues) {
  session.CompName("Summit Levies");
  session.PaidAmount("12345");
  session.PaidDate("06152026");
  session.EnterName("Jane Doe");
  session.EnterTitle("Clerk");
  session.GovFilename("/f");
  session.SeqNumber("0001");
  session.APHoldFlg(2);
  session.WriteFile(1);
  PressCancel();
  const NotingScreen& screen = ScreenOf("frmPlain");
  EXPECT_EQ(screen.CompName(), "Summit Levies");
  EXPECT_EQ(screen.PaidAmount(), "123.45");
  EXPECT_EQ(screen.PaidDate(), "06152026");
  EXPECT_EQ(screen.EnterName(), "Jane Doe");
  EXPECT_EQ(screen.EnterTitle(), "Clerk");
  EXPECT_EQ(screen.GovFilename(), "/f");
  EXPECT_EQ(screen.SeqNumber(), "0001");
  EXPECT_EQ(screen.APHoldFlg(), 2);
  EXPECT_EQ(screen.WriteFile(), 1);
  EXPECT_EQ(screen.CompCode(), "");
}

TEST_F(LaunchTest, FormsAreMadeOnceForAllSessionsAndCodes) {
  Show("25", "frmShared", &NotingScreen::PressCancel);
  const Screen* const made = &ScreenOf("frmShared");
  Show("26", "frmShared", &NotingScreen::PressCancel);
  Levyra other;
  other.ShowLevyraScreen("25");
  EXPECT_EQ(&ScreenOf("frmShared"), made);
  EXPECT_EQ(std::count(NotingScreen::notes.begin(), NotingScreen::notes.end(), "made"), 1);
  EXPECT_EQ(std::count(NotingScreen::notes.begin(), NotingScreen::notes.end(), "Form_Load"), 3);
}

TEST_F(LaunchTest, OkHandsOverTheFormsOwnCollection) {
  session.SeqNumber("0001");
  EXPECT_TRUE(PressOk());
  EXPECT_EQ(session.PC4Records(), ScreenOf("frmPlain").PC4Records());
  ASSERT_EQ(session.PC4Records()->Count(), 1);
  EXPECT_EQ(session.PC4Records()->Item(1).Description(), "record of 0001");
}

TEST_F(LaunchTest, NextOutputEmptiesTheCollectionThatAHostHolds) {
  session.SeqNumber("0001");
  PressOk();
  const std::shared_ptr<PC4s> held = session.PC4Records();
  Levyra other;
  other.SeqNumber("0002");
  frontEnd.serve = [&] { ScreenOf("frmPlain").PressOk(); };
  EXPECT_TRUE(other.ShowLevyraScreen("01"));
  EXPECT_EQ(other.PC4Records(), held);
  ASSERT_EQ(held->Count(), 1);
  EXPECT_EQ(held->Item(1).Description(), "record of 0002");
}

TEST_F(LaunchTest, CancelLeavesTheHostsCollectionAlone) {
  const auto own = std::make_shared<PC4s>();
  own->Add("", "", "the host's own");
  session.PC4Records(own);
  EXPECT_FALSE(PressCancel());
  EXPECT_EQ(session.PC4Records(), own);
  EXPECT_EQ(own->Count(), 1);
}

TEST_F(LaunchTest, OkWithAFileLeavesTheHostsCollectionAlone) {
  session.WriteFile(kTrue);
  frontEnd.serve = [&] {
    // The output goes nowhere here: only the answer counts.
    ScreenOf("frmPlain").WriteFile(kFalse);
    ScreenOf("frmPlain").PressOk();
  };
  EXPECT_TRUE(session.ShowLevyraScreen("01"));
  EXPECT_EQ(session.PC4Records(), nullptr);
}

TEST_F(LaunchTest, WriteFileThatIsNotExactlyTrueHandsOverTheCollection) {
  for (const int16_t value : {int16_t{1}, int16_t{-2}, int16_t{32767}}) {
    session.PC4Records(nullptr);
    session.WriteFile(value);
    EXPECT_TRUE(PressOk());
    ASSERT_NE(session.PC4Records(), nullptr) << value;
    EXPECT_EQ(session.PC4Records()->Count(), 1) << value;
  }
}

TEST_F(LaunchTest, ChosenOutlivesALaunchThatTheWindowEnded) {
  EXPECT_FALSE(CloseWindow());
  EXPECT_TRUE(PressOk());
  EXPECT_TRUE(CloseWindow());
  EXPECT_FALSE(PressCancel());
  EXPECT_FALSE(CloseWindow());
}

TEST_F(LaunchTest, ChosenWithoutAnyOutputHandsOverAnEmptyCollection) {
  frontEnd.serve = [&] {
    ScreenOf("frmPlain").PressOk();
    ScreenOf("frmPlain").PC4Records()->Clear();
  };
  EXPECT_TRUE(session.ShowLevyraScreen("01"));
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Count(), 0);
}

void ExpectError(const std::function<void()>& act, int32_t number, const std::string& description) {
  try {
    act();
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_EQ(error.Description(), description);
    EXPECT_EQ(error.Source(), "Fiscalon.ShowLevyraScreen");
  }
}

TEST_F(LaunchTest, UnknownCodesRaiseInvalidScreenType) {
  for (const std::string_view code : {std::string_view("02"), std::string_view(""), std::string_view("01 "),
                                      std::string_view(" 01"), std::string_view("1"), std::string_view("01\0", 3)}) {
    ExpectError([&] { session.ShowLevyraScreen(code); }, static_cast<int32_t>(0x80040001), "Invalid Screen Type");
  }
  EXPECT_TRUE(NotingScreen::notes.empty());
}

TEST_F(LaunchTest, UnknownCodesAreToldWithoutAToolkitToo) {
  UseToolkit(nullptr);
  EXPECT_EQ(ErrorOf([&] { session.ShowLevyraScreen("12"); }), static_cast<int32_t>(0x80040001));
}

TEST_F(LaunchTest, ShowingWithoutAToolkitIsAnErrorThatTellsTheRemedy) {
  UseToolkit(nullptr);
  ExpectError([&] { session.ShowLevyraScreen("01"); }, 91,
              "No forms toolkit is installed. Call UseToolkit before a screen or a message box is shown.");
}

TEST_F(LaunchTest, ErrorsOfAFormKeepNumberAndDescription) {
  NotingScreen::whenLoading = [] { throw RuntimeError(76, "Path not found", "elsewhere"); };
  ExpectError([&] { session.ShowLevyraScreen("01"); }, 76, "Path not found");
}

TEST_F(LaunchTest, FormStaysLoadedBehindAnErrorAndIsNotLoadedAgain) {
  frontEnd.serve = [] { Raise(6); };
  EXPECT_EQ(ErrorOf([&] { session.ShowLevyraScreen("01"); }), 6);
  EXPECT_TRUE(ScreenOf("frmPlain").IsLoaded());
  EXPECT_FALSE(ScreenOf("frmPlain").IsUp());
  EXPECT_TRUE(PressOk());
  EXPECT_FALSE(ScreenOf("frmPlain").IsLoaded());
  EXPECT_EQ(std::count(NotingScreen::notes.begin(), NotingScreen::notes.end(), "Form_Load"), 1);
}

TEST_F(LaunchTest, ErrorLeavesResultsOfEarlierLaunchesAlone) {
  EXPECT_TRUE(PressOk());
  const auto held = session.PC4Records();
  frontEnd.serve = [] { Raise(6); };
  EXPECT_EQ(ErrorOf([&] { session.ShowLevyraScreen("01"); }), 6);
  EXPECT_EQ(session.PC4Records(), held);
  EXPECT_EQ(ScreenOf("frmPlain").Chosen(), kTrue);
}

TEST_F(LaunchTest, DefectsAreNotTurnedIntoErrorsForTheHost) {
  frontEnd.serve = [] { throw std::logic_error("a defect"); };
  EXPECT_THROW(session.ShowLevyraScreen("01"), std::logic_error);
}

TEST_F(LaunchTest, ScreenThatIsUpCannotBeShownAgain) {
  int32_t inner = 0;
  frontEnd.serve = [&] {
    inner = ErrorOf([&] { session.ShowLevyraScreen("01"); });
    ScreenOf("frmPlain").PressOk();
  };
  EXPECT_TRUE(session.ShowLevyraScreen("01"));
  EXPECT_EQ(inner, 400);
}

TEST_F(LaunchTest, SecondShowOfAScreenThatIsUpTouchesNothingOfIt) {
  session.SeqNumber("0001");
  Levyra other;
  other.SeqNumber("0002");
  frontEnd.serve = [&] {
    NotingScreen::notes.clear();
    ExpectError([&] { other.ShowLevyraScreen("26"); }, 400, "Form already displayed; can't show modally");
    EXPECT_THAT(NotingScreen::notes, ElementsAre());
    ScreenOf("frmShared").PressOk();
  };
  EXPECT_TRUE(session.ShowLevyraScreen("25"));
  EXPECT_EQ(session.PC4Records()->Item(1).Description(), "record of 0001");
  EXPECT_EQ(other.PC4Records(), nullptr);
}

TEST_F(LaunchTest, ScreenThatIsLoadingForAShowCannotBeShownEither) {
  Levyra other;
  NotingScreen::whenLoading = [&] {
    NotingScreen::notes.clear();
    EXPECT_EQ(ErrorOf([&] { other.ShowLevyraScreen("01"); }), 400);
    EXPECT_THAT(NotingScreen::notes, ElementsAre());
  };
  EXPECT_FALSE(PressCancel());
}

TEST_F(LaunchTest, BoxesSpeakTheLanguageOfTheTopmostForm) {
  std::vector<std::string> told;
  frontEnd.whenBoxIsUp = [&](const BoxRequest& box) { told.push_back(box.text); };
  const auto tell = [] { ShowMessage("Cancel", MessageStyle::Plain); };
  int shown = 0;
  frontEnd.serve = [&] {
    if (++shown == 2)
      return tell();
    UseLanguage("en");
    session.ShowLevyraScreen("01");
    tell();
  };
  UseLanguage("fr");
  session.ShowLevyraScreen("25");
  tell();
  EXPECT_THAT(told, ElementsAre("Cancel", "Annuler", "Cancel"));
}

TEST_F(LaunchTest, ResetWhileAScreenIsUpLeavesItAndTheSessionUsable) {
  frontEnd.serve = [&] {
    Screen& screen = ScreenOf("frmPlain");
    ResetModule();
    screen.Hide();
  };
  EXPECT_FALSE(session.ShowLevyraScreen("01"));
  UseToolkit(&frontEnd);
  EXPECT_TRUE(PressOk());
}

}  // namespace
}  // namespace fiscalon
