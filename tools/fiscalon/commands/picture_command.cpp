#include "tools/fiscalon/commands/picture_command.h"

#include "frontends/played/scenario_player.h"
#include "tools/fiscalon/files/input_file.h"
#include "tools/fiscalon/files/whole_file.h"
#include "tools/fiscalon/front_ends.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/screen_code.h"

namespace fiscalon {
namespace {

constexpr const char* kPictureExamples = R"(Examples:
  fiscalon picture 15 --out due-date.png
  fiscalon picture 15 --out filled.png --scenario examples/due_date_amount.scenario
  fiscalon picture 15 --out large.png --scale 2 --dark
  fiscalon picture 15 --out form.svg --toolkit terminal

A scenario fills the form: the picture is of the last moment at which the screen was up.
Exit status: 0 done, 1 the scenario failed, 2 no picture could be made.)";

struct PictureOptions {
  std::string code = {};
  std::string out = {};
  std::string scenario = {};
  /// Empty for the first that takes pictures.
  std::string toolkit = {};
  double scale = 1;
  bool dark = false;
};

/// What the form shows where no scenario says otherwise: a payment of every property.
constexpr const char* kExamplePayment = R"(today 2026-06-15
host ZelmorNumber 1234567
host CompName "Summit Levies"
host CompCode 001052
host PaidAmount 12345
host PaidDate 06152026
host EnterName "Hélène Côté"
host EnterTitle Clerk
host SeqNumber 0001
host NumberOfInfoCollect 12
host BusinessName "Summit Books"
)";

Scenario ScenarioOf(const PictureOptions& options) {
  if (options.scenario.empty())
    return ParseScenario("example payment", kExamplePayment + ("show " + options.code) + "\nclose 1\n");
  try {
    return ParseScenario(options.scenario, ReadInput(options.scenario), options.code);
  } catch (const UnreadableFile& error) {
    throw CommandError(options.scenario + " can't be read: " + error.what());
  }
}

std::vector<std::string> InputsOf(const PictureOptions& options) {
  return options.scenario.empty() ? std::vector<std::string>{} : std::vector{options.scenario};
}

PictureLook::Format FormatOf(const std::string& file) {
  return file.ends_with(".svg")   ? PictureLook::Format::Svg
         : file.ends_with(".txt") ? PictureLook::Format::Text
                                  : PictureLook::Format::Png;
}

const FrontEnd& PhotographingFrontEnd(const PictureOptions& options, const Context& context) {
  if (options.toolkit.empty())
    return GoOnWithOneThatTakesPictures(context);
  const FrontEnd& frontEnd = GoOnWith(options.toolkit, context);
  if (frontEnd.photographed == nullptr)
    throw CommandError("the front end " + options.toolkit + " takes no pictures of forms");
  return frontEnd;
}

ExitStatus MakePicture(const PictureOptions& options, const Context& context) {
  const FrontEnd& frontEnd = PhotographingFrontEnd(options, context);
  const LaunchRow& screen = ScreenOf(options.code);
  const Scenario scenario = ScenarioOf(options);
  WholeFile file(options.out, InputsOf(options));
  const auto toolkit =
      frontEnd.photographed({.theme = options.dark ? PictureLook::Theme::Dark : PictureLook::Theme::Light,
                             .format = FormatOf(options.out),
                             .scale = options.scale});
  PlaySettings settings{.today = context.today, .language = context.ShownLanguage()};
  if (!context.localeName.empty())
    settings.locale = context.localeName;
  bool taken = false;
  PlayWatcher watcher;
  watcher.lineEnds = [&](const ScenarioLine&, Form* form) {
    if (IsInterrupted())
      throw CommandError("interrupted");
    if (form == nullptr || form->Name() != screen.form)
      return;
    toolkit->TakePicture();
    taken = true;
  };
  const PlayResult result = ScenarioPlayer(toolkit->Toolkit(), settings, watcher).Play(scenario);
  if (!result.passed && !options.scenario.empty()) {
    Complain(scenario.file + ":" + std::to_string(result.line) + ": expected " + result.expected + ", but saw " +
             result.seen);
    return ExitStatus::Invalid;
  }
  if (!taken)
    throw CommandError(scenario.file + " never shows screen \"" + options.code + "\"");
  file.Write(toolkit->Picture());
  file.Commit();
  return ExitStatus::Done;
}

}  // namespace

void DefinePictureCommand(CLI::App& command, Context& context) {
  command.footer(kPictureExamples);
  const auto options = std::make_shared<PictureOptions>();
  command.add_option("CODE", options->code, "The screen's code")->required();
  command.add_option("--out", options->out, "The picture")->required()->type_name("FILE")->check(NameGiven);
  command.add_option("--scenario", options->scenario, "A scenario that fills the form")
      ->type_name("FILE")
      ->check(NameGiven);
  command
      .add_option("--toolkit", options->toolkit,
                  "What is drawn: windows by qt, into a PNG file, or a terminal, into SVG or text")
      ->type_name("NAME")
      ->check(OneOf(NamesOfFrontEnds()));
  command.add_option("--scale", options->scale, "Pixels for each of a usual screen")
      ->type_name("FACTOR")
      ->check(NumberFrom(0.5, 4.0));
  command.add_flag("--dark", options->dark, "In a dark theme");
  command.callback([options, &context] { context.status = MakePicture(*options, context); });
}

}  // namespace fiscalon
