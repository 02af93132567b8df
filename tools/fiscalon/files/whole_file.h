#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tools/fiscalon/files/file_places.h"
#include "tools/fiscalon/files/interrupt_watch.h"

namespace fiscalon {

/// Every file that a command writes: it is whole, or its place is untouched. It is written in the folder of its place,
/// under a name that only this run has, and takes its place when it is done and on the disk. Whatever ends the program
/// before takes it away, an interrupt too, which makes the next write fail; what a run leaves that was killed, the next
/// one in that folder takes away. Failures throw `CommandError`.
///
/// A symbolic link stays one: the file that it leads to is written. A device or a pipe stays what it is too, and is
/// written as it comes.
class WholeFile {
 public:
  /// What becomes of a file that has the name already.
  enum class Older { Replaced, Refused };
  /// Whether it may turn out to be empty. Mostly that is a mistake, which is to cost nobody an older file.
  enum class Empty { Allowed, Refused };

  /// A name as the user gives it; "-" is standard output. The inputs are what the command reads, "-" for standard
  /// input: none of them can be the place.
  explicit WholeFile(std::string name, const std::vector<std::string>& inputs = {}, Older older = Older::Replaced,
                     Empty empty = Empty::Refused);
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  bool IsStandardOutput() const { return isStandardOutput_; }
  void Write(std::string_view bytes);
  /// Puts the file into its place.
  void Commit() { Commit(std::vector<WholeFile*>{this}); }
  /// Puts all files into their places, or none: where one fails the others are as they were.
  static void Commit(const std::vector<WholeFile*>& files);

  /// Finds out whether a file could be written there, and leaves nothing.
  static void Try(const std::string& name);
  /// Whether two names mean one file, be it there or not; "-" is standard output. Devices are never one another's
  /// place.
  static bool IsSamePlace(const std::string& a, const std::string& b);

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void RefuseInput(const std::string& input) const;
  void OpenBeside(bool hasOlder);
  void OpenInPlace();
  /// Has everything on the disk, under the name of this run.
  void Finish();
  enum class Return { Possible, Unneeded };
  void TakePlace(Return way);
  void KeepOlder();
  /// Puts back what stood in the place.
  void GiveBack();
  [[noreturn]] void Fail() const;

  InterruptWatch watch_;
  std::string name_;
  /// Where the links lead.
  std::string place_;
  Older older_;
  Empty empty_;
  bool isStandardOutput_ = false;
  bool isWrittenTo_ = false;
  /// The file while it is written, and what stood in its place while it takes it.
  std::unique_ptr<FleetingFile> beside_;
  std::unique_ptr<FleetingFile> before_;
  std::unique_ptr<Claim> claim_;
  bool hasPlace_ = false;
  std::unique_ptr<std::FILE, Closer> file_;
};

}  // namespace fiscalon
