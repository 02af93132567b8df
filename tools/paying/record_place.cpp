#include "tools/paying/record_place.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

#include "core/platform/code_page.h"
#include "core/platform/utf8_path.h"
#include "core/values/text.h"
#include "tools/reading/shown_record.h"
#include "tools/reading/utf8_words.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

/// As much of a file as is looked at: records enough to know one by.
constexpr size_t kLookedAt = 65536;
/// As much of its first line as is shown.
constexpr size_t kShownCharacters = 40;

std::optional<std::string> BeginningOf(std::string_view name) {
  std::ifstream file(Utf8Path(name), std::ios::binary);
  std::string bytes(kLookedAt, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.is_open() || file.bad())
    return std::nullopt;
  bytes.resize(static_cast<size_t>(file.gcount()));
  return bytes;
}

bool AreRecords(std::string_view bytes) {
  // The last line may go on behind what was looked at.
  if (bytes.size() == kLookedAt)
    bytes = bytes.substr(0, bytes.rfind('\n') + 1);
  const std::vector<ShownRecord> lines = TakeApart(bytes, nullptr);
  return !lines.empty() &&
         std::all_of(lines.begin(), lines.end(), [](const ShownRecord& line) { return line.isRecord; });
}

/// How a file's text begins; empty where it is no text.
std::string FirstWords(std::string_view bytes) {
  std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  const auto isCommand = [](char byte) { return static_cast<unsigned char>(byte) < ' ' && byte != '\t'; };
  if (AreBlanks(line) || std::any_of(line.begin(), line.end(), isCommand))
    return {};
  std::string words;
  size_t characters = 0;
  for (const char byte : line) {
    const bool beginsCharacter = (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    if (beginsCharacter && ++characters > kShownCharacters)
      return VisibleUtf8(words + "...");
    words += byte == '\t' ? ' ' : byte;
  }
  return VisibleUtf8(words);
}

}  // namespace

std::string WhyNoFileCanBe(std::string_view name) {
  if (AreBlanks(name))
    return Utf8Words("no file is named.");
  if (const std::string kept = ToUtf8(FromUtf8(name)); kept != name)
    return Utf8Words(R"("{1}" would become "{2}": name it in Western European letters.)",
                     {VisibleUtf8(name), VisibleUtf8(kept)});
  const auto path = Utf8Path(name);
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::none)
    return Utf8Words("\"{1}\" can't be looked at: {2}.", {VisibleUtf8(name), Utf8Words(error.message())});
  if (std::filesystem::is_directory(status))
    return Utf8Words("\"{1}\" is a folder: name a file in it.", {VisibleUtf8(name)});
  if (std::filesystem::exists(status))
    return std::filesystem::is_regular_file(status)
               ? std::string()
               : Utf8Words("\"{1}\" is a device or a pipe, which can't hold records: name a file.",
                           {VisibleUtf8(name)});
  const auto folder = path.has_parent_path() ? path.parent_path() : Utf8Path(".");
  if (std::filesystem::is_directory(folder, error))
    return {};
  return Utf8Words("there is no folder \"{1}\": make it, or name another file.", {VisibleUtf8(Utf8Of(folder))});
}

std::string WhatWouldBeLost(std::string_view name) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(Utf8Path(name), ignored))
    return {};
  const auto size = std::filesystem::file_size(Utf8Path(name), ignored);
  const std::optional<std::string> bytes = BeginningOf(name);
  if (!bytes)
    return Utf8Words("\"{1}\" is there and can't be read: it may be no record file.", {VisibleUtf8(name)});
  if (bytes->empty() || AreRecords(*bytes))
    return {};
  const std::string words = FirstWords(*bytes);
  const std::string begins =
      words.empty() ? Utf8Words("does not begin as a text") : Utf8Words("begins with \"{1}\"", {words});
  return Utf8Words(size == 1 ? "\"{1}\" is no record file. It has {2} byte, and {3}."
                             : "\"{1}\" is no record file. It has {2} bytes, and {3}.",
                   {VisibleUtf8(name), std::to_string(size), begins});
}

}  // namespace fiscalon
