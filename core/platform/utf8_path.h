#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// The standard library's paths are made of the system's own characters, which are not UTF-8 everywhere.
namespace fiscalon {

inline std::filesystem::path Utf8Path(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

inline std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

}  // namespace fiscalon
