#pragma once

#include <filesystem>

#include "core/module_to_change.h"
#include "tests/support/module_test.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {

/// A test over the module's state whose logs go to a folder of its own.
class LoggedTest : public ModuleTest {
 protected:
  LoggedTest() {
    std::filesystem::create_directory(folder.Path("Zelmor"));
    ModuleToChange().mainPath = folder.Path();
  }

  std::string PlayByPlay() const { return folder.Read("Zelmor/PBP.txt"); }
  std::string ErrorLog() const { return folder.Read("error.log"); }

  TemporaryFolder folder;
};

}  // namespace fiscalon
