#include <algorithm>
#include <filesystem>

#include "core/platform/code_page.h"
#include "core/platform/files.h"
#include "core/platform/runtime_error.h"
#include "core/platform/utf8_path.h"

namespace fiscalon {

namespace {

constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
constexpr std::string_view kSeparators = "/\\";

bool IsSeparator(char c) {
  return kSeparators.find(c) != kSeparators.npos;
}

}  // namespace

std::string Files::ParentFolder(std::string_view path) {
  while (!path.empty() && IsSeparator(path.back())) path.remove_suffix(1);
  const size_t last = path.find_last_of(kSeparators);
  if (last == path.npos)
    return "";
  std::string_view folder = path.substr(0, last);
  while (!folder.empty() && IsSeparator(folder.back())) folder.remove_suffix(1);
  // A path whose folder is nothing but separators lies in the root, and so does one right below a drive.
  const bool isDrive = folder.size() == 2 && folder.back() == ':';
  return std::string(folder.empty() || isDrive ? path.substr(0, folder.size() + 1) : folder);
}

std::string Files::CurrentFolder() {
  std::error_code failure;
  const auto folder = std::filesystem::current_path(failure);
  if (failure)
    Raise(error_number::kPathFileAccessError);
  return FromUtf8(Utf8Of(folder));
}

std::string Files::JoinPath(std::string_view folder, std::string_view name) {
  if (folder.empty())
    return std::string(name);
  while (!name.empty() && IsSeparator(name.front())) name.remove_prefix(1);
  std::string path(folder);
  if (!name.empty() && !IsSeparator(path.back()))
    path += kSeparator;
  return path.append(name);
}

std::string NativePath(std::string_view piece) {
  std::string path(piece);
  std::replace(path.begin(), path.end(), '\\', kSeparator);
  return path;
}

}  // namespace fiscalon
