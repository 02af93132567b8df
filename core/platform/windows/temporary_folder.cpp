#include "core/platform/temporary_folder.h"

#include <random>
#include <string>
#include <system_error>

#include "core/platform/utf8_path.h"

namespace fiscalon {

std::filesystem::path MakeTemporaryFolder() {
  constexpr std::string_view kLetters = "0123456789abcdefghijklmnopqrstuvwxyz";
  constexpr int kLength = 12;
  std::error_code error;
  const auto folder = std::filesystem::temp_directory_path(error);
  if (error)
    throw std::system_error(error, "no temporary folder can be made where TMP says");
  std::random_device random;
  for (;;) {
    std::string name = "fiscalon-";
    for (int i = 0; i < kLength; ++i) name += kLetters[random() % kLetters.size()];
    std::error_code failure;
    if (std::filesystem::create_directory(folder / name, failure))
      return folder / name;
    if (failure)
      throw std::system_error(failure, "no temporary folder could be made in " + Utf8Of(folder));
  }
}

}  // namespace fiscalon
