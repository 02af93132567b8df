#include "frontends/played/scenario_grammar.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "frontends/played/nearest_word.h"

namespace fiscalon {
namespace {

constexpr std::array kHeadings = {
    LineForm{.words = "scenario", .turn = Turn::Heading, .needed = {&argument::kName}},
    LineForm{.words = "screens", .turn = Turn::Heading, .needed = {&argument::kCode}, .more = &argument::kCode},
    LineForm{.words = "name",
             .turn = Turn::Heading,
             .needed = {&argument::kDollarName, &argument::kValue},
             .more = &argument::kValue},
};

/// Calls `visit` with every form that a line can have.
template <class Visitor>
void VisitLineForms(const Visitor& visit) {
  for (const auto& forms :
       {std::span<const LineForm>(kHeadings), HostLines(), UserLines(), ShownExpectations(), HostExpectations()})
    for (const LineForm& form : forms) visit(form);
}

/// The words that a line can begin with and that are most like these. Behind "expect" it is the word behind it that was
/// meant otherwise.
std::string_view NearestWords(std::string_view words) {
  const bool expects = words.starts_with("expect ");
  std::vector<std::string_view> offered;
  VisitLineForms([&](const LineForm& form) {
    if (form.words.starts_with("expect ") == expects)
      offered.push_back(form.words);
  });
  if (!expects)
    offered.emplace_back("expect");
  return NearestWord(words, offered);
}

size_t Number(const LineForm::Kinds& kinds) {
  return static_cast<size_t>(std::find(kinds.begin(), kinds.end(), nullptr) - kinds.begin());
}

std::string Names(const LineForm::Kinds& kinds) {
  std::string names;
  for (size_t i = 0; i < Number(kinds); ++i) names.append(i == 0 ? "" : " ").append(kinds[i]->name);
  return names;
}

/// "2 or 4 arguments, STYLE TEXT [title TITLE]"
std::string Usage(const LineForm& form) {
  const size_t least = Number(form.needed), more = Number(form.perhaps);
  if (least + more == 0)
    return "no arguments";
  std::string usage = std::to_string(least);
  if (form.more != nullptr)
    return usage + " or more arguments, " + Names(form.needed) + "...";
  if (more > 0)
    usage += " or " + std::to_string(least + more);
  usage += least + more == 1 ? " argument, " : " arguments, ";
  return usage + Names(form.needed) + (more > 0 ? " [" + Names(form.perhaps) + "]" : "");
}

}  // namespace

std::string InQuotes(std::string_view words) {
  return '"' + std::string(words) + '"';
}

const LineForm* FindLineForm(std::string_view words) {
  const LineForm* found = nullptr;
  VisitLineForms([&](const LineForm& form) {
    if (form.words == words)
      found = &form;
  });
  return found;
}

std::string ComplaintAbout(const ScenarioLine& line) {
  if (line.verb == "expect")
    return "\"expect\" needs to say what is expected";
  if (line.form == nullptr)
    return InQuotes(line.verb) + " is nothing that a scenario can say; did you mean " +
           InQuotes(NearestWords(line.verb)) + "?";
  const LineForm& form = *line.form;
  const size_t least = Number(form.needed), count = line.arguments.size();
  const bool fits = count == least || count == least + Number(form.perhaps) || (count > least && form.more != nullptr);
  if (!fits)
    return InQuotes(line.verb) + " takes " + Usage(form) + "; here are " + std::to_string(count);
  for (size_t i = 0; i < count; ++i) {
    const ArgumentKind& kind = *(i < least              ? form.needed[i]
                                 : form.more != nullptr ? form.more
                                                        : form.perhaps[i - least]);
    if (kind.fits != nullptr && !kind.fits(line.arguments[i]))
      return InQuotes(line.verb) + ": expected " + std::string(kind.wanted) + ", not " + InQuotes(line.arguments[i]);
  }
  return form.complaint == nullptr ? std::string() : form.complaint(line.arguments);
}

}  // namespace fiscalon
