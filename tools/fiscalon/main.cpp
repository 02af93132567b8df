#include <cerrno>
#include <iostream>
#include <new>

#include "frontends/played/argument_kinds.h"
#include "tools/fiscalon/commands/collect_command.h"
#include "tools/fiscalon/commands/desk_command.h"
#include "tools/fiscalon/commands/generate_command.h"
#include "tools/fiscalon/commands/picture_command.h"
#include "tools/fiscalon/commands/play_command.h"
#include "tools/fiscalon/commands/screens_command.h"
#include "tools/fiscalon/commands/show_command.h"
#include "tools/fiscalon/commands/validate_command.h"
#include "tools/fiscalon/files/interrupt_watch.h"
#include "tools/fiscalon/files/standard_output.h"
#include "tools/fiscalon/nearest.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/program_start.h"

namespace fiscalon {
namespace {

constexpr const char* kProgramExamples = R"(Examples:
  fiscalon screens
  fiscalon collect 15 --paid-amount 12345 --paid-date 06152026
  fiscalon play examples/due_date_amount.scenario
  fiscalon show payment.pc4 --screen 15

Exit status: 0 done or valid, 1 a failed expectation, a cancelled screen or something
invalid, 2 bad usage or a file that can't be read, 75 a folder that does not answer.
"fiscalon COMMAND --help" says more.)";

struct Command {
  const char* name = nullptr;
  const char* summary = nullptr;
  /// Gives it its options and what it does, once the command line names it: to make the options of all commands takes
  /// longer than most of them do.
  void (*define)(CLI::App& command, Context& context) = nullptr;
};

// clang-format off
constexpr Command kCommands[] = {
    {"screens",  "List the screen codes, their forms and what each collects",             DefineScreensCommand},
    {"collect",  "Show a screen to the user and hand out the records",                    DefineCollectCommand},
    {"play",     "Play scenarios: a host and a user at a screen, and what must be seen",  DefinePlayCommand},
    {"show",     "Print the records of a file taken apart, and what is wrong with them",  DefineShowCommand},
    {"validate", "Check the records of a payment, or of a batch of payments",             DefineValidateCommand},
    {"generate", "Make a batch for trials, with planted defects",                         DefineGenerateCommand},
    {"picture",  "Draw a screen as its dialog looks, into a file",                        DefinePictureCommand},
    {"desk",     "Try the screens out with a payment of your own, again and again",       DefineDeskCommand},
};
// clang-format on

DateTime ParseToday(const std::string& text) {
  const size_t blank = text.find(' ');
  const auto today = ParseDateTime(text.substr(0, blank), blank == std::string::npos ? "" : text.substr(blank + 1));
  if (!today || blank + 1 == text.size())
    throw CLI::ValidationError("--today",
                               R"(expected a date such as 2026-06-15 or "2026-06-15 13:05:09", not ")" + text + '"');
  return *today;
}

/// The whole command line: the global options, and one line for each command.
void DefineCommandLine(CLI::App& app, Context& context) {
  app.description("Collects what a government remittance needs beside the payment, and reads its records.");
  app.footer(kProgramExamples);
  app.set_version_flag("--version", "fiscalon " FISCALON_VERSION, "Print the version and exit");
  app.require_subcommand(1);
  // The global options may stand behind the command's name too.
  app.fallthrough();
  app.add_option_function<std::string>(
         "--today", [&context](const std::string& text) { context.today = ParseToday(text); },
         "The day, and perhaps the time, that the run takes for today")
      ->type_name("DATE");
  app.add_option("--locale", context.localeName, "How numbers, money and moments are written")
      ->type_name("NAME")
      ->check(OneOf({"en-CA", "en-US", "fr-CA", "system"}));
  const std::vector<std::string_view> languages = LanguageNames();
  app.add_option("--language", context.languageName, "The language of forms; English without it")
      ->type_name("NAME")
      ->check(OneOf({languages.begin(), languages.end()}));

  for (const Command& row : kCommands) {
    CLI::App* const command = app.add_subcommand(row.name, row.summary);
    command->preparse_callback(
        [command, define = row.define, &context](size_t /*argumentsLeft*/) { define(*command, context); });
  }
}

/// An option that ends with "=" would take the next argument for its value: a variable that is not set would make
/// another file the report.
void RefuseMissingValues(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--")
      return;
    if (argument.starts_with("--") && argument.find('=') == argument.size() - 1)
      throw CommandError(std::string(argument) + " has no value behind it");
  }
}

/// Where to read on: the help of the command that was meant, if one was.
std::string HelpToRead(const CLI::App& app) {
  const auto meant = app.get_subcommands();
  return meant.empty() ? std::string(R"(Run "fiscalon --help" for the commands.)")
                       : "Run \"fiscalon " + meant.front()->get_name() + " --help\" for its options.";
}

std::vector<std::string> CommandsOf(CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](CLI::App*) { return true; }))
    names.push_back(command->get_name());
  return names;
}

/// The options of the program and of the command that was meant.
std::vector<std::string> OptionsOf(CLI::App& app) {
  std::vector<CLI::App*> meant = app.get_subcommands();
  meant.push_back(&app);
  std::vector<std::string> names;
  for (CLI::App* each : meant)
    for (const CLI::Option* option : each->get_options())
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

/// What is wrong with a command line, with the word that it is about.
std::string ComplaintAbout(CLI::App& app, const CLI::ParseError& error) {
  std::string said = error.what();
  const std::string option = said.substr(0, said.find(": "));
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch))
    return option + (said.find("received") == said.npos ? " needs a value behind it" : " is given more than once");
  const std::vector<std::string> unknown = app.remaining(true);
  // Errors bear the name of the command, so their codes tell them apart.
  const auto is = [&](CLI::ExitCodes code) { return error.get_exit_code() == static_cast<int>(code); };
  const bool wantsCommand = app.get_subcommands().empty() && is(CLI::ExitCodes::RequiredError);
  if (unknown.empty() || (!wantsCommand && !is(CLI::ExitCodes::ExtrasError)))
    return said;
  const std::string& word = unknown.front();
  if (word.starts_with("-"))
    return "there is no option \"" + word + "\"" + DidYouMean(word, OptionsOf(app));
  if (!wantsCommand)
    return "\"" + word + "\" is one argument too many";
  return "there is no command \"" + word + "\"" + DidYouMean(word, CommandsOf(app));
}

ExitStatus RunProgram(int argc, char** argv) {
  RefuseMissingValues(argc, argv);
  Context context{.arguments = argv, .paint = Paint(ColourIsWanted())};
  CLI::App app("", "fiscalon");
  DefineCommandLine(app, context);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    app.exit(help, std::cout, std::cerr);
  } catch (const CLI::ParseError& error) {
    Complain("fiscalon: " + ComplaintAbout(app, error) + '\n' + HelpToRead(app));
    context.status = ExitStatus::Unusable;
  } catch (const UsageError& error) {
    Complain(std::string("fiscalon: ") + error.what() + '\n' + HelpToRead(app));
    context.status = ExitStatus::Unusable;
  }
  std::cout.flush();
  return context.status;
}

ExitStatus RunAndComplain(int argc, char** argv) {
  try {
    return RunProgram(argc, argv);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    Complain(std::string("fiscalon: ") + error.what());
  }
  return ExitStatus::Unusable;
}

/// The same where even complaining has come to nothing: what is said here needs neither standard output nor memory.
ExitStatus RunAtAll(int argc, char** argv) {
  try {
    ProgramStart start(argc, argv);
    StandardOutput output;
    return RunAndComplain(start.Count(), start.Arguments());
  } catch (const OutputError& error) {
    if (IsInterrupted())
      std::cerr << "fiscalon: interrupted\n";
    else if (error.number != EPIPE)
      std::cerr << "fiscalon: " << TextOf(error) << '\n';
  } catch (const std::bad_alloc&) {
    std::cerr << "fiscalon: there is not enough memory\n";
  }
  return ExitStatus::Unusable;
}

}  // namespace
}  // namespace fiscalon

int main(int argc, char** argv) {
  const auto status = static_cast<int>(fiscalon::RunAtAll(argc, argv));
  fiscalon::EndAsInterrupted();
  return status;
}
