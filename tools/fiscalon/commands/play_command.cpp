#include "tools/fiscalon/commands/play_command.h"

#include <filesystem>
#include <iostream>

#include "core/platform/utf8_path.h"
#include "frontends/played/scenario_player.h"
#include "tools/fiscalon/commands/narrator.h"
#include "tools/fiscalon/commands/transcript.h"
#include "tools/fiscalon/files/input_file.h"
#include "tools/fiscalon/front_ends.h"
#include "tools/fiscalon/option_names.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

constexpr const char* kPlayExamples = R"(Examples:
  fiscalon play examples/*.scenario
  fiscalon play --transcript my.scenario     every line, every handler, every box
  fiscalon play --narrate my.scenario        with pictures of the form, and the records
  fiscalon play --only "an empty year" my.scenario

Exit status: 0 all passed, 1 an expectation was not met, 2 a file can't be read or
makes no sense, or --only names none (the others are played all the same). --today, --locale
and --language hold for scenarios that say nothing else; without them: the real day, en-CA
and English.)";

struct PlayOptions {
  std::vector<std::string> files = {};
  std::string toolkit = NamesOfFrontEnds().front();
  /// The name of the scenarios to play; empty for all.
  std::string only = {};
  bool transcript = false;
  bool narrate = false;
};

/// Plays the files one after the other and keeps the score.
class Playing {
 public:
  Playing(const PlayOptions& options, const Context& context, const FrontEnd& frontEnd)
      : options_(options), context_(context), toolkit_(frontEnd.played()) {
    settings_.today = context.today;
    settings_.language = context.ShownLanguage();
    if (!context.localeName.empty())
      settings_.locale = context.localeName;
  }

  void Play(const std::string& file) {
    try {
      const std::string text = TextOf(file);
      for (const Scenario& scenario : ParseScenarios(file, text))
        if (options_.only.empty() || options_.only == scenario.name || options_.only == scenario.Label())
          PlayOne(scenario, text);
    } catch (const std::exception& error) {
      ComplainOf(file, error);
    }
  }

  ExitStatus Finish() {
    if (!options_.only.empty() && !found_) {
      Complain("fiscalon: no scenario is named \"" + options_.only + "\"");
      unplayable_ = true;
    }
    std::cout << passed_ << " passed, " << failed_ << " failed\n";
    return unplayable_ ? ExitStatus::Unusable : failed_ > 0 ? ExitStatus::Invalid : ExitStatus::Done;
  }

 private:
  static std::string TextOf(const std::string& file) {
    if (std::error_code ignored; std::filesystem::is_directory(Utf8Path(file), ignored))
      throw ScenarioError(file, 0,
                          "a folder; name the scenario files in it, such as " + Utf8Of(Utf8Path(file) / "*.scenario"));
    try {
      return ReadInput(file);
    } catch (const UnreadableFile& error) {
      throw ScenarioError(file, 0, std::string("the file can't be read: ") + error.what());
    }
  }

  /// A scenario that makes no sense for the form that is up leaves the others of its file to be played.
  void PlayOne(const Scenario& scenario, const std::string& text) {
    found_ = true;
    try {
      Report(scenario, PlayWatched(scenario, text));
    } catch (const std::exception& error) {
      ComplainOf(scenario.file, error);
    }
  }

  void ComplainOf(const std::string& file, const std::exception& error) {
    const bool hasPlace = dynamic_cast<const ScenarioError*>(&error) != nullptr;
    Complain((hasPlace ? "" : file + ":0: ") + error.what());
    unplayable_ = true;
  }

  PlayResult PlayWatched(const Scenario& scenario, const std::string& text) {
    if (options_.transcript) {
      std::cout << context_.paint.Heading("play " + scenario.Title()) << '\n';
      return ScenarioPlayer(*toolkit_, settings_, TranscriptTo(std::cout)).Play(scenario);
    }
    if (options_.narrate) {
      if (!scenario.Label().empty())
        std::cout << context_.paint.Heading(scenario.Title()) << "\n\n";
      Narrator narrator(scenario, text, context_, std::cout);
      return ScenarioPlayer(*toolkit_, settings_, narrator.Watcher()).Play(scenario);
    }
    return ScenarioPlayer(*toolkit_, settings_).Play(scenario);
  }

  void Report(const Scenario& scenario, const PlayResult& result) {
    ++(result.passed ? passed_ : failed_);
    if (result.passed) {
      std::cout << context_.paint.Good("ok  ") << ' ' << scenario.Title() << '\n';
      return;
    }
    std::cout << context_.paint.Bad("FAIL") << ' ';
    if (!scenario.Label().empty())
      std::cout << scenario.Title() << "\n     ";
    std::cout << scenario.file << ':' << result.line << ": " << SourceAt(result.line, scenario)
              << "\n     expected: " << Indented(result.expected) << "\n     seen:     " << Indented(result.seen)
              << '\n';
  }

  static std::string_view SourceAt(int number, const Scenario& scenario) {
    for (const ScenarioLine& line : scenario.lines)
      if (line.number == number)
        return SourceOf(line);
    return {};
  }

  /// A text of several lines, the later ones under the first.
  static std::string Indented(const std::string& text) {
    std::string indented;
    for (const char character : text)
      indented += character == '\n' ? std::string("\n               ") : std::string(1, character);
    return indented;
  }

  const PlayOptions& options_;
  const Context& context_;
  std::unique_ptr<DrivenToolkit> toolkit_;
  PlaySettings settings_;
  int passed_ = 0;
  int failed_ = 0;
  bool found_ = false;
  bool unplayable_ = false;
};

ExitStatus PlayFiles(const PlayOptions& options, const Context& context) {
  Playing playing(options, context, GoOnWith(options.toolkit, context));
  for (const std::string& file : options.files) playing.Play(file);
  return playing.Finish();
}

}  // namespace

void DefinePlayCommand(CLI::App& command, Context& context) {
  command.footer(kPlayExamples);
  const auto options = std::make_shared<PlayOptions>();
  command.add_option("FILE", options->files, "Scenario files")->required()->check(NameGiven);
  command
      .add_option("--toolkit", options->toolkit, "The front end that shows the forms: " + Listed(NamesOfFrontEnds()))
      ->type_name("NAME")
      ->check(OneOf(NamesOfFrontEnds()));
  command.add_option("--only", options->only, "Play the scenarios of that name alone")
      ->type_name("NAME")
      ->check(NameGiven);
  CLI::Option* transcript =
      command.add_flag("--transcript", options->transcript, "Print every line and everything that happens");
  command.add_flag("--narrate", options->narrate, "Tell it with pictures of the form, the boxes and the records")
      ->excludes(transcript);
  command.callback([options, &context] { context.status = PlayFiles(*options, context); });
}

}  // namespace fiscalon
