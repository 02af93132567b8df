#include "tools/fiscalon/commands/collect_command.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <utility>

#include "core/found_records.h"
#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "core/session.h"
#include "frontends/played/host_properties.h"
#include "frontends/played/session_recorder.h"
#include "tools/fiscalon/files/whole_file.h"
#include "tools/fiscalon/front_ends.h"
#include "tools/fiscalon/option_names.h"
#include "tools/fiscalon/screen_code.h"
#include "tools/reading/payment_advice.h"

namespace fiscalon {
namespace {

constexpr const char* kCollectExamples = R"(Examples:
  fiscalon collect 15 --paid-amount 12345 --paid-date 06152026 --comp-name "Summit Levies"
  fiscalon collect 15 --paid-amount 12345 --seq-number 0001 --gov-filename payment.pc4
  fiscalon collect 15 --paid-amount 12345 --record my.scenario
  fiscalon collect 15 --paid-amount 12345 --toolkit terminal

Without --gov-filename the records are printed, one a line (an invoice with tabs
between its date, amount and description). With it they go to that file, as screens
write it, unless --write-file says False. --record writes down what the user did:
"fiscalon play" comes to the same records with it.
Exit status: 0 done, 1 cancelled, 2 nothing could be collected.)";

constexpr std::string_view kGovFilename = "GovFilename";
constexpr std::string_view kMainPath = "MainPath";
constexpr std::string_view kWriteFile = "WriteFile";

struct CollectOptions {
  std::string code = {};
  /// Empty for the first that can show it.
  std::string toolkit = {};
  std::string record = {};
  /// In the order of the command line.
  std::vector<std::pair<std::string, std::string>> host = {};
};

/// "PaidAmount" is --paid-amount, "APHoldFlg" --ap-hold-flg.
std::string FlagOf(std::string_view property) {
  const auto isUpper = [&](size_t i) {
    return i < property.size() && std::isupper(static_cast<unsigned char>(property[i])) != 0;
  };
  std::string flag = "--";
  for (size_t i = 0; i < property.size(); ++i) {
    if (i > 0 && isUpper(i) && (!isUpper(i - 1) || (i + 1 < property.size() && !isUpper(i + 1))))
      flag += '-';
    flag += static_cast<char>(std::tolower(static_cast<unsigned char>(property[i])));
  }
  return flag;
}

bool IsSet(const CollectOptions& options, std::string_view property) {
  return std::any_of(options.host.begin(), options.host.end(), [&](const auto& set) { return set.first == property; });
}

/// A member of a collection as one line: an invoice with tabs between its date, amount and description.
std::string LineOf(const PC4& member) {
  if (member.TheDate().empty() && member.Amount().empty())
    return member.Description();
  return member.TheDate() + '\t' + member.Amount() + '\t' + member.Description();
}

/// One launch of a screen with a user at it, written down if that is wanted.
class Collecting {
 public:
  Collecting(const CollectOptions& options, const Context& context) : options_(options), context_(context) {}

  ExitStatus Run() {
    const std::string code(ScreenOf(options_.code).code);
    CheckFiles();
    const auto toolkit = ShowingFrontEnd().shown(&recorder_);
    PrepareModule(*toolkit);
    const ExitStatus status = Show(code);
    UseToolkit(nullptr);
    WriteRecording();
    return status;
  }

 private:
  const FrontEnd& ShowingFrontEnd() const {
    if (options_.toolkit.empty())
      return GoOnWithOneThatShows(context_);
    const FrontEnd& frontEnd = GoOnWith(options_.toolkit, context_);
    if (frontEnd.shown == nullptr)
      throw CommandError("the front end " + options_.toolkit + " shows forms to nobody");
    return frontEnd;
  }

  /// Finds out what would be in the way of writing before a user fills the form in vain.
  void CheckFiles() const {
    if (!options_.record.empty())
      WholeFile::Try(options_.record);
    for (const auto& [property, path] : options_.host) {
      if (property != kGovFilename)
        continue;
      std::error_code ignored;
      const auto place = std::filesystem::absolute(Utf8Path(path));
      if (std::filesystem::is_directory(place, ignored))
        throw CommandError(path + " can't be written: it is a folder");
      if (!std::filesystem::is_directory(place.parent_path(), ignored))
        throw CommandError(path + " can't be written: there is no folder " + Utf8Of(place.parent_path()));
      if (!options_.record.empty() && WholeFile::IsSamePlace(path, options_.record))
        throw CommandError("--gov-filename and --record name the same file");
    }
  }

  ExitStatus Show(const std::string& code) {
    Levyra session;
    SetHost(session);
    recorder_.Shows(code);
    try {
      const bool result = session.ShowLevyraScreen(code);
      recorder_.Result(result);
      if (result)
        HandOut(session);
      else
        Complain("cancelled: nothing was collected");
      return result ? ExitStatus::Done : ExitStatus::Invalid;
    } catch (const RuntimeError& error) {
      recorder_.Error(error);
      Complain("fiscalon: error " + std::to_string(error.Number()) + " from " + ToUtf8(error.Source()) + ": " +
               ToUtf8(error.Description()));
      Advise(error, session);
      return ExitStatus::Unusable;
    }
  }

  static void Advise(const RuntimeError& error, const Levyra& session) {
    if (const std::string advice = AdviceOn(error, session); !advice.empty())
      Complain("  " + advice);
  }

  void PrepareModule(Toolkit& toolkit) {
    UseToolkit(&toolkit);
    context_.SetUpModule();
    recorder_.Today(TheModule().clock->Now());
    recorder_.UsesLocale(LocaleToRecord());
  }

  /// A user's own locale may be another one where the scenario is played, so it is named where it has a name.
  std::string LocaleToRecord() const {
    if (!context_.localeName.empty())
      return context_.localeName;
    Locale own = context_.SpokenLocale();
    for (const char* name : {"en-CA", "en-US", "fr-CA"}) {
      const Locale named = *NamedLocale(name);
      own.name = named.name;
      if (own == named)
        return name;
    }
    return "system";
  }

  void SetHost(Levyra& session) {
    for (const auto& [property, value] : options_.host) Set(session, property, value);
    if (IsSet(options_, kGovFilename) && !IsSet(options_, kWriteFile))
      Set(session, kWriteFile, "True");
  }

  void Set(Levyra& session, std::string_view property, const std::string& value) {
    try {
      SetHostProperty(session, property, value);
    } catch (const RuntimeError& error) {
      std::string complaint =
          FlagOf(property) + ": error " + std::to_string(error.Number()) + ", " + error.Description();
      if (const std::string advice = AdviceOn(error, session); !advice.empty())
        complaint += "\n  " + advice;
      throw CommandError(complaint);
    }
    recorder_.Host(property, value);
  }

  void HandOut(const Levyra& session) {
    recorder_.Records(FindRecords(session).records);
    if (session.WriteFile() == kTrue || session.PC4Records() == nullptr)
      return;
    int32_t position = 0;
    for (const PC4& member : *session.PC4Records()) {
      ++position;
      if (!member.TheDate().empty() || !member.Amount().empty())
        recorder_.Invoice(position, member);
      std::cout << ToUtf8(LineOf(member)) << '\n';
    }
  }

  /// The payment is collected by now, or not, whatever becomes of its recording.
  void WriteRecording() {
    if (options_.record.empty())
      return;
    try {
      WholeFile file(options_.record);
      file.Write(recorder_.Text());
      file.Commit();
    } catch (const CommandError& error) {
      Complain(std::string("fiscalon: the session is not recorded: ") + error.what());
    }
  }

  const CollectOptions& options_;
  const Context& context_;
  SessionRecorder recorder_;
};

}  // namespace

void AddCollectCommand(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("collect", "Show a screen to the user and hand out the records");
  command->footer(kCollectExamples);
  const auto options = std::make_shared<CollectOptions>();
  command->add_option("CODE", options->code, "The screen's code")->required();
  for (const auto& [name, help] : HostProperties())
    command
        ->add_option_function<std::string>(
            FlagOf(name),
            [options, property = name](const std::string& value) {
              std::string complaint = ComplaintAboutHostProperty(property, value);
              if (property == kGovFilename || property == kMainPath)
                complaint = NameGiven(value);
              if (!complaint.empty())
                throw CLI::ValidationError(FlagOf(property), complaint);
              options->host.emplace_back(property, value);
            },
            std::string(help))
        ->type_name("VALUE");
  command->add_option("--toolkit", options->toolkit, "What shows the form; without it windows where there is a display")
      ->type_name("NAME")
      ->check(OneOf(NamesOfFrontEnds()));
  command->add_option("--record", options->record, "Write the session down as a scenario")
      ->type_name("FILE")
      ->check(NameGiven);
  command->callback([options, &context] { context.status = Collecting(*options, context).Run(); });
}

}  // namespace fiscalon
