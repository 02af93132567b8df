#include "tools/fiscalon/commands/desk_command.h"

#include <filesystem>
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
/// as its twin's. In English where the language has none; where that belongs if it is nowhere.
std::string OperatorsPage(std::string_view language) {
  const std::string folder = FolderOfProgram();
  const std::string shared = folder + "/../share/fiscalon";
  const std::string worded = std::string("/operator-guide.").append(language) + ".md";
  for (const std::string& page : {worded, std::string("/operator-guide.md")})
    for (const std::string& place : {folder, shared, folder + "/../../share/fiscalon"})
      if (std::error_code error; std::filesystem::exists(Utf8Path(place + page), error))
        return Utf8Of(Utf8Path(place + page).lexically_normal());
  return Utf8Of(Utf8Path(shared + "/operator-guide.md").lexically_normal());
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
  desk.operatorsPage = OperatorsPage(context.ShownLanguage().name);
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

void DefineDeskCommand(CLI::App& command, Context& context) {
  command.footer(kDeskExamples);
  const auto toolkit = std::make_shared<std::string>();
  command.add_option("--toolkit", *toolkit, "What shows the desk; without it windows where there is a display")
      ->type_name("NAME")
      ->check(OneOf(NamesOfFrontEnds()));
  command.callback([toolkit, &context] { context.status = OpenDesk(*toolkit, context); });
}

}  // namespace fiscalon
