#include "frontends/played/scenario.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>

#include "core/platform/utf8_path.h"
#include "frontends/played/file_screens.h"
#include "frontends/played/scenario_grammar.h"

namespace fiscalon {
namespace {

constexpr std::string_view kBlanks = " \t\r";

/// Reads the words of one line.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : rest_(line) {}

  /// The next word; false at the end of the line or before a comment.
  bool Next(std::string& word) {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    if (rest_.empty() || rest_.front() == '#')
      return false;
    word = rest_.front() == '"' ? QuotedWord() : PlainWord();
    return true;
  }

 private:
  std::string PlainWord() {
    const size_t end = std::min(rest_.find_first_of(" \t\r#"), rest_.size());
    std::string word(rest_.substr(0, end));
    rest_.remove_prefix(end);
    return word;
  }

  std::string QuotedWord() {
    std::string word;
    for (size_t i = 1; i < rest_.size(); ++i) {
      if (rest_[i] == '"') {
        rest_.remove_prefix(i + 1);
        if (!rest_.empty() && rest_.front() != '#' && kBlanks.find(rest_.front()) == std::string_view::npos)
          throw std::invalid_argument("a closing quote must be followed by a blank");
        return word;
      }
      word += rest_[i] == '\\' ? Escape(++i) : rest_[i];
    }
    throw std::invalid_argument("the closing quote is missing");
  }

  char Escape(size_t at) const {
    constexpr std::string_view kLetters = "\"\\tn";
    constexpr std::string_view kMeanings = "\"\\\t\n";
    const size_t letter = at < rest_.size() ? kLetters.find(rest_[at]) : std::string_view::npos;
    if (letter == std::string_view::npos)
      throw std::invalid_argument("a backslash in quotes must be followed by \", \\, t or n");
    return kMeanings[letter];
  }

  std::string_view rest_;
};

/// The verb of a line is its first word, or "expect" and the word behind it. Nothing for a line that says nothing.
/// Throws `std::invalid_argument`.
std::optional<ScenarioLine> ReadLine(int number, std::string_view source) {
  ScenarioLine line{.number = number, .source = std::string(source.substr(0, source.find_last_not_of(kBlanks) + 1))};
  LineReader reader(source);
  if (!reader.Next(line.verb))
    return std::nullopt;
  std::string word;
  if (line.verb == "expect" && reader.Next(word))
    line.verb += ' ' + word;
  while (reader.Next(word)) line.arguments.push_back(word);
  line.form = FindLineForm(line.verb);
  return line;
}

/// The lines of a file that say something, as its words stand there, up to one that can't be read.
struct FileLines {
  std::vector<ScenarioLine> lines = {};
  std::optional<ScenarioError> unreadable = {};
};

FileLines ReadLines(const std::string& file, std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark))
    text.remove_prefix(kByteOrderMark.size());
  FileLines read;
  for (int number = 1; !text.empty(); ++number) {
    const size_t end = std::min(text.find('\n'), text.size());
    try {
      if (auto line = ReadLine(number, text.substr(0, end)))
        read.lines.push_back(*std::move(line));
    } catch (const std::invalid_argument& error) {
      read.unreadable.emplace(file, number, error.what());
      return read;
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return read;
}

bool BeginsScenario(const ScenarioLine& line) {
  return line.verb == "scenario";
}

/// The lines as they are played for a screen. What is wrong in a file is told of the first line where something is.
std::vector<ScenarioLine> LinesFor(const FileScreen& screen, const std::string& file, const FileLines& read) {
  std::vector<ScenarioLine> lines;
  for (const ScenarioLine& each : read.lines) {
    if (SpeaksOfScreens(each))
      continue;
    ScenarioLine& line = lines.emplace_back(each);
    try {
      if (!BeginsScenario(line))
        for (std::string& argument : line.arguments) argument = WithMeanings(argument, screen);
    } catch (const std::invalid_argument& error) {
      throw ScenarioError(file, line.number, error.what());
    }
    if (const std::string complaint = ComplaintAbout(line); !complaint.empty())
      throw ScenarioError(file, line.number, complaint);
  }
  if (read.unreadable)
    throw ScenarioError(*read.unreadable);
  if (lines.empty())
    throw ScenarioError(file, 1, "the scenario is empty");
  return lines;
}

/// Refuses a name that a scenario of the file has already.
void RefuseSameNames(const std::string& file, const std::vector<Scenario>& scenarios) {
  std::map<std::string_view, int> lines;
  for (const Scenario& scenario : scenarios)
    if (const auto [first, isNew] = lines.emplace(scenario.name, scenario.own.from); !isNew)
      throw ScenarioError(file, scenario.own.from,
                          "line " + std::to_string(first->second) + " has the name \"" + scenario.name +
                              "\" already; each scenario of a file needs its own");
}

/// The scenarios that one screen's lines hold.
std::vector<Scenario> ScenariosOf(const std::string& file, const std::vector<ScenarioLine>& lines) {
  const auto first = std::find_if(lines.begin(), lines.end(), BeginsScenario);
  if (first == lines.end())
    return {{.file = file, .lines = lines}};
  std::vector<Scenario> scenarios;
  for (auto heading = first; heading != lines.end();) {
    const auto next = std::find_if(heading + 1, lines.end(), BeginsScenario);
    if (next == heading + 1)
      throw ScenarioError(file, heading->number, "the scenario \"" + heading->arguments[0] + "\" says nothing");
    Scenario scenario{.file = file, .name = heading->arguments[0]};
    scenario.lines.assign(lines.begin(), first);
    scenario.lines.insert(scenario.lines.end(), heading + 1, next);
    scenario.ahead.to = first->number;
    scenario.own.from = heading->number;
    if (next != lines.end())
      scenario.own.to = next->number;
    scenarios.push_back(std::move(scenario));
    heading = next;
  }
  RefuseSameNames(file, scenarios);
  return scenarios;
}

}  // namespace

std::string Scenario::Label() const {
  const std::string inBrackets = screen.empty() ? std::string() : "(" + screen + ")";
  return name.empty() || screen.empty() ? name + inBrackets : name + " " + inBrackets;
}

std::string Scenario::Title() const {
  return file + (!name.empty() ? ": " : !screen.empty() ? " " : "") + Label();
}

std::vector<Scenario> ParseScenarios(const std::string& file, std::string_view text) {
  const FileLines read = ReadLines(file, text);
  std::vector<Scenario> scenarios;
  for (const FileScreen& screen : ReadFileScreens(file, read.lines))
    for (Scenario& scenario : ScenariosOf(file, LinesFor(screen, file, read))) {
      scenario.screen = screen.code;
      scenarios.push_back(std::move(scenario));
    }
  return scenarios;
}

Scenario ParseScenario(const std::string& file, std::string_view text, std::string_view screen) {
  std::vector<Scenario> scenarios = ParseScenarios(file, text);
  std::erase_if(scenarios, [&](const Scenario& scenario) {
    return !screen.empty() && !scenario.screen.empty() && scenario.screen != screen;
  });
  if (scenarios.empty())
    throw ScenarioError(file, 1, "the scenario is not played for the screen \"" + std::string(screen) + "\"");
  if (scenarios.size() > 1)
    throw ScenarioError(file, scenarios[1].own.from,
                        "one scenario is wanted, and here begins a second one, \"" + scenarios[1].Label() + "\"");
  return std::move(scenarios.front());
}

std::vector<Scenario> ReadScenarios(const std::string& path) {
  std::ifstream file(Utf8Path(path), std::ios::binary);
  std::ostringstream text;
  // A folder opens, and fails when it is read; an empty file gives nothing to copy.
  if (!file.is_open() || (file.peek() != std::ifstream::traits_type::eof() && !(text << file.rdbuf())) || file.bad())
    throw ScenarioError(path, 0, "the file can't be read; give the path of a scenario, a text file");
  return ParseScenarios(path, text.str());
}

std::string QuotedArgument(std::string_view argument) {
  if (!argument.empty() && argument.find_first_of(" \t\r\n\"\\#") == std::string_view::npos)
    return std::string(argument);
  std::string quoted = "\"";
  for (size_t i = 0; i < argument.size(); ++i) {
    const char character = argument[i];
    // A line end is one, however it is written.
    if (character == '\r' && argument.substr(i).starts_with("\r\n"))
      continue;
    if (character == '"' || character == '\\')
      quoted += '\\';
    quoted += character == '\t'                        ? std::string("\\t")
              : character == '\n' || character == '\r' ? std::string("\\n")
                                                       : std::string(1, character);
  }
  return quoted + '"';
}

}  // namespace fiscalon
