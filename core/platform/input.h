#pragma once

#include <cstdio>
#include <string>

namespace fiscalon {

/// Opens a file to read its bytes. The path is UTF-8. Null where that fails; `errno` says why.
std::FILE* OpenInput(const std::string& path);

}  // namespace fiscalon
