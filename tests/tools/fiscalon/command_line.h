#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/temporary_folder.h"

namespace fiscalon {

/// What a command line printed, and how it ended.
struct Outcome {
  int status = -1;
  std::string out = {};
  std::string err = {};
};

/// All screen codes as messages list them: "01, 02, 03" and so on.
std::string EveryScreenCode();

/// A user in a folder of her own, at a shell where `fiscalon` is the program that was built. Not a terminal, English
/// (Canada) by default, and standard input empty.
class CommandLine : public testing::Test {
 protected:
  Outcome Run(const std::string& commandLine) const;

  /// Puts a file into the user's folder.
  void Write(std::string_view name, std::string_view bytes) const { folder_.Write(name, bytes); }
  std::string Read(std::string_view name) const { return folder_.Read(name); }
  std::string Folder() const { return folder_.Path(); }

 private:
  TemporaryFolder folder_;
  TemporaryFolder outputs_;
};

/// A record as a line of a record file: in quotes, with CR LF.
inline std::string Line(const std::string& record) {
  return '"' + record + "\"\r\n";
}

}  // namespace fiscalon
