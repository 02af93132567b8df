#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/platform/files.h"
#include "core/platform/runtime_error.h"
#include "tests/faults/fault_lasts.h"

namespace fiscalon {

enum class FileStep { Exists, Delete, Open, Print, Close };

/// How a step fails.
struct FileFailure {
  int32_t number = error_number::kDiskFull;
  /// The question whether a file exists is answered with no, as where a folder has vanished, instead of failing.
  bool hides = false;
  /// A print leaves half of its bytes behind.
  bool tears = false;
};

/// Files in memory whose n-th step fails.
class FaultyFiles : public Files {
 public:
  struct Step {
    FileStep what = FileStep::Exists;
    std::string path = {};

    bool operator==(const Step&) const = default;
  };

  /// The n-th step from here on fails, 1 for the next one.
  void FailAt(size_t nth, const FileFailure& failure, FaultLasts lasts = FaultLasts::Once) {
    steps.clear();
    fault_ = {.nth = nth, .failure = failure, .lasts = lasts};
  }
  void Mend() { FailAt(0, {}); }
  /// Whether the step that was to fail has come.
  bool HasFailed() const { return fault_.nth != 0 && steps.size() >= fault_.nth; }

  bool Exists(std::string_view path) const override {
    if (const FileFailure* failure = Take(FileStep::Exists, path)) {
      if (failure->hides)
        return false;
      Raise(failure->number);
    }
    return contents.contains(std::string(path));
  }

  void Delete(std::string_view path) override {
    MayFail(FileStep::Delete, path);
    NoteSharing(path);
    if (contents.erase(std::string(path)) == 0)
      Raise(error_number::kFileNotFound);
  }

  std::unique_ptr<OutputFile> Open(std::string_view path, OpenMode mode) override {
    MayFail(FileStep::Open, path);
    NoteSharing(path);
    std::string& content = contents[std::string(path)];
    if (mode == OpenMode::Output)
      content.clear();
    return std::make_unique<File>(*this, std::string(path));
  }

  std::optional<std::string> Content(const std::string& path) const {
    const auto found = contents.find(path);
    return found == contents.end() ? std::nullopt : std::optional(found->second);
  }

  std::map<std::string, std::string> contents;
  /// What was asked for since the last `FailAt`, the steps that failed among it.
  mutable std::vector<Step> steps;
  /// The files that are open, by path. One whose closing fails stays open until its object goes.
  std::vector<std::string> open;
  /// A file was deleted or opened while it was open.
  bool shared = false;

 private:
  struct Fault {
    size_t nth = 0;
    FileFailure failure = {};
    FaultLasts lasts = FaultLasts::Once;
  };

  class File : public OutputFile {
   public:
    File(FaultyFiles& files, std::string path) : files_(files), path_(std::move(path)) { files_.open.push_back(path_); }
    ~File() override { MarkClosed(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    void Print(std::string_view bytes) override {
      std::string& content = files_.contents[path_];
      if (const FileFailure* failure = files_.Take(FileStep::Print, path_)) {
        if (failure->tears)
          content += bytes.substr(0, bytes.size() / 2);
        Raise(failure->number);
      }
      content += bytes;
    }

    void Close() override {
      if (!isOpen_)
        return;
      files_.MayFail(FileStep::Close, path_);
      MarkClosed();
    }

   private:
    void MarkClosed() {
      if (std::exchange(isOpen_, false))
        files_.open.erase(std::find(files_.open.begin(), files_.open.end(), path_));
    }

    FaultyFiles& files_;
    std::string path_;
    bool isOpen_ = true;
  };

  /// Counts a step, and tells how it fails if it does.
  const FileFailure* Take(FileStep what, std::string_view path) const {
    steps.push_back({what, std::string(path)});
    const bool fails =
        fault_.lasts == FaultLasts::Once ? steps.size() == fault_.nth : fault_.nth != 0 && steps.size() >= fault_.nth;
    return fails ? &fault_.failure : nullptr;
  }
  void MayFail(FileStep what, std::string_view path) const {
    if (const FileFailure* failure = Take(what, path))
      Raise(failure->number);
  }
  void NoteSharing(std::string_view path) {
    shared = shared || std::find(open.begin(), open.end(), path) != open.end();
  }

  Fault fault_;
};

}  // namespace fiscalon
