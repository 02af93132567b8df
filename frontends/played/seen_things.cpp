#include "frontends/played/seen_things.h"

#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "frontends/played/scenario.h"

namespace fiscalon {
namespace {

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

}  // namespace

std::string DescribedBox(const BoxRequest& box) {
  std::string described = "message " + StyleName(box.style) + " " + QuotedArgument(WithPlainLineEnds(ToUtf8(box.text)));
  if (!box.title.empty())
    described += " title " + QuotedArgument(WithPlainLineEnds(ToUtf8(box.title)));
  return described;
}

std::string DescribedHelp(const std::string& file, int32_t context) {
  // A scenario's "/" stands for the system's own separator.
  const std::string native = Utf8Of(Utf8Path(file).make_preferred());
  return "help " + QuotedArgument(native) + " " + std::to_string(context);
}

std::string Described(const SeenThing& thing) {
  if (const auto* box = std::get_if<BoxRequest>(&thing))
    return DescribedBox(*box);
  if (const auto* help = std::get_if<SeenHelp>(&thing))
    return DescribedHelp(ToUtf8(help->file), help->context);
  return "beep";
}

std::string WithPlainLineEnds(std::string text) {
  for (size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at))
    text.replace(at, at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1, "\n");
  return text;
}

std::string WithPlainBlanks(std::string text) {
  constexpr std::string_view kNoBreakBlank = "\xC2\xA0";
  for (size_t at = text.find(kNoBreakBlank); at != std::string::npos; at = text.find(kNoBreakBlank, at))
    text.replace(at, kNoBreakBlank.size(), " ");
  return text;
}

}  // namespace fiscalon
