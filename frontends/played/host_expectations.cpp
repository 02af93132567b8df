#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "core/screen.h"
#include "core/values/text.h"
#include "frontends/played/scenario_run.h"

/// What a host must find.
namespace fiscalon {
namespace {

std::string TrueFalse(bool value) {
  return value ? "True" : "False";
}

/// How the last show ended. It must have.
std::string EndingOf(const ScenarioRun& run) {
  if (run.FormIsUp())
    run.Fail("the form to be closed", "\"" + run.NameOfForm() + "\" is still open");
  return run.Ending();
}

void ExpectResult(ScenarioRun& run, const Arguments& arguments) {
  run.Compare("result " + TrueFalse(*ParseBoolean(arguments[0]) != 0), EndingOf(run));
}

void ExpectError(ScenarioRun& run, const Arguments& arguments) {
  // Numbers above the range of 31 bits are the same number without a sign.
  const auto number = static_cast<int32_t>(*ParseNumber(arguments[0]));
  run.Compare(
      "error " + std::to_string(number) + " " + QuotedArgument(arguments[1]) + " " + QuotedArgument(arguments[2]),
      EndingOf(run));
  run.ForgiveError();
}

void ExpectChosen(ScenarioRun& run, const Arguments& arguments) {
  const auto form = TheModule().forms.find(run.NameOfForm());
  if (form == TheModule().forms.end())
    run.Fail("a form that was shown", "no form was shown");
  const auto& screen = static_cast<const Screen&>(*form->second);
  run.Compare(TrueFalse(*ParseBoolean(arguments[0]) == kTrue), TrueFalse(screen.Chosen() == kTrue));
}

void ExpectRecords(ScenarioRun& run, const Arguments& arguments) {
  run.Compare(std::to_string(*ParseNumber(arguments[0])) + " records",
              std::to_string(run.Records().size()) + " records");
}

std::string RecordAt(const ScenarioRun& run, const std::string& position) {
  const std::vector<std::string> records = run.Records();
  const auto wanted = static_cast<size_t>(*ParseNumber(position));
  if (wanted < 1 || wanted > records.size())
    run.Fail("a record " + position, std::to_string(records.size()) + " records");
  return records[wanted - 1];
}

void ExpectRecord(ScenarioRun& run, const Arguments& arguments) {
  const std::string seen = ToUtf8(RecordAt(run, arguments[0]));
  run.Compare(WithPlainLineEnds(std::string(TrimRight(arguments[1]))), WithPlainLineEnds(std::string(TrimRight(seen))));
}

void ExpectLength(ScenarioRun& run, const Arguments& arguments) {
  run.Compare(std::to_string(*ParseNumber(arguments[1])), std::to_string(RecordAt(run, arguments[0]).size()));
}

void ExpectInvoice(ScenarioRun& run, const Arguments& arguments) {
  const auto& members = run.Session().PC4Records();
  const int32_t count = members ? members->Count() : 0;
  const auto wanted = static_cast<int32_t>(*ParseNumber(arguments[0]));
  if (wanted < 1 || wanted > count)
    run.Fail("a member " + arguments[0], std::to_string(count) + " members");
  const PC4& member = members->Item(wanted);
  run.Compare(arguments[1] + "|" + arguments[2] + "|" + std::string(TrimRight(arguments[3])),
              ToUtf8(member.TheDate()) + "|" + ToUtf8(member.Amount()) + "|" +
                  std::string(TrimRight(ToUtf8(member.Description()))));
}

void ExpectFile(ScenarioRun& run, const Arguments& arguments) {
  std::error_code unreachable;
  run.Compare(arguments[1], std::filesystem::exists(Utf8Path(arguments[0]), unreachable) ? "yes" : "no");
}

/// What is written in files is in the code page, like records.
void ExpectLine(ScenarioRun& run, const Arguments& arguments) {
  const auto& [name, position, text] = std::tie(arguments[0], arguments[1], arguments[2]);
  const auto path = Utf8Path(name);
  const std::string wanted = "line " + position + " of " + name + ": " + QuotedArgument(WithPlainLineEnds(text));
  std::error_code unreachable;
  if (!std::filesystem::is_regular_file(path, unreachable))
    run.Fail(wanted, "there is no such file");
  std::ifstream file(path, std::ios::binary);
  const long long number = *ParseNumber(position);
  long long count = 0;
  for (std::string line; std::getline(file, line);) {
    if (++count != number)
      continue;
    if (line.ends_with('\r'))
      line.pop_back();
    return run.CompareTexts(text, line);
  }
  run.Fail(wanted, "the file has " + std::to_string(count) + (count == 1 ? " line" : " lines"));
}

// clang-format off
constexpr std::array kHostExpectations = {
    LineForm{"expect result",  Turn::Watcher, {&argument::kTrueFalse}, {}, ExpectResult},
    LineForm{"expect error",   Turn::Watcher, {&argument::kNumber, &argument::kSource, &argument::kDescription}, {}, ExpectError},
    LineForm{"expect chosen",  Turn::Watcher, {&argument::kTrueFalse}, {}, ExpectChosen},
    LineForm{"expect records", Turn::Watcher, {&argument::kCount}, {}, ExpectRecords},
    LineForm{"expect record",  Turn::Watcher, {&argument::kPosition, &argument::kText}, {}, ExpectRecord},
    LineForm{"expect length",  Turn::Watcher, {&argument::kPosition, &argument::kCount}, {}, ExpectLength},
    LineForm{"expect invoice", Turn::Watcher, {&argument::kPosition, &argument::kMemberDate, &argument::kAmount, &argument::kDescription}, {}, ExpectInvoice},
    LineForm{"expect file",    Turn::Watcher, {&argument::kPath, &argument::kYesNo}, {}, ExpectFile},
    LineForm{"expect line",    Turn::Watcher, {&argument::kPath, &argument::kPosition, &argument::kText}, {}, ExpectLine},
};
// clang-format on

}  // namespace

std::span<const LineForm> HostExpectations() {
  return kHostExpectations;
}

}  // namespace fiscalon
