#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "core/platform/files.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

/// Files in memory, on a disk that may be full.
class MemoryFiles : public Files {
 public:
  bool Exists(std::string_view path) const override { return contents.contains(std::string(path)); }

  void Delete(std::string_view path) override {
    if (deletingFails)
      Raise(error_number::kPermissionDenied);
    contents.erase(std::string(path));
  }

  std::unique_ptr<OutputFile> Open(std::string_view path, OpenMode mode) override {
    std::string& content = contents[std::string(path)];
    if (mode == OpenMode::Output)
      content.clear();
    return std::make_unique<MemoryFile>(*this, content);
  }

  std::map<std::string, std::string> contents;
  /// How many prints still find room.
  int printsLeft = 1'000'000;
  bool deletingFails = false;
  int openFiles = 0;

 private:
  class MemoryFile : public OutputFile {
   public:
    MemoryFile(MemoryFiles& files, std::string& content) : files_(files), content_(content) { ++files_.openFiles; }
    ~MemoryFile() override { MarkClosed(); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    void Print(std::string_view bytes) override {
      if (files_.printsLeft-- <= 0)
        Raise(error_number::kDiskFull);
      content_ += bytes;
    }
    void Close() override { MarkClosed(); }

   private:
    void MarkClosed() {
      if (std::exchange(isOpen_, false))
        --files_.openFiles;
    }

    MemoryFiles& files_;
    std::string& content_;
    bool isOpen_ = true;
  };
};

}  // namespace fiscalon
