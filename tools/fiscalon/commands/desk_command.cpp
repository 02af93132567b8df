#include "tools/fiscalon/commands/desk_command.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "core/launch.h"
#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "core/session.h"
#include "tools/fiscalon/commands/desk_form.h"
#include "tools/fiscalon/commands/desk_result_form.h"
#include "tools/fiscalon/front_ends.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/program_start.h"
#include "tools/reading/payment_advice.h"
#include "tools/reading/record_taker.h"

namespace fiscalon {
namespace {

constexpr const char* kDeskExamples = R"(Examples:
  fiscalon desk
  fiscalon desk --toolkit terminal

Exit status: 0, 2 where there is neither a display nor a terminal.)";

/// What a screen has come to.
struct Outcome {
  std::string words = {};
  std::vector<ShownRecord> records = {};
};

/// When the file was last written; nothing where there is none.
std::optional<std::filesystem::file_time_type> LastWritten(const std::string& name) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(Utf8Path(name), error);
  return error ? std::nullopt : std::optional(time);
}

Outcome RecordsInFile(const std::string& name, const LaunchRow& screen) {
  std::ifstream file(Utf8Path(name), std::ios::binary);
  if (!file)
    return {.words = "Accepted, but the record file can't be read: " + name};
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  Outcome outcome = {.records = TakeApart(std::string_view(content), &screen)};
  outcome.words = "Accepted. Records written to the file " + name + ": " + std::to_string(outcome.records.size()) + ".";
  return outcome;
}

Outcome RecordsHandedBack(const Levyra& session, const LaunchRow& screen) {
  Outcome outcome;
  if (const auto& members = session.PC4Records()) {
    outcome.records = TakeApart(*members, &screen);
    // The collection is the form's own: a show that writes nothing would hand these back once more.
    members->Clear();
  }
  outcome.words = outcome.records.empty()
                      ? "Accepted, but no records were handed back."
                      : "Accepted. Records handed back: " + std::to_string(outcome.records.size()) + ".";
  return outcome;
}

Outcome Launch(Levyra& session, const LaunchRow& screen) {
  const bool toFile = session.WriteFile() == kTrue;
  const std::string name = ToUtf8(session.GovFilename());
  const auto before = LastWritten(name);
  if (!session.ShowLevyraScreen(screen.code))
    return {.words = "Cancelled. Nothing was written."};
  if (!toFile)
    return RecordsHandedBack(session, screen);
  if (LastWritten(name) == before)
    return {.words = "Accepted, but no records were written: " + name};
  return RecordsInFile(name, screen);
}

Outcome ShowScreen(const Payment& payment, const std::string& code) {
  Levyra session;
  try {
    Give(payment, session);
    return Launch(session, *FindLaunchRow(code));
  } catch (const RuntimeError& error) {
    std::string words = "Screen " + code + " ended with error " + std::to_string(error.Number()) + " from " +
                        ToUtf8(error.Source()) + ": " + ToUtf8(error.Description());
    if (const std::string advice = AdviceOn(error, session); !advice.empty())
      words += " " + advice;
    return {.words = words};
  }
}

/// Where the page for operators is installed: beside the program, or below the folder that it lies in or the next one,
/// as its twin's. Where it belongs if it is nowhere.
std::string OperatorsPage() {
  const std::string folder = FolderOfProgram();
  const std::string places[] = {folder + "/operator-guide.md", folder + "/../share/fiscalon/operator-guide.md",
                                folder + "/../../share/fiscalon/operator-guide.md"};
  std::error_code error;
  const auto* const found = std::find_if(std::begin(places), std::end(places), [&](const std::string& place) {
    return std::filesystem::exists(Utf8Path(place), error);
  });
  return Utf8Of(Utf8Path(found == std::end(places) ? places[1] : *found).lexically_normal());
}

const FrontEnd& FrontEndNamed(const std::string& name, const Context& context) {
  const FrontEnd& frontEnd = name.empty() ? GoOnWithOneThatShows(context) : GoOnWith(name, context);
  if (frontEnd.shown == nullptr)
    throw CommandError("the front end " + name + " shows forms to nobody");
  return frontEnd;
}

ExitStatus OpenDesk(const std::string& toolkitName, const Context& context) {
  const std::unique_ptr<Toolkit> toolkit = FrontEndNamed(toolkitName, context).shown(nullptr);
  UseToolkit(toolkit.get());
  context.SetUpModule();
  frmPaymentDesk desk;
  desk.operatorsPage = OperatorsPage();
  frmDeskResult result;
  desk.onShow = [&](const Payment& payment, const std::string& code) {
    const Outcome outcome = ShowScreen(payment, code);
    result.Set(outcome.words, outcome.records);
    result.ShowModal(*toolkit);
  };
  desk.ShowModal(*toolkit);
  UseToolkit(nullptr);
  return ExitStatus::Done;
}

}  // namespace

void AddDeskCommand(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("desk", "Try the screens out with a payment of your own, again and again");
  command->footer(kDeskExamples);
  const auto toolkit = std::make_shared<std::string>();
  command->add_option("--toolkit", *toolkit, "What shows the desk; without it windows where there is a display")
      ->type_name("NAME")
      ->check(OneOf(NamesOfFrontEnds()));
  command->callback([toolkit, &context] { context.status = OpenDesk(*toolkit, context); });
}

}  // namespace fiscalon
