#include "tools/fiscalon/show_command.h"

#include <iostream>
#include <optional>

#include "tools/fiscalon/input_file.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/fiscalon/shown_json.h"
#include "tools/fiscalon/shown_text.h"
#include "tools/fiscalon/terminal.h"
#include "tools/fiscalon/visible_text.h"

namespace fiscalon {
namespace {

constexpr const char* kExamples = R"(Examples:
  fiscalon show payment.pc4
  fiscalon show payment.pc4 --screen 15      fields by their names on the screen
  fiscalon show payment.pc4 --json           the same for machines
  fiscalon show - < payment.pc4

What is wrong is marked with "!"; what is odd, though screens write it so, with "~".
Exit status: 0 nothing wrong, 1 something wrong in a record (all are printed all the same),
2 the file can't be read. --today and --locale: see "fiscalon --help".)";

struct ShowOptions {
  std::string file = {};
  std::optional<std::string> screen = {};
  bool json = false;
};

void PrintText(const std::string& name, const LaunchRow* screen, const std::vector<ShownRecord>& records,
               const Context& context) {
  if (records.empty()) {
    std::cout << name << ": the file is empty, it holds no records\n";
    return;
  }
  std::cout << name;
  if (screen != nullptr)
    std::cout << ", of screen " << screen->code << " (" << screen->form << ")";
  std::cout << "\n\n";
  PrintRecords(std::cout, records,
               {.paint = context.paint, .locale = context.SpokenLocale(), .width = TerminalWidth()});
  const size_t problems = ProblemsIn(records);
  std::cout << Counted(records.size(), "line") << ", "
            << (problems == 0 ? context.paint.Good("nothing wrong") : context.paint.Bad(Counted(problems, "problem")));
  if (const size_t oddities = OdditiesIn(records); oddities != 0)
    std::cout << ", " << oddities << " odd";
  std::cout << '\n';
}

ExitStatus Show(const ShowOptions& options, const Context& context) {
  const LaunchRow* screen = options.screen ? &ScreenOf(*options.screen) : nullptr;
  const std::string name = options.file == "-" ? "standard input" : options.file;
  std::string bytes;
  try {
    bytes = ReadInput(options.file);
  } catch (const UnreadableFile& error) {
    throw CommandError(name + " can't be read: " + error.what());
  }
  const std::vector<ShownRecord> records = TakeApart(std::string_view(bytes), screen);
  if (options.json)
    PrintJson(std::cout, name, screen, records);
  else
    PrintText(name, screen, records, context);
  return ProblemsIn(records) == 0 ? ExitStatus::Done : ExitStatus::Invalid;
}

}  // namespace

void AddShowCommand(CLI::App& app, Context& context) {
  CLI::App* command =
      app.add_subcommand("show", "Print the records of a file taken apart, and what is wrong with them");
  command->footer(kExamples);
  const auto options = std::make_shared<ShowOptions>();
  command->add_option("FILE", options->file, "A record file; - is standard input")->required()->check(NameGiven);
  command->add_option("--screen", options->screen, "The screen that the records come from: names their fields")
      ->type_name("CODE");
  command->add_flag("--json", options->json, "Print one JSON document");
  command->callback([options, &context] { context.status = Show(*options, context); });
}

}  // namespace fiscalon
