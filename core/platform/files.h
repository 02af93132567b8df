#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace fiscalon {

enum class OpenMode { Output, Append };

/// A file open for writing. It closes with the object at the latest.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  /// Writes the bytes as they are. They are with the system when this returns, so a line that was printed
  /// survives the program. Error 61 on a full disk, 75 on any other failure and after `Close`.
  virtual void Print(std::string_view bytes) = 0;

  /// Closes the file; a second time does nothing. Error 61 or 75 where the system reports a late failure.
  virtual void Close() = 0;
};

/// The file system as the library uses it. Paths are in the code page.
class Files {
 public:
  virtual ~Files() = default;

  /// True when the length of a file of that name can be read, be it 0. No folder exists in this sense.
  virtual bool Exists(std::string_view path) const = 0;

  /// Removes a file. Error 53 where there is none, 76 where part of the path is no folder, 70 without
  /// permission, 75 on anything that is not a file, or on another failure.
  virtual void Delete(std::string_view path) = 0;

  /// Opens a file for writing and makes it where it is missing; `Output` empties what is there, `Append` goes
  /// on behind it. Error 76 where the folder is missing, 75 for an empty name, a folder or a lack of
  /// permission, 61 on a full disk.
  virtual std::unique_ptr<OutputFile> Open(std::string_view path, OpenMode mode) = 0;

  /// The folder part of a path: "/a/b" of "/a/b/c", "/" of "/a", "C:\" of "C:\a", "" of "x" and of "/". Both "/" and
  /// "\" count as separators.
  static std::string ParentFolder(std::string_view path);

  /// The folder that the process is in. Error 75 where it can't be told.
  static std::string CurrentFolder();

  /// A name in a folder, with exactly one separator between. An empty folder gives the bare name.
  static std::string JoinPath(std::string_view folder, std::string_view name);
};

/// The system's own files.
class SystemFiles : public Files {
 public:
  bool Exists(std::string_view path) const override;
  void Delete(std::string_view path) override;
  std::unique_ptr<OutputFile> Open(std::string_view path, OpenMode mode) override;
};

/// A piece of a path as the product names it, with "\" turned into the system's separator.
std::string NativePath(std::string_view piece);

}  // namespace fiscalon
