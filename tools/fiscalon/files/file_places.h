#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

/// What `WholeFile` asks of the system about names and what they stand for. Paths are UTF-8. What fails says so by
/// its result and leaves the reason in `errno`.
namespace fiscalon {

enum class FileKind { None, File, Folder, Pipe, Device };

/// What a path stands for, and which of all files it is.
struct SeenFile {
  FileKind kind = FileKind::None;
  uint64_t volume = 0;
  uint64_t number = 0;

  bool IsSameFile(const SeenFile& other) const { return volume == other.volume && number == other.number; }
  /// What is written there is written as it comes, and nothing takes its place.
  bool TakesAsItComes() const { return kind == FileKind::Pipe || kind == FileKind::Device; }
};

/// Follows links. Nothing where it can't be told.
std::optional<SeenFile> LookAt(const std::string& path);
/// Looks at a path, if there is anything, and has a network folder ask its server rather than remember. It may take as
/// long as that does not answer.
void LookAfresh(const std::string& path);
/// What is behind the stream that all programs are given.
std::optional<SeenFile> LookAtStandardInput();
std::optional<SeenFile> LookAtStandardOutput();

/// How many bytes standard output takes in one step, so that no interrupt can cut them: of a pipe what it has room for.
size_t OutputTakesAtOnce();
/// Has standard output take that many bytes in one step where it is a pipe and the system lets it. Who writes the pipe
/// and who reads it then take turns less often.
void WidenOutput(size_t bytes);
/// Takes the last bytes off standard output again, where that is a file.
void TakeOutputBack(size_t count);

/// Whether a path is the system's own name of standard output.
bool NamesStandardOutput(const std::string& path);
/// Where the links of a path lead: the place of a file that may not exist yet. A pipe or a device is where it is.
/// Nothing where they lead in a circle.
std::optional<std::string> PlaceOf(const std::string& path);
/// Whether two paths, which may stand for nothing yet, mean the same place.
bool IsSameName(const std::string& a, const std::string& b);

bool MayBeWritten(const std::string& path);
/// Makes a file for writing; fails with EEXIST where the name is taken.
std::FILE* CreateNew(const std::string& path);
/// Holds on to a file that `CreateNew` has made, also when it is closed: while this lives, nobody takes it for one that
/// a run has left behind.
class Claim {
 public:
  explicit Claim(std::FILE* file);
  ~Claim();
  Claim(const Claim&) = delete;
  Claim& operator=(const Claim&) = delete;

 private:
  int descriptor_ = -1;
};
/// Takes away those files whose names begin so which runs have made with `CreateNew` and left behind, since nothing
/// could end them in order.
void RemoveAbandoned(const std::string& folder, std::string_view namesBegin);

/// Opens what is there for writing, and leaves it as long as it is.
std::FILE* OpenThere(const std::string& path);
/// Whoever could read the older file can read the new one, as far as this user may give it away.
void GiveAccess(const std::string& older, std::FILE* newer);
/// Has what was written on the disk.
bool FlushToDisk(std::FILE* file);

/// Gives one name to a file that has another, in the place of whatever has it.
bool MoveOver(const std::string& from, const std::string& to);
/// The same, unless that name is taken: then it fails with EEXIST.
bool MoveUnlessTaken(const std::string& from, const std::string& to);
/// Gives a file a second name, or where that is not possible another one.
bool MoveAside(const std::string& from, const std::string& to);
bool Remove(const std::string& path);

}  // namespace fiscalon
