#pragma once

#include <string>
#include <vector>

namespace fiscalon {

/// What the system gives a program at its start, and wants of it, made alike everywhere: arguments in UTF-8, with the
/// files that a pattern names; standard streams that pass bytes as they are; a failed write in place of a sudden end.
/// Lives as long as the program runs.
class ProgramStart {
 public:
  ProgramStart(int argc, char** argv);
  ~ProgramStart();
  ProgramStart(const ProgramStart&) = delete;
  ProgramStart& operator=(const ProgramStart&) = delete;

  int Count() const { return static_cast<int>(arguments_.size()) - 1; }
  /// With a null behind the last one, as `main` has them.
  char** Arguments() { return arguments_.data(); }

 private:
  std::vector<std::string> texts_;
  std::vector<char*> arguments_;
  /// How the terminal showed texts before, where programs change it.
  [[maybe_unused]] unsigned terminalBefore_ = 0;
};

/// The folder of the program's own file, in UTF-8; empty where the system does not tell.
std::string FolderOfProgram();

}  // namespace fiscalon
