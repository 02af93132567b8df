#pragma once

#include <filesystem>

namespace fiscalon {

/// Makes a folder that no other process has, where the system keeps what is fleeting. Throws `std::system_error`.
std::filesystem::path MakeTemporaryFolder();

}  // namespace fiscalon
