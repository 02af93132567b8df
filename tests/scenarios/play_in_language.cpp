#include "tests/scenarios/play_in_language.h"

#include <algorithm>
#include <cctype>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/laid_out.h"
#include "core/forms/list_control.h"
#include "core/launch.h"
#include "core/platform/code_page.h"
#include "core/screen.h"
#include "core/wording/catalogue.h"
#include "core/wording/wording.h"
#include "frontends/played/scenario_player.h"
#include "frontends/played/seen_things.h"

namespace fiscalon {
namespace {

/// The texts that a form showed without words.
std::set<std::string>& WithoutWords() {
  static std::set<std::string> texts;
  return texts;
}

/// How many scenarios typed the letters of English rows, and were not played to their end by that.
int& Excused() {
  static int scenarios = 0;
  return scenarios;
}

/// The language of the catalogue that is played.
Language& Tested() {
  static Language language;
  return language;
}

std::optional<std::string> WordsOrNoted(std::string_view english) {
  auto words = Tested().wordsFor(english);
  if (!words)
    WithoutWords().emplace(english);
  return words;
}

std::optional<std::string> Twice(std::string_view english) {
  std::string again(english);
  std::erase(again, '&');
  return std::string(english) + " " + again;
}

bool HasLetters(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; });
}

/// English as the catalogue composes it, put together from its texts again.
class Recomposer {
 public:
  Recomposer() {
    for (const CatalogueText& text : Catalogue()) {
      const std::string english = FromUtf8(text.english);
      // A scenario has one kind of line end.
      const std::string key = WithPlainLineEnds(english);
      if (PlacesIn(english) == 0)
        plain_.emplace(key, english);
      else if (HasLetters(WithoutPlaces(english)) || english == "{1}.")
        templates_.emplace(key, english);
    }
  }

  Wording Of(const std::string& english) const {
    if (const auto plain = plain_.find(english); plain != plain_.end())
      return std::string_view(plain->second);
    for (size_t i = 1; i < english.size(); ++i)
      if (plain_.contains(english.substr(0, i)) && plain_.contains(english.substr(i)))
        return Filled("{1}{2}", Of(english.substr(0, i)), Of(english.substr(i)));
    std::optional<Wording> best;
    size_t most = 0;
    for (const auto& [text, whole] : templates_) {
      const size_t literal = text.size() - 3 * PlacesIn(text);
      if (best && literal <= most)
        continue;
      std::vector<std::string> held(PlacesIn(text));
      if (!Fits(text, english, held))
        continue;
      std::vector<Wording> places;
      for (const std::string& each : held) places.push_back(Of(each));
      // A sentence that ends in a place, and its full stop.
      best = text.ends_with('}') && english.ends_with('.') ? Filled("{1}.", Of(english.substr(0, english.size() - 1)))
                                                           : Filled(whole, places);
      most = literal;
    }
    return best ? *best : AsGiven(english);
  }

 private:
  static std::string WithoutPlaces(std::string text) {
    for (size_t at = text.find('{'); at != std::string::npos; at = text.find('{')) text.erase(at, 3);
    return text;
  }

  static size_t PlacesIn(std::string_view text) {
    size_t most = 0;
    for (size_t i = 0; i + 2 < text.size(); ++i)
      if (text[i] == '{' && text[i + 2] == '}')
        most = std::max(most, static_cast<size_t>(text[i + 1] - '0'));
    return most;
  }

  /// Whether the text, with what is found for its places, reads like that.
  static bool Fits(std::string_view text, std::string_view english, std::vector<std::string>& held) {
    if (text.empty())
      return english.empty();
    if (text.front() != '{')
      return !english.empty() && english.front() == text.front() && Fits(text.substr(1), english.substr(1), held);
    const auto place = static_cast<size_t>(text[1] - '1');
    const std::string_view rest = text.substr(3);
    if (!held[place].empty())
      return english.starts_with(held[place]) && Fits(rest, english.substr(held[place].size()), held);
    for (size_t length = 1; length <= english.size(); ++length) {
      auto tried = held;
      tried[place] = std::string(english.substr(0, length));
      if (Fits(rest, english.substr(length), tried)) {
        held = tried;
        return true;
      }
    }
    return false;
  }

  std::map<std::string, std::string> plain_;
  std::map<std::string, std::string> templates_;
};

/// One scenario as a user of another language would have written it.
class Translated {
 public:
  Translated(Scenario scenario, const Language& language) : scenario_(std::move(scenario)), language_(language) {
    for (ScenarioLine& line : scenario_.lines) Translate(line);
  }
  const Scenario& Get() const { return scenario_; }

 private:
  void Translate(ScenarioLine& line) {
    auto& arguments = line.arguments;
    if (line.verb == "show") {
      const LaunchRow* const row = FindLaunchRow(arguments[0]);
      form_ = row == nullptr ? nullptr : row->make();
    } else if (line.verb == "expect message") {
      for (size_t i = 1; i < arguments.size(); i += 2) Put(arguments[i]);
    } else if (line.verb == "expect title") {
      Put(arguments[0]);
    } else if ((line.verb == "expect text" || line.verb == "choose") && IsWorded(arguments[0])) {
      Put(arguments[1]);
    } else if (line.verb == "key" && arguments[0].starts_with("Alt+")) {
      arguments[0].back() = AccessKeyFor(arguments[0].back());
    }
  }

  void Put(std::string& english) const {
    static const Recomposer recomposer;
    english = ToUtf8(recomposer.Of(FromUtf8(english)).In(language_));
  }

  /// Fields hold what the user types.
  bool IsWorded(const std::string& name) const {
    const Control* const control = form_ == nullptr ? nullptr : form_->FindControl(name);
    return control != nullptr && control->Kind() != ControlKind::TextField;
  }

  char AccessKeyFor(char english) const {
    if (form_ == nullptr)
      return english;
    for (const Control* control : form_->Controls())
      if (const auto* button = dynamic_cast<const AnyButton*>(control);
          button != nullptr && AccessKey(button->DesignedCaption().English()) == english)
        return static_cast<char>(AccessKey(button->DesignedCaption().In(language_)));
    return english;
  }

  Scenario scenario_;
  Language language_;
  std::shared_ptr<Form> form_;
};

/// All that a form shows, asked for as a front end would. What reads the same in English must be the host's or the
/// user's own, which the scenario's lines tell.
class Shown {
 public:
  Shown(Form& form, const Scenario& scenario, const Language& language) : language_(language) {
    for (const ScenarioLine& line : scenario.lines)
      for (const std::string& argument : line.arguments) told_ += argument + '\n';
    Look(form.WordedCaption());
    for (const Control* control : form.Controls()) {
      if (const auto* captioned = dynamic_cast<const Captioned*>(control))
        Look(captioned->WordedCaption());
      if (const auto* list = dynamic_cast<const ListControl*>(control))
        for (int row = 0; row < list->ListCount(); ++row) Look(list->List(row), list->ShownRow(row));
    }
    LaidOut(form);
    StatusOf(form);
  }

  const std::set<std::string>& Bypassing() const { return bypassing_; }

 private:
  void Look(const Wording& wording) { Look(wording.English(), wording.In(language_)); }
  void Look(const std::string& english, const std::string& words) {
    if (english != words || !HasLetters(english) || language_.name != "long")
      return;
    std::string word;
    for (const char c : english + " ") {
      if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
        word += c;
        continue;
      }
      // The codes of provinces are the same in every language.
      if (HasLetters(word) && word.size() != 2 && told_.find(ToUtf8(word)) == std::string::npos)
        bypassing_.insert(english);
      word.clear();
    }
  }

  Language language_;
  std::string told_;
  std::set<std::string> bypassing_;
};

int Play(DrivenToolkit& toolkit, const Scenario& english, const Language& language) {
  const Translated translated(english, language);
  const Scenario& scenario = translated.Get();
  std::set<std::string> bypassing;
  PlayWatcher watcher;
  bool isAtList = false;
  bool typesInAList = false;
  watcher.lineBegins = [&](const ScenarioLine& line) {
    typesInAList = typesInAList || (isAtList && line.verb == "type");
  };
  watcher.lineEnds = [&](const ScenarioLine& /*line*/, Form* form) {
    isAtList = form != nullptr && dynamic_cast<const ListControl*>(form->ActiveControl()) != nullptr;
    if (form != nullptr)
      bypassing.merge(std::set(Shown(*form, english, language).Bypassing()));
  };
  const PlayResult result = ScenarioPlayer(toolkit, {.language = language}, watcher).Play(scenario);
  // The letters of its rows are others, but for what is made up of the same twice.
  const bool excused = !result.passed && typesInAList && language.name != "long";
  Excused() += excused ? 1 : 0;
  const bool passed = result.passed || excused;
  if (!passed)
    std::cerr << scenario.Title() << '\n'
              << scenario.file << ':' << result.line << ": expected " << result.expected << "\n  but saw "
              << result.seen << '\n';
  for (const std::string& text : bypassing)
    std::cerr << scenario.Title() << "\nshown, but of neither catalogue nor host: " << ToUtf8(text) << '\n';
  return passed && bypassing.empty() ? 0 : 1;
}

/// It names a language itself.
bool IsOfOneLanguage(const Scenario& scenario) {
  for (const ScenarioLine& line : scenario.lines)
    if (line.verb == "language")
      return true;
  return false;
}

}  // namespace

int PlayInLanguage(DrivenToolkit& toolkit, std::span<const std::string> arguments) {
  const std::string name = arguments.empty() ? "" : arguments.front();
  const std::optional<Language> named = NamedLanguage(name);
  if (name != "long" && (!named || named->IsEnglish())) {
    std::cerr << "no language " << name << " to play in\n";
    return 2;
  }
  Tested() = named.value_or(Language{});
  const Language language = {name, named ? WordsOrNoted : Twice};
  int status = arguments.size() < 2 ? 2 : 0;
  size_t played = 0;
  for (size_t i = 1; i < arguments.size(); ++i)
    for (const Scenario& scenario : ReadScenarios(arguments[i])) {
      if (IsOfOneLanguage(scenario))
        continue;
      ++played;
      status = std::max(status, Play(toolkit, scenario, language));
    }
  for (const std::string& text : WithoutWords()) {
    std::cerr << "no " << name << " words: " << ToUtf8(text) << '\n';
    status = 1;
  }
  std::cerr << played << " scenarios in " << name << ", of which " << Excused() << " type in a list and end there\n";
  return status;
}

}  // namespace fiscalon
