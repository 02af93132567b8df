#include "tools/fiscalon/commands/screens_command.h"

#include <iomanip>
#include <iostream>
#include <memory>

#include "core/launch.h"
#include "validation/rule_sets.h"

namespace fiscalon {
namespace {

constexpr const char* kScreensExamples = R"(Examples:
  fiscalon screens
  fiscalon screens | grep Quebec
  fiscalon screens --judged)";

void PrintScreens(const Context& context, bool judged) {
  size_t formWidth = 0;
  for (const LaunchRow& row : LaunchTable()) formWidth = std::max(formWidth, row.form.size());
  const auto line = [&](std::string_view code, std::string_view form, std::string_view collects) {
    std::ostringstream text;
    text << std::left << std::setw(4) << code << "  " << std::setw(static_cast<int>(formWidth)) << form << "  "
         << collects;
    return text.str();
  };
  std::cout << context.paint.Heading(line("Code", "Form", "Collects")) << '\n';
  for (const LaunchRow& row : LaunchTable())
    if (!judged || RulesOf(row.code) != nullptr)
      std::cout << line(row.code, row.form, row.collects) << '\n';
}

}  // namespace

void DefineScreensCommand(CLI::App& command, Context& context) {
  command.footer(kScreensExamples);
  const auto judged = std::make_shared<bool>(false);
  command.add_flag("--judged", *judged, "Only those whose payments \"validate\" judges");
  command.callback([judged, &context] { PrintScreens(context, *judged); });
}

}  // namespace fiscalon
