#include "tools/fiscalon/commands/collect_command.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "frontends/played/host_properties.h"
#include "tools/fiscalon/commands/collect_json.h"
#include "tools/fiscalon/commands/collecting.h"
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
  fiscalon collect --json < payment.json

Without --gov-filename the records are printed, one a line (an invoice with tabs
between its date, amount and description). With it they go to that file, as screens
write it, unless --write-file says False. --record writes down what the user did:
"fiscalon play" comes to the same records with it. --json is for programs in any
language: what they send and get stands in fiscalon-collect(1).
Exit status: 0 done, 1 cancelled, 2 nothing could be collected.)";

constexpr std::string_view kGovFilename = "GovFilename";
constexpr std::string_view kMainPath = "MainPath";
constexpr std::string_view kWriteFile = "WriteFile";

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

bool IsSet(const PaymentToCollect& payment, std::string_view property) {
  return std::any_of(payment.host.begin(), payment.host.end(), [&](const auto& set) { return set.first == property; });
}

/// A member of a collection as one line: an invoice with tabs between its date, amount and description.
std::string LineOf(const PC4& member) {
  if (member.TheDate().empty() && member.Amount().empty())
    return member.Description();
  return member.TheDate() + '\t' + member.Amount() + '\t' + member.Description();
}

/// Finds out what would be in the way of writing before a user fills the form in vain.
void CheckFiles(const PaymentToCollect& payment) {
  if (!payment.record.empty())
    WholeFile::Try(payment.record);
  for (const auto& [property, path] : payment.host) {
    if (property != kGovFilename)
      continue;
    std::error_code ignored;
    const auto place = std::filesystem::absolute(Utf8Path(path));
    if (std::filesystem::is_directory(place, ignored))
      throw CommandError(path + " can't be written: it is a folder");
    if (!std::filesystem::is_directory(place.parent_path(), ignored))
      throw CommandError(path + " can't be written: there is no folder " + Utf8Of(place.parent_path()));
    if (!payment.record.empty() && WholeFile::IsSamePlace(path, payment.record))
      throw CommandError("--gov-filename and --record name the same file");
  }
}

void Set(Collecting& collecting, std::string_view property, const std::string& value) {
  try {
    collecting.Set(property, value);
  } catch (const RuntimeError& error) {
    std::string complaint = FlagOf(property) + ": error " + std::to_string(error.Number()) + ", " + error.Description();
    if (const std::string advice = AdviceOn(error, collecting.Payment()); !advice.empty())
      complaint += "\n  " + advice;
    throw CommandError(complaint);
  }
}

void HandOut(const Levyra& payment) {
  if (payment.WriteFile() == kTrue || payment.PC4Records() == nullptr)
    return;
  for (const PC4& member : *payment.PC4Records()) std::cout << ToUtf8(LineOf(member)) << '\n';
}

ExitStatus Collect(PaymentToCollect payment, const Context& context) {
  payment.code = ScreenOf(payment.code).code;
  CheckFiles(payment);
  Collecting collecting(payment, context);
  collecting.Begin(Collecting::FrontEndFor(payment.toolkit, context));
  for (const auto& [property, value] : payment.host) Set(collecting, property, value);
  if (IsSet(payment, kGovFilename) && !IsSet(payment, kWriteFile))
    Set(collecting, kWriteFile, "True");
  try {
    if (collecting.Show()) {
      HandOut(collecting.Payment());
      return ExitStatus::Done;
    }
    Complain("cancelled: nothing was collected");
    return ExitStatus::Invalid;
  } catch (const RuntimeError& error) {
    Complain("fiscalon: error " + std::to_string(error.Number()) + " from " + ToUtf8(error.Source()) + ": " +
             ToUtf8(error.Description()));
    if (const std::string advice = AdviceOn(error, collecting.Payment()); !advice.empty())
      Complain("  " + advice);
    return ExitStatus::Unusable;
  }
}

struct CollectOptions {
  PaymentToCollect payment = {};
  /// The file of --json; nothing where that is not given.
  std::optional<std::string> request = {};
};

ExitStatus Run(const CollectOptions& options, const Context& context) {
  if (!options.request && options.payment.code.empty())
    throw UsageError("CODE is required: the screen to show, one of those that \"fiscalon screens\" lists");
  if (!options.request)
    return Collect(options.payment, context);
  if (!options.payment.code.empty() || !options.payment.host.empty())
    throw UsageError("with --json the request names the screen and the payment: leave CODE and the properties out");
  return CollectByJson(*options.request, options.payment, context);
}

}  // namespace

void DefineCollectCommand(CLI::App& command, Context& context) {
  command.footer(kCollectExamples);
  const auto options = std::make_shared<CollectOptions>();
  command.add_option("CODE", options->payment.code, "The screen's code");
  for (const auto& [name, help, type] : HostProperties())
    command
        .add_option_function<std::string>(
            FlagOf(name),
            [options, property = name](const std::string& value) {
              std::string complaint = ComplaintAboutHostProperty(property, value);
              if (property == kGovFilename || property == kMainPath)
                complaint = NameGiven(value);
              if (!complaint.empty())
                throw CLI::ValidationError(FlagOf(property), complaint);
              options->payment.host.emplace_back(property, value);
            },
            std::string(help))
        ->type_name("VALUE");
  command
      .add_option("--toolkit", options->payment.toolkit,
                  "What shows the form; without it windows where there is a display")
      ->type_name("NAME")
      ->check(OneOf(NamesOfFrontEnds()));
  command.add_option("--record", options->payment.record, "Write the session down as a scenario")
      ->type_name("FILE")
      ->check(NameGiven);
  // Its value may be left out.
  command
      .add_option_function<std::vector<std::string>>(
          "--json",
          [options](const std::vector<std::string>& file) {
            options->request = file.empty() || file.front().empty() ? "-" : file.front();
          },
          "The payment as JSON, from FILE or standard input; the answer as JSON")
      ->type_name("FILE")
      ->expected(0, 1);
  command.callback([options, &context] { context.status = Run(*options, context); });
}

}  // namespace fiscalon
