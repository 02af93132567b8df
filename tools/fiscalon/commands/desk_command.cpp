#include "tools/fiscalon/commands/desk_command.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>

#include "core/launch.h"
#include "core/module_state.h"
#include "core/platform/utf8_path.h"
#include "tools/fiscalon/commands/desk_form.h"
#include "tools/fiscalon/commands/desk_result_form.h"
#include "tools/fiscalon/front_ends.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/program_start.h"
#include "tools/paying/screen_show.h"

namespace fiscalon {
namespace {

constexpr const char* kDeskExamples = R"(Examples:
  fiscalon desk
  fiscalon desk --toolkit terminal

Exit status: 0, 2 where there is neither a display nor a terminal.)";

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
    const ShowOutcome outcome = ShowScreen(payment, *FindLaunchRow(code));
    result.Set(outcome.words, outcome.records);
    result.ShowModal(*toolkit, context.ShownLanguage());
  };
  desk.ShowModal(*toolkit, context.ShownLanguage());
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
