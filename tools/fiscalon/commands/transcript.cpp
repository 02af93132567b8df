#include "tools/fiscalon/commands/transcript.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

#include "frontends/played/seen_things.h"

namespace fiscalon {
namespace {

constexpr std::string_view kEventMargin = "              ";

std::string_view NameOf(MessageAnswer answer) {
  switch (answer) {
    case MessageAnswer::Ok:
      return "OK";
    case MessageAnswer::Cancel:
      return "Cancel";
    case MessageAnswer::Yes:
      return "Yes";
    default:
      return "No";
  }
}

}  // namespace

std::string_view SourceOf(const ScenarioLine& line) {
  const std::string_view source = line.source;
  return source.substr(std::min(source.find_first_not_of(" \t"), source.size()));
}

PlayWatcher TranscriptTo(std::ostream& out) {
  const auto event = [&out](const std::string& what) { out << kEventMargin << what << '\n'; };
  return {.lineBegins =
              [&out](const ScenarioLine& line) {
                constexpr int kNumberWidth = 8;
                out << std::setw(kNumberWidth) << line.number << "  " << SourceOf(line) << '\n';
              },
          .handlerRuns = event,
          .boxAnswered = [event](const BoxRequest& box, MessageAnswer answer,
                                 Form*) { event(DescribedBox(box).append(", answered ").append(NameOf(answer))); },
          .noticed = event,
          .statusCame = [event](const std::string& status) { event("status \"" + status + "\""); },
          .showEnded = event};
}

}  // namespace fiscalon
