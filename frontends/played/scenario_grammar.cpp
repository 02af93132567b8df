#include "frontends/played/scenario_grammar.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace fiscalon {
namespace {

constexpr LineForm kHeading = {.words = "scenario", .turn = Turn::Heading, .needed = {&argument::kName}};

/// Calls `visit` with every form that a line can have.
template <class Visitor>
void VisitLineForms(const Visitor& visit) {
  visit(kHeading);
  for (const auto& forms : {HostLines(), UserLines(), ShownExpectations(), HostExpectations()})
    for (const LineForm& form : forms) visit(form);
}

std::string Quoted(std::string_view words) {
  return '"' + std::string(words) + '"';
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return lower;
}

/// How many letters must be put in, taken out or replaced to make one word of the other.
size_t LettersApart(std::string_view a, std::string_view b) {
  std::vector<size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), size_t{0});
  for (const char letter : a) {
    size_t diagonal = row[0]++;
    for (size_t i = 0; i < b.size(); ++i) {
      const size_t replaced = diagonal + (letter == b[i] ? 0 : 1);
      diagonal = row[i + 1];
      row[i + 1] = std::min({replaced, row[i] + 1, row[i + 1] + 1});
    }
  }
  return row.back();
}

/// The words that a line can begin with and that are most like these. Behind "expect" it is the word behind it that was
/// meant otherwise.
std::string_view NearestWords(std::string_view words) {
  // No verb is near to a word that is much longer than any.
  constexpr size_t kLongest = 32;
  const bool expects = words.starts_with("expect ");
  const std::string wanted = Lower(words.substr(0, kLongest));
  std::string_view nearest;
  // Of two words equally near, the one with the same beginning.
  auto least = std::pair(std::string_view::npos, true);
  VisitLineForms([&](const LineForm& form) {
    const std::string_view offered = expects ? form.words : form.words.substr(0, form.words.find(' '));
    const auto apart = std::pair(LettersApart(wanted, offered), wanted.substr(0, 1) != offered.substr(0, 1));
    if (offered.starts_with("expect ") != expects || apart >= least)
      return;
    least = apart;
    nearest = offered;
  });
  return nearest;
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
  if (more > 0)
    usage += " or " + std::to_string(least + more);
  usage += least + more == 1 ? " argument, " : " arguments, ";
  return usage + Names(form.needed) + (more > 0 ? " [" + Names(form.perhaps) + "]" : "");
}

}  // namespace

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
    return Quoted(line.verb) + " is nothing that a scenario can say; did you mean " + Quoted(NearestWords(line.verb)) +
           "?";
  const LineForm& form = *line.form;
  const size_t least = Number(form.needed), count = line.arguments.size();
  if (count != least && count != least + Number(form.perhaps))
    return Quoted(line.verb) + " takes " + Usage(form) + "; here are " + std::to_string(count);
  for (size_t i = 0; i < count; ++i) {
    const ArgumentKind& kind = *(i < least ? form.needed[i] : form.perhaps[i - least]);
    if (kind.fits != nullptr && !kind.fits(line.arguments[i]))
      return Quoted(line.verb) + ": expected " + std::string(kind.wanted) + ", not " + Quoted(line.arguments[i]);
  }
  return form.complaint == nullptr ? std::string() : form.complaint(line.arguments);
}

}  // namespace fiscalon
