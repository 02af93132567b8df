#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/platform/date.h"
#include "core/platform/locale.h"
#include "core/wording/language.h"
#include "tools/fiscalon/files/program_end.h"

namespace fiscalon {

/// Colours for standard output. Without them every text comes back as it is.
class Paint {
 public:
  explicit Paint(bool on) : on_(on) {}

  std::string Good(std::string_view text) const { return In("32", text); }
  std::string Bad(std::string_view text) const { return In("31", text); }
  std::string Heading(std::string_view text) const { return In("1", text); }
  std::string Aside(std::string_view text) const { return In("2", text); }
  // The same of what stands in a text from a place on.
  void Heading(std::string& text, size_t from) const { PaintFrom("1", text, from); }
  void Aside(std::string& text, size_t from) const { PaintFrom("2", text, from); }

 private:
  std::string In(std::string_view code, std::string_view text) const;
  void PaintFrom(std::string_view code, std::string& text, size_t from) const {
    if (!on_)
      return;
    const std::string painted = In(code, std::string_view(text).substr(from));
    text.resize(from);
    text += painted;
  }

  bool on_;
};

/// What all commands share: the global options, and what a command leaves behind. Texts are UTF-8.
struct Context {
  /// The whole command line, as `main` was given it.
  char** arguments = nullptr;
  /// --today; without it the real clock.
  std::optional<DateTime> today = {};
  /// --locale; empty where it was not given.
  std::string localeName = {};
  /// --language; empty where it was not given.
  std::string languageName = {};
  Paint paint = Paint(false);
  ExitStatus status = ExitStatus::Done;

  /// The locale in which the command speaks: --locale, or the user's own.
  std::string_view SpokenLocaleName() const;
  Locale SpokenLocale() const;
  /// The language of forms: --language, or English.
  Language ShownLanguage() const;
  /// Gives the module that locale and language, and the clock of --today.
  void SetUpModule() const;
};

/// Whether standard output is a terminal that is to be written to in colour. NO_COLOR, not empty, says no.
bool ColourIsWanted();

/// Writes a line to standard error, behind what standard output was given before.
void Complain(std::string_view line);

}  // namespace fiscalon
