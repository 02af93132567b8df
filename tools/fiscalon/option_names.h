#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/fiscalon/nearest.h"

/// Checks of what options are given. Each answers the complaint, or nothing.
namespace fiscalon {

/// Of options that name a file or a folder: an empty name, as an unset variable gives, is none.
inline std::string NameGiven(const std::string& name) {
  return name.empty() ? "a name is needed, and it is empty" : "";
}

/// Of options that name files without their endings: a folder alone would make hidden files of these.
inline std::string NameStemGiven(const std::string& name) {
  const std::string last = std::filesystem::path(name).filename().string();
  if (!name.empty() && (last.empty() || last == "." || last == ".."))
    return "a name is needed behind the folder \"" + name + "\"";
  return NameGiven(name);
}

/// Of options that take one of a few words.
class OneOf {
 public:
  explicit OneOf(std::vector<std::string> known) : known_(std::move(known)) {}

  std::string operator()(const std::string& given) const {
    std::string all;
    for (const std::string& each : known_) {
      if (each == given)
        return {};
      all.append(all.empty() ? "" : ", ").append(each);
    }
    return "\"" + given + "\" is none of " + all + DidYouMean(given, known_);
  }

 private:
  std::vector<std::string> known_;
};

}  // namespace fiscalon
