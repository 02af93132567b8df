#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frontends/played/scenario.h"

/// A file that is played for several screens says what each `$NAME` stands for on each of them.
namespace fiscalon {

/// One of the screens for which a file is played.
struct FileScreen {
  /// Empty for a file that names no screens.
  std::string code = {};
  /// What its names stand for, each with its dollar.
  std::map<std::string, std::string, std::less<>> meanings = {};
};

/// Whether a line says for which screens its file is played, or what a name stands for there.
bool SpeaksOfScreens(const ScenarioLine& line);

/// The screens that a file's lines name, in their order; one without a code where they name none. Throws
/// `ScenarioError`.
std::vector<FileScreen> ReadFileScreens(const std::string& file, std::span<const ScenarioLine> lines);

/// A text with what its names stand for on a screen. `$TMP` stays: it is of each scenario. Throws
/// `std::invalid_argument` for a name that stands for nothing there.
std::string WithMeanings(std::string_view text, const FileScreen& screen);

}  // namespace fiscalon
