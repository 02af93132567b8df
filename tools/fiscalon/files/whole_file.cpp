#include "tools/fiscalon/files/whole_file.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <optional>
#include <random>
#include <utility>

#include "core/platform/utf8_path.h"
#include "tools/fiscalon/files/file_places.h"
#include "tools/fiscalon/files/program_end.h"

namespace fiscalon {
namespace {

// What the names of files begin with that are being written, and of those whose places these take.
constexpr std::string_view kUnfinished = ".fiscalon-new-";
constexpr std::string_view kOlder = ".fiscalon-old-";

/// A name in the folder of a file that nobody else has: short, whatever the length of the file's own.
std::string NameBeside(const std::string& place, std::string_view beginning) {
  constexpr std::string_view kLetters = "0123456789abcdefghijklmnopqrstuvwxyz";
  constexpr int kLength = 12;
  static std::random_device random;
  std::string name(beginning);
  for (int i = 0; i < kLength; ++i) name += kLetters[random() % kLetters.size()];
  return Utf8Of(Utf8Path(place).parent_path() / name);
}

bool IsStandardOutputs(const std::string& name) {
  return name == "-" || NamesStandardOutput(name);
}

std::optional<SeenFile> LookAtOutput(const std::string& name) {
  return IsStandardOutputs(name) ? LookAtStandardOutput() : LookAt(name);
}

[[noreturn]] void RefuseOlder(const std::string& name) {
  throw CommandError(name + " exists already; --force replaces it");
}

}  // namespace

WholeFile::WholeFile(std::string name, const std::vector<std::string>& inputs, Older older, Empty empty)
    : name_(std::move(name)), older_(older), empty_(empty), isStandardOutput_(IsStandardOutputs(name_)) {
  for (const std::string& input : inputs) RefuseInput(input);
  if (isStandardOutput_)
    return;
  const std::optional<std::string> place = PlaceOf(name_);
  if (!place)
    Fail();
  place_ = *place;
  const std::optional<SeenFile> there = LookAt(place_);
  if (!there)
    Fail();
  if (there->kind == FileKind::Folder) {
    errno = EISDIR;
    Fail();
  }
  if (there->kind != FileKind::None && older_ == Older::Refused)
    RefuseOlder(name_);
  if (there->TakesAsItComes())
    OpenInPlace();
  else
    OpenBeside(there->kind == FileKind::File);
  // Whoever writes here does so in large pieces, which a buffer would cut up.
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

WholeFile::~WholeFile() = default;

void WholeFile::RefuseInput(const std::string& input) const {
  const std::optional<SeenFile> in = input == "-" ? LookAtStandardInput() : LookAt(input);
  const std::optional<SeenFile> out = LookAtOutput(name_);
  if (in && out && in->kind == FileKind::File && in->IsSameFile(*out))
    throw CommandError((isStandardOutput_ ? "standard output" : name_) + " would take the place of " +
                       (input == "-" ? "standard input" : input) + ", which is read");
}

void WholeFile::OpenBeside(bool hasOlder) {
  // A file that may not be written to is not replaced either.
  if (hasOlder && !MayBeWritten(place_))
    Fail();
  auto fleeting = std::make_unique<FleetingFile>();
  RemoveAbandoned(Utf8Of(Utf8Path(place_).parent_path()), kUnfinished);
  std::string beside;
  do {
    beside = NameBeside(place_, kUnfinished);
    file_.reset(CreateNew(beside));
  } while (!file_ && errno == EEXIST);
  if (!file_ && errno != ENOENT) {
    const std::string reason = std::strerror(errno);
    throw CommandError(name_ + " can't be written: its folder takes no new file: " + reason);
  }
  if (!file_)
    Fail();
  fleeting->Become(std::move(beside));
  beside_ = std::move(fleeting);
  claim_ = std::make_unique<Claim>(file_.get());
  if (hasOlder)
    GiveAccess(place_, file_.get());
}

void WholeFile::OpenInPlace() {
  file_.reset(OpenThere(place_));
  if (!file_)
    Fail();
}

void WholeFile::Fail() const {
  const int reason = errno;
  if (IsInterrupted())
    throw CommandError("interrupted");
  throw CommandError(name_ + " can't be written: " + std::strerror(reason));
}

void WholeFile::Write(std::string_view bytes) {
  if (IsInterrupted())
    throw CommandError("interrupted");
  isWrittenTo_ = isWrittenTo_ || !bytes.empty();
  if (isStandardOutput_)
    std::cout << bytes;
  else if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size())
    Fail();
}

void WholeFile::Finish() {
  if (!isWrittenTo_ && empty_ == Empty::Refused)
    throw CommandError(name_ + " is not written: it would be empty");
  if (isStandardOutput_) {
    std::cout.flush();
    return;
  }
  if (std::fflush(file_.get()) != 0)
    Fail();
  // Devices have nothing to wait for.
  if (beside_ && !FlushToDisk(file_.get()))
    Fail();
  if (std::fclose(file_.release()) != 0)
    Fail();
}

void WholeFile::TakePlace(Return way) {
  if (!beside_)
    return;
  if (older_ == Older::Refused) {
    if (!MoveUnlessTaken(beside_->Path(), place_)) {
      if (errno == EEXIST)
        RefuseOlder(name_);
      Fail();
    }
  } else {
    if (way == Return::Possible)
      KeepOlder();
    if (!MoveOver(beside_->Path(), place_))
      Fail();
  }
  beside_->Keep();
  claim_.reset();
  hasPlace_ = true;
}

void WholeFile::KeepOlder() {
  auto fleeting = std::make_unique<FleetingFile>();
  std::string before = NameBeside(place_, kOlder);
  if (MoveAside(place_, before)) {
    fleeting->Become(std::move(before));
    before_ = std::move(fleeting);
  } else if (errno != ENOENT) {
    Fail();
  }
}

void WholeFile::GiveBack() {
  if (before_ && !MoveOver(before_->Path(), place_))
    before_->Keep();
  else if (!before_ && hasPlace_)
    Remove(place_);
}

void WholeFile::Commit(const std::vector<WholeFile*>& files) {
  for (WholeFile* const file : files) file->Finish();
  if (IsInterrupted())
    throw CommandError("interrupted");
  const HeldOff together;
  try {
    for (WholeFile* const file : files) file->TakePlace(files.size() > 1 ? Return::Possible : Return::Unneeded);
  } catch (...) {
    for (WholeFile* const file : files) file->GiveBack();
    throw;
  }
  for (WholeFile* const file : files) file->before_.reset();
}

void WholeFile::Try(const std::string& name) {
  const std::optional<std::string> place = PlaceOf(name);
  const std::optional<SeenFile> there = place ? LookAt(*place) : std::nullopt;
  // Opening a pipe would wait for its reader, and what is written to a device stays there.
  if (there && there->TakesAsItComes()) {
    if (!MayBeWritten(*place))
      throw CommandError(name + " can't be written: " + std::strerror(errno));
    return;
  }
  const WholeFile tried(name);
  if (IsInterrupted())
    throw CommandError("interrupted");
}

bool WholeFile::IsSamePlace(const std::string& a, const std::string& b) {
  if (IsStandardOutputs(a) && IsStandardOutputs(b))
    return true;
  const std::optional<SeenFile> one = LookAtOutput(a), other = LookAtOutput(b);
  const auto isThere = [](const std::optional<SeenFile>& seen) { return seen && seen->kind != FileKind::None; };
  if (isThere(one) && isThere(other))
    return one->kind != FileKind::Device && one->IsSameFile(*other);
  return !IsStandardOutputs(a) && !IsStandardOutputs(b) && IsSameName(a, b);
}

}  // namespace fiscalon
