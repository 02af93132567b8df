#include "frontends/terminal/form_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/forms/captioned.h"
#include "core/host_setup.h"
#include "core/launch.h"
#include "core/module_to_change.h"
#include "frontends/terminal/key_bytes.h"
#include "frontends/terminal/played_terminal_toolkit.h"
#include "tests/support/every_kind_form.h"
#include "tests/support/good_sessions.h"
#include "tests/support/walk.h"

namespace fiscalon::terminal {
namespace {

constexpr Size kUsual = {.width = 80, .height = 24};
constexpr Size kSmall = {.width = 40, .height = 12};

/// The form of all kinds on a screen, and a user whose bytes and eyes are given.
class FormOnScreen : public testing::Test {
 protected:
  void Show(const std::function<void(UserDriver& user)>& act, Size size = kUsual) {
    PlayedTerminalToolkit shown(size);
    toolkit = &shown;
    shown.onForm = [&](Form&, UserDriver& user) { act(user); };
    form.ShowModal(shown);
    toolkit = nullptr;
  }

  const Screen& Seen() const { return toolkit->Seen(); }
  std::string Row(int y) const { return Seen().Text({0, y}, Seen().Extent().width); }
  bool Shows(std::string_view text) const {
    for (int y = 0; y < Seen().Extent().height; ++y)
      if (Row(y).find(text) != std::string::npos)
        return true;
    return false;
  }
  Rect PlaceOf(const Control& control) const { return toolkit->Window()->PlaceOf(control).value(); }
  /// What stands in the place of a control.
  std::string At(const Control& control, int row = 0) const {
    const Rect place = PlaceOf(control);
    return Seen().Text({place.x, place.y + row}, place.width);
  }
  void Mouse(MouseAct act, const Control& control, int column, int row = 0) {
    const Rect place = PlaceOf(control);
    toolkit->Send(BytesOf(act, {place.x + column, place.y + row}));
  }
  void PressOn(const Control& control, int column) { Mouse(MouseAct::Press, control, column); }

  EveryKindForm form;
  PlayedTerminalToolkit* toolkit = nullptr;
};

TEST_F(FormOnScreen, TellsOpenLockedAndDisabledFieldsApartWithoutColour) {
  form.when["Form_Activate"] = [&] {
    form.txtPeriod.Text("202612");
    form.txtTotal.Text("1.00");
    form.txtTotal.Enabled(false);
  };
  Show([&](UserDriver&) {
    EXPECT_EQ(At(form.txtPeriod), "[202612_]");
    EXPECT_EQ(At(form.txtPayee), "<Summit Levies                     >");
    EXPECT_EQ(At(form.txtTotal), ":         1.00 :");
    EXPECT_EQ(At(form.chkFinal), "[ ] Final payment");
    form.chkFinal.Enabled(false);
    form.cmdOK.Enabled(false);
    toolkit->Send({});
    EXPECT_EQ(At(form.chkFinal), ": : Final payment");
    EXPECT_EQ(At(form.cmdOK), ": OK :");
  });
}

TEST_F(FormOnScreen, UnderlinesAccessKeys) {
  Show([&](UserDriver&) {
    const Rect place = PlaceOf(form.chkFinal);
    for (int x = 0; x < place.width; ++x) {
      const bool underlined = Seen().At({place.x + x, place.y}).style.underline;
      EXPECT_EQ(underlined, At(form.chkFinal)[static_cast<size_t>(x)] == 'y' && x == 12) << x;
    }
  });
}

TEST_F(FormOnScreen, HasTheCursorOnWhatHasTheFocus) {
  Show([&](UserDriver& user) {
    EXPECT_EQ(user.FocusName(), "optFirst");
    EXPECT_EQ(Seen().Cursor()->x, PlaceOf(form.optFirst).x + 1);
    for (const char* name :
         {"txtPeriod", "txtTotal", "txtPurpose", "chkFinal", "cmbProvince", "lstInvoices", "cmdOK"}) {
      user.PressKey(*StrokeNamed("Tab"));
      EXPECT_EQ(user.FocusName(), name);
    }
  });
}

TEST_F(FormOnScreen, PutsTheCaretWhereTheMousePoints) {
  Show([&](UserDriver& user) {
    form.txtPeriod.Text("202612");
    PressOn(form.txtPeriod, 3);
    EXPECT_EQ(Seen().Cursor()->x, PlaceOf(form.txtPeriod).x + 3);
    user.Type('x');
    EXPECT_EQ(form.txtPeriod.Text(), "202612") << "the limit";
    user.PressKey(*StrokeNamed("Delete"));
    EXPECT_EQ(form.txtPeriod.Text(), "20612");
  });
}

TEST_F(FormOnScreen, SelectsWhatTheMouseIsDrawnOver) {
  Show([&](UserDriver& user) {
    form.txtPeriod.Text("202612");
    PressOn(form.txtPeriod, 5);
    const Rect place = PlaceOf(form.txtPeriod);
    toolkit->Send("\x1B[<32;" + std::to_string(place.x + 1 + 3) + ";" + std::to_string(place.y + 1) + "M");
    EXPECT_EQ(user.SelectedText(form.txtPeriod), "26");
  });
}

TEST_F(FormOnScreen, ScrollsALongTextAndMarksWhatLiesBeyond) {
  Show(
      [&](UserDriver& user) {
        form.txtPurpose.Visible(false);
        form.txtPayee.Text("A name that is longer than any screen of this width can show");
        toolkit->Send({});
        EXPECT_EQ(At(form.txtPayee).back(), '\xBB');
        user.PressMouse(form.txtPayee);
        user.PressKey(*StrokeNamed("End"));
        EXPECT_EQ(At(form.txtPayee).front(), '\xAB');
        EXPECT_THAT(At(form.txtPayee), testing::HasSubstr("can show"));
        user.PressKey(*StrokeNamed("Home"));
        EXPECT_THAT(At(form.txtPayee), testing::HasSubstr("<A name that"));
      },
      kSmall);
}

TEST_F(FormOnScreen, EditsAsALineEditorDoes) {
  Show([&](UserDriver& user) {
    user.PressMouse(form.txtPurpose);
    for (const char character : std::string("12 Elm Street")) user.Type(character);
    toolkit->Send("\x1B[1;5D\x15");
    EXPECT_EQ(user.Text(form.txtPurpose), "Street");
    toolkit->Send("\x1F");
    EXPECT_EQ(user.Text(form.txtPurpose), "12 Elm Street");
    toolkit->Send("\x1B[F\x17");
    EXPECT_EQ(user.Text(form.txtPurpose), "12 Elm ");
    toolkit->Send("\x1B[H\x1B[1;5C\x1B[1;2F\x1B[3;2~\x1B[H\x1B[2;2~");
    EXPECT_EQ(user.Text(form.txtPurpose), "Elm 12 ");
  });
}

TEST_F(FormOnScreen, TakesAPastedLineEndForNoKey) {
  Show([&](UserDriver& user) {
    form.notesKeys = true;
    user.PressMouse(form.txtPeriod);
    toolkit->Send("\x1B[200~2026\r12\x1B[201~");
    EXPECT_EQ(user.Text(form.txtPeriod), "2026");
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    for (const std::string& note : form.TakeNotes()) EXPECT_EQ(note.find("KeyPress"), std::string::npos) << note;
  });
}

TEST_F(FormOnScreen, PicksFromAListThatKeysDropDown) {
  Show([&](UserDriver& user) {
    user.PressMouse(form.cmbProvince);
    form.TakeNotes();
    toolkit->Send("\x1BOS");
    EXPECT_TRUE(Shows(">Alberta"));
    toolkit->Send("\x1B[B");
    EXPECT_TRUE(Shows(">Manitoba"));
    EXPECT_THAT(form.TakeNotes(), testing::IsEmpty());
    toolkit->Send("\r");
    EXPECT_EQ(user.Text(form.cmbProvince), "Manitoba");
    EXPECT_THAT(form.TakeNotes(), testing::IsSupersetOf({"cmbProvince_Click", "cmbProvince_Chosen"}));
    toolkit->Send("\x1B[1;3B\x1B[B\x1B");
    EXPECT_EQ(user.Text(form.cmbProvince), "Manitoba");
    EXPECT_TRUE(form.IsUp()) << "Escape closes the list and not the form";
  });
}

TEST_F(FormOnScreen, ScrollsAListByTheWheel) {
  form.when["Form_Activate"] = [&] {
    for (int i = 4; i <= 30; ++i) form.lstInvoices.AddItem(AsGiven("INV-" + std::to_string(i)));
  };
  Show(
      [&](UserDriver& user) {
        EXPECT_TRUE(Shows("INV-1   10.00"));
        EXPECT_FALSE(Shows("INV-30"));
        Mouse(MouseAct::WheelDown, form.lstInvoices, 3);
        EXPECT_FALSE(Shows("INV-3   30.00"));
        EXPECT_TRUE(Shows("INV-4"));
        EXPECT_EQ(user.Items(form.lstInvoices), 30);
        user.Choose(form.lstInvoices, 29);
        EXPECT_EQ(user.Text(form.lstInvoices), "INV-30");
        user.Choose(form.lstInvoices, 0);
        EXPECT_EQ(user.Text(form.lstInvoices), "INV-1   10.00");
      },
      {.width = 100, .height = 40});
}

TEST_F(FormOnScreen, TakesNothingWhereThereIsTooLittleToSee) {
  Show([&](UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    for (const Size size :
         {Size{.width = 39, .height = 12}, Size{.width = 40, .height = 11}, Size{.width = 1, .height = 2}}) {
      toolkit->Resize(size);
      EXPECT_EQ(Row(0), ("40 by 12 needed, this is " + std::to_string(size.width) + " by " +
                         std::to_string(size.height) + std::string(40, ' '))
                            .substr(0, static_cast<size_t>(size.width)));
      toolkit->Send("2\x1B");
    }
    toolkit->Resize(kSmall);
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_EQ(user.Text(form.txtPeriod), "");
  });
}

TEST_F(FormOnScreen, ClosesByItsMarkAndByAKey) {
  Show([&](UserDriver& user) { user.CloseWindow(CloseReason::CloseBox); });
  EXPECT_FALSE(form.IsLoaded());
  Show([&](UserDriver&) {
    toolkit->Send("\x11");
    EXPECT_FALSE(form.IsUp());
  });
}

TEST_F(FormOnScreen, ACheckThatTakesTheFocusBackCancelsTheClick) {
  form.when["txtPeriod_LostFocus"] = [&] { form.txtPeriod.SetFocus(); };
  Show([&](UserDriver& user) {
    form.txtPeriod.Text("2026");
    user.PressMouse(form.txtPeriod);
    user.Click(form.cmdOK);
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_EQ(user.SelectedText(form.txtPeriod), "2026");
    EXPECT_THAT(form.TakeNotes(), testing::Not(testing::Contains("cmdOK_Click")));
  });
}

TEST_F(FormOnScreen, ShowsWhatNoTerminalMayBeSent) {
  Show([&](UserDriver& user) {
    form.txtPurpose.Text("\x1B[2J\x07\x9D\x81");
    toolkit->Send({});
    EXPECT_EQ(user.Text(form.txtPurpose), "\x1B[2J\x07\x9D\x81");
    EXPECT_TRUE(Shows("Kind of payment"));
  });
}

/// Every form of the product, on small screens too.
class EachFormOnScreens : public testing::TestWithParam<std::string> {
 protected:
  static void ExpectEdges(const Screen& seen, const std::string& button) {
    const Size size = seen.Extent();
    const auto row = [&](int y) { return seen.Text({0, y}, size.width); };
    int titles = 0;
    int buttons = 0;
    // Lines are no characters of the code page.
    for (int y = 0; y < size.height; ++y) {
      titles += row(y).find("[x]?") != std::string::npos ? 1 : 0;
      buttons += row(y).find("[ " + button + " ]") != std::string::npos ? 1 : 0;
    }
    EXPECT_GE(titles, 1);
    EXPECT_EQ(buttons, 1);
    EXPECT_THAT(row(size.height - 1),
                testing::AnyOf(testing::HasSubstr("Tab next"), testing::HasSubstr("Please correct")));
  }
};

TEST_P(EachFormOnScreens, HasItsCursorInSightWhereverTabGoes) {
  for (const Size size : {kUsual, kSmall}) {
    ResetModule();
    UseFixedClock({.date = {.year = 2026, .month = 6, .day = 15}});
    UseLocale(EnglishCanada());
    ModuleToChange().files = std::make_shared<MemoryFiles>();
    PlayedTerminalToolkit toolkit(size);
    UseToolkit(&toolkit);
    const GoodSession screen = ScreensOf(GetParam()).front();
    Levyra session;
    fiscalon::SetUp(screen, session);
    int looks = 0;
    toolkit.onForm = [&](Form& form, UserDriver& user) {
      for (size_t i = 0; i < form.Controls().size() && form.IsUp(); ++i) {
        ASSERT_NE(form.ActiveControl(), nullptr);
        EXPECT_EQ(user.FocusName(), form.ActiveControl()->Name()) << size.width;
        ExpectEdges(toolkit.Seen(), "OK");
        ++looks;
        user.PressKey(*StrokeNamed("Tab"));
      }
      if (form.IsUp())
        user.CloseWindow(CloseReason::Code);
    };
    session.ShowLevyraScreen(screen.code);
    EXPECT_GT(looks, 5);
    ResetModule();
  }
}

/// On the usual width, and as high as need be: what is scrolled out of sight stands there too.
TEST_P(EachFormOnScreens, HasRoomForItsWordsInEveryLanguage) {
  constexpr Size kUsualWidth = {.width = kUsual.width, .height = 200};
  for (const std::string_view language : LanguageNames()) {
    ResetModule();
    UseLanguage(language);
    PlayedTerminalToolkit toolkit(kUsualWidth);
    UseToolkit(&toolkit);
    const GoodSession screen = ScreensOf(GetParam()).front();
    Levyra session;
    fiscalon::SetUp(screen, session);
    int captions = 0;
    toolkit.onForm = [&](Form& form, UserDriver& user) {
      for (const Control* control : form.Controls()) {
        const std::optional<Rect> place = toolkit.Window()->PlaceOf(*control);
        if (!place || dynamic_cast<const Captioned*>(control) == nullptr)
          continue;
        SCOPED_TRACE(form.Name() + " " + control->Name() + " in " + std::string(language));
        ++captions;
        // A frame's heading is never broken into lines.
        const int room = control->Kind() == ControlKind::Frame ? kUsualWidth.width : place->width;
        const Size wanted = toolkit.Window()->ViewOf(*control).Wanted(room, Grow::No);
        EXPECT_LE(wanted.width, place->width);
        EXPECT_LE(wanted.height, place->height);
        EXPECT_LT(place->Right(), kUsualWidth.width);
      }
      user.CloseWindow(CloseReason::Code);
    };
    session.ShowLevyraScreen(screen.code);
    EXPECT_GT(captions, 5);
    ResetModule();
  }
}

INSTANTIATE_TEST_SUITE_P(AllForms, EachFormOnScreens, testing::ValuesIn(AllForms()),
                         [](const auto& form) { return form.param; });

}  // namespace
}  // namespace fiscalon::terminal
