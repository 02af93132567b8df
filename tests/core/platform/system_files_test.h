#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/platform/files.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {

class SystemFilesTest : public testing::Test {
 protected:
  int32_t OpenError(const std::string& path, OpenMode mode = OpenMode::Output) {
    return ErrorOf([&] { files.Open(path, mode); });
  }
  int32_t DeleteError(const std::string& path) {
    return ErrorOf([&] { files.Delete(path); });
  }

  TemporaryFolder folder;
  SystemFiles files;
};

}  // namespace fiscalon
