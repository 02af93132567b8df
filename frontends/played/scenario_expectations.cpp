#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/found_records.h"
#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "core/screen_contract.h"
#include "core/values/text.h"
#include "frontends/played/scenario_grammar.h"
#include "frontends/played/scenario_run.h"

namespace fiscalon {
namespace {

constexpr std::string_view kDefaultTitle = "Fiscalon";

std::string YesNo(bool value) {
  return value ? "yes" : "no";
}
std::string TrueFalse(bool value) {
  return value ? "True" : "False";
}

std::string StyleName(MessageStyle style) {
  switch (style) {
    case MessageStyle::Critical:
      return "critical";
    case MessageStyle::Question:
      return "question";
    case MessageStyle::Exclamation:
      return "exclamation";
    case MessageStyle::Information:
      return "information";
    default:
      return "plain";
  }
}

/// CR LF, CR and LF alike stand for one line end.
std::string WithPlainLineEnds(std::string text) {
  for (size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at))
    text.replace(at, at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1, "\n");
  return text;
}

}  // namespace

std::string DescribedBox(const MessageBox& box) {
  std::string described = "message " + StyleName(box.style) + " " + QuotedArgument(WithPlainLineEnds(ToUtf8(box.text)));
  if (!box.title.empty())
    described += " title " + QuotedArgument(WithPlainLineEnds(ToUtf8(box.title)));
  return described;
}

std::string ScenarioRun::Described(const SeenThing& thing) {
  if (const auto* box = std::get_if<MessageBox>(&thing))
    return DescribedBox(*box);
  if (const auto* help = std::get_if<SeenHelp>(&thing))
    return "help " + QuotedArgument(ToUtf8(help->file)) + " " + std::to_string(help->context);
  return "beep";
}

std::string ScenarioRun::Ending() const {
  if (error_)
    return "error " + std::to_string(error_->Number()) + " " + QuotedArgument(ToUtf8(error_->Source())) + " " +
           QuotedArgument(ToUtf8(error_->Description()));
  return result_ ? "result " + TrueFalse(*result_) : "no screen was shown";
}

void ScenarioRun::Expect(const ScenarioLine& line) {
  const std::string& what = line.arguments[0];
  if (what == "message")
    ExpectMessage(line);
  else if (what == "beep")
    Compare("beep", Described(Claim("beep")));
  else if (what == "help") {
    const std::string expected =
        "help " + QuotedArgument(Argument(line, 1)) + " " + std::to_string(*ParseNumber(line.arguments[2]));
    Compare(expected, Described(Claim(expected)));
  } else if (!ExpectOfShow(line, what) && !ExpectOfRecords(line, what) && !ExpectOfForm(line, what)) {
    Senseless("nothing is known of \"expect " + what + "\"");
  }
}

bool ScenarioRun::ExpectOfForm(const ScenarioLine& line, const std::string& what) {
  if (what == "open") {
    Compare(line.arguments[1], YesNo(form_ != nullptr && form_->IsUp()));
    return true;
  }
  UserDriver& user = User();
  if (what == "title") {
    CompareTexts(Argument(line, 1), user.Title());
    return true;
  }
  if (what == "focus") {
    ControlNamed(line.arguments[1]);
    Compare(line.arguments[1], user.FocusName());
    return true;
  }
  Control& control = ControlNamed(line.arguments[1]);
  if (what == "text")
    CompareTexts(Argument(line, 2), user.Text(control));
  else if (what == "selection")
    CompareTexts(Argument(line, 2), user.SelectedText(control));
  else if (what == "enabled")
    Compare(line.arguments[2], YesNo(user.Enabled(control)));
  else if (what == "visible")
    Compare(line.arguments[2], YesNo(user.Visible(control)));
  else if (what == "checked")
    Compare(line.arguments[2], YesNo(user.Checked(control)));
  else if (what == "locked")
    Compare(line.arguments[2], YesNo(user.Locked(control)));
  else if (what == "items")
    Compare(std::to_string(*ParseNumber(line.arguments[2])), std::to_string(user.Items(control)));
  else
    return false;
  return true;
}

bool ScenarioRun::ExpectOfShow(const ScenarioLine& line, const std::string& what) {
  if (what == "chosen") {
    const auto form = TheModule().forms.find(shownForm_);
    if (form == TheModule().forms.end())
      Fail("a form that was shown", "no form was shown");
    const auto& screen = static_cast<const Screen&>(*form->second);
    Compare(TrueFalse(*ParseBoolean(line.arguments[1]) == kTrue), TrueFalse(screen.Chosen() == kTrue));
    return true;
  }
  if (what != "result" && what != "error")
    return false;
  if (form_ != nullptr && form_->IsUp())
    Fail("the form to be closed", "\"" + shownForm_ + "\" is still open");
  const std::string seen = Ending();
  if (what == "result") {
    Compare("result " + TrueFalse(*ParseBoolean(line.arguments[1]) != 0), seen);
    return true;
  }
  // Numbers above the range of 31 bits are the same number without a sign.
  const auto number = static_cast<int32_t>(*ParseNumber(line.arguments[1]));
  Compare("error " + std::to_string(number) + " " + QuotedArgument(Argument(line, 2)) + " " +
              QuotedArgument(Argument(line, 3)),
          seen);
  error_.reset();
  return true;
}

bool ScenarioRun::ExpectOfRecords(const ScenarioLine& line, const std::string& what) {
  if (what == "file") {
    std::error_code unreachable;
    Compare(line.arguments[2], YesNo(std::filesystem::exists(Argument(line, 1), unreachable)));
    return true;
  }
  if (what == "invoice") {
    const PC4& member = Member(line.arguments[1]);
    Compare(Argument(line, 2) + "|" + Argument(line, 3) + "|" + std::string(TrimRight(Argument(line, 4))),
            ToUtf8(member.TheDate()) + "|" + ToUtf8(member.Amount()) + "|" +
                std::string(TrimRight(ToUtf8(member.Description()))));
    return true;
  }
  if (what != "records" && what != "record" && what != "length")
    return false;
  const std::vector<std::string> records = Records();
  if (what == "records") {
    Compare(std::to_string(*ParseNumber(line.arguments[1])) + " records", std::to_string(records.size()) + " records");
    return true;
  }
  const long long position = *ParseNumber(line.arguments[1]);
  if (position < 1 || position > static_cast<long long>(records.size()))
    Fail("a record " + line.arguments[1], std::to_string(records.size()) + " records");
  const std::string& record = records[static_cast<size_t>(position) - 1];
  if (what == "length")
    Compare(std::to_string(*ParseNumber(line.arguments[2])), std::to_string(record.size()));
  else
    Compare(WithPlainLineEnds(std::string(TrimRight(Argument(line, 2)))),
            WithPlainLineEnds(std::string(TrimRight(ToUtf8(record)))));
  return true;
}

void ScenarioRun::ExpectMessage(const ScenarioLine& line) {
  const bool withTitle = line.arguments.size() > 3;
  std::string expected = "message " + line.arguments[1] + " " + QuotedArgument(WithPlainLineEnds(Argument(line, 2)));
  if (withTitle)
    expected += " title " + QuotedArgument(WithPlainLineEnds(Argument(line, 4)));
  const SeenThing seen = Claim(expected);
  const auto* box = std::get_if<MessageBox>(&seen);
  if (box == nullptr)
    Fail(expected, Described(seen));
  MessageBox compared = *box;
  if (!withTitle)
    compared.title.clear();
  else if (compared.title.empty())
    compared.title = kDefaultTitle;
  Compare(expected, DescribedBox(compared));
}

ScenarioRun::SeenThing ScenarioRun::Claim(const std::string& expected) {
  if (seen_.empty())
    Fail(expected, "nothing was shown");
  SeenThing first = seen_.front();
  seen_.pop_front();
  return first;
}

void ScenarioRun::RefuseUnclaimed() const {
  if (seen_.empty())
    return;
  throw ScenarioFailure{
      .line = seenAtLine_, .expected = "nothing that no line expects", .seen = Described(seen_.front())};
}

void ScenarioRun::Compare(const std::string& expected, const std::string& seen) const {
  if (expected != seen)
    Fail(expected, seen);
}

void ScenarioRun::CompareTexts(const std::string& expected, const std::string& seenInCodePage) const {
  Compare(QuotedArgument(WithPlainLineEnds(expected)), QuotedArgument(WithPlainLineEnds(ToUtf8(seenInCodePage))));
}

std::vector<std::string> ScenarioRun::Records() const {
  FoundRecords found = FindRecords(*session_);
  if (found.foreignLine)
    Fail("each line of the record file in double quotes and ended by CR LF",
         QuotedArgument(ToUtf8(*found.foreignLine)));
  return std::move(found.records);
}

const PC4& ScenarioRun::Member(const std::string& position) const {
  const auto& records = session_->PC4Records();
  const long long wanted = *ParseNumber(position);
  if (!records || wanted < 1 || wanted > records->Count())
    Fail("a member " + position, std::to_string(records ? records->Count() : 0) + " members");
  return records->Item(static_cast<int32_t>(wanted));
}

}  // namespace fiscalon
