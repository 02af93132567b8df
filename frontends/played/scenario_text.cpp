#include "frontends/played/scenario_text.h"

#include <array>
#include <iterator>

#include "core/platform/code_page.h"
#include "frontends/played/scenario.h"
#include "frontends/played/seen_things.h"

namespace fiscalon {
namespace {

std::string NameOf(MessageAnswer answer) {
  constexpr std::array kNames = {"OK", "Cancel", "Yes", "No"};
  return kNames[static_cast<size_t>(answer)];
}

}  // namespace

std::string QuotedFromCodePage(std::string_view text) {
  return QuotedArgument(ToUtf8(text));
}

void ScenarioText::BeginInPlaceOf(const std::string& replaced, const std::string& line) {
  if (!steps_.empty() && steps_.back().line == replaced)
    steps_.back().line = line;
  else
    Begin(line);
}

void ScenarioText::InsertBeforeLast(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) steps_.insert(std::prev(steps_.end()), {.line = line});
}

void ScenarioText::Type(char character, Typing how) {
  const bool goesOn = how == Typing::GoesOn && !steps_.empty() && !steps_.back().typed.empty() &&
                      steps_.back().boxes.empty() && steps_.back().expected.empty();
  if (!goesOn)
    Begin("type ");
  steps_.back().typed += character;
}

void ScenarioText::Answered(const BoxRequest& box, MessageAnswer answer) {
  if (steps_.empty())
    return;
  steps_.back().boxes.push_back(box);
  steps_.back().answers.push_back(answer);
  Expect("expect " + DescribedBox(box));
}

void ScenarioText::Expect(const std::string& line) {
  if (!steps_.empty())
    steps_.back().expected.push_back(line);
}

std::string ScenarioText::Text() const {
  std::string text;
  for (const Step& step : steps_) {
    text += AnswersTo(step);
    text += step.line + (step.typed.empty() ? "" : QuotedFromCodePage(step.typed)) + "\n";
    for (const std::string& line : step.expected) text += line + "\n";
  }
  return text;
}

/// Boxes get their default answers by themselves, but not one that is followed by another answer.
std::string ScenarioText::AnswersTo(const Step& step) {
  size_t given = 0;
  for (size_t i = 0; i < step.boxes.size(); ++i)
    if (step.answers[i] != step.boxes[i].DefaultAnswer())
      given = i + 1;
  std::string lines;
  for (size_t i = 0; i < given; ++i) lines += "answer " + NameOf(step.answers[i]) + "\n";
  return lines;
}

}  // namespace fiscalon
