#include "frontends/terminal/terminal_toolkit.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/module_state.h"
#include "frontends/terminal/terminal.h"
#include "tests/frontends/terminal/shell_at_terminal.h"
#include "tests/support/every_kind_form.h"
#include "tests/support/raises.h"

namespace fiscalon::terminal {
namespace {

constexpr int kShown = 0;
constexpr int kFailed = 7;

/// A form whose OK asks a question, and whose Cancel closes it.
class AskingForm : public EveryKindForm {
 public:
  AskingForm() {
    when["cmdOK_Click"] = [this] {
      if (toolkit->ShowMessage({.text = "Is that all?", .buttons = MessageButtons::YesNo}) == MessageAnswer::Yes)
        Hide();
    };
    when["cmdCancel_Click"] = [this] { Hide(); };
  }

  Toolkit* toolkit = nullptr;
};

int Show(const std::function<void(AskingForm&, TerminalToolkit&)>& prepare = {}) {
  TerminalToolkit toolkit;
  AskingForm form;
  form.toolkit = &toolkit;
  if (prepare)
    prepare(form, toolkit);
  form.ShowModal(toolkit);
  return kShown;
}

int ShowPlainly() {
  return Show();
}

bool Ended(int status, int code) {
  return WIFEXITED(status) && WEXITSTATUS(status) == code;
}

bool EndedBy(int status, int signal) {
  return WIFSIGNALED(status) && WTERMSIG(status) == signal;
}

TEST(TerminalToolkit, ShowsAFormAndGivesTheTerminalBack) {
  ShellAtTerminal shell(ShowPlainly);
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  EXPECT_TRUE(shell.terminal.IsOnOtherScreen());
  EXPECT_FALSE(shell.IsGivenBack());
  shell.Type("\x1B");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
  EXPECT_TRUE(shell.IsGivenBack());
}

TEST(TerminalToolkit, AsksOverTheForm) {
  ShellAtTerminal shell(ShowPlainly);
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1Bo");
  ASSERT_TRUE(shell.UntilShows("Is that all?"));
  EXPECT_TRUE(shell.Shows("[>Yes<]"));
  shell.Type("n");
  ASSERT_TRUE(shell.Until([&] { return !shell.Shows("Is that all?"); }));
  shell.Type("\x1Bo");
  ASSERT_TRUE(shell.UntilShows("Is that all?"));
  shell.Type("\r");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
  EXPECT_TRUE(shell.IsGivenBack());
}

TEST(TerminalToolkit, GivesTheTerminalBackBeforeASignalEndsTheProgram) {
  ShellAtTerminal interrupted(ShowPlainly);
  ASSERT_TRUE(interrupted.UntilShows("Kind of payment"));
  interrupted.Type("\x03");
  EXPECT_TRUE(EndedBy(interrupted.NextStatus(), SIGINT));
  EXPECT_TRUE(interrupted.IsGivenBack());
  for (const int signal : {SIGTERM, SIGQUIT, SIGHUP}) {
    ShellAtTerminal shell(ShowPlainly);
    ASSERT_TRUE(shell.UntilShows("Kind of payment"));
    ::kill(shell.job, signal);
    EXPECT_TRUE(EndedBy(shell.NextStatus(), signal)) << signal;
    EXPECT_TRUE(shell.IsGivenBack() || signal == SIGHUP) << signal;
  }
}

TEST(TerminalToolkit, TakesAnInterruptThatComesByItsNumber) {
  ShellAtTerminal shell(ShowPlainly);
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1B[99;5u");
  EXPECT_TRUE(EndedBy(shell.NextStatus(), SIGINT));
  EXPECT_TRUE(shell.IsGivenBack());
}

TEST(TerminalToolkit, EndsWhileABoxIsUpToo) {
  ShellAtTerminal shell(ShowPlainly);
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1Bo");
  ASSERT_TRUE(shell.UntilShows("Is that all?"));
  ::kill(shell.job, SIGTERM);
  EXPECT_TRUE(EndedBy(shell.NextStatus(), SIGTERM));
  EXPECT_TRUE(shell.IsGivenBack());
}

volatile std::sig_atomic_t hostWasTold = 0;

TEST(TerminalToolkit, LeavesAHostThatMindsSignalsItsWay) {
  ShellAtTerminal shell([] {
    ::signal(SIGTERM, [](int) { hostWasTold = 1; });
    try {
      Show();
    } catch (const RuntimeError&) {
      // A handler that goes on after errors must not go on after this.
      return kFailed;
    } catch (const TerminalLost&) {
      return hostWasTold == 1 ? 3 : kFailed;
    }
    return kFailed;
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  ::kill(shell.job, SIGTERM);
  EXPECT_TRUE(Ended(shell.NextStatus(), 3));
  EXPECT_TRUE(shell.IsGivenBack());
}

TEST(TerminalToolkit, EndsWhereTheTerminalGoes) {
  ShellAtTerminal shell([] {
    try {
      Show();
    } catch (const TerminalLost& lost) {
      return std::string_view(lost.what()) == "the terminal is gone" ? 3 : kFailed;
    }
    return kFailed;
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.terminal.HangUp();
  EXPECT_TRUE(Ended(shell.NextStatus(false), 3));
}

TEST(TerminalToolkit, EndsWhereTheTerminalGoesInTheMiddleOfAPaste) {
  ShellAtTerminal shell([] {
    try {
      Show([](AskingForm& form, TerminalToolkit&) {
        form.when["Form_Activate"] = [&form] { form.txtPeriod.SetFocus(); };
        form.when["txtPeriod_Change"] = [] { throw std::runtime_error("half a paste was entered"); };
      });
    } catch (const TerminalLost& lost) {
      return std::string_view(lost.what()) == "the terminal is gone" ? 3 : kFailed;
    }
    return kFailed;
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1B[200~2026");
  shell.terminal.HangUp();
  EXPECT_TRUE(Ended(shell.NextStatus(false), 3));
}

TEST(TerminalToolkit, CanBeSuspendedAndGoneOnWith) {
  ShellAtTerminal shell([] {
    return Show([](AskingForm& form, TerminalToolkit&) {
      form.when["Form_Activate"] = [&form] { form.txtPeriod.SetFocus(); };
    });
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("2026");
  ASSERT_TRUE(shell.UntilShows("[2026___]"));
  shell.Type("\x1A");
  const int status = shell.NextStatus();
  EXPECT_TRUE(WIFSTOPPED(status) && WSTOPSIG(status) == SIGTSTP) << status;
  EXPECT_TRUE(shell.IsGivenBack());
  shell.GoOn();
  ASSERT_TRUE(shell.UntilShows("[2026___]"));
  shell.Type("12");
  EXPECT_TRUE(shell.UntilShows("[202612_]"));
  shell.Type("\x1B");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
  EXPECT_TRUE(shell.IsGivenBack());
}

TEST(TerminalToolkit, FollowsTheSizeOfTheTerminal) {
  ShellAtTerminal shell(ShowPlainly);
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.terminal.Resize({.width = 40, .height = 12});
  ASSERT_TRUE(shell.UntilShows("[ Cancel ]"));
  EXPECT_TRUE(shell.Shows("Kind of payment"));
  shell.Type("\x1Bo");
  ASSERT_TRUE(shell.UntilShows("Is that all?"));
  shell.terminal.Resize({.width = 60, .height = 30});
  ASSERT_TRUE(
      shell.Until([&] { return shell.Shows("Is that all?") && shell.Row(29).find("Tab next") != std::string::npos; }));
  shell.terminal.Resize({.width = 39, .height = 12});
  EXPECT_TRUE(shell.UntilShows("40 by 12 needed, this is 39 by 12"));
  shell.terminal.Resize({.width = 1, .height = 1});
  shell.terminal.Resize({.width = 80, .height = 24});
  EXPECT_TRUE(shell.UntilShows("Is that all?"));
  shell.Type("y");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
}

TEST(TerminalToolkit, GivesTheTerminalBackWhereAHandlerFails) {
  ShellAtTerminal shell([] {
    try {
      Show([](AskingForm& form, TerminalToolkit&) {
        form.when["cmdOK_Click"] = [] { throw std::runtime_error("a handler failed"); };
      });
    } catch (const std::runtime_error& error) {
      return std::string_view(error.what()) == "a handler failed" ? 3 : kFailed;
    }
    return kFailed;
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1Bo");
  EXPECT_TRUE(Ended(shell.NextStatus(), 3));
  EXPECT_TRUE(shell.IsGivenBack());
}

TEST(TerminalToolkit, TakesAPasteOfAMegabyte) {
  ShellAtTerminal shell([] {
    return Show([](AskingForm& form, TerminalToolkit&) {
      form.when["Form_Activate"] = [&form] { form.txtPeriod.SetFocus(); };
    });
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1B[200~" + std::string(1 << 20, '7') + "\x1B[201~");
  EXPECT_TRUE(shell.UntilShows("[777777_]"));
  shell.Type("\x1B");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
}

TEST(TerminalToolkit, GoesOnWhileTheTerminalTakesNothing) {
  ShellAtTerminal shell(ShowPlainly);
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  // Nobody reads what is written meanwhile: more screens than fit on the way.
  const auto typeUnseen = [&](const std::string& bytes) {
    for (std::string_view rest = bytes; !rest.empty();) rest.remove_prefix(shell.terminal.Send(rest));
  };
  for (int i = 0; i < 2000; ++i) typeUnseen("\t\t\t");
  typeUnseen("\x1Bo");
  ASSERT_TRUE(shell.UntilShows("Is that all?"));
  // The same where nobody ever reads again.
  for (int i = 0; i < 200; ++i) typeUnseen("\t\t\t");
  ::kill(shell.job, SIGTERM);
  EXPECT_TRUE(EndedBy(shell.NextStatus(false), SIGTERM));
}

TEST(TerminalToolkit, UsesNoColourWhereNoneIsWanted) {
  const auto inks = [](ShellAtTerminal& shell) {
    int coloured = 0;
    for (int y = 0; y < 24; ++y)
      for (int x = 0; x < 80; ++x) coloured += shell.terminal.Seen().At({x, y}).style.ink == Ink::Normal ? 0 : 1;
    return coloured;
  };
  ShellAtTerminal coloured(ShowPlainly);
  ASSERT_TRUE(coloured.UntilShows("Kind of payment"));
  EXPECT_GT(inks(coloured), 0);
  ShellAtTerminal plain([] {
    ::setenv("NO_COLOR", "1", 1);
    return Show();
  });
  ASSERT_TRUE(plain.UntilShows("Kind of payment"));
  EXPECT_EQ(inks(plain), 0);
}

TEST(TerminalToolkit, WritesWhatOtherTerminalsUnderstand) {
  ShellAtTerminal shell([] {
    ::setenv("LC_ALL", "C", 1);
    ::setenv("TERM", "vt100", 1);
    return Show([](AskingForm& form, TerminalToolkit&) {
      form.when["Form_Load"] = [&form] { form.txtPayee.Text("H\xE9l\xE8ne"); };
    });
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  EXPECT_TRUE(shell.Shows("H?l?ne"));
  EXPECT_TRUE(shell.Shows("+-"));
  ::kill(shell.job, SIGTERM);
  EXPECT_TRUE(EndedBy(shell.NextStatus(), SIGTERM));
}

/// What stands in the way with a terminal of that name.
std::string HindranceOn(const std::string& term) {
  ShellAtTerminal shell([&] {
    ::setenv("TERM", term.c_str(), 1);
    const std::string hindrance = TerminalToolkit::Hindrance() + "\r\n";
    return ::write(STDOUT_FILENO, hindrance.data(), hindrance.size()) > 0 ? kShown : kFailed;
  });
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
  std::string told = shell.Row(0) + shell.Row(1);
  return told.substr(0, told.find_last_not_of(' ') + 1);
}

TEST(TerminalToolkit, SaysWhyThereIsNothingToShowFormsOn) {
  EXPECT_EQ(HindranceOn("xterm-256color"), "");
  EXPECT_EQ(HindranceOn("dumb"),
            "the terminal \"dumb\" can't place its cursor; set TERM to what it really is, such as xterm-256color");
  EXPECT_EQ(HindranceOn(""), HindranceOn("dumb"));
  EXPECT_EQ(HindranceOn("nowhere"),
            "the terminal \"nowhere\" is not known here; set TERM to one that is, such as xterm-256color");
}

TEST(TerminalToolkit, SaysThatHelpIsMissingAndWhereItIs) {
  ShellAtTerminal shell([] {
    return Show([](AskingForm& form, TerminalToolkit& toolkit) {
      form.when["cmdOK_Click"] = [&toolkit] {
        toolkit.OpenHelp("/nowhere/levyra.hlp>main", 1);
        toolkit.OpenHelp("/etc/passwd", 1);
      };
    });
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1Bo");
  ASSERT_TRUE(shell.UntilShows("The help file /nowhere/levyra.hlp is missing."));
  shell.Type("\r");
  EXPECT_TRUE(shell.UntilShows("The help is in the file /etc/passwd."));
  shell.Type("\r\x1B");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
}

TEST(TerminalToolkit, TellsOfHelpInTheLanguageOfTheTopmostForm) {
  ShellAtTerminal shell([] {
    return Show([](AskingForm& form, TerminalToolkit& toolkit) {
      form.when["cmdOK_Click"] = [&toolkit] {
        EveryKindForm upper;
        upper.when["cmdOK_Click"] = [&] {
          toolkit.OpenHelp("/nowhere/upper.hlp", 1);
          upper.Hide();
        };
        upper.ShowModal(toolkit, *NamedLanguage("fr"));
        toolkit.OpenHelp("/nowhere/lower.hlp", 1);
      };
    });
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1Bo\x1Bo");
  ASSERT_TRUE(shell.UntilShows("Le fichier d'aide /nowhere/upper.hlp est introuvable."));
  shell.Type("\r");
  EXPECT_TRUE(shell.UntilShows("The help file /nowhere/lower.hlp is missing."));
  shell.Type("\r\x1B");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
}

TEST(TerminalToolkit, CaptionsTheButtonsOfABoxInItsLanguage) {
  ShellAtTerminal shell([] {
    return Show([](AskingForm& form, TerminalToolkit& toolkit) {
      form.when["cmdOK_Click"] = [&form, &toolkit] {
        const Language french = *NamedLanguage("fr");
        toolkit.ShowMessage({.text = "1?", .buttons = MessageButtons::OkCancel, .language = french});
        if (toolkit.ShowMessage({.text = "2?", .buttons = MessageButtons::YesNo, .language = french}) ==
            MessageAnswer::Yes)
          form.Hide();
      };
    });
  });
  ASSERT_TRUE(shell.UntilShows("Kind of payment"));
  shell.Type("\x1Bo");
  ASSERT_TRUE(shell.UntilShows("1?"));
  EXPECT_TRUE(shell.Shows("[>OK<]"));
  EXPECT_TRUE(shell.Shows("[ Annuler ]"));
  // The letters are those of the captions: "y" of "Yes" presses nothing.
  shell.Type("ya");
  ASSERT_TRUE(shell.UntilShows("2?"));
  EXPECT_TRUE(shell.Shows("[>Oui<]"));
  EXPECT_TRUE(shell.Shows("[ Non ]"));
  shell.Type("yo");
  EXPECT_TRUE(Ended(shell.NextStatus(), kShown));
}

}  // namespace
}  // namespace fiscalon::terminal
